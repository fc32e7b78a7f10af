// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace TES {

// The record that a plug-in fills in from TesseraPlugin_GetInterface. It crosses the library
// boundary, so its memory layout is fixed: fields in this order, natural alignment. Fields
// are never added, removed or reordered; a plug-in built against another layout would be
// read wrongly.
//
// PluginManager keeps a copy in each PluginDescriptor. The function pointers point into the
// plug-in's library and are only called while the host holds that library open.
struct TES_EXPORT PluginInterface
{
    // The plug-in's name, NUL-terminated ASCII. It also names the plug-in's per-user data
    // directory, so it should be usable as a directory name.
    char name[32] = {};
    std::uint32_t versionMajor = 0;
    std::uint32_t versionMinor = 0;
    std::uint32_t versionPatch = 0;
    // Called once, on the main thread, when the plug-in is chosen: every service and the main
    // window exist, the window is not shown yet and the event bus is off. Receives the
    // library's path in the local 8-bit encoding. Installs the plug-in's factories and
    // interfaces with the host. Answers 0 on success; anything else makes the host go on
    // without the plug-in (the library is closed again).
    int (*initialize)(char const *libraryPath) = nullptr;
    // Called once at shutdown, with the event bus off and the main window hidden, while the
    // services still stand. The library stays loaded afterwards, since objects of the
    // plug-in's classes may outlive this call.
    void (*shutdown)() = nullptr;
};

static_assert(std::is_standard_layout_v<PluginInterface>);
static_assert(offsetof(PluginInterface, name) == 0);
static_assert(offsetof(PluginInterface, versionMajor) == 32);
static_assert(offsetof(PluginInterface, versionMinor) == 36);
static_assert(offsetof(PluginInterface, versionPatch) == 40);
static_assert(sizeof(void *) != 8 || offsetof(PluginInterface, initialize) == 48);
static_assert(sizeof(void *) != 8 || offsetof(PluginInterface, shutdown) == 56);
static_assert(sizeof(void *) != 8 || sizeof(PluginInterface) == 64);

} // namespace TES
