// SPDX-License-Identifier: MIT
#include "properties/AbstractHexProperty.h"

#include <limits>

namespace TES {

AbstractHexProperty::AbstractHexProperty(PropertyModel *model, QString const &id)
    : RangedProperty(model, id, 0, std::numeric_limits<unsigned int>::max())
{}

QString AbstractHexProperty::Type()
{
    return QStringLiteral("hex");
}

QString AbstractHexProperty::type() const
{
    return Type();
}

QString AbstractHexProperty::toolTip() const
{
    return _toolTip(" (" + id() + ")<br>Hex<br>[" + QString::number(_min) + ",0xFFFFFFFF]");
}

unsigned int AbstractHexProperty::getHex() const
{
    return _typedValue();
}

void AbstractHexProperty::setMax(unsigned int max)
{
    // Not the mirror of setMin: a value below the new maximum is raised to it.
    _setLimit(_max, max, [](unsigned int current, unsigned int limit) { return current < limit; });
}

void AbstractHexProperty::_save(QJsonObject &json) const
{
    json.insert("value", static_cast<qint32>(getHex()));
}

void AbstractHexProperty::_load(QJsonObject const &json)
{
    auto const value = static_cast<unsigned int>(json.value("value").toInt(0));
    setValue(QVariant(value), PropertyChangeReason::ReasonInternal);
}

} // namespace TES
