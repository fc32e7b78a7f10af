#include "properties/HexProperty.h"

namespace TES {

HexProperty::HexProperty(PropertyModel *model, QString const &id) : AbstractHexProperty(model, id)
{}

QVariant HexProperty::getValue() const
{
    return QVariant(_value);
}

bool HexProperty::_setValue(QVariant const &value)
{
    _value = value.toUInt();
    return true;
}

} // namespace TES
