// SPDX-License-Identifier: MIT
#include "tools/TransformToolFactory.h"

#include "tools/TransformTool.h"

namespace TES {

QString TransformToolFactory::type() const
{
    return TransformTool::Type();
}

Tool *TransformToolFactory::create() const
{
    return new TransformTool();
}

} // namespace TES
