// SPDX-License-Identifier: MIT
#include "app/Core.h"
#include "app/CoreLifecycleListener.h"
#include "designer/SelectionOverlay.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/Log.h"
#include "services/PluginManager.h"
#include "support/FixturePlugins.h"
#include "support/ModalAnswerer.h"
#include "support/RecordingHandler.h"
#include "support/Services.h"
#include "support/TestScene.h"
#include "tools/ToolManager.h"
#include "widgets/PluginDialog.h"
#include "windows/TesseraWindow.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace TES;
using TES::Test::FixturePlugins;
using TES::Test::ModalAnswerer;
using TES::Test::RecordingHandler;
using TES::Test::Services;
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

// A started Core for one test; stops it at the end.
class Started
{
public:
    Started()
    {
        printed = captureStdout([this] { core.initialize({}); });
    }
    ~Started()
    {
        core.destroy();
        Services::dropCoreLeftovers();
    }
    Core core;
    QString printed;
};

// Answers the plug-in dialog when it comes up during a start: clicks the row with the given
// title, then Ok; closes the dialog when there is no title. `offered`: the titles, sorted.
class PluginChooser : public QObject
{
public:
    explicit PluginChooser(QString title = QString())
    {
        connect(&_timer, &QTimer::timeout, this, [this, title] {
            auto *dialog = qobject_cast<PluginDialog *>(QApplication::activeModalWidget());
            if (!dialog || shown)
                return;
            shown = true;
            auto *list = dialog->findChild<QListWidget *>();
            for (int row = 0; row < list->count(); ++row)
                offered.append(list->item(row)->text());
            offered.sort();
            if (title.isEmpty()) {
                dialog->close();
                return;
            }
            if (QListWidgetItem *item = list->findItems(title, Qt::MatchExactly).value(0))
                QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                                  list->visualItemRect(item).center());
            QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                              Qt::LeftButton);
        });
        _timer.start(10);
    }
    QStringList offered;
    bool shown = false;

private:
    QTimer _timer;
};

QString configBase()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QStringList logLines()
{
    QFile log("tessera.log");
    if (!log.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QStringList lines = QString::fromUtf8(log.readAll()).split('\n', Qt::SkipEmptyParts);
    for (QString &line : lines)
        line = line.mid(10); // the "(hh:mm:ss)" stamp
    return lines;
}

} // namespace

class tst_Core : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startAndStop();
    void windowStateAcrossRuns();
    void newDesignAsks();
    void resetBlanksTheBus();
    void prompts();
    void onePluginIsTakenSilently();
    void unusablePluginsAreSkipped();
    void twoPluginsAskTheUser();
    void refusedChoiceEndsTheStart();
};

void tst_Core::init()
{
    FixturePlugins::removeAll();
    FixturePlugins::startRecording();
}

void tst_Core::startAndStop()
{
    QString const base = configBase();
    QVERIFY(base.startsWith(QDir::currentPath())); // the test runner points it here
    QDir(base + "/.tes").removeRecursively();
    QFile::remove("tessera.log");

    Core core;
    QCOMPARE(Core::_instance, &core);
    Listener listener;
    core.setListener(&listener);
    CommandLineParser::ArgumentMap args;
    args.emplace("level", "3");
    bool started = false;
    PluginChooser chooser;
    QString const printed = captureStdout([&] { started = core.initialize(args); });
    QVERIFY(started);
    // No plug-ins: no dialog, and the user's data lies in ".tes" itself.
    QVERIFY(!chooser.shown);
    QVERIFY(!PluginManager::i().pluginIsLoaded());
    // Qt may add its own warnings to the same stream.
    QVERIFY2(printed.startsWith(QString("Creating TES directory at %1/.tes\n").arg(base)),
             qPrintable(printed));
    QCOMPARE(Core::pluginDataDirectory(), QDir(base + "/.tes").canonicalPath());
    QCOMPARE(core.commandLineArgs(), args);
    QCOMPARE(listener.calls, QStringList({"initialized"}));
    QVERIFY(listener.busOnAtInit);
    TesseraWindow *window = TesseraWindow::ip();
    QVERIFY(window && window->isVisible() && !window->parent());

    core.destroy();
    QCOMPARE(listener.calls, QStringList({"initialized", "destroying"}));
    QVERIFY(listener.servicesAliveAtDestroy);
    QVERIFY(!EventBus::ip());
    QVERIFY(!Log::ip());
    // The selection and the tools live on with the process, as the scene does, and the
    // selection overlay with the window.
    QVERIFY(SelectionManager::ip() && ToolManager::ip());
    QVERIFY(SelectionOverlay::ip());
    // Hidden, not deleted, with its arrangement saved.
    QCOMPARE(TesseraWindow::ip(), window);
    QVERIFY(!window->isVisible());
    QVERIFY(QFile::exists(base + "/.tes/mainwindow.state"));
    QVERIFY(QFile::exists(base + "/.tes/mainwindow.geom"));
    Services::dropCoreLeftovers();
    QCOMPARE(logLines(), QStringList({"[Core]<Info> : Initialization complete."}));
}

void tst_Core::windowStateAcrossRuns()
{
    {
        Started first;
        TesseraWindow &window = TesseraWindow::i();
        window.addDockWidget(Qt::TopDockWidgetArea, window.consoleDock());
        window.addDockWidget(Qt::LeftDockWidgetArea, window.propertyEditorDock());
    }
    // The next run comes up as the last one ended, and says nothing of the directory it finds.
    Started second;
    QVERIFY2(!second.printed.contains("Creating"), qPrintable(second.printed));
    TesseraWindow &window = TesseraWindow::i();
    QCOMPARE(window.dockWidgetArea(window.consoleDock()), Qt::TopDockWidgetArea);
    QCOMPARE(window.dockWidgetArea(window.propertyEditorDock()), Qt::LeftDockWidgetArea);
}

void tst_Core::newDesignAsks()
{
    Started started;
    RecordingHandler recorder(EVM_PROJECT);
    // A clean project: only the one question.
    ModalAnswerer refuse({"No"});
    QVERIFY(started.core.newDesign());
    QVERIFY(recorder.events.isEmpty());
    ModalAnswerer accept({"Yes"});
    QVERIFY(started.core.newDesign());
    QString const prompt = "Create New Design | Create New Design? | ";
    QCOMPARE(refuse.seen + accept.seen, QStringList({prompt, prompt}));
    // The reset's blank, then the data manager's fresh design, then the news.
    QCOMPARE(recorder.types(),
             QList<unsigned long long>(
                 {EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_POSTBLANK,
                  EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_REQUEST_RESET,
                  EVT_PROJECT_POSTBLANK, EVT_PROJECT_CURRENTFILECHANGED, EVT_PROJECT_NEW}));
}

void tst_Core::resetBlanksTheBus()
{
    Started started;
    TestScene::registerFactories();
    QUuid const screen = TestScene::addScreen("page");
    QUuid const item = TestScene::addLeaf(screen, QRect(0, 0, 5, 5));
    SceneManager::i().setScreenVisible(screen, true);
    SelectionManager::i().select(item);
    RecordingHandler persistent(EVM_PROJECT | EVM_SCREEN | EVM_SCENE | EVM_SELECT, true, "kept");
    RecordingHandler passing(EVM_PROJECT, false, "dropped");
    EventBus::i().raiseEvent(QSharedPointer<Event>::create(EVT_PROJECT_STATE, EVM_PROJECT));

    started.core.reset();
    // The queued event goes with the project, and so does the handler that doesn't last; the
    // scene and the selection are emptied while the bus is off, so nobody hears of it.
    QCOMPARE(persistent.types(),
             QList<unsigned long long>(
                 {EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_POSTBLANK}));
    QVERIFY(passing.events.isEmpty());
    QVERIFY(EventBus::i().getEventsEnabled());
    QCOMPARE(SceneManager::i().screenCount(), 0u);
    QVERIFY(SceneManager::i().getActiveScreen().isNull());
    QVERIFY(SceneManager::i().visibleScreens().isEmpty());
    QVERIFY(SceneManager::i().getObject(item).isNull());
    QCOMPARE(SelectionManager::i().selectedCount(), 0u);
}

void tst_Core::prompts()
{
    Started started;
    // A clean project is not offered for saving.
    ModalAnswerer yes({"Yes"});
    QCOMPARE(started.core.promptForSave(), int(QMessageBox::NoRole));
    QVERIFY(yes.seen.isEmpty());

    QString const proposal = QDir::current().absoluteFilePath("MyProject.zip");
    ModalAnswerer cancel({"Cancel"});
    QCOMPARE(started.core.promptForSaveAs(), QString());
    QCOMPARE(cancel.seen,
             QStringList({"Save Project As | " + proposal + " | Tessera Project Files (*.zip)"}));
    ModalAnswerer save({"Save"});
    QCOMPARE(started.core.promptForSaveAs(), proposal);
    QCOMPARE(save.seen.size(), 1);
}

void tst_Core::onePluginIsTakenSilently()
{
    QString const path = FixturePlugins::install("complete", "complete");
    QString const directory = configBase() + "/.tes/complete";
    QDir(directory).removeRecursively();
    {
        PluginChooser chooser;
        Started started;
        QVERIFY(!chooser.shown);
        QVERIFY2(started.printed.contains("Creating plugin directory at " + directory + "\n"),
                 qPrintable(started.printed));
        QCOMPARE(Core::pluginDataDirectory(), QDir(directory).canonicalPath());
        QCOMPARE(PluginManager::i().currentPlugin().path, path);
        // The plug-in ran before start-up ended, and joined in through the lifecycle listener.
        QCOMPARE(FixturePlugins::calls().mid(2),
                 QStringList({"complete getInterface", "complete initialize " + path,
                              "complete coreInitialized"}));
    }
    QCOMPARE(FixturePlugins::calls().mid(5),
             QStringList({"complete coreDestroying", "complete shutdown"}));
    // The user's settings and the window's arrangement belong to the plug-in.
    QVERIFY(QFile::exists(directory + "/user_config.json"));
    QVERIFY(QFile::exists(directory + "/mainwindow.state"));
    QVERIFY(logLines().contains("[Plugin]<Info> : Initializing Plugin \"complete\" v1.2.3..."));

    // The next start finds the directory and says nothing.
    Started again;
    QVERIFY2(!again.printed.contains("Creating plugin directory"), qPrintable(again.printed));
    QVERIFY(PluginManager::i().pluginIsLoaded());
}

void tst_Core::unusablePluginsAreSkipped()
{
    // One refuses to be listed; the one left is taken without asking, and fails to start.
    FixturePlugins::install("refusing", "refusing");
    QString const failing = FixturePlugins::install("failing", "failing");
    FixturePlugins::install("complete", QString()); // not in a sub-directory: never seen
    PluginChooser chooser;
    Started started;
    QVERIFY(!chooser.shown);
    QVERIFY(FixturePlugins::calls().contains("failing initialize " + failing));
    QVERIFY(!PluginManager::i().pluginIsLoaded());
    QVERIFY2(!started.printed.contains("plugin directory"), qPrintable(started.printed));
    QCOMPARE(Core::pluginDataDirectory(), QDir(configBase() + "/.tes").canonicalPath());
    QVERIFY(TesseraWindow::i().isVisible());
}

void tst_Core::twoPluginsAskTheUser()
{
    FixturePlugins::install("noinfo", "noinfo");
    QString const complete = FixturePlugins::install("complete", "complete");
    PluginChooser chooser("complete fixture");
    Started started;
    // The plug-in without a GetInfo is offered under an empty title.
    QCOMPARE(chooser.offered, QStringList({"", "complete fixture"}));
    QCOMPARE(PluginManager::i().currentPlugin().path, complete);
    QCOMPARE(Core::pluginDataDirectory(), QDir(configBase() + "/.tes/complete").canonicalPath());
    QVERIFY(FixturePlugins::calls().filter("noinfo initialize").isEmpty());
}

void tst_Core::refusedChoiceEndsTheStart()
{
    FixturePlugins::install("noinfo", "noinfo");
    FixturePlugins::install("complete", "complete");
    QFile::remove(configBase() + "/.tes/mainwindow.state");
    QFile::remove(configBase() + "/.tes/user_config.json");

    Core core;
    PluginChooser chooser;
    QVERIFY(!core.initialize({}));
    QVERIFY(chooser.shown);
    // Nothing after the choice ran: no plug-in, no shown window, the bus still off.
    QVERIFY(FixturePlugins::calls().filter(" initialize").isEmpty());
    QVERIFY(!PluginManager::i().pluginIsLoaded());
    QVERIFY(!TesseraWindow::i().isVisible());
    QVERIFY(!EventBus::i().getEventsEnabled());

    // The stop still runs in full.
    core.destroy();
    QVERIFY(!EventBus::ip());
    QVERIFY(!Log::ip());
    QVERIFY(QFile::exists(configBase() + "/.tes/mainwindow.state"));
    QVERIFY(QFile::exists(configBase() + "/.tes/user_config.json"));
    QVERIFY(!logLines().join('\n').contains("Initialization complete."));
    Services::dropCoreLeftovers();
}

QTEST_MAIN(tst_Core)
#include "tst_Core.moc"
