// SPDX-License-Identifier: MIT
#include "app/Core.h"
#include "data/DataManager.h"
#include "data/DataState.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/Screen.h"
#include "scene/SelectionManager.h"
#include "scene/TransformSceneObject.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "services/PluginManager.h"
#include "support/ExitLoop.h"
#include "support/FixturePlugins.h"
#include "support/LogRecorder.h"
#include "support/ModalAnswerer.h"
#include "support/RecordingHandler.h"
#include "support/SceneSnapshot.h"
#include "support/Services.h"
#include "windows/TesseraWindow.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

#include <functional>

using namespace TES;
using TES::Test::ExitLoop;
using TES::Test::FixturePlugins;
using TES::Test::LogRecorder;
using TES::Test::ModalAnswerer;
using TES::Test::RecordingHandler;
using TES::Test::SceneSnapshot;
using TES::Test::Services;

namespace {

constexpr int GridX = 2; // Project GRID_X

QString const SavePrompt = "Save Current Project? | The current project has unsaved changes. | "
                           "Save now?";
QString const NewPrompt = "Create New Design | Create New Design? | ";
QString const ExitPrompt = "Confirm Exit | Exit Tessera? | ";
QString const InvalidBox = "Invalid Project | The selected file is not a valid Tessera project "
                           "archive. | ";

// GRID_X as saved in the archive's project state; -1 when it cannot be read.
int savedGridX(QString const &path)
{
    DataState state;
    if (!state.read(path))
        return -1;
    QByteArray const data = state.getFileData("state.json");
    QJsonObject const values
        = QJsonDocument::fromJson(QByteArray(data.constData(), data.size())).object();
    return values.value("GRID_X").toObject().value("value").toInt(-1);
}

int gridX()
{
    return GlobalState::i().getInt(GlobalPropertyType::Project, GridX);
}

// An edit that makes the project dirty.
void edit(int value)
{
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, value));
    QVERIFY(GlobalState::i().getDirty());
}

// An object of the plug-in's type under a screen or an object, made through the host's
// interfaces only: the plug-in carries its own copy of the scene classes.
QUuid place(QString const &type, QUuid const &parent, QRect const &rect, QString const &name)
{
    SceneManager &scene = SceneManager::i();
    QUuid const id = scene.createObject(type);
    auto object = scene.getObject(id).toStrongRef().dynamicCast<TransformSceneObject>();
    if (!object)
        return QUuid();
    object->setRectangle(rect);
    object->setName(name);
    if (auto screen = scene.screen(parent).toStrongRef())
        screen->addRoot(id, 0xFFFFFFFF);
    else if (auto owner = scene.getObject(parent).toStrongRef())
        owner->addChild(id, 0xFFFFFFFF);
    return id;
}

// The entry names that an independent reader lists for an archive, sorted.
QStringList unzipListing(QString const &path)
{
    QProcess unzip;
    unzip.start("unzip", {"-Z1", path});
    if (!unzip.waitForFinished(60000) || unzip.exitCode() != 0)
        return {"unzip failed: " + QString::fromLocal8Bit(unzip.readAllStandardError())};
    QStringList names
        = QString::fromLocal8Bit(unzip.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    names.sort();
    return names;
}

QString projectPath(QString const &name)
{
    return QDir::current().absoluteFilePath("projects/" + name);
}

// Window titles only: what a file dialog shows besides depends on the file system.
QStringList titles(QStringList const &seen)
{
    QStringList result;
    for (QString const &dialog : seen)
        result.append(dialog.section(" | ", 0, 0));
    return result;
}

QStringList dataCalls()
{
    return FixturePlugins::calls().filter(QRegularExpression("^scene (check|pre|post)"));
}

} // namespace

// The project commands of Core end to end: a started application with the test scene's
// plug-in, and every dialog answered as a user would.
class tst_ProjectCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void saveAsAndOpenAgain();
    void newDesignOfADirtyProject_data();
    void newDesignOfADirtyProject();
    void openOfADirtyProject_data();
    void openOfADirtyProject();
    void closeCommand();
    void saveCommand();
    void refusedOpens();

private:
    // Saves the project to a file of that name through "Save Project As".
    void saveAs(QString const &name);

    Core *_core = nullptr;
    std::unique_ptr<LogRecorder> _log;
};

void tst_ProjectCommands::initTestCase()
{
    FixturePlugins::removeAll();
    FixturePlugins::install("scene", "scene");
}

void tst_ProjectCommands::init()
{
    QDir("projects").removeRecursively();
    QVERIFY(QDir().mkpath("projects"));
    FixturePlugins::startRecording();
    Core::_instance = nullptr;
    _core = new Core();
    QVERIFY(_core->initialize({}));
    QVERIFY(PluginManager::i().pluginIsLoaded());
    _log = std::make_unique<LogRecorder>();
    _log->attach();
}

void tst_ProjectCommands::cleanup()
{
    _log.reset();
    _core->destroy();
    Services::dropCoreLeftovers();
    delete _core;
}

void tst_ProjectCommands::cleanupTestCase()
{
    FixturePlugins::removeAll();
}

void tst_ProjectCommands::saveAs(QString const &name)
{
    // Over an existing file the file dialog asks first.
    bool const exists = QFile::exists(projectPath(name));
    ModalAnswerer answers(exists ? QStringList({projectPath(name), "Yes"})
                                 : QStringList({projectPath(name)}));
    QVERIFY(_core->saveAs());
    QCOMPARE(answers.seen.size(), exists ? 2 : 1);
    QCOMPARE(titles(answers.seen).first(), QString("Save Project As"));
    QCOMPARE(DataManager::i().currentFile(), projectPath(name));
}

void tst_ProjectCommands::saveAsAndOpenAgain()
{
    // Created in the start sequence, before the plug-in, which installs its interface.
    QVERIFY(DataManager::i().getInterface());
    QVERIFY(DataManager::i().currentFile().isEmpty());

    SceneManager &scene = SceneManager::i();
    QUuid const first = scene.newScreen(false, true, 0, true);
    scene.setScreenName(first, "first");
    QUuid const second = scene.newScreen(true, true, 0, true);
    scene.setScreenName(second, "second");
    QUuid const group = place("TestContainer", first, QRect(10, 10, 200, 100), "group");
    place("TestLeaf", group, QRect(5, 5, 20, 20), "inner");
    place("TestLeaf", first, QRect(300, 20, 50, 50), "loose");
    place("TestLeaf", second, QRect(0, 0, 480, 272), "backdrop");
    edit(30);
    SceneSnapshot const design = SceneSnapshot::Take();
    QCOMPARE(design.objectJson.size(), 4);

    saveAs("design.zip");
    QString const path = projectPath("design.zip");
    QVERIFY(!GlobalState::i().getDirty());
    QCOMPARE(TesseraWindow::i().windowTitle(), "Corvane Graphics Tessera : " + path);
    // An ordinary zip: another tool lists the project, the screens and the plug-in's own file.
    QStringList expected{"version.json",
                         "state.json",
                         "screens/screens.json",
                         "fixture/scene.json",
                         "screens/" + first.toString() + "/screen.json",
                         "screens/" + second.toString() + "/screen.json"};
    expected.sort();
    QCOMPARE(unzipListing(path), expected);

    ModalAnswerer blank({"Yes"});
    QVERIFY(_core->newDesign());
    QCOMPARE(blank.seen, QStringList({NewPrompt}));
    QCOMPARE(gridX(), 10);
    QCOMPARE(SceneManager::i().screenCount(), 0u);
    QVERIFY(DataManager::i().currentFile().isEmpty());
    QTRY_COMPARE(TesseraWindow::i().windowTitle(), QString("Corvane Graphics Tessera"));

    ModalAnswerer open({path});
    QVERIFY(_core->open());
    QCOMPARE(titles(open.seen), QStringList({"Open Project"}));
    QVERIFY(SceneSnapshot::Take() == design);
    QCOMPARE(gridX(), 30);
    QCOMPARE(DataManager::i().currentFile(), path);
    QTRY_VERIFY(!GlobalState::i().getDirty());
    QCOMPARE(dataCalls(),
             QStringList({"scene preSave", "scene postSave", "scene checkProject listed",
                          "scene preLoad {\"plugin\":\"scene\"}", "scene postLoad"}));
    QVERIFY(_log->lines().contains("Tessera|Opening project: " + path));
    QTRY_VERIFY(_log->lines().contains("DataManager|Successfully read project file: " + path));
    edit(31);
    QTRY_COMPARE(TesseraWindow::i().windowTitle(), "Corvane Graphics Tessera : " + path + "*");
}

void tst_ProjectCommands::newDesignOfADirtyProject_data()
{
    QTest::addColumn<bool>("withFile");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QStringList>("dialogs");
    QTest::addColumn<QString>("saved"); // the archive written, if any
    QTest::addColumn<bool>("blanked");

    QStringList const viaSaveAs{"Save Current Project?", "Save Project As", "Create New Design"};
    QStringList const direct{"Save Current Project?", "Create New Design"};
    // Without a file the save goes through "Save Project As"; cancelling it still leads to the
    // question of the new design. With a file, Yes saves to it without asking where.
    QTest::newRow("no file, save cancelled, kept")
        << false << QStringList({"Yes", "Cancel", "No"}) << viaSaveAs << QString() << false;
    QTest::newRow("no file, saved, blanked")
        << false << QStringList({"Yes", projectPath("picked.zip"), "Yes"}) << viaSaveAs
        << "picked.zip" << true;
    QTest::newRow("with file, saved, kept")
        << true << QStringList({"Yes", "No"}) << direct << "current.zip" << false;
    QTest::newRow("with file, not saved, blanked")
        << true << QStringList({"No", "Yes"}) << direct << QString() << true;
}

void tst_ProjectCommands::newDesignOfADirtyProject()
{
    QFETCH(bool, withFile);
    QFETCH(QStringList, answers);
    QFETCH(QStringList, dialogs);
    QFETCH(QString, saved);
    QFETCH(bool, blanked);

    if (withFile)
        saveAs("current.zip");
    edit(21);
    ModalAnswerer answerer(answers);
    QVERIFY(_core->newDesign());
    QCOMPARE(titles(answerer.seen), dialogs);
    QVERIFY(answerer.remaining().isEmpty());
    if (!saved.isEmpty())
        QCOMPARE(savedGridX(projectPath(saved)), 21);
    QVERIFY(saved == "picked.zip" || !QFile::exists(projectPath("picked.zip")));
    QCOMPARE(gridX(), blanked ? 10 : 21);
    QString const current = blanked ? QString() : withFile ? "current.zip" : saved;
    QCOMPARE(DataManager::i().currentFile(), current.isEmpty() ? QString() : projectPath(current));
    // A save and a blank both end clean; a refusal after a failed save leaves it dirty.
    QTRY_COMPARE(GlobalState::i().getDirty(), saved.isEmpty() && !blanked);
}

void tst_ProjectCommands::openOfADirtyProject_data()
{
    QTest::addColumn<bool>("withFile");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QStringList>("dialogs");
    QTest::addColumn<bool>("result");
    QTest::addColumn<int>("grid");

    QStringList const viaSaveAs{"Save Current Project?", "Save Project As"};
    QStringList const viaOpen{"Save Current Project?", "Open Project"};
    // A Yes saves and ends the command: the file dialog never comes. A No goes on to the file
    // dialog and opens what is picked there. A cancel leaves the project dirty.
    QTest::newRow("with file, saved")
        << true << QStringList({"Yes"}) << QStringList({"Save Current Project?"}) << true << 21;
    QTest::newRow("no file, saved")
        << false << QStringList({"Yes", projectPath("picked.zip")}) << viaSaveAs << true << 21;
    QTest::newRow("no file, save cancelled")
        << false << QStringList({"Yes", "Cancel"}) << viaSaveAs << false << 21;
    QTest::newRow("not saved, opened")
        << true << QStringList({"No", projectPath("other.zip")}) << viaOpen << true << 55;
    QTest::newRow("not saved, cancelled")
        << true << QStringList({"No", "Cancel"}) << viaOpen << false << 21;
}

void tst_ProjectCommands::openOfADirtyProject()
{
    QFETCH(bool, withFile);
    QFETCH(QStringList, answers);
    QFETCH(QStringList, dialogs);
    QFETCH(bool, result);
    QFETCH(int, grid);

    edit(55);
    saveAs("other.zip");
    if (withFile)
        saveAs("current.zip");
    else
        DataManager::i().newDesign();
    edit(21);
    ModalAnswerer answerer(answers);
    QCOMPARE(_core->open(), result);
    QCOMPARE(titles(answerer.seen), dialogs);
    QVERIFY(answerer.remaining().isEmpty());
    QCOMPARE(gridX(), grid);
    QTRY_COMPARE(GlobalState::i().getDirty(), !result);
}

void tst_ProjectCommands::closeCommand()
{
    // A clean project: only the exit question, and No keeps the application running.
    ModalAnswerer clean({"No"});
    QVERIFY(!_core->close());
    QCOMPARE(clean.seen, QStringList({ExitPrompt}));

    // Yes to the save, No to the exit: the project stays saved.
    saveAs("current.zip");
    edit(44);
    ModalAnswerer saved({"Yes", "No"});
    QVERIFY(!_core->close());
    QCOMPARE(saved.seen, QStringList({SavePrompt, ExitPrompt}));
    QVERIFY(!GlobalState::i().getDirty());
    QCOMPARE(savedGridX(projectPath("current.zip")), 44);

    // Without a file the save asks for one; a cancelled save still leads to the exit question.
    DataManager::i().newDesign();
    edit(45);
    ModalAnswerer cancelled({"Yes", "Cancel", "No"});
    QVERIFY(!_core->close());
    QCOMPARE(titles(cancelled.seen),
             QStringList({"Save Current Project?", "Save Project As", "Confirm Exit"}));
    QVERIFY(GlobalState::i().getDirty());
    QVERIFY(!_log->lines().contains("Tessera|Shutting down..."));

    // No to the save, Yes to the exit: nothing written, and the exit ends the event loop.
    ModalAnswerer answers({"No", "Yes"});
    bool closed = false;
    QCOMPARE(ExitLoop::Run([&] { closed = _core->close(); }), 0);
    QVERIFY(closed);
    QCOMPARE(answers.seen, QStringList({SavePrompt, ExitPrompt}));
    QVERIFY(_log->lines().contains("Tessera|Shutting down..."));
    QCOMPARE(QDir("projects").entryList(QDir::Files), QStringList({"current.zip"}));

    _core->destroy();
    QVERIFY(!DataManager::ip());
    QVERIFY(FixturePlugins::calls().contains("scene shutdown"));
}

void tst_ProjectCommands::saveCommand()
{
    QString const file = projectPath("saved.zip");
    {
        // Without a file, save asks where.
        ModalAnswerer first({file});
        QVERIFY(_core->save(false));
        QCOMPARE(titles(first.seen), QStringList({"Save Project As"}));
        QCOMPARE(DataManager::i().currentFile(), file);
    }
    {
        // With one, save(false) writes without a dialog, clean or dirty; save(true) on a clean
        // project asks nothing and saves nothing.
        ModalAnswerer none({"Cancel"});
        QVERIFY(QFile::remove(file));
        QVERIFY(_core->save(false));
        QVERIFY(QFile::exists(file));
        edit(47);
        QVERIFY(_core->save(false));
        QVERIFY(!GlobalState::i().getDirty());
        QVERIFY(QFile::remove(file));
        QVERIFY(!_core->save(true));
        QVERIFY(!QFile::exists(file));
        QVERIFY(none.seen.isEmpty());
    }
    // On a dirty one it asks; No saves nothing, Yes saves.
    edit(48);
    {
        ModalAnswerer no({"No"});
        QVERIFY(!_core->save(true));
        QCOMPARE(no.seen, QStringList({SavePrompt}));
        QVERIFY(!QFile::exists(file));
    }
    ModalAnswerer yes({"Yes"});
    QVERIFY(_core->save(true));
    QCOMPARE(yes.seen, QStringList({SavePrompt}));
    QVERIFY(QFile::exists(file));

    // Save As onto the current file: the file dialog confirms, then the archive is replaced.
    edit(49);
    saveAs("saved.zip");
    QCOMPARE(savedGridX(file), 49);
}

void tst_ProjectCommands::refusedOpens()
{
    edit(50);
    saveAs("vanishing.zip");
    saveAs("current.zip");
    QString const current = projectPath("current.zip");
    DataState notProject;
    notProject.setFileData("version.json", "{}");
    notProject.setFileData("screens/screens.json", "{}");
    QVERIFY(notProject.writeZip(projectPath("noproject.zip")));

    // Each time Core's reset blanks the design before the file proves bad; the current file
    // stays. An edit saved in place beforehand shows the reset.
    {
        ModalAnswerer answers({projectPath("noproject.zip"), "OK"});
        QVERIFY(_core->open()); // true even after the error box
        QCOMPARE(titles(answers.seen), QStringList({"Open Project", "Invalid Project"}));
        QCOMPARE(answers.seen.last(), InvalidBox);
        QCOMPARE(gridX(), 10);
        QCOMPARE(DataManager::i().currentFile(), current);
        QTRY_VERIFY(_log->lines().contains(
            "DataManager|Error reading project file data.  Not a valid project state file."));
    }
    {
        // The file goes between the pick and the load; no box, the log tells.
        edit(51);
        QVERIFY(_core->save(false));
        RecordingHandler remover(EVM_PROJECT);
        remover.onEvent = [](QSharedPointer<Event> const &event) {
            if (event->type() == EVT_PROJECT_PREBLANK)
                QFile::remove(projectPath("vanishing.zip"));
        };
        ModalAnswerer answers({projectPath("vanishing.zip"), "OK"});
        QVERIFY(_core->open());
        QCOMPARE(titles(answers.seen), QStringList({"Open Project"}));
        QCOMPARE(gridX(), 10);
        QCOMPARE(DataManager::i().currentFile(), current);
        QTRY_VERIFY(
            _log->lines().contains("DataManager|Error opening project file: .  File not found"));
        QVERIFY(_log->lines().contains("Tessera|Opening project: " + projectPath("vanishing.zip")));
    }
}

QTEST_MAIN(tst_ProjectCommands)
#include "tst_ProjectCommands.moc"
