// SPDX-License-Identifier: MIT
#include "tools/ToolFactory.h"

namespace TES {

ToolFactory::~ToolFactory() = default;

} // namespace TES
