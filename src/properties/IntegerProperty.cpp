#include "properties/IntegerProperty.h"

namespace TES {

IntegerProperty::IntegerProperty(PropertyModel *model, QString const &id)
    : AbstractIntegerProperty(model, id)
{}

QVariant IntegerProperty::getValue() const
{
    return QVariant(_value);
}

bool IntegerProperty::_setValue(QVariant const &value)
{
    _value = value.toInt();
    return true;
}

} // namespace TES
