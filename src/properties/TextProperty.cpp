#include "properties/TextProperty.h"

namespace TES {

TextProperty::TextProperty(PropertyModel *model, QString const &id)
    : AbstractTextProperty(model, id)
{}

QVariant TextProperty::getValue() const
{
    return QVariant(_value);
}

bool TextProperty::_setValue(QVariant const &value)
{
    _value = value.toString();
    return true;
}

} // namespace TES
