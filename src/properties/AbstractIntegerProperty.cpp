// SPDX-License-Identifier: MIT
#include "properties/AbstractIntegerProperty.h"

#include <limits>

namespace TES {

AbstractIntegerProperty::AbstractIntegerProperty(PropertyModel *model, QString const &id)
    : SteppedProperty(model, id, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
                      1)
{}

QString AbstractIntegerProperty::Type()
{
    return QStringLiteral("integer");
}

QString AbstractIntegerProperty::type() const
{
    return Type();
}

QString AbstractIntegerProperty::toolTip() const
{
    return _toolTip(" (" + id() + ")<br>Integer<br>[" + QString::number(_min) + ","
                    + QString::number(_max) + "]");
}

int AbstractIntegerProperty::getInteger() const
{
    return _typedValue();
}

void AbstractIntegerProperty::_save(QJsonObject &json) const
{
    json.insert("value", getInteger());
}

void AbstractIntegerProperty::_load(QJsonObject const &json)
{
    setValue(QVariant(json.value("value").toInt(0)), PropertyChangeReason::ReasonInternal);
}

} // namespace TES
