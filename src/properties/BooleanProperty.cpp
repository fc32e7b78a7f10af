#include "properties/BooleanProperty.h"

namespace TES {

BooleanProperty::BooleanProperty(PropertyModel *model, QString const &id)
    : AbstractBooleanProperty(model, id)
{}

QVariant BooleanProperty::getValue() const
{
    return QVariant(_value);
}

bool BooleanProperty::_setValue(QVariant const &value)
{
    _value = value.toBool();
    return true;
}

} // namespace TES
