// SPDX-License-Identifier: MIT
#pragma once

#include "properties/AbstractBooleanProperty.h"

namespace TES {

// The boolean property that keeps its value, a bool, in a field. Created by
// BooleanPropertyFactory under the type name "boolean".
class TES_EXPORT BooleanProperty : public StoredProperty<AbstractBooleanProperty, bool>
{
public:
    using StoredProperty::StoredProperty;
};

} // namespace TES
