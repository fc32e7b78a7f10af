// SPDX-License-Identifier: MIT
#include "properties/AbstractBooleanProperty.h"

namespace TES {

AbstractBooleanProperty::AbstractBooleanProperty(PropertyModel *model, QString const &id)
    : DefaultedProperty(model, id)
{}

QString AbstractBooleanProperty::Type()
{
    return QStringLiteral("boolean");
}

QString AbstractBooleanProperty::type() const
{
    return Type();
}

QString AbstractBooleanProperty::toolTip() const
{
    return _toolTip(" <i>(" + id() + ")</i><br><b>Boolean</b>");
}

bool AbstractBooleanProperty::getBool() const
{
    return _typedValue();
}

void AbstractBooleanProperty::_save(QJsonObject &json) const
{
    json.insert("value", getBool());
}

void AbstractBooleanProperty::_load(QJsonObject const &json)
{
    setValue(QVariant(json.value("value").toBool(false)), PropertyChangeReason::ReasonInternal);
}

} // namespace TES
