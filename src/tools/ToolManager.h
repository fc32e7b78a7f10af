// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <QString>

#include <map>
#include <memory>

namespace TES {

class KeyValueMap;
class Tool;
class ToolFactory;
class TransformToolExtender;

// Holds the tool factories by type name and the one active tool. A tool is made on
// activation, hung on the tool overlay (slot 5) of the design surface, and deleted on
// deactivation; EVT_TOOL_ACTIVATING, EVT_TOOL_ACTIVATED, EVT_TOOL_DEACTIVATING and
// EVT_TOOL_DEACTIVATED (ToolEvents) go out at once around these steps, so their handlers run
// inside the calls and may deactivate again.
//
// Core creates the one instance after SelectionManager and leaves it alive until the process
// ends. The constructor registers the host's "transform" tool and makes the
// TransformToolExtender. As a persistent handler on the bus it deactivates the tool before the
// active screen changes and when a project is blanked.
class TES_EXPORT ToolManager : public IEventHandler, public Singleton<ToolManager>
{
public:
    ToolManager();
    ~ToolManager() override;

    ToolManager(ToolManager const &) = delete;
    ToolManager &operator=(ToolManager const &) = delete;

    // False for a null factory or a type already registered, which keeps its factory. Not
    // owned: the factory must outlive its registration.
    bool registerFactory(ToolFactory *factory);
    // False when the type is not registered. The factory is not deleted, and an active tool of
    // the type stays active.
    bool unregisterFactory(QString const &type);
    // Activating the active tool's type only calls its update(). Otherwise the old tool goes,
    // and a new one is made, told the parameters (it may refuse) and attached to slot 5. An
    // unknown type leaves no tool active.
    void activate(QString const &type, KeyValueMap const &params);
    // Detaches and deletes the active tool, if any.
    void deactivate();
    void deactivateIfType(QString const &type);
    // The active tool's update(), for plug-ins to call when what a tool shows has changed.
    void update();
    // The active tool, null when none is; owned here.
    Tool *activeTool() const;

    // "ToolManager".
    QString getEventHandlerName() const override;
    // EVM_PROJECT and EVM_SCREEN.
    bool canHandleEvent(unsigned long long mask) const override;
    // EVT_SCREEN_ACTIVE_CHANGING and EVT_PROJECT_REQUEST_BLANK deactivate the tool.
    void handleEvent(QSharedPointer<Event> event) override;
    bool persistent() const override;

private:
    std::map<QString, ToolFactory *> _factories;
    Tool *_activeTool = nullptr;
    std::unique_ptr<TransformToolExtender> _extender;
};

template<>
TES_EXPORT ToolManager *Singleton<ToolManager>::_instance;

} // namespace TES
