// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

namespace TES {

class Tool;

// Makes the tools of one type for ToolManager, which keys its factories by type(). The
// factory is not owned by ToolManager: whoever registers it keeps it alive while registered.
class TES_EXPORT ToolFactory
{
public:
    // The type name under which the factory is registered, equal to its tools' type().
    virtual QString type() const = 0;
    // A new tool, owned by the caller; null refuses the activation.
    virtual Tool *create() const = 0;
    virtual ~ToolFactory();
};

} // namespace TES
