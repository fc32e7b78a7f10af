// SPDX-License-Identifier: MIT
#pragma once

#include "services/PluginInfo.h"
#include "services/PluginInterface.h"

// The two functions a plug-in library exports, by these exact names. A plug-in includes this
// header and defines them; the declarations below give them C linkage and default
// visibility, so they are exported even from a library built with hidden visibility.
//
// Both are called while the host scans the "plugins" folder, whether or not the plug-in is
// chosen later; the library is closed again after the scan. TesseraPlugin_GetInterface is
// called once more when the plug-in is loaded. Neither may assume that the plug-in will run.
//
// A minimal plug-in:
//
//     int TesseraPlugin_GetInterface(TES::PluginInterface *plugin)
//     {
//         std::strncpy(plugin->name, "myplugin", sizeof plugin->name - 1);
//         plugin->versionMajor = 1;
//         plugin->initialize = &initialize; // installs its factories with the host
//         plugin->shutdown = &shutdown;
//         return 0;
//     }

#define TES_PLUGIN_ENTRY __attribute__((visibility("default")))

// The info record is a C++ type behind C linkage. Host and plug-in are both C++ on the same
// ABI, so clang's warning about that does not apply.
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

// Required. Fills in the record; answers 0 when the library is a usable plug-in, anything
// else to be left out of the list.
TES_PLUGIN_ENTRY int TesseraPlugin_GetInterface(TES::PluginInterface *pluginInterface);

// Optional. The picture and texts of the selection dialog; without it the plug-in is listed
// with an empty title and picture.
TES_PLUGIN_ENTRY TES::PluginInfo TesseraPlugin_GetInfo();
}

#if defined(__clang__)
#pragma clang diagnostic pop
#endif

namespace TES {

using PluginGetInterfaceFunction = int (*)(PluginInterface *);
using PluginGetInfoFunction = PluginInfo (*)();

} // namespace TES
