// SPDX-License-Identifier: MIT
#include "properties/UuidProperty.h"

namespace TES {

UuidProperty::UuidProperty(PropertyModel *model, QString const &id)
    : StoredProperty(model, id, QUuid::createUuid())
{}

QString UuidProperty::Type()
{
    return QStringLiteral("uuid");
}

QString UuidProperty::type() const
{
    return Type();
}

QString UuidProperty::toolTip() const
{
    return _toolTip(" (" + id() + ")<br>Uuid");
}

QUuid UuidProperty::getUuid() const
{
    return _typedValue();
}

void UuidProperty::_save(QJsonObject &json) const
{
    json.insert("value", getValue().toString());
}

void UuidProperty::_load(QJsonObject const &json)
{
    setValue(QVariant(QUuid(json.value("value").toString())), PropertyChangeReason::ReasonInternal);
}

} // namespace TES
