#include "app/Core.h"
#include "data/DataState.h"
#include "events/EventBus.h"
#include "events/GlobalStateChangedEvent.h"
#include "events/GlobalStateDirtyChangedEvent.h"
#include "properties/IntegerProperty.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "services/PluginManager.h"
#include "support/RecordingHandler.h"
#include "windows/TesseraWindow.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace TES;
using TES::Test::RecordingHandler;
using G = GlobalPropertyType;

Q_DECLARE_METATYPE(TES::GlobalPropertyType)

namespace {

QVariant get(G group, int id, int kind)
{
    GlobalState &state = GlobalState::i();
    return kind == QMetaType::Bool  ? QVariant(state.getBool(group, id))
           : kind == QMetaType::Int ? QVariant(state.getInt(group, id))
                                    : QVariant(state.getString(group, id));
}

bool set(G group, int id, QVariant const &value)
{
    GlobalState &state = GlobalState::i();
    return value.userType() == QMetaType::Bool  ? state.setBool(group, id, value.toBool())
           : value.userType() == QMetaType::Int ? state.setInt(group, id, value.toInt())
                                                : state.setString(group, id, value.toString());
}

} // namespace

// Every test but the Core restart runs with a bus and a GlobalState made clean, and a recorder
// that sees every event from the first raise on.
class tst_GlobalState : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void valueTable_data();
    void valueTable();
    void unknownAndTakenIds();
    void settersRaiseValueEvents();
    void dirtyEvents_data();
    void dirtyEvents();
    void dirtyFlag();
    void dirtyRuleByGroup_data();
    void dirtyRuleByGroup();
    void blankResetsProjectAndUserOnly();
    void projectStateSaveAndLoad();
    void garbageUserStateLeavesDefaults_data();
    void garbageUserStateLeavesDefaults();
    void userStateSurvivesCoreRestart();

private:
    QList<bool> dirtyChanges() const;
    int valueEventCount() const;

    std::unique_ptr<RecordingHandler> _recorder;
};

void tst_GlobalState::init()
{
    if (QTest::currentTestFunction() == QLatin1String("userStateSurvivesCoreRestart"))
        return;
    new EventBus();
    new GlobalState();
    GlobalState::i().setDirty(false); // silently: the bus is still off
    _recorder = std::make_unique<RecordingHandler>();
    EventBus::i().setEventsEnabled(true);
}

void tst_GlobalState::cleanup()
{
    _recorder.reset();
    GlobalState::destroy();
    EventBus::destroy();
}

QList<bool> tst_GlobalState::dirtyChanges() const
{
    QList<bool> result;
    for (auto const &event : _recorder->events) {
        if (auto *changed = dynamic_cast<GlobalStateDirtyChangedEvent const *>(event.data()))
            result.append(changed->dirty());
    }
    return result;
}

int tst_GlobalState::valueEventCount() const
{
    return _recorder->types().count(EVT_GLOBALSTATE_VALUE_CHANGED);
}

void tst_GlobalState::valueTable_data()
{
    QTest::addColumn<G>("group");
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::addColumn<bool>("tracked");

    auto row = [](G group, int id, char const *key, QVariant value, bool tracked) {
        QTest::newRow(key) << group << id << value << tracked;
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
    QFETCH(QVariant, defaultValue);
    QFETCH(bool, tracked);

    GlobalState &state = GlobalState::i();
    QString const key = QTest::currentDataTag();
    PropertyModel *model = group == G::Project   ? state.projectModel()
                           : group == G::Session ? state.sessionModel()
                                                 : state.userModel();
    QCOMPARE(group == G::Project   ? state.getProjectKey(key)
             : group == G::Session ? state.getSessionKey(key)
                                   : state.getUserKey(key),
             id);
    QCOMPARE(get(group, id, defaultValue.userType()), defaultValue);

    Property *property = model->property(key);
    QVERIFY(property);
    QCOMPARE(property->getDefault(), defaultValue);
    QCOMPARE(property->getTracked(), tracked);
    QString const kind = defaultValue.userType() == QMetaType::Bool  ? "boolean"
                         : defaultValue.userType() == QMetaType::Int ? "integer"
                                                                     : "text";
    QCOMPARE(property->type(), kind);
}

void tst_GlobalState::unknownAndTakenIds()
{
    GlobalState &state = GlobalState::i();
    QCOMPARE(state.projectModel()->propertyNames().size(), std::size_t(11));
    QCOMPARE(state.sessionModel()->propertyNames().size(), std::size_t(9));
    QCOMPARE(state.userModel()->propertyNames().size(), std::size_t(2));

    // Project 7 is read by the selection overlay and the transform tool: false unless a
    // plug-in creates it.
    QCOMPARE(state.getBool(G::Project, 7), false);
    QCOMPARE(state.setBool(G::Project, 7, true), false);
    QCOMPARE(state.getString(G::Project, 99), QString());
    QCOMPARE(state.setString(G::Project, 99, "x"), false);
    QCOMPARE(state.setString(G::User, 9, "x"), false); // ids belong to their group
    QCOMPARE(state.getProjectKey("grid_x"), -1);
    QCOMPARE(state.getSessionKey("GRID_X"), -1);
    QCOMPARE(state.setInt(static_cast<G>(7), 0, 1), false); // no such group

    QCOMPARE(state.createIntegerProperty(G::Project, 2, "OTHER", 50, true), false);
    QCOMPARE(state.getInt(G::Project, 2), 10);
    // A free id with a key the group already uses: refused, and the id stays free.
    QCOMPARE(state.createBooleanProperty(G::Project, 12, "GRID_X", true, true), false);
    QCOMPARE(state.getProjectKey("GRID_X"), 2);
    QVERIFY(_recorder->events.isEmpty());
    QCOMPARE(state.getDirty(), false);

    // What a plug-in does for the clipping flag. The default is set while the new property is
    // still tracked, so one that differs from false marks the project, untracked or not.
    QVERIFY(state.createBooleanProperty(G::Project, 7, "CLIP_TO_PARENT", true, false));
    QCOMPARE(state.getBool(G::Project, 7), true);
    QCOMPARE(state.getDirty(), true);
    QVERIFY(state.createStringProperty(G::Session, 8, "PLUGIN_PATH", false));
    QCOMPARE(state.sessionModel()->property("PLUGIN_PATH")->getDefault(), QVariant(QString()));
    QCOMPARE(valueEventCount(), 0);
}

void tst_GlobalState::settersRaiseValueEvents()
{
    GlobalState &state = GlobalState::i();
    QVERIFY(state.setInt(G::Project, 2, 20));
    QVERIFY(state.setString(G::Session, 9, "/projects"));
    // Refused: the value it holds, and a value of another kind.
    QCOMPARE(state.setInt(G::Project, 2, 20), false);
    QCOMPARE(state.setBool(G::Project, 2, true), false);
    QCOMPARE(state.getInt(G::Project, 2), 20);

    QList<GlobalStateChangedEvent const *> events;
    for (auto const &event : _recorder->events) {
        if (event->type() == EVT_GLOBALSTATE_VALUE_CHANGED)
            events.append(static_cast<GlobalStateChangedEvent const *>(event.data()));
    }
    QCOMPARE(events.size(), 2);
    QCOMPARE(events[0]->type(), G::Project);
    QCOMPARE(events[0]->id(), 2u);
    QCOMPARE(events[0]->oldValue(), QVariant(10));
    QCOMPARE(events[0]->newValue(), QVariant(20));
    QCOMPARE(events[1]->type(), G::Session);
    QCOMPARE(events[1]->id(), 9u);
    QCOMPARE(events[1]->newValue(), QVariant(QString("/projects")));
}

void tst_GlobalState::dirtyEvents_data()
{
    QTest::addColumn<unsigned long long>("type");
    QTest::addColumn<bool>("dirty");

    using Types = std::initializer_list<unsigned long long>;
    for (unsigned long long type :
         Types{16, 18, 19, 21, 23, 24, 25, 27, 28, 38, 51, 54, 56, 58, 60})
        QTest::addRow("%llu", type) << type << true;
    // The announcements before a change, repaints, selection, tools, the flag's own events,
    // and a number beyond 32 bits whose low bits name a marking type.
    for (unsigned long long type : Types{3,  7,  8,  15, 17, 20, 22, 26, 31, 33,
                                         39, 40, 46, 50, 52, 53, 59, 61, 62, 0x100000010})
        QTest::addRow("%llu", type) << type << false;
}

void tst_GlobalState::dirtyEvents()
{
    QFETCH(unsigned long long, type);
    QFETCH(bool, dirty);

    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(type, EVM_SCREEN));
    QCOMPARE(GlobalState::i().getDirty(), dirty);
}

void tst_GlobalState::dirtyFlag()
{
    GlobalState &state = GlobalState::i();
    state.setDirty(true);
    state.setDirty(true);
    state.setDirty(false);
    QCOMPARE(dirtyChanges(), QList<bool>({true, false}));

    // A plug-in's own type joins the rule; the clean request lowers the flag. Both changes are
    // raised inside a delivery and follow with the next pump.
    QVERIFY(state.addDirtyEvent(1000));
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(1000, EVM_COMMAND));
    QVERIFY(state.getDirty());
    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_GLOBALSTATE_REQUEST_CLEAN, EVM_GLOBALSTATE));
    QCOMPARE(state.getDirty(), false);
    QTRY_COMPARE(dirtyChanges(), QList<bool>({true, false, true, false}));
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

    EventBus::i().setEventsEnabled(busOn);
    QVERIFY(set(group, id, value));
    QCOMPARE(get(group, id, value.userType()), value);
    QCOMPARE(GlobalState::i().getDirty(), dirty);

    // Any tracked property marks the project, also a silent one of an object's model.
    PropertyModel model;
    Property *property = model.addProperty(IntegerProperty::Type(), "width", {});
    property->setTracked(false);
    GlobalState::i().setDirty(false);
    QVERIFY(property->setValue(3, PropertyChangeReason::ReasonView));
    QCOMPARE(GlobalState::i().getDirty(), false);
    property->setTracked(true);
    property->setEventsEnabled(false);
    QVERIFY(property->setValue(4, PropertyChangeReason::ReasonView));
    QCOMPARE(GlobalState::i().getDirty(), true);
}

void tst_GlobalState::blankResetsProjectAndUserOnly()
{
    GlobalState &state = GlobalState::i();
    for (int round = 0; round < 2; ++round) {
        state.setInt(G::Project, 2, 20);
        state.setInt(G::User, 1, 0x123456);
        state.setString(G::Session, 9, "/projects");
        _recorder->clear();
        if (round == 0)
            EventBus::i().raiseEventNow(
                QSharedPointer<Event>::create(EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT));
        else
            state.reset();
        QCOMPARE(state.getInt(G::Project, 2), 10);
        QCOMPARE(state.getInt(G::User, 1), 8829080);
        QCOMPARE(state.getString(G::Session, 9), QString("/projects"));
        QCOMPARE(valueEventCount(), 0);
    }
}

void tst_GlobalState::projectStateSaveAndLoad()
{
    GlobalState &state = GlobalState::i();
    state.setInt(G::Project, 8, 800);
    DataState data;
    state.save(data);
    QCOMPARE(data.fileNames(), QStringList({"state.json"}));
    QVERIFY(data.getFileData("state.json").contains("\n    \"")); // indented
    QJsonObject const json = QJsonDocument::fromJson(data.getFileData("state.json")).object();
    QCOMPARE(json.value("SCREEN_WIDTH").toObject().value("value").toInt(), 800);
    QVERIFY(!json.contains("LAST_PROJECT_DIR"));
    QVERIFY(!json.contains("LOG_LEVEL"));

    // Through a real archive and back, silently.
    QTemporaryDir directory;
    QVERIFY(data.writeZip(directory.filePath("project.zip")));
    state.reset();
    DataState read;
    QVERIFY(read.read(directory.filePath("project.zip")));
    _recorder->clear();
    state.load(read);
    QCOMPARE(state.getInt(G::Project, 8), 800);
    QCOMPARE(valueEventCount(), 0);

    // Keys missing from the file keep their values; no file, a file that doesn't parse, or a
    // value of another kind change nothing.
    state.setInt(G::Project, 3, 15);
    for (auto const &entry : QList<QPair<QString, QByteArray>>{
             {"state.json", R"({"GRID_X": {"type": "integer", "value": 30}})"},
             {"/state.json", R"({"GRID_X": {"type": "integer", "value": 1}})"},
             {"state.json", R"({"GRID_X": {"type": "integer", "val)"},
             {"state.json", R"({"GRID_X": {"type": "boolean", "value": true}})"}}) {
        DataState partial;
        partial.setFileData(entry.first, entry.second);
        state.load(partial);
    }
    QCOMPARE(state.getInt(G::Project, 2), 30);
    QCOMPARE(state.getInt(G::Project, 3), 15);
    QCOMPARE(state.getInt(G::Project, 8), 800);
}

void tst_GlobalState::garbageUserStateLeavesDefaults_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("not json") << QByteArray("LOG_LEVEL=2\n{{{");
    QTest::newRow("binary") << QByteArray("\x00\xff\xfe{\x01", 5);
    QTest::newRow("array") << QByteArray("[1, 2, 3]");
    QTest::newRow("wrong kinds") << QByteArray(
        R"({"LOG_LEVEL": {"type": "text", "value": "2"}, "GRID_COLOR": 7})");
}

void tst_GlobalState::garbageUserStateLeavesDefaults()
{
    QFETCH(QByteArray, content);

    QString const base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QVERIFY(base.startsWith(QDir::currentPath())); // never the real user's files
    QDir(base + "/.tes").removeRecursively();
    QVERIFY(QDir().mkpath(base + "/.tes"));
    QFile file(Core::pluginDataDirectory() + "/user_config.json");
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();

    GlobalState &state = GlobalState::i();
    state.loadUserState();
    QCOMPARE(state.getInt(G::User, 0), 0);
    QCOMPARE(state.getInt(G::User, 1), 8829080);
    QVERIFY(_recorder->events.isEmpty());

    // Saving replaces it with the user group.
    state.setInt(G::User, 0, 2);
    state.saveUserState();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QJsonObject const json = QJsonDocument::fromJson(file.readAll()).object();
    QCOMPARE(json.value("LOG_LEVEL").toObject().value("value").toInt(), 2);
    QVERIFY(json.contains("GRID_COLOR"));
    QVERIFY(!json.contains("GRID_X"));
}

void tst_GlobalState::userStateSurvivesCoreRestart()
{
    QTemporaryDir config;
    QByteArray const savedConfig = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));

    Core core;
    QVERIFY(core.initialize({}));
    QCOMPARE(GlobalState::i().getString(G::Session, 9), QString("."));
    // A new GlobalState is dirty; start-up ends with the clean request.
    QCOMPARE(GlobalState::i().getDirty(), false);
    QCOMPARE(TesseraWindow::i().windowTitle(), QString("Corvane Graphics Tessera"));
    QVERIFY(GlobalState::i().setInt(G::User, 1, 0x123456));
    QCOMPARE(TesseraWindow::i().windowTitle(), QString("Corvane Graphics Tessera*"));
    QVERIFY(GlobalState::i().setInt(G::User, 0, 1));
    QCOMPARE(Log::i().getLevel(), LogLevel::Debug); // a change of the preference moves it
    QVERIFY(GlobalState::i().setInt(G::Project, 2, 25));
    core.destroy();
    PluginManager::destroy(); // Core leaves these for the process to end
    SceneManager::destroy();
    SelectionManager::destroy();
    QVERIFY(!GlobalState::ip());
    QVERIFY(QFile::exists(config.path() + "/.tes/user_config.json"));

    QVERIFY(core.initialize({}));
    QCOMPARE(GlobalState::i().getInt(G::User, 1), 0x123456);
    QCOMPARE(GlobalState::i().getInt(G::User, 0), 1);
    QCOMPARE(GlobalState::i().getInt(G::Project, 2), 10); // not user state
    QCOMPARE(GlobalState::i().getDirty(), false);
    // The Log read LOG_LEVEL before the file was loaded, and loading raises nothing: it keeps
    // the default until the preference changes again.
    QCOMPARE(Log::i().getLevel(), LogLevel::User);
    core.destroy();
    PluginManager::destroy();
    SceneManager::destroy();
    SelectionManager::destroy();

    qputenv("XDG_CONFIG_HOME", savedConfig);
}

QTEST_MAIN(tst_GlobalState)
#include "tst_GlobalState.moc"
