#include "properties/ComboProperty.h"

namespace TES {

ComboProperty::ComboProperty(PropertyModel *model, QString const &id)
    : AbstractComboProperty(model, id)
{}

QVariant ComboProperty::getValue() const
{
    return QVariant(_value);
}

bool ComboProperty::_setValue(QVariant const &value)
{
    _value = value.toInt();
    return true;
}

} // namespace TES
