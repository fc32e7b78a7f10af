#pragma once

#include "properties/AbstractComboProperty.h"

namespace TES {

// The combo property that keeps its value, the chosen index, -1 while nothing is chosen, in a
// field. Created by ComboPropertyFactory under the type name "combo".
class TES_EXPORT ComboProperty : public AbstractComboProperty
{
public:
    ComboProperty(PropertyModel *model, QString const &id);

    QVariant getValue() const override;

protected:
    bool _setValue(QVariant const &value) override;

private:
    int _value = -1;
};

} // namespace TES
