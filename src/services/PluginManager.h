// SPDX-License-Identifier: MIT
#pragma once

#include "services/PluginDescriptor.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <vector>

namespace TES {

// Finds the plug-ins on disk, loads the one chosen at start-up and shuts it down at exit. At
// most one plug-in runs in a process, for the whole run.
//
// Discovery opens each candidate library only for as long as it takes to read its entry
// points, then closes it again: a descriptor keeps nothing that points into a library. A
// loaded library is never closed, since objects of the plug-in's classes may outlive its
// shutdown.
//
// Core creates the manager in its start sequence and never deletes it; the manager receives
// no events. Main thread only.
class TES_EXPORT PluginManager : public Singleton<PluginManager>
{
public:
    PluginManager();
    // Does not unload the plug-in.
    ~PluginManager();

    // Scans the sub-directories of "plugins" beside the executable, or, when that folder does
    // not exist, of "./plugins" in the working directory. A library lying directly in
    // "plugins" is not looked at. Libraries that cannot be opened (dlerror() goes to standard
    // error), lack TesseraPlugin_GetInterface or answer non-zero from it are left out.
    std::vector<PluginDescriptor> availablePlugins() const;

    // Opens the library and runs the plug-in's initialize; true when the plug-in is running.
    // Refused at once, without opening anything, for a descriptor without both functions.
    bool loadPlugin(PluginDescriptor const &descriptor);
    // Calls the plug-in's shutdown and forgets it; the library stays loaded. Nothing happens
    // when no plug-in is loaded.
    void unloadPlugin();
    bool pluginIsLoaded() const;
    // The loaded plug-in, or an empty descriptor.
    PluginDescriptor currentPlugin() const;

private:
    PluginDescriptor _current;
};

template<>
TES_EXPORT PluginManager *Singleton<PluginManager>::_instance;

} // namespace TES
