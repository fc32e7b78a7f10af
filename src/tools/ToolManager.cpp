// SPDX-License-Identifier: MIT
#include "tools/ToolManager.h"

#include "designer/ScreenDesignArea.h"
#include "designer/ScreenDesignerWindow.h"
#include "events/EventBus.h"
#include "events/ToolEvent.h"
#include "services/Log.h"
#include "tools/Tool.h"
#include "tools/TransformToolExtender.h"
#include "tools/TransformToolFactory.h"

namespace TES {

template<>
ToolManager *Singleton<ToolManager>::_instance = nullptr;

namespace {

void raiseToolEvent(QString const &type, unsigned long long eventType)
{
    EventBus::RaiseNow(QSharedPointer<ToolEvent>::create(type, eventType));
}

void logLine(QString const &text)
{
    if (Log::ip())
        Log::ip()->writeMessage(text, "Tool", LogSeverity::Info, LogLevel::Debug);
}

} // namespace

ToolManager::ToolManager()
{
    _instance = this;
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
    // The host's factories register first, in their order, then the extender is made. They
    // live to the end of the process, whatever becomes of the manager.
    static TransformToolFactory transformFactory;
    registerFactory(&transformFactory);
    _extender = std::make_unique<TransformToolExtender>();
}

ToolManager::~ToolManager()
{
    logLine("Destroying Tool Manager");
    deactivate();
    _instance = nullptr;
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
}

bool ToolManager::registerFactory(ToolFactory *factory)
{
    if (!factory)
        return false;
    QString const type = factory->type();
    if (!_factories.emplace(type, factory).second)
        return false;
    logLine("Registering Tool Factory: " + type);
    return true;
}

bool ToolManager::unregisterFactory(QString const &type)
{
    if (_factories.erase(type) == 0)
        return false;
    logLine("Unregistering Tool Factory: " + type);
    return true;
}

void ToolManager::activate(QString const &type, KeyValueMap const &params)
{
    if (_activeTool) {
        if (_activeTool->type() == type) {
            _activeTool->update();
            return;
        }
        deactivate();
    }
    auto const found = _factories.find(type);
    if (found == _factories.end())
        return;
    Tool *tool = found->second->create();
    if (!tool)
        return;
    _activeTool = tool;
    raiseToolEvent(type, EVT_TOOL_ACTIVATING);
    // A handler that deactivated the tool has deleted it already.
    if (_activeTool != tool)
        return;
    if (!tool->activate(params)) {
        // Refused: ACTIVATING stays without its ACTIVATED.
        _activeTool = nullptr;
        delete tool;
        return;
    }
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->attachOverlay(OverlayTool, tool);
    raiseToolEvent(type, EVT_TOOL_ACTIVATED);
}

void ToolManager::deactivate()
{
    // Cleared first: a handler of the events below may call in again and find nothing to do.
    Tool *tool = _activeTool;
    _activeTool = nullptr;
    if (!tool)
        return;
    QString const type = tool->type();
    raiseToolEvent(type, EVT_TOOL_DEACTIVATING);
    tool->deactivate();
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->detatchIfOwned(OverlayTool, tool);
    raiseToolEvent(tool->type(), EVT_TOOL_DEACTIVATED);
    delete tool;
}

void ToolManager::deactivateIfType(QString const &type)
{
    if (_activeTool && _activeTool->type() == type)
        deactivate();
}

void ToolManager::update()
{
    if (_activeTool)
        _activeTool->update();
}

Tool *ToolManager::activeTool() const
{
    return _activeTool;
}

QString ToolManager::getEventHandlerName() const
{
    return "ToolManager";
}

bool ToolManager::canHandleEvent(unsigned long long mask) const
{
    return mask & (EVM_PROJECT | EVM_SCREEN);
}

void ToolManager::handleEvent(QSharedPointer<Event> event)
{
    if (event->type() == EVT_SCREEN_ACTIVE_CHANGING || event->type() == EVT_PROJECT_REQUEST_BLANK)
        deactivate();
}

bool ToolManager::persistent() const
{
    return true;
}

} // namespace TES
