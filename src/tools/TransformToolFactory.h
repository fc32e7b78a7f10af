// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "tools/ToolFactory.h"

namespace TES {

// Makes TransformTools under the type "transform". ToolManager registers one for the life of
// the process.
class TES_EXPORT TransformToolFactory : public ToolFactory
{
public:
    QString type() const override;
    Tool *create() const override;
};

} // namespace TES
