#include "app/Core.h"
#include "data/DataState.h"
#include "events/EventBus.h"
#include "events/GlobalStateChangedEvent.h"
#include "events/GlobalStateDirtyChangedEvent.h"
#include "properties/IntegerProperty.h"
#include "properties/PropertyModel.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "support/LogRecorder.h"
#include "support/RecordingHandler.h"
#include "windows/TesseraWindow.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace TES;
using TES::Test::LogRecorder;
using TES::Test::RecordingHandler;

namespace {

using G = GlobalPropertyType;

// A bus and a clean GlobalState, with a recorder that sees every event from the first raise.
struct Services
{
    Services()
    {
        new EventBus();
        new GlobalState();
        GlobalState::i().setDirty(false); // silently: the bus is still off
        recorder = new RecordingHandler();
        EventBus::i().setEventsEnabled(true);
    }
    ~Services()
    {
        delete recorder;
        GlobalState::destroy();
        EventBus::destroy();
    }

    // The value-changed events received, in order.
    QList<GlobalStateChangedEvent const *> valueEvents() const
    {
        QList<GlobalStateChangedEvent const *> result;
        for (auto const &event : recorder->events) {
            if (event->type() == EVT_GLOBALSTATE_VALUE_CHANGED)
                result.append(static_cast<GlobalStateChangedEvent const *>(event.data()));
        }
        return result;
    }
    // The flags that EVT_GLOBALSTATE_DIRTY_CHANGED reported, in order.
    QList<bool> dirtyEvents() const
    {
        QList<bool> result;
        for (auto const &event : recorder->events) {
            if (event->type() == EVT_GLOBALSTATE_DIRTY_CHANGED)
                result.append(
                    static_cast<GlobalStateDirtyChangedEvent const *>(event.data())->dirty());
        }
        return result;
    }

    RecordingHandler *recorder;
};

bool setVariant(G group, int id, QVariant const &value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return GlobalState::i().setBool(group, id, value.toBool());
    case QMetaType::Int:
        return GlobalState::i().setInt(group, id, value.toInt());
    default:
        return GlobalState::i().setString(group, id, value.toString());
    }
}

QVariant getVariant(G group, int id, int kind)
{
    switch (kind) {
    case QMetaType::Bool:
        return GlobalState::i().getBool(group, id);
    case QMetaType::Int:
        return GlobalState::i().getInt(group, id);
    default:
        return GlobalState::i().getString(group, id);
    }
}

void writeFile(QString const &path, QByteArray const &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(QString const &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

Q_DECLARE_METATYPE(TES::GlobalPropertyType)

class tst_GlobalState : public QObject
{
    Q_OBJECT

private slots:
    void valueTable_data();
    void valueTable();
    void missingAndUnknownValues();
    void createRefusesTakenIdsAndKeys();
    void settersRaiseValueEvents();
    void dirtyEvents_data();
    void dirtyEvents();
    void dirtyFlag();
    void dirtyRuleByGroup_data();
    void dirtyRuleByGroup();
    void trackedPropertiesMarkTheProject();
    void blankResetsProjectAndUserOnly();
    void projectStateSaveAndLoad();
    void userStateFile_data();
    void userStateFile();
    void userStateSurvivesCoreRestart();
    void destruction();
};

void tst_GlobalState::valueTable_data()
{
    QTest::addColumn<G>("group");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::addColumn<bool>("tracked");

    auto row = [](G group, int id, char const *key, QVariant value, bool tracked) {
        QTest::newRow(key) << group << id << QString(key) << value << tracked;
    };
    row(G::Session, 0, "DIRTY_DISABLED", false, false);
    row(G::Session, 1, "SNAP_ENABLED", true, false);
    row(G::Session, 2, "GRID_ENABLED", true, false);
    row(G::Session, 3, "CUT_ENABLED", false, false);
    row(G::Session, 4, "COPY_ENABLED", false, false);
    row(G::Session, 5, "PASTE_ENABLED", false, false);
    row(G::Session, 6, "UNDO_ENABLED", false, false);
    row(G::Session, 7, "REDO_ENABLED", false, false);
    row(G::Session, 9, "LAST_PROJECT_DIR", QString(), false);
    row(G::Project, 0, "SNAP_TOGGLED", false, true);
    row(G::Project, 1, "GRID_TOGGLED", true, true);
    row(G::Project, 2, "GRID_X", 10, true);
    row(G::Project, 3, "GRID_Y", 10, true);
    row(G::Project, 4, "CANVAS_WIDTH", 400, true);
    row(G::Project, 5, "CANVAS_HEIGHT", 400, true);
    row(G::Project, 6, "ZOOM_LEVEL", 1, true);
    row(G::Project, 8, "SCREEN_WIDTH", 480, true);
    row(G::Project, 9, "SCREEN_HEIGHT", 272, true);
    row(G::Project, 10, "SCREEN_DESIGNER_WIDTH_PADDING", 100, true);
    row(G::Project, 11, "SCREEN_DESIGNER_HEIGHT_PADDING", 100, true);
    row(G::User, 0, "LOG_LEVEL", 0, true);
    row(G::User, 1, "GRID_COLOR", 8829080, true);
}

void tst_GlobalState::valueTable()
{
    QFETCH(G, group);
    QFETCH(int, id);
    QFETCH(QString, key);
    QFETCH(QVariant, defaultValue);
    QFETCH(bool, tracked);

    Services services;
    GlobalState &state = GlobalState::i();
    PropertyModel *model = group == G::Project   ? state.projectModel()
                           : group == G::Session ? state.sessionModel()
                                                 : state.userModel();
    int const keyId = group == G::Project   ? state.getProjectKey(key)
                      : group == G::Session ? state.getSessionKey(key)
                                            : state.getUserKey(key);
    QCOMPARE(keyId, id);

    Property *property = model->property(key);
    QVERIFY(property);
    QCOMPARE(property->getValue(), defaultValue);
    QCOMPARE(property->getDefault(), defaultValue);
    QCOMPARE(property->getTracked(), tracked);
    QCOMPARE(getVariant(group, id, defaultValue.userType()), defaultValue);
    QString const kind = defaultValue.userType() == QMetaType::Bool  ? "boolean"
                         : defaultValue.userType() == QMetaType::Int ? "integer"
                                                                     : "text";
    QCOMPARE(property->type(), kind);
}

void tst_GlobalState::missingAndUnknownValues()
{
    Services services;
    GlobalState &state = GlobalState::i();
    QCOMPARE(state.projectModel()->propertyNames().size(), std::size_t(11));
    QCOMPARE(state.sessionModel()->propertyNames().size(), std::size_t(9));
    QCOMPARE(state.userModel()->propertyNames().size(), std::size_t(2));

    // Project 7 is read by the selection overlay and the transform tool: false unless a
    // plug-in creates it. Session 8 doesn't exist either.
    QCOMPARE(state.getBool(G::Project, 7), false);
    QCOMPARE(state.setBool(G::Project, 7, true), false);
    QCOMPARE(state.getBool(G::Session, 8), false);
    QCOMPARE(state.getString(G::Project, 99), QString());
    QCOMPARE(state.setString(G::Project, 99, "x"), false);
    QCOMPARE(state.getInt(G::User, -1), 0);

    // Ids belong to their group: User 9 is not Session 9.
    QCOMPARE(state.setString(G::User, 9, "x"), false);

    QCOMPARE(state.getProjectKey("NOPE"), -1);
    QCOMPARE(state.getProjectKey("grid_x"), -1);
    QCOMPARE(state.getSessionKey("GRID_X"), -1);
    QCOMPARE(state.getUserKey("LAST_PROJECT_DIR"), -1);

    // A number that names no group, as a plug-in might pass by mistake.
    auto const nowhere = static_cast<G>(7);
    QCOMPARE(state.getInt(nowhere, 0), 0);
    QCOMPARE(state.setInt(nowhere, 0, 1), false);
    QCOMPARE(state.createIntegerProperty(nowhere, 0, "X", 1, false), false);

    QVERIFY(services.recorder->events.isEmpty());
    QCOMPARE(state.getDirty(), false);
}

void tst_GlobalState::createRefusesTakenIdsAndKeys()
{
    Services services;
    GlobalState &state = GlobalState::i();

    QCOMPARE(state.createIntegerProperty(G::Project, 2, "OTHER", 50, true), false);
    QCOMPARE(state.getInt(G::Project, 2), 10);
    QCOMPARE(state.getProjectKey("OTHER"), -1);

    // A free id with a key the group already uses is refused too, and the id stays free.
    QCOMPARE(state.createBooleanProperty(G::Project, 12, "GRID_X", true, true), false);
    QCOMPARE(state.getProjectKey("GRID_X"), 2);
    QCOMPARE(state.setBool(G::Project, 12, false), false);

    // What a plug-in does for the clipping flag and values of its own.
    QVERIFY(state.createBooleanProperty(G::Project, 7, "CLIP_TO_PARENT", true, false));
    QCOMPARE(state.getBool(G::Project, 7), true);
    QCOMPARE(state.projectModel()->property("CLIP_TO_PARENT")->getTracked(), false);
    QVERIFY(state.createStringProperty(G::Session, 8, "PLUGIN_PATH", false));
    QCOMPARE(state.getString(G::Session, 8), QString());
    QCOMPARE(state.sessionModel()->property("PLUGIN_PATH")->getDefault(), QVariant(QString()));
    QVERIFY(state.createIntegerProperty(G::User, 2, "GRID_X", -4, true));
    QCOMPARE(state.getInt(G::User, 2), -4);
    QCOMPARE(state.getUserKey("GRID_X"), 2);
    QCOMPARE(state.getInt(G::Project, 2), 10);

    // Creating raises no value event, but the default is set while the new property is still
    // tracked: one that differs from the type's initial value marks the project, even for a
    // value created untracked.
    QCOMPARE(state.getDirty(), true);
    QVERIFY(services.valueEvents().isEmpty());
}

void tst_GlobalState::settersRaiseValueEvents()
{
    Services services;
    GlobalState &state = GlobalState::i();

    QVERIFY(state.setInt(G::Project, 2, 20));
    QVERIFY(state.setString(G::Session, 9, "/projects"));
    QVERIFY(state.setBool(G::Session, 1, false));
    QCOMPARE(state.getInt(G::Project, 2), 20);
    QCOMPARE(state.getString(G::Session, 9), QString("/projects"));
    QCOMPARE(state.getBool(G::Session, 1), false);

    // Refused: the value it holds, and a value of another kind.
    QCOMPARE(state.setInt(G::Project, 2, 20), false);
    QCOMPARE(state.setBool(G::Project, 2, true), false);
    QCOMPARE(state.setString(G::User, 0, "1"), false);
    QCOMPARE(state.getInt(G::User, 0), 0);

    auto const events = services.valueEvents();
    QCOMPARE(events.size(), 3);
    QCOMPARE(events.at(0)->type(), G::Project);
    QCOMPARE(static_cast<Event const *>(events.at(0))->type(), EVT_GLOBALSTATE_VALUE_CHANGED);
    QCOMPARE(events.at(0)->mask(), EVM_GLOBALSTATE);
    QCOMPARE(events.at(0)->id(), 2u);
    QCOMPARE(events.at(0)->oldValue(), QVariant(10));
    QCOMPARE(events.at(0)->newValue(), QVariant(20));
    QCOMPARE(events.at(1)->type(), G::Session);
    QCOMPARE(events.at(1)->id(), 9u);
    QCOMPARE(events.at(1)->oldValue(), QVariant(QString()));
    QCOMPARE(events.at(1)->newValue(), QVariant(QString("/projects")));
    QCOMPARE(events.at(2)->oldValue(), QVariant(true));
    QCOMPARE(events.at(2)->newValue(), QVariant(false));
}

void tst_GlobalState::dirtyEvents_data()
{
    QTest::addColumn<unsigned long long>("type");
    QTest::addColumn<bool>("dirty");

    using Types = std::initializer_list<unsigned long long>;
    for (unsigned long long type :
         Types{16, 18, 19, 21, 23, 24, 25, 27, 28, 38, 51, 54, 56, 58, 60})
        QTest::addRow("%llu marks", type) << type << true;
    // The announcements before a change, repaints, selection, tools, the flag's own events,
    // and a number beyond 32 bits whose low bits name a marking type.
    for (unsigned long long type : Types{1,
                                         2,
                                         3,
                                         7,
                                         8,
                                         15,
                                         17,
                                         20,
                                         22,
                                         26,
                                         31,
                                         33,
                                         37,
                                         39,
                                         40,
                                         41,
                                         42,
                                         46,
                                         50,
                                         52,
                                         53,
                                         55,
                                         57,
                                         59,
                                         61,
                                         62,
                                         63,
                                         1000,
                                         0x100000010ULL})
        QTest::addRow("%llu doesn't", type) << type << false;
}

void tst_GlobalState::dirtyEvents()
{
    QFETCH(unsigned long long, type);
    QFETCH(bool, dirty);

    Services services;
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(type, EVM_SCREEN));
    QCOMPARE(GlobalState::i().getDirty(), dirty);
    // Raised from inside the delivery, so the flag's event follows with the next pump.
    if (dirty)
        QTRY_COMPARE(services.dirtyEvents(), QList<bool>({true}));
}

void tst_GlobalState::dirtyFlag()
{
    Services services;
    GlobalState &state = GlobalState::i();

    state.setDirty(true);
    state.setDirty(true);
    QCOMPARE(services.dirtyEvents(), QList<bool>({true}));
    state.setDirty(false);
    state.setDirty(false);
    QCOMPARE(services.dirtyEvents(), QList<bool>({true, false}));

    // A plug-in's own event type joins the rule.
    QVERIFY(state.addDirtyEvent(1000));
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(1000, EVM_COMMAND));
    QVERIFY(state.getDirty());

    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_GLOBALSTATE_REQUEST_CLEAN, EVM_GLOBALSTATE));
    QCOMPARE(state.getDirty(), false);
    QTRY_COMPARE(services.dirtyEvents(), QList<bool>({true, false, true, false}));
}

void tst_GlobalState::dirtyRuleByGroup_data()
{
    QTest::addColumn<G>("group");
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("busOn");
    QTest::addColumn<bool>("dirty");

    // With the bus on, the value event marks the project, whatever the group.
    QTest::newRow("session, bus on") << G::Session << 9 << QVariant("/p") << true << true;
    QTest::newRow("session flag, bus on") << G::Session << 0 << QVariant(true) << true << true;
    QTest::newRow("user, bus on") << G::User << 1 << QVariant(5) << true << true;
    // With the bus off only tracked properties mark it: LAST_PROJECT_DIR set at start-up
    // leaves the project clean.
    QTest::newRow("session, bus off") << G::Session << 9 << QVariant("/p") << false << false;
    QTest::newRow("project, bus off") << G::Project << 8 << QVariant(800) << false << true;
    QTest::newRow("user, bus off") << G::User << 0 << QVariant(2) << false << true;
}

void tst_GlobalState::dirtyRuleByGroup()
{
    QFETCH(G, group);
    QFETCH(int, id);
    QFETCH(QVariant, value);
    QFETCH(bool, busOn);
    QFETCH(bool, dirty);

    Services services;
    EventBus::i().setEventsEnabled(busOn);
    QVERIFY(setVariant(group, id, value));
    QCOMPARE(getVariant(group, id, value.userType()), value);
    QCOMPARE(GlobalState::i().getDirty(), dirty);
}

void tst_GlobalState::trackedPropertiesMarkTheProject()
{
    Services services;
    PropertyModel model;
    auto *tracked
        = static_cast<IntegerProperty *>(model.addProperty(IntegerProperty::Type(), "tracked", {}));
    auto *untracked = static_cast<IntegerProperty *>(
        model.addProperty(IntegerProperty::Type(), "untracked", {}));
    untracked->setTracked(false);

    QVERIFY(untracked->setValue(3, PropertyChangeReason::ReasonView));
    QCOMPARE(GlobalState::i().getDirty(), false);

    // A silent change of a tracked property still counts.
    tracked->setEventsEnabled(false);
    QVERIFY(tracked->setValue(3, PropertyChangeReason::ReasonView));
    QCOMPARE(GlobalState::i().getDirty(), true);
    QCOMPARE(services.dirtyEvents(), QList<bool>({true}));

    // Without a GlobalState nothing is marked, and nothing breaks.
    GlobalState::destroy();
    QVERIFY(tracked->setValue(4, PropertyChangeReason::ReasonView));
}

void tst_GlobalState::blankResetsProjectAndUserOnly()
{
    Services services;
    GlobalState &state = GlobalState::i();
    auto change = [&state] {
        state.setInt(G::Project, 2, 20);
        state.setBool(G::Project, 1, false);
        state.setInt(G::User, 1, 0x123456);
        state.setString(G::Session, 9, "/projects");
        state.setBool(G::Session, 1, false);
    };
    auto check = [&state] {
        QCOMPARE(state.getInt(G::Project, 2), 10);
        QCOMPARE(state.getBool(G::Project, 1), true);
        QCOMPARE(state.getInt(G::User, 1), 8829080);
        QCOMPARE(state.getString(G::Session, 9), QString("/projects"));
        QCOMPARE(state.getBool(G::Session, 1), false);
    };

    change();
    state.setDirty(false);
    services.recorder->clear();
    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT));
    check();
    // No value events; the tracked values that changed back marked the project, which is
    // why every blank ends with a clean request.
    QVERIFY(services.valueEvents().isEmpty());
    QVERIFY(state.getDirty());

    change();
    services.recorder->clear();
    state.reset();
    check();
    QVERIFY(services.valueEvents().isEmpty());
}

void tst_GlobalState::projectStateSaveAndLoad()
{
    Services services;
    GlobalState &state = GlobalState::i();
    state.setInt(G::Project, 8, 800);
    state.setBool(G::Project, 0, true);

    DataState data;
    state.save(data);
    QCOMPARE(data.fileNames(), QStringList({"state.json"}));
    QJsonParseError error;
    QJsonObject const json
        = QJsonDocument::fromJson(data.getFileData("state.json"), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QVERIFY(data.getFileData("state.json").contains("\n    \"")); // indented
    QCOMPARE(json.value("SCREEN_WIDTH").toObject().value("value").toInt(), 800);
    QCOMPARE(json.value("SNAP_TOGGLED").toObject().value("value").toBool(), true);
    // The project group only.
    QVERIFY(!json.contains("LAST_PROJECT_DIR"));
    QVERIFY(!json.contains("LOG_LEVEL"));

    // Through a real archive and back.
    QTemporaryDir directory;
    QString const path = directory.filePath("project.zip");
    QVERIFY(data.writeZip(path));
    state.reset();
    QCOMPARE(state.getInt(G::Project, 8), 480);
    DataState read;
    QVERIFY(read.read(path));
    services.recorder->clear();
    state.load(read);
    QCOMPARE(state.getInt(G::Project, 8), 800);
    QCOMPARE(state.getBool(G::Project, 0), true);
    QVERIFY(services.valueEvents().isEmpty());

    // Keys missing from the file keep their current values.
    DataState partial;
    partial.setFileData("state.json", R"({"GRID_X": {"type": "integer", "value": 30}})");
    state.setInt(G::Project, 3, 15);
    state.load(partial);
    QCOMPARE(state.getInt(G::Project, 2), 30);
    QCOMPARE(state.getInt(G::Project, 3), 15);
    QCOMPARE(state.getInt(G::Project, 8), 800);

    // Nothing changes without the file, with a file that doesn't parse, or with values of
    // another kind.
    DataState without;
    without.setFileData("/state.json", R"({"GRID_X": {"type": "integer", "value": 1}})");
    state.load(without);
    DataState garbage;
    garbage.setFileData("state.json", "{\"GRID_X\": {\"type\": \"integer\", \"val");
    state.load(garbage);
    DataState wrongKind;
    wrongKind.setFileData("state.json", R"({"GRID_X": {"type": "boolean", "value": true}})");
    state.load(wrongKind);
    QCOMPARE(state.getInt(G::Project, 2), 30);
}

void tst_GlobalState::userStateFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isDirectory");

    QTest::newRow("missing") << QByteArray() << false;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("not json") << QByteArray("LOG_LEVEL=2\n{{{") << false;
    QTest::newRow("binary") << QByteArray("\x00\xff\xfe{\x01", 5) << false;
    QTest::newRow("array") << QByteArray("[1, 2, 3]") << false;
    QTest::newRow("wrong kinds") << QByteArray(
        R"({"LOG_LEVEL": {"type": "text", "value": "2"}, "GRID_COLOR": 7})")
                                 << false;
    QTest::newRow("a directory") << QByteArray() << true;
}

void tst_GlobalState::userStateFile()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isDirectory);

    QString const base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QVERIFY(base.startsWith(QDir::currentPath())); // never the real user's files
    QDir(base + "/.tes").removeRecursively();
    QVERIFY(QDir().mkpath(base + "/.tes"));
    QString const path = Core::pluginDataDirectory() + "/user_config.json";
    QString const tag = QTest::currentDataTag();
    if (isDirectory)
        QVERIFY(QDir().mkpath(path));
    else if (tag != "missing")
        writeFile(path, content);

    Services services;
    GlobalState &state = GlobalState::i();
    state.setInt(G::User, 0, 2); // not what the file holds: loading garbage leaves this
    services.recorder->clear();
    state.loadUserState();
    QCOMPARE(state.getInt(G::User, 0), 2);
    QCOMPARE(state.getInt(G::User, 1), 8829080);
    QVERIFY(services.recorder->events.isEmpty());

    // Writing replaces whatever was there with the user group, indented; an unwritable
    // place is passed over in silence.
    state.saveUserState();
    if (isDirectory) {
        QVERIFY(QFileInfo(path).isDir());
        return;
    }
    QByteArray const written = readFile(path);
    QJsonObject const json = QJsonDocument::fromJson(written).object();
    QVERIFY(written.contains("\n    \""));
    QCOMPARE(json.value("LOG_LEVEL").toObject().value("value").toInt(), 2);
    QCOMPARE(json.value("GRID_COLOR").toObject().value("value").toInt(), 8829080);
    QVERIFY(!json.contains("GRID_X"));
    QVERIFY(!json.contains("LAST_PROJECT_DIR"));
}

void tst_GlobalState::userStateSurvivesCoreRestart()
{
    QTemporaryDir config;
    QVERIFY(config.isValid());
    QByteArray const savedConfig = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
    QString const userFile = config.path() + "/.tes/user_config.json";

    Core core;
    QVERIFY(core.initialize({}));
    QVERIFY(GlobalState::ip());
    QCOMPARE(GlobalState::i().getString(G::Session, 9), QString("."));
    // Start-up ends with the clean request: a new GlobalState starts dirty.
    QCOMPARE(GlobalState::i().getDirty(), false);
    QCOMPARE(TesseraWindow::i().windowTitle(), QString("Corvane Graphics Tessera"));
    QVERIFY(GlobalState::i().setInt(G::User, 1, 0x123456));
    QCOMPARE(TesseraWindow::i().windowTitle(), QString("Corvane Graphics Tessera*"));
    QVERIFY(GlobalState::i().setInt(G::User, 0, 1));
    QCOMPARE(Log::i().getLevel(), LogLevel::Debug); // the preference moves the level at once
    QVERIFY(GlobalState::i().setInt(G::Project, 2, 25));
    core.destroy();
    QVERIFY(!GlobalState::ip());
    QVERIFY(QFile::exists(userFile));

    QVERIFY(core.initialize({}));
    QCOMPARE(GlobalState::i().getInt(G::User, 1), 0x123456);
    QCOMPARE(GlobalState::i().getInt(G::User, 0), 1);
    QCOMPARE(GlobalState::i().getInt(G::Project, 2), 10); // project values aren't user state
    QCOMPARE(GlobalState::i().getDirty(), false);
    // The Log read LOG_LEVEL before the file was loaded, and loading raises nothing: it keeps
    // the default until the preference changes again.
    QCOMPARE(Log::i().getLevel(), LogLevel::User);
    core.destroy();

    qputenv("XDG_CONFIG_HOME", savedConfig);
}

void tst_GlobalState::destruction()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new Log("test.log", false);
    Log::i().setLevel(LogLevel::Debug);
    LogRecorder log;
    log.attach();
    new GlobalState();
    GlobalState::destroy();
    QVERIFY(!GlobalState::ip());
    QCOMPARE(log.lines().last(), QString("Global State|Destroying Global State"));
    QCOMPARE(log.messages.last().level, LogLevel::Debug);

    // Gone from the bus: a dirty event reaches nobody.
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_SCREEN_ADDED, EVM_SCREEN));
    GlobalState::destroy(); // a second destroy does nothing
    Log::destroy();
    EventBus::destroy();
}

QTEST_MAIN(tst_GlobalState)
#include "tst_GlobalState.moc"
