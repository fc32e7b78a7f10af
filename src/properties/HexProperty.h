// SPDX-License-Identifier: MIT
#pragma once

#include "properties/AbstractHexProperty.h"

namespace TES {

// The hex property that keeps its value, an unsigned 32-bit number, in a field. Created by
// HexPropertyFactory under the type name "hex".
class TES_EXPORT HexProperty : public StoredProperty<AbstractHexProperty, unsigned int>
{
public:
    using StoredProperty::StoredProperty;
};

} // namespace TES
