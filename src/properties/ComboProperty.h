// SPDX-License-Identifier: MIT
#pragma once

#include "properties/AbstractComboProperty.h"

namespace TES {

// The combo property that keeps its value, the chosen index, -1 while nothing is chosen, in a
// field. Created by ComboPropertyFactory under the type name "combo".
class TES_EXPORT ComboProperty : public StoredProperty<AbstractComboProperty, int>
{
public:
    ComboProperty(PropertyModel *model, QString const &id) : StoredProperty(model, id, -1) {}
};

} // namespace TES
