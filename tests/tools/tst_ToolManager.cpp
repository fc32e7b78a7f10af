// SPDX-License-Identifier: MIT
#include "data/KeyValueMap.h"
#include "designer/ScreenDesignArea.h"
#include "events/EventBus.h"
#include "events/ToolEvent.h"
#include "scene/SceneManager.h"
#include "services/Log.h"
#include "support/DesignSurface.h"
#include "support/LogRecorder.h"
#include "support/RecordingHandler.h"
#include "tools/Tool.h"
#include "tools/ToolFactory.h"
#include "tools/ToolManager.h"
#include "tools/TransformTool.h"

#include <QPointer>
#include <QtTest>

using namespace TES;
using TES::Test::DesignSurface;
using TES::Test::LogRecorder;
using TES::Test::RecordingHandler;

namespace {

// A plug-in's tool: logs the calls it gets, and refuses activation when asked to.
class ProbeTool : public Tool
{
public:
    QString type() const override { return "probe"; }
    bool activate(KeyValueMap const &params) override
    {
        calls.append("activate");
        return !params.getBool("refuse");
    }
    void deactivate() override { calls.append("deactivate"); }
    void update() override { calls.append("update"); }
    void activateOverlay() override { calls.append("activateOverlay"); }
    void deactivateOverlay() override { calls.append("deactivateOverlay"); }
    void handleOverlayEvent(QEvent *) override {}

    static QStringList calls;
};
QStringList ProbeTool::calls;

class ProbeFactory : public ToolFactory
{
public:
    QString type() const override { return "probe"; }
    Tool *create() const override
    {
        made = new ProbeTool();
        return made;
    }
    mutable QPointer<Tool> made;
};

// "type:tool type" for each tool event.
QStringList toolEvents(RecordingHandler &recorder)
{
    QStringList names;
    for (auto const &event : recorder.events)
        names << printEventType(event->type()) + ":" + event.staticCast<ToolEvent>()->toolType();
    recorder.clear();
    return names;
}

} // namespace

class tst_ToolManager : public QObject
{
    Q_OBJECT

private slots:
    void lifeOfAPluginTool();
    void screenChangeAndBlankEndTheTool();
};

void tst_ToolManager::lifeOfAPluginTool()
{
    DesignSurface surface;
    new Log("tessera.log", false);
    Log::i().setLevel(LogLevel::Debug);
    LogRecorder log;
    log.attach();
    RecordingHandler recorder(EVM_TOOL);
    ToolManager &tools = ToolManager::i();
    ProbeFactory factory;
    QVERIFY(tools.registerFactory(&factory));
    QVERIFY(!tools.registerFactory(&factory));
    ProbeFactory other;
    QVERIFY(!tools.registerFactory(nullptr));
    QCOMPARE(log.lines(), QStringList({"Tool|Registering Tool Factory: probe"}));

    KeyValueMap params;
    tools.activate("probe", params);
    QPointer<Tool> const probe = factory.made;
    QVERIFY(probe);
    QCOMPARE(surface.area().getOverlayOwner(OverlayTool), probe.data());
    QCOMPARE(ProbeTool::calls, QStringList({"activate", "activateOverlay"}));
    QCOMPARE(toolEvents(recorder),
             QStringList({"EVT_TOOL_ACTIVATING:probe", "EVT_TOOL_ACTIVATED:probe"}));

    // The active type again: the same tool, updated, and no event.
    tools.activate("probe", params);
    QCOMPARE(tools.activeTool(), probe.data());
    QCOMPARE(ProbeTool::calls.last(), QString("update"));
    QVERIFY(recorder.events.isEmpty());
    tools.deactivateIfType("transform");
    QCOMPARE(tools.activeTool(), probe.data());

    // Unregistered, the tool stays; another type replaces it.
    QVERIFY(tools.unregisterFactory("probe"));
    QVERIFY(!tools.unregisterFactory("probe"));
    ProbeTool::calls.clear();
    tools.activate("transform", params);
    QVERIFY(!probe);
    QCOMPARE(ProbeTool::calls, QStringList({"deactivate", "deactivateOverlay"}));
    QCOMPARE(toolEvents(recorder),
             QStringList({"EVT_TOOL_DEACTIVATING:probe", "EVT_TOOL_DEACTIVATED:probe",
                          "EVT_TOOL_ACTIVATING:transform", "EVT_TOOL_ACTIVATED:transform"}));
    QVERIFY(qobject_cast<TransformTool *>(surface.area().getOverlayOwner(OverlayTool)));

    // An unknown type leaves no tool; deactivating nothing raises nothing.
    tools.activate("unknown", params);
    QVERIFY(!tools.activeTool());
    QVERIFY(!surface.area().isOverlayOwned(OverlayTool));
    toolEvents(recorder);
    tools.deactivate();
    QVERIFY(recorder.events.isEmpty());

    // A refusal: ACTIVATING without ACTIVATED, the tool deleted and never attached.
    QVERIFY(tools.registerFactory(&factory));
    params.setBool("refuse", true);
    ProbeTool::calls.clear();
    tools.activate("probe", params);
    QVERIFY(!factory.made);
    QVERIFY(!tools.activeTool());
    QCOMPARE(ProbeTool::calls, QStringList({"activate"}));
    QCOMPARE(toolEvents(recorder), QStringList({"EVT_TOOL_ACTIVATING:probe"}));
    Log::destroy();
}

void tst_ToolManager::screenChangeAndBlankEndTheTool()
{
    DesignSurface surface;
    RecordingHandler recorder(EVM_TOOL | EVM_SCREEN | EVM_PROJECT);
    QUuid const first = surface.addScreen("first");
    QUuid const second = surface.addScreen("second");
    SceneManager::i().setActiveScreen(first);
    ToolManager::i().activate("transform", KeyValueMap());
    recorder.clear();
    SceneManager::i().setActiveScreen(second);
    QList<unsigned long long> const types = recorder.types().mid(0, 3);
    QCOMPARE(types, QList<unsigned long long>(
                        {EVT_SCREEN_ACTIVE_CHANGING, EVT_TOOL_DEACTIVATING, EVT_TOOL_DEACTIVATED}));
    QVERIFY(!ToolManager::i().activeTool());

    ToolManager::i().activate("transform", KeyValueMap());
    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT));
    QVERIFY(!ToolManager::i().activeTool());
}

QTEST_MAIN(tst_ToolManager)
#include "tst_ToolManager.moc"
