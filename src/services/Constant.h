// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

namespace TES {

// Fixed values shared by host and plug-ins.
class TES_EXPORT Constant
{
public:
    static constexpr double pi = 3.141592653589793;
    // The name of the per-user directory, without its dot.
    static char const *const ApplicationDir;
};

} // namespace TES
