// SPDX-License-Identifier: MIT
#include "app/Core.h"
#include "data/DataLoadJob.h"
#include "data/DataManager.h"
#include "data/DataState.h"
#include "data/IDataManagerInterface.h"
#include "data/ProjectArchive_p.h"
#include "events/EventBus.h"
#include "events/GlobalStateEvents.h"
#include "scene/SceneManager.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "services/ProgressMonitor.h"
#include "services/ProgressTextEvent.h"
#include "support/LogRecorder.h"
#include "support/RecordingHandler.h"
#include "support/SceneSnapshot.h"
#include "support/Services.h"
#include "support/TestScene.h"
#include "widgets/WaitDialog.h"

#include <QLabel>
#include <QProgressBar>
#include <QThread>
#include <QtTest>

#include <memory>

using namespace TES;
using TES::Test::LogRecorder;
using TES::Test::RecordingHandler;
using TES::Test::SceneSnapshot;
using TES::Test::Services;
using TES::Test::TestScene;

namespace {

using Types = QList<unsigned long long>;

constexpr int GridX = 2;          // Project GRID_X
constexpr int LastProjectDir = 9; // Session LAST_PROJECT_DIR

int gridX()
{
    return GlobalState::i().getInt(GlobalPropertyType::Project, GridX);
}

QString lastProjectDir()
{
    return GlobalState::i().getString(GlobalPropertyType::Session, LastProjectDir);
}

// The types received, without the flag and value changes that go with every edit.
Types announcements(RecordingHandler const &recorder)
{
    Types types = recorder.types();
    types.removeAll(EVT_GLOBALSTATE_DIRTY_CHANGED);
    types.removeAll(EVT_GLOBALSTATE_VALUE_CHANGED);
    return types;
}

QStringList entryNames(QString const &path)
{
    DataState names;
    return names.readNoData(path) ? names.fileNames() : QStringList();
}

// A deep copy: the state's data lives in the block that the read gave, freed with it.
QByteArray entry(QString const &path, QString const &name)
{
    DataState state;
    if (!state.read(path))
        return QByteArray();
    QByteArray const data = state.getFileData(name);
    return QByteArray(data.constData(), data.size());
}

// Notes each WaitDialog as it goes: "<title> <width>x<height> <modality>" when it shows, and
// "<label> <value>/<maximum>" of its bar when the finished queue hides it.
class WaitDialogWatcher : public QObject
{
public:
    WaitDialogWatcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = qobject_cast<WaitDialog *>(watched);
        if (!dialog)
            return false;
        if (event->type() == QEvent::Show) {
            shown.append(QString("%1 %2x%3 %4")
                             .arg(dialog->windowTitle())
                             .arg(dialog->width())
                             .arg(dialog->height())
                             .arg(dialog->isModal() ? "modal" : "modeless"));
        } else if (event->type() == QEvent::Hide) {
            auto *bar = dialog->findChild<QProgressBar *>();
            ended.append(QString("%1 %2/%3")
                             .arg(dialog->findChild<QLabel *>()->text())
                             .arg(bar->value())
                             .arg(bar->maximum()));
        }
        return false;
    }

    QStringList shown;
    QStringList ended;
};

// A plug-in's data interface that notes each call with where it ran: "<call>", then " pool"
// off the main thread and " off" while the bus is off. It adds "plugin/notes.txt" before the
// scene is saved and notes that file's data when a load hands it back.
class Interface : public IDataManagerInterface
{
public:
    unsigned int saveStepCount() override
    {
        note("saveStepCount");
        return 2;
    }
    unsigned int loadStepCount() override
    {
        note("loadStepCount");
        return 4;
    }
    int checkProject(DataState &state) override
    {
        // The state holds names only.
        note("checkProject " + state.fileNames().join(',')
             + (state.getFileData("state.json").isNull() ? " nodata" : " data"));
        return checkAnswer;
    }
    void preSave(DataState &state, ProgressMonitor &) override
    {
        note("preSave");
        state.setFileData("plugin/notes.txt", notes);
        if (onPreSave)
            onPreSave();
    }
    void postSave(DataState &state, ProgressMonitor &) override
    {
        note("postSave " + state.fileNames().join(','));
    }
    int preLoad(DataState &state, ProgressMonitor &) override
    {
        note("preLoad " + QString::fromUtf8(state.getFileData("plugin/notes.txt")));
        return 0; // a failure that changes nothing
    }
    int postLoad(DataState &, ProgressMonitor &) override
    {
        note("postLoad");
        return 1;
    }

    QStringList calls;
    int checkAnswer = 0;
    QByteArray notes = "first";
    std::function<void()> onPreSave;

private:
    void note(QString call)
    {
        if (QThread::currentThread() != qApp->thread())
            call += " pool";
        if (!EventBus::i().getEventsEnabled())
            call += " off";
        calls.append(call);
    }
};

// Notes what a ProgressMonitor posts to it: a text as itself, anything else as "+".
class ReportTarget : public QObject
{
public:
    bool event(QEvent *e) override
    {
        if (e->type() < QEvent::User)
            return QObject::event(e);
        reports.append(e->type() == ProgressTextEvent::EventType
                           ? static_cast<ProgressTextEvent *>(e)->text
                           : QString("+"));
        return true;
    }
    QStringList reports;
};

} // namespace

class tst_DataManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void saveAndOpenAgain();
    void saveOntoTheCurrentFile();
    void unwritableTargets();
    void refusedOpens_data();
    void refusedOpens();
    void pluginCheck_data();
    void pluginCheck();
    void newAndBlankDesigns();
    void unreadableArchiveStopsTheLoadJob();

private:
    void saveFirst(QString const &path);

    std::optional<Services> _services;
    std::unique_ptr<Core> _core;
    std::unique_ptr<LogRecorder> _log;
    std::unique_ptr<WaitDialogWatcher> _dialogs;
    Interface _interface;
};

void tst_DataManager::init()
{
    _services.emplace(Services::Bus | Services::State | Services::Data | Services::Scene
                          | Services::Logging,
                      false);
    // Not started: it is there for the reset that a load and a blank call.
    _core = std::make_unique<Core>();
    _log = std::make_unique<LogRecorder>();
    _log->attach();
    _dialogs = std::make_unique<WaitDialogWatcher>();
    EventBus::i().setEventsEnabled(true);
    _interface = Interface();
    QDir("projects").removeRecursively(); // what an aborted run left
    QDir().mkpath("projects");
}

void tst_DataManager::cleanup()
{
    _dialogs.reset();
    _log.reset();
    _core.reset();
    _services.reset();
    QDir("projects").removeRecursively();
}

// Saves a project to path as its current file, and forgets what that reported.
void tst_DataManager::saveFirst(QString const &path)
{
    QCOMPARE(DataManager::i().saveAs(path), unsigned(DataResultDone));
    QCoreApplication::processEvents();
    _log->messages.clear();
    _dialogs->shown.clear();
    _dialogs->ended.clear();
    _interface.calls.clear();
}

void tst_DataManager::saveAndOpenAgain()
{
    // Without a current file, save does nothing at all.
    {
        RecordingHandler recorder;
        QCOMPARE(DataManager::i().save(), unsigned(DataResultFailed));
        QVERIFY(_dialogs->shown.isEmpty());
        QVERIFY(recorder.events.isEmpty());
        QCOMPARE(QDir("projects").entryList(QDir::Files), QStringList());
    }

    QUuid const main = TestScene::addScreen("main");
    QUuid const second = TestScene::addScreen("second");
    QUuid const group = TestScene::addContainer(main, QRect(10, 10, 200, 100), "group");
    TestScene::addLeaf(group, QRect(5, 5, 20, 20), "inner");
    TestScene::addLeaf(main, QRect(300, 10, 40, 40), "loose");
    TestScene::addLeaf(second, QRect(0, 0, 480, 272), "backdrop");
    SceneManager::i().setScreenVisible(main, true);
    SceneManager::i().setScreenVisible(second, true);
    SceneManager::i().setActiveScreen(second);
    SceneSnapshot const saved = SceneSnapshot::Take();
    QCOMPARE(saved.objectJson.size(), 4);
    DataManager::i().setInterface(&_interface);
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 25));
    QString const path = "projects/first.zip";
    QString const canonical = QDir::current().absoluteFilePath(path);

    QCOMPARE(DataManager::i().saveAs(path), unsigned(DataResultDone));
    QStringList names{"plugin/notes.txt",
                      "screens/" + main.toString() + "/screen.json",
                      "screens/" + second.toString() + "/screen.json",
                      "screens/screens.json",
                      "state.json",
                      "version.json"};
    names.sort();
    QCOMPARE(entryNames(path), names);
    QCOMPARE(entry(path, "version.json"), ProjectArchive::VersionDocument());
    // The plug-in adds its file before the scene and sees the whole state after it; both on
    // the job's thread, with the bus left on.
    QCOMPARE(_interface.calls, QStringList({"saveStepCount pool", "preSave pool",
                                            "postSave " + names.join(',') + " pool"}));
    QCOMPARE(DataManager::i().currentFile(), canonical);
    QCOMPARE(lastProjectDir(), QDir::current().absoluteFilePath("projects"));
    QVERIFY(!GlobalState::i().getDirty());
    QCOMPARE(_dialogs->shown, QStringList({"Saving Project 500x60 modal"}));
    // The plug-in's steps size the data monitor, which no dialog shows: the bar only takes
    // the write's one step.
    QCOMPARE(_dialogs->ended, QStringList({"Writing project archive... 1/100"}));
    QTRY_VERIFY(_log->lines().contains("DataManager|Successfully wrote project file: " + path));

    _core->reset();
    QCOMPARE(SceneManager::i().screenCount(), 0u);
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 3));
    QVERIFY(GlobalState::i().setString(GlobalPropertyType::Session, LastProjectDir, "/tmp"));
    GlobalState::i().setDirty(false);
    _interface.calls.clear();
    _interface.notes = "changed"; // nobody reads it on the way in
    RecordingHandler recorder;
    QCOMPARE(DataManager::i().open(path), unsigned(DataResultDone));

    QVERIFY(SceneSnapshot::Take() == saved);
    QCOMPARE(gridX(), 25);
    QCOMPARE(DataManager::i().currentFile(), canonical);
    QCOMPARE(lastProjectDir(), QDir::current().absoluteFilePath("projects"));
    // The check sees names only, on the main thread; the rest runs on the job's thread with
    // the bus off. A hook's failure does not stop the load.
    QCOMPARE(_interface.calls,
             QStringList({"checkProject " + names.join(',') + " nodata", "loadStepCount pool off",
                          "preLoad first pool off", "postLoad pool off"}));
    QCOMPARE(_dialogs->shown.value(1), QString("Loading Project 500x60 modal"));
    QCOMPARE(_dialogs->ended.value(1), QString("Loading project data... 0/7"));
    // The reset's blank, then only what announces the load: no value, screen or object of the
    // load itself. Only the scene manager's answer to the load names the active screen. The
    // values the load wrote raised the flag unheard; the clean request lowers it with one
    // change, which the bus delivers on its next turn.
    QCOMPARE(recorder.types(),
             Types({EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_POSTBLANK,
                    EVT_PROJECT_CURRENTFILECHANGED, EVT_PROJECT_LOADED, EVT_SCREEN_ACTIVE_CHANGING,
                    EVT_SCREEN_ACTIVE_CHANGED, EVT_GLOBALSTATE_REQUEST_CLEAN}));
    QVERIFY(!GlobalState::i().getDirty());
    QTRY_COMPARE(recorder.events.size(), 9);
    QCOMPARE(recorder.types().last(), EVT_GLOBALSTATE_DIRTY_CHANGED);
    QVERIFY(!recorder.events.last().staticCast<GlobalStateDirtyChangedEvent>()->dirty());
    QTRY_VERIFY(_log->lines().contains("DataManager|Successfully read project file: " + path));
}

void tst_DataManager::saveOntoTheCurrentFile()
{
    DataManager::i().setInterface(&_interface);
    saveFirst("projects/same.zip");
    QString const current = DataManager::i().currentFile();

    // The old archive is gone before the job gathers the new one; save() goes the same way.
    bool existedDuringSave = true;
    _interface.onPreSave = [&] { existedDuringSave = QFile::exists(current); };
    _interface.notes = "second";
    QCOMPARE(DataManager::i().saveAs(current), unsigned(DataResultDone));
    QVERIFY(!existedDuringSave);
    QCOMPARE(entry(current, "plugin/notes.txt"), QByteArray("second"));
    existedDuringSave = true;
    _interface.notes = "third";
    QCOMPARE(DataManager::i().save(), unsigned(DataResultDone));
    QVERIFY(!existedDuringSave);
    QCOMPARE(entry(current, "plugin/notes.txt"), QByteArray("third"));
    QCOMPARE(DataManager::i().currentFile(), current);
}

void tst_DataManager::unwritableTargets()
{
    saveFirst("projects/kept.zip");
    QString const current = DataManager::i().currentFile();

    // Not even root may delete a file under /proc: nothing is saved, nothing shown.
    RecordingHandler recorder;
    QCOMPARE(DataManager::i().saveAs("/proc/version"), unsigned(DataResultFailed));
    QVERIFY(_dialogs->shown.isEmpty());
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(DataManager::i().currentFile(), current);
    QTRY_COMPARE(
        _log->lines(),
        QStringList({"DataManager|Failed to delete existing project file: /proc/version"}));
    QCOMPARE(_log->messages.first().severity, LogSeverity::Error);

    // Nor create one there. The job's failure is not looked at: the save reports success, and
    // the current file becomes the canonical path of a file that doesn't exist, which is empty.
    _log->messages.clear();
    QString const missing = "/proc/tessera-project.zip";
    QCOMPARE(DataManager::i().saveAs(missing), unsigned(DataResultDone));
    QVERIFY(!QFile::exists(missing));
    QCOMPARE(_dialogs->shown, QStringList({"Saving Project 500x60 modal"}));
    QCOMPARE(DataManager::i().currentFile(), QString());
    QTRY_COMPARE(_log->lines(),
                 QStringList({"DataState|Failed to read file: " + missing,
                              "DataManager|Successfully wrote project file: " + missing}));
}

void tst_DataManager::refusedOpens_data()
{
    QTest::addColumn<QStringList>("entries"); // none: a text file, or no file at all
    QTest::addColumn<unsigned>("result");
    QTest::addColumn<QString>("message");

    QString const noState = "Error reading project file data.  Not a valid project state file.";
    // The canonical path of a missing file is empty, and the message comes out so.
    QTest::newRow("missing") << QStringList() << 1u
                             << "Error opening project file: .  File not found";
    QTest::newRow("not a zip") << QStringList() << 2u << "Error reading project file data";
    QTest::newRow("no state") << QStringList({"version.json", "screens/screens.json"}) << 2u
                              << noState;
    // Names are taken exactly: another case is no project state.
    QTest::newRow("state in capitals") << QStringList({"STATE.json"}) << 2u << noState;
}

void tst_DataManager::refusedOpens()
{
    QFETCH(QStringList, entries);
    QFETCH(unsigned, result);
    QFETCH(QString, message);

    QString const path = "projects/refused.zip";
    DataState archive;
    for (QString const &name : entries)
        archive.setFileData(name, "{}");
    if (!entries.isEmpty()) {
        QVERIFY(archive.writeZip(path));
    } else if (result != DataResultNotFound) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("plain text, not an archive");
    }
    DataManager::i().setInterface(&_interface);
    saveFirst("projects/current.zip");
    QString const current = DataManager::i().currentFile();
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 7));

    RecordingHandler recorder;
    QCOMPARE(DataManager::i().open(path), result);
    // Nothing was reset, loaded, asked or shown.
    QCOMPARE(gridX(), 7);
    QVERIFY(recorder.events.isEmpty());
    QVERIFY(_interface.calls.isEmpty());
    QVERIFY(_dialogs->shown.isEmpty());
    QCOMPARE(DataManager::i().currentFile(), current);
    QTRY_COMPARE(_log->lines(), QStringList({"DataManager|" + message}));
    QCOMPARE(_log->messages.first().severity, LogSeverity::Error);
    QCOMPARE(_log->messages.first().level, LogLevel::User);
}

void tst_DataManager::pluginCheck_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("loads");

    QTest::newRow("3 ends the open") << 3 << false;
    // Any other answer lets the load go on, even one that means an invalid file elsewhere.
    QTest::newRow("2 lets it go on") << 2 << true;
}

void tst_DataManager::pluginCheck()
{
    QFETCH(int, answer);
    QFETCH(bool, loads);

    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 40));
    saveFirst("projects/checked.zip");
    QString const checked = DataManager::i().currentFile();
    saveFirst("projects/current.zip");
    QString const current = DataManager::i().currentFile();
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 8));

    DataManager::i().setInterface(&_interface);
    _interface.checkAnswer = answer;
    RecordingHandler recorder(EVM_PROJECT);
    QCOMPARE(DataManager::i().open(checked), unsigned(DataResultDone));
    QCOMPARE(_interface.calls.size(), loads ? 4 : 1);
    QVERIFY(_interface.calls.first().startsWith("checkProject"));
    QCOMPARE(gridX(), loads ? 40 : 8);
    QCOMPARE(recorder.types().contains(EVT_PROJECT_LOADED), loads);
    QCOMPARE(_dialogs->shown.size(), loads ? 1 : 0);
    QCOMPARE(DataManager::i().currentFile(), loads ? checked : current);
}

void tst_DataManager::newAndBlankDesigns()
{
    saveFirst("projects/design.zip");
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 12));
    RecordingHandler recorder(EVM_PROJECT | EVM_GLOBALSTATE);

    // Called after Core's reset: it forgets the file and announces a fresh design, whose
    // blank request the global state answers by going back to its defaults.
    DataManager::i().newDesign();
    QVERIFY(DataManager::i().currentFile().isEmpty());
    QCOMPARE(gridX(), 10);
    QCOMPARE(announcements(recorder),
             Types({EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_REQUEST_RESET,
                    EVT_PROJECT_POSTBLANK, EVT_PROJECT_CURRENTFILECHANGED,
                    EVT_GLOBALSTATE_REQUEST_CLEAN}));
    QVERIFY(!GlobalState::i().getDirty());
    QTRY_VERIFY(_log->lines().contains("Core|Creating new design..."));

    // A blank design resets the system itself.
    saveFirst("projects/design.zip");
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 12));
    recorder.clear();
    DataManager::i().blankDesign();
    QVERIFY(DataManager::i().currentFile().isEmpty());
    QCOMPARE(gridX(), 10);
    QVERIFY(!GlobalState::i().getDirty());
    QCOMPARE(announcements(recorder),
             Types({EVT_PROJECT_PREBLANK, EVT_PROJECT_REQUEST_BLANK, EVT_PROJECT_POSTBLANK,
                    EVT_PROJECT_CURRENTFILECHANGED, EVT_GLOBALSTATE_REQUEST_CLEAN}));
    QTRY_VERIFY(_log->lines().contains("Core|Creating blank design..."));
}

void tst_DataManager::unreadableArchiveStopsTheLoadJob()
{
    // Run by hand rather than in a queue: on this path the job never reports that it is done,
    // and a queue would wait for it for good. It stops after the read: no further step,
    // nothing loaded, the plug-in not called.
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::Project, GridX, 33));
    DataManager::i().setInterface(&_interface);
    ReportTarget dialog;
    ReportTarget data;
    ProgressMonitor dialogMonitor(&dialog);
    ProgressMonitor dataMonitor(&data);
    DataLoadJob job("projects/vanished.zip", &dataMonitor);
    job.setProgressMonitor(&dialogMonitor);
    job.run();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(dialog.reports, QStringList({"Reading project archive..."}));
    QVERIFY(data.reports.isEmpty());
    QCOMPARE(gridX(), 33);
    QVERIFY(_interface.calls.isEmpty());
}

QTEST_MAIN(tst_DataManager)
#include "tst_DataManager.moc"
