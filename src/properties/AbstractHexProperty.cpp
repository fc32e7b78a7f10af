#include "properties/AbstractHexProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

#include <limits>

namespace TES {

AbstractHexProperty::AbstractHexProperty(PropertyModel *model, QString const &id)
    : Property(model, id), _min(0), _max(std::numeric_limits<unsigned int>::max())
{}

QString AbstractHexProperty::Type()
{
    return QStringLiteral("hex");
}

unsigned int AbstractHexProperty::Get(PropertyModel const *model, QString const &id)
{
    return model ? model->getValue(id).toUInt() : 0;
}

bool AbstractHexProperty::Set(PropertyModel *model, QString const &id, unsigned int value,
                              PropertyChangeReason reason)
{
    return model && model->setValue(id, QVariant(value), reason);
}

bool AbstractHexProperty::isCompatible(QVariant const &value) const
{
    if (value.userType() != QMetaType::UInt)
        return false;
    unsigned int const number = value.toUInt();
    return number >= _min && number <= _max;
}

bool AbstractHexProperty::isDefault() const
{
    return !_hasDefault || getValue() == QVariant(_default);
}

QVariant AbstractHexProperty::getDefault() const
{
    return QVariant(_default);
}

void AbstractHexProperty::setDefault(QVariant const &value)
{
    if (!isCompatible(value))
        return;
    _default = value.toUInt();
    _hasDefault = true;
    if (model())
        model()->propertyStateChanged(this);
}

QString AbstractHexProperty::type() const
{
    return Type();
}

QString AbstractHexProperty::toolTip() const
{
    QString tip
        = getText() + " (" + id() + ")<br>Hex<br>[" + QString::number(_min) + ",0xFFFFFFFF]";
    if (!getHelpText().isEmpty())
        tip += "<br><br>" + getHelpText();
    return tip;
}

PropertyViewNameCell *AbstractHexProperty::view()
{
    return PropertyViewMaker::MakeCell(Type(), this);
}

unsigned int AbstractHexProperty::getHex() const
{
    return getValue().toUInt();
}

unsigned int AbstractHexProperty::getMin() const
{
    return _min;
}

void AbstractHexProperty::setMin(unsigned int min)
{
    if (_min == min)
        return;
    if (getHex() < min)
        setValue(QVariant(min), PropertyChangeReason::ReasonInternal);
    _min = min;
    if (model())
        model()->propertyStateChanged(this);
}

unsigned int AbstractHexProperty::getMax() const
{
    return _max;
}

void AbstractHexProperty::setMax(unsigned int max)
{
    if (_max == max)
        return;
    // Not the mirror of setMin: a value below the new maximum is raised to it.
    if (getHex() < max)
        setValue(QVariant(max), PropertyChangeReason::ReasonInternal);
    _max = max;
    if (model())
        model()->propertyStateChanged(this);
}

bool AbstractHexProperty::getShowButton() const
{
    return _showButton;
}

void AbstractHexProperty::setShowButton(bool show)
{
    if (_showButton == show)
        return;
    _showButton = show;
    if (model())
        model()->propertyStateChanged(this);
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
