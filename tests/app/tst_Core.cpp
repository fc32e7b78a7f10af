#include "app/Core.h"
#include "app/CoreLifecycleListener.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "services/Log.h"
#include "support/ModalAnswerer.h"
#include "support/RecordingHandler.h"
#include "support/TestScene.h"
#include "windows/TesseraWindow.h"

#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace TES;
using TES::Test::ModalAnswerer;
using TES::Test::RecordingHandler;
using TES::Test::TestScene;

namespace {

class Listener : public CoreLifecycleListener
{
public:
    void coreInitialized() override
    {
        calls.append("initialized");
        busOnAtInit = EventBus::ip() && EventBus::ip()->getEventsEnabled();
    }
    void coreDestroying() override
    {
        calls.append("destroying");
        servicesAliveAtDestroy = EventBus::ip() && Log::ip();
    }
    QStringList calls;
    bool busOnAtInit = false;
    bool servicesAliveAtDestroy = false;
};

// Runs fn with standard output sent to a file, and answers what it printed.
template<typename Fn>
QString captureStdout(Fn fn)
{
    std::fflush(stdout);
    int const saved = dup(STDOUT_FILENO);
    int const fd = open("stdout.txt", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(fd, STDOUT_FILENO);
    close(fd);
    fn();
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
    QFile file("stdout.txt");
    file.open(QIODevice::ReadOnly);
    return QString::fromLocal8Bit(file.readAll());
}

// A started Core for one test; stops it at the end, and deletes the window and the scene
// manager that Core leaves for the process to end.
class Started
{
public:
    Started() { core.initialize({}); }
    ~Started()
    {
        core.destroy();
        delete TesseraWindow::ip();
        SceneManager::destroy();
    }
    Core core;
};

} // namespace

class tst_Core : public QObject
{
    Q_OBJECT

private slots:
    void startAndStop();
    void windowStateAcrossRuns();
    void newDesignAsks();
    void resetBlanksTheBus();
    void cleanProjectIsNotOfferedForSaving();
    void saveAsProposesAFile();
};

void tst_Core::startAndStop()
{
    QString const base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QVERIFY(base.startsWith(QDir::currentPath())); // the test runner points it here
    QDir(base + "/.tes").removeRecursively();
    QFile::remove("tessera.log");

    Core core;
    QCOMPARE(Core::_instance, &core);
    Listener listener;
    core.setListener(&listener);
    QCOMPARE(core.getListener(), &listener);

    CommandLineParser::ArgumentMap args;
    args.emplace("level", "3");

    bool started = false;
    QString const printed = captureStdout([&] { started = core.initialize(args); });
    QVERIFY(started);
    // Qt may add its own warnings to the same stream.
    QVERIFY2(printed.startsWith(QString("Creating TES directory at %1/.tes\n").arg(base)),
             qPrintable(printed));
    QVERIFY(QDir(base + "/.tes").exists());
    QCOMPARE(Core::pluginDataDirectory(), QDir(base + "/.tes").canonicalPath());
    QCOMPARE(core.commandLineArgs(), args);
    QCOMPARE(listener.calls, QStringList({"initialized"}));
    QVERIFY(listener.busOnAtInit);
    QVERIFY(EventBus::ip());
    QVERIFY(Log::ip());
    TesseraWindow *window = TesseraWindow::ip();
    QVERIFY(window);
    QVERIFY(window->isVisible());
    QVERIFY(!window->parent());

    core.destroy();
    QCOMPARE(listener.calls, QStringList({"initialized", "destroying"}));
    QVERIFY(listener.servicesAliveAtDestroy);
    QVERIFY(!EventBus::ip());
    QVERIFY(!Log::ip());
    // Hidden, not deleted, with its arrangement saved.
    QCOMPARE(TesseraWindow::ip(), window);
    QVERIFY(!window->isVisible());
    QVERIFY(QFile::exists(base + "/.tes/mainwindow.state"));
    QVERIFY(QFile::exists(base + "/.tes/mainwindow.geom"));
    delete window;
    QVERIFY(SceneManager::ip()); // left alive too
    SceneManager::destroy();

    QFile log("tessera.log");
    QVERIFY(log.open(QIODevice::ReadOnly | QIODevice::Text));
    QStringList lines = QString::fromUtf8(log.readAll()).split('\n', Qt::SkipEmptyParts);
    for (QString &line : lines)
        line = line.mid(10); // the "(hh:mm:ss)" stamp
    QCOMPARE(lines, QStringList({"[Core]<Info> : Initialization complete."}));

    // A second start finds the directory and says nothing about it.
    Core::_instance = nullptr;
    Core again;
    QString const second = captureStdout([&] { again.initialize({}); });
    QVERIFY2(!second.contains("Creating"), qPrintable(second));
    again.destroy();
    delete TesseraWindow::ip();
    SceneManager::destroy();
}

void tst_Core::windowStateAcrossRuns()
{
    {
        Started first;
        TesseraWindow &window = TesseraWindow::i();
        window.addDockWidget(Qt::TopDockWidgetArea, window.consoleDock());
        window.addDockWidget(Qt::LeftDockWidgetArea, window.propertyEditorDock());
    }
    // The next run comes up as the last one ended.
    Started second;
    TesseraWindow &window = TesseraWindow::i();
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::TopDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(window.propertyEditorDock()), Qt::LeftDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(window.toolBoxDock()), Qt::RightDockWidgetArea);
    window.resetState();
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::BottomDockWidgetArea);
}

void tst_Core::newDesignAsks()
{
    Started started;
    RecordingHandler recorder(EVM_PROJECT);

    // A clean project: only the one question.
    ModalAnswerer refuse({"No"});
    QVERIFY(started.core.newDesign());
    QCOMPARE(refuse.seen, QStringList({"Create New Design | Create New Design? | "}));
    QVERIFY(recorder.events.isEmpty());

    ModalAnswerer accept({"Yes"});
    QVERIFY(started.core.newDesign());
    QCOMPARE(accept.seen, QStringList({"Create New Design | Create New Design? | "}));
    QCOMPARE(recorder.types(),
             QList<unsigned long long>({EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK,
                                        EVT_PROJECT_POSTBLANK, EVT_PROJECT_NEW}));
}

void tst_Core::resetBlanksTheBus()
{
    Started started;
    TestScene::registerFactories();
    QUuid const screen = TestScene::addScreen("page");
    QUuid const item = TestScene::addLeaf(screen, QRect(0, 0, 5, 5));
    SceneManager::i().setScreenVisible(screen, true);
    RecordingHandler persistent(EVM_PROJECT | EVM_SCREEN | EVM_SCENE, true, "kept");
    RecordingHandler passing(EVM_PROJECT, false, "dropped");
    EventBus::i().raiseEvent(QSharedPointer<Event>::create(EVT_PROJECT_STATE, EVM_PROJECT));

    started.core.reset();
    // The queued event is dropped with the project, and so is the handler that doesn't last.
    // The scene is emptied while the bus is off, so nobody hears of it.
    QList<unsigned long long> const blank{EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK,
                                          EVT_PROJECT_POSTBLANK};
    QCOMPARE(persistent.types(), blank);
    QVERIFY(passing.events.isEmpty());
    QVERIFY(EventBus::i().getEventsEnabled());
    QCOMPARE(SceneManager::i().screenCount(), 0u);
    QVERIFY(SceneManager::i().getActiveScreen().isNull());
    QVERIFY(SceneManager::i().visibleScreens().isEmpty());
    QVERIFY(SceneManager::i().getObject(item).isNull());
}

void tst_Core::cleanProjectIsNotOfferedForSaving()
{
    Started started;
    ModalAnswerer answers({"Yes"});
    QCOMPARE(started.core.promptForSave(), int(QMessageBox::NoRole));
    QVERIFY(answers.seen.isEmpty());
}

void tst_Core::saveAsProposesAFile()
{
    Started started;
    QString const proposal = QDir::current().absoluteFilePath("MyProject.zip");

    ModalAnswerer cancel({"Cancel"});
    QCOMPARE(started.core.promptForSaveAs(), QString());
    QCOMPARE(cancel.seen,
             QStringList({"Save Project As | " + proposal + " | Tessera Project Files (*.zip)"}));

    ModalAnswerer save({"Save"});
    QCOMPARE(started.core.promptForSaveAs(), proposal);
    QCOMPARE(save.seen.size(), 1);
}

QTEST_MAIN(tst_Core)
#include "tst_Core.moc"
