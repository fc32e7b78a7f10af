// SPDX-License-Identifier: MIT
#include "support/Services.h"

#include "data/DataManager.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "services/PluginManager.h"
#include "support/TestScene.h"
#include "tools/ToolManager.h"
#include "windows/TesseraWindow.h"

namespace TES::Test {

Services::Services(unsigned which, bool enabled) : _which(which)
{
    if (which & Bus)
        new EventBus();
    if (which & State) {
        new GlobalState();
        GlobalState::i().setDirty(false);
    }
    if (which & Plugins)
        new PluginManager();
    if (which & Data)
        new DataManager();
    if (which & Scene) {
        new SceneManager();
        TestScene::registerFactories();
    }
    if (which & Selection)
        new SelectionManager();
    if (which & Logging)
        new Log("tessera.log", true);
    if ((which & Bus) && enabled)
        EventBus::i().setEventsEnabled(true);
}

Services::~Services()
{
    if (_which & Selection)
        SelectionManager::destroy();
    if (_which & Scene)
        SceneManager::destroy();
    if (_which & Data)
        DataManager::destroy();
    if (_which & Plugins)
        PluginManager::destroy();
    if (_which & State)
        GlobalState::destroy();
    if (_which & Bus)
        EventBus::destroy();
    if (_which & Logging)
        Log::destroy();
}

void Services::dropCoreLeftovers()
{
    delete TesseraWindow::ip();
    PluginManager::destroy();
    SceneManager::destroy();
    SelectionManager::destroy();
    ToolManager::destroy();
}

} // namespace TES::Test
