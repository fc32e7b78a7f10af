// SPDX-License-Identifier: MIT
#pragma once

#include "properties/AbstractTextProperty.h"

namespace TES {

// The text property that keeps its value, a string, in a field. Created by
// TextPropertyFactory under the type name "text".
class TES_EXPORT TextProperty : public StoredProperty<AbstractTextProperty, QString>
{
public:
    using StoredProperty::StoredProperty;
};

} // namespace TES
