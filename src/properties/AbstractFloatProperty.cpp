// SPDX-License-Identifier: MIT
#include "properties/AbstractFloatProperty.h"

#include <limits>

namespace TES {

namespace {

// Narrowing a double beyond the float range is undefined; such a value becomes an infinity,
// which no limits accept.
float toFloat(double value)
{
    if (value > std::numeric_limits<float>::max())
        return std::numeric_limits<float>::infinity();
    if (value < -std::numeric_limits<float>::max())
        return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

} // namespace

AbstractFloatProperty::AbstractFloatProperty(PropertyModel *model, QString const &id)
    : SteppedProperty(model, id, std::numeric_limits<float>::min(),
                      std::numeric_limits<float>::max(), 1.0f)
{}

QString AbstractFloatProperty::Type()
{
    return QStringLiteral("float");
}

QString AbstractFloatProperty::type() const
{
    return Type();
}

QString AbstractFloatProperty::toolTip() const
{
    QString tip = getText() + " (" + id() + ")<br>Float<br>[" + QString::number(_min, 'g', 6) + ","
                  + QString::number(_max, 'g', 6) + "]";
    // The help text itself is left out; the separator stays. Plug-ins depend on the form.
    if (!getHelpText().isEmpty())
        tip += "<br><br>";
    return tip;
}

float AbstractFloatProperty::getFloat() const
{
    return _typedValue();
}

void AbstractFloatProperty::_save(QJsonObject &json) const
{
    json.insert("value", static_cast<double>(getFloat()));
}

void AbstractFloatProperty::_load(QJsonObject const &json)
{
    setValue(QVariant(toFloat(json.value("value").toDouble(0.0))),
             PropertyChangeReason::ReasonInternal);
}

} // namespace TES
