// SPDX-License-Identifier: MIT
#include "properties/AbstractTextProperty.h"

namespace TES {

AbstractTextProperty::AbstractTextProperty(PropertyModel *model, QString const &id)
    : DefaultedProperty(model, id)
{}

QString AbstractTextProperty::Type()
{
    return QStringLiteral("text");
}

QString AbstractTextProperty::type() const
{
    return Type();
}

QString AbstractTextProperty::toolTip() const
{
    return _toolTip(" (" + id() + ")<br>Text");
}

QString AbstractTextProperty::getString() const
{
    return _typedValue();
}

void AbstractTextProperty::_save(QJsonObject &json) const
{
    json.insert("value", getString());
}

void AbstractTextProperty::_load(QJsonObject const &json)
{
    setValue(QVariant(json.value("value").toString()), PropertyChangeReason::ReasonInternal);
}

} // namespace TES
