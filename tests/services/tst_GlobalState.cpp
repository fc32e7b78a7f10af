// SPDX-License-Identifier: MIT
#include "app/Core.h"
#include "data/DataState.h"
#include "events/EventBus.h"
#include "events/GlobalStateEvents.h"
#include "properties/IntegerProperty.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "services/PluginManager.h"
#include "support/RecordingHandler.h"
#include "support/Services.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace TES;
using TES::Test::RecordingHandler;
using TES::Test::Services;
using G = GlobalPropertyType;

Q_DECLARE_METATYPE(TES::GlobalPropertyType)

namespace {

void raise(unsigned long long type)
{
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(type, EVM_SCREEN));
}

void destroyCore(Core &core)
{
    core.destroy();
    Services::dropCoreLeftovers();
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
    void gettersAndSetters();
    void dirtyEvents();
    void dirtyFlagAndRule();
    void blankResetsProjectAndUserOnly();
    void projectStateSaveAndLoad();
    void garbageUserStateLeavesDefaults_data();
    void garbageUserStateLeavesDefaults();
    void userStateSurvivesCoreRestart();

private:
    QList<bool> dirtyChanges() const;

    std::optional<Services> _services;
    std::unique_ptr<RecordingHandler> _recorder;
};

void tst_GlobalState::init()
{
    if (QTest::currentTestFunction() == QLatin1String("userStateSurvivesCoreRestart"))
        return;
    _services.emplace(Services::Bus | Services::State, false);
    _recorder = std::make_unique<RecordingHandler>();
    EventBus::i().setEventsEnabled(true);
}

void tst_GlobalState::cleanup()
{
    _recorder.reset();
    _services.reset();
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

void tst_GlobalState::valueTable_data()
{
    QTest::addColumn<G>("group");
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("defaultValue");
    QTest::addColumn<bool>("tracked");

    auto row = [](G group, int id, char const *key, QVariant value, bool tracked) {
        QTest::newRow(key) << group << id << value << tracked;
    };
    // A sample, each of its own kind or with a reader elsewhere; the counts in
    // gettersAndSetters catch a value gone missing. GRID_X (10, tracked) and the screen size
    // (480 by 272) are read by the data manager's, project commands' and scene manager's tests.
    row(G::Session, 0, "DIRTY_DISABLED", false, false);
    row(G::Session, 1, "SNAP_ENABLED", true, false);
    row(G::Session, 9, "LAST_PROJECT_DIR", QString(), false);
    row(G::Project, 0, "SNAP_TOGGLED", false, true);
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
    QList<PropertyModel *> const models{state.projectModel(), state.sessionModel(),
                                        state.userModel()};
    QList<int> const ids{state.getProjectKey(key), state.getSessionKey(key), state.getUserKey(key)};
    QCOMPARE(ids.at(int(group)), id);
    Property *property = models.at(int(group))->property(key);
    QVERIFY(property);
    QCOMPARE(property->getValue(), defaultValue);
    QCOMPARE(property->getDefault(), defaultValue);
    QCOMPARE(property->getTracked(), tracked);
}

void tst_GlobalState::gettersAndSetters()
{
    GlobalState &state = GlobalState::i();
    QCOMPARE(state.projectModel()->propertyNames().size(), std::size_t(11));
    QCOMPARE(state.sessionModel()->propertyNames().size(), std::size_t(9));
    QCOMPARE(state.userModel()->propertyNames().size(), std::size_t(2));
    QVERIFY(state.setInt(G::Project, 2, 20));
    // Refused: the value it holds, and a value of another kind.
    QCOMPARE(state.setInt(G::Project, 2, 20), false);
    QCOMPARE(state.setBool(G::Project, 2, true), false);
    QCOMPARE(_recorder->types().count(EVT_GLOBALSTATE_VALUE_CHANGED), 1);
    int const at = _recorder->types().indexOf(EVT_GLOBALSTATE_VALUE_CHANGED);
    auto const *event = static_cast<GlobalStateChangedEvent const *>(_recorder->events[at].data());
    QCOMPARE(event->type(), G::Project);
    QCOMPARE(event->id(), 2u);
    QCOMPARE(event->oldValue(), QVariant(10));
    QCOMPARE(event->newValue(), QVariant(20));
    _recorder->clear();

    // Project 7 is read by the selection overlay and the transform tool: false unless a
    // plug-in creates it. Unknown ids, and ids of another group, are refused silently.
    QCOMPARE(state.getBool(G::Project, 7), false);
    QCOMPARE(state.setBool(G::Project, 7, true), false);
    QCOMPARE(state.getString(G::Project, 99), QString());
    QCOMPARE(state.setString(G::Project, 99, "x"), false);
    QCOMPARE(state.setString(G::User, 9, "x"), false);
    QCOMPARE(state.getSessionKey("GRID_X"), -1);
    QCOMPARE(state.setInt(static_cast<G>(7), 0, 1), false); // no such group
    QCOMPARE(state.createIntegerProperty(G::Project, 2, "OTHER", 50, true), false);
    QCOMPARE(state.getInt(G::Project, 2), 20);
    // A free id with a key the group already uses: refused, and the id stays free.
    QCOMPARE(state.createBooleanProperty(G::Project, 12, "GRID_X", true, true), false);
    QCOMPARE(state.getProjectKey("GRID_X"), 2);
    QVERIFY(_recorder->events.isEmpty());

    // What a plug-in does for the clipping flag. The default is set while the new property is
    // still tracked, so one that differs from false marks the project, untracked or not.
    state.setDirty(false);
    QVERIFY(state.createBooleanProperty(G::Project, 7, "CLIP_TO_PARENT", true, false));
    QCOMPARE(state.getBool(G::Project, 7), true);
    QCOMPARE(state.getDirty(), true);
    QVERIFY(state.createStringProperty(G::Session, 8, "PLUGIN_PATH", false));
    QCOMPARE(state.sessionModel()->property("PLUGIN_PATH")->getDefault(), QVariant(QString()));
    QCOMPARE(_recorder->types().count(EVT_GLOBALSTATE_VALUE_CHANGED), 0);
}

void tst_GlobalState::dirtyEvents()
{
    QSet<unsigned long long> const marking{16, 18, 19, 21, 23, 24, 25, 27,
                                           28, 38, 51, 54, 56, 58, 60};
    // Every type number the host knows, and one beyond 32 bits whose low bits name a marking
    // type.
    QList<unsigned long long> types{0x100000010};
    for (unsigned long long type = 0; type <= EVT_USER; ++type)
        types.append(type);
    for (unsigned long long type : types) {
        GlobalState::i().setDirty(false);
        raise(type);
        QVERIFY2(GlobalState::i().getDirty() == marking.contains(type),
                 qPrintable(QString::number(type)));
    }
}

void tst_GlobalState::dirtyFlagAndRule()
{
    GlobalState &state = GlobalState::i();
    state.setDirty(true);
    state.setDirty(true);
    state.setDirty(false);
    QCOMPARE(dirtyChanges(), QList<bool>({true, false}));

    // A plug-in's own type joins the rule; the clean request lowers the flag. Both changes are
    // raised inside a delivery and follow with the next pump.
    QVERIFY(state.addDirtyEvent(1000));
    raise(1000);
    QVERIFY(state.getDirty());
    raise(EVT_GLOBALSTATE_REQUEST_CLEAN);
    QCOMPARE(state.getDirty(), false);
    QTRY_COMPARE(dirtyChanges(), QList<bool>({true, false, true, false}));

    // With the bus off only tracked properties mark the project: LAST_PROJECT_DIR set at
    // start-up leaves it clean.
    EventBus::i().setEventsEnabled(false);
    QVERIFY(state.setString(G::Session, 9, "/p"));
    QCOMPARE(state.getDirty(), false);
    QVERIFY(state.setInt(G::Project, 8, 800));
    QCOMPARE(state.getDirty(), true);
    state.setDirty(false);
    QVERIFY(state.setInt(G::User, 0, 2));
    QCOMPARE(state.getDirty(), true);

    // With the bus on, the value event marks it, whatever the group.
    state.setDirty(false);
    EventBus::i().setEventsEnabled(true);
    QVERIFY(state.setString(G::Session, 9, "/q"));
    QCOMPARE(state.getDirty(), true);

    // Any tracked property marks the project, also a silent one of an object's model.
    PropertyModel model;
    Property *property = model.addProperty(IntegerProperty::Type(), "width", {});
    property->setTracked(false);
    state.setDirty(false);
    QVERIFY(property->setValue(3, PropertyChangeReason::ReasonView));
    QCOMPARE(state.getDirty(), false);
    property->setTracked(true);
    property->setEventsEnabled(false);
    QVERIFY(property->setValue(4, PropertyChangeReason::ReasonView));
    QCOMPARE(state.getDirty(), true);
}

void tst_GlobalState::blankResetsProjectAndUserOnly()
{
    GlobalState &state = GlobalState::i();
    for (bool byEvent : {true, false}) {
        state.setInt(G::Project, 2, 20);
        state.setInt(G::User, 1, 0x123456);
        state.setString(G::Session, 9, "/projects");
        _recorder->clear();
        if (byEvent)
            EventBus::i().raiseEventNow(
                QSharedPointer<Event>::create(EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT));
        else
            state.reset();
        QCOMPARE(state.getInt(G::Project, 2), 10);
        QCOMPARE(state.getInt(G::User, 1), 8829080);
        QCOMPARE(state.getString(G::Session, 9), QString("/projects"));
        QCOMPARE(_recorder->types().count(EVT_GLOBALSTATE_VALUE_CHANGED), 0);
    }
}

void tst_GlobalState::projectStateSaveAndLoad()
{
    GlobalState &state = GlobalState::i();
    state.setInt(G::Project, 8, 800);
    DataState data;
    state.save(data);
    QCOMPARE(data.fileNames(), QStringList({"state.json"}));
    QJsonObject const json = QJsonDocument::fromJson(data.getFileData("state.json")).object();
    QCOMPARE(json.value("SCREEN_WIDTH").toObject().value("value").toInt(), 800);
    QVERIFY(!json.contains("LAST_PROJECT_DIR"));
    QVERIFY(!json.contains("LOG_LEVEL"));

    state.reset();
    _recorder->clear();
    state.load(data);
    QCOMPARE(state.getInt(G::Project, 8), 800);
    QCOMPARE(_recorder->types().count(EVT_GLOBALSTATE_VALUE_CHANGED), 0);

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
    QVERIFY(QDir().mkpath(base + "/.tes"));
    QFile file(Core::pluginDataDirectory() + "/user_config.json");
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();

    GlobalState::i().loadUserState();
    QCOMPARE(GlobalState::i().getInt(G::User, 0), 0);
    QCOMPARE(GlobalState::i().getInt(G::User, 1), 8829080);
    QVERIFY(_recorder->events.isEmpty());
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
    QVERIFY(GlobalState::i().setInt(G::User, 1, 0x123456));
    QVERIFY(GlobalState::i().setInt(G::User, 0, 1));
    QCOMPARE(Log::i().getLevel(), LogLevel::Debug); // a change of the preference moves it
    QVERIFY(GlobalState::i().setInt(G::Project, 2, 25));
    destroyCore(core);
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
    destroyCore(core);

    qputenv("XDG_CONFIG_HOME", savedConfig);
}

QTEST_MAIN(tst_GlobalState)
#include "tst_GlobalState.moc"
