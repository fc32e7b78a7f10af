// SPDX-License-Identifier: MIT
#pragma once

#include "properties/AbstractIntegerProperty.h"

namespace TES {

// The integer property that keeps its value, an int, in a field. Created by
// IntegerPropertyFactory under the type name "integer".
class TES_EXPORT IntegerProperty : public StoredProperty<AbstractIntegerProperty, int>
{
public:
    using StoredProperty::StoredProperty;
};

} // namespace TES
