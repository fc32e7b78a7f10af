#include "properties/AbstractIntegerProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

#include <limits>

namespace TES {

AbstractIntegerProperty::AbstractIntegerProperty(PropertyModel *model, QString const &id)
    : Property(model, id)
    , _min(std::numeric_limits<int>::min())
    , _max(std::numeric_limits<int>::max())
{}

QString AbstractIntegerProperty::Type()
{
    return QStringLiteral("integer");
}

int AbstractIntegerProperty::Get(PropertyModel const *model, QString const &id)
{
    return model ? model->getValue(id).toInt() : 0;
}

bool AbstractIntegerProperty::Set(PropertyModel *model, QString const &id, int value,
                                  PropertyChangeReason reason)
{
    return model && model->setValue(id, QVariant(value), reason);
}

bool AbstractIntegerProperty::isCompatible(QVariant const &value) const
{
    if (value.userType() != QMetaType::Int)
        return false;
    int const number = value.toInt();
    return number >= _min && number <= _max;
}

bool AbstractIntegerProperty::isDefault() const
{
    return !_hasDefault || getValue() == QVariant(_default);
}

QVariant AbstractIntegerProperty::getDefault() const
{
    return QVariant(_default);
}

void AbstractIntegerProperty::setDefault(QVariant const &value)
{
    if (!isCompatible(value))
        return;
    _default = value.toInt();
    _hasDefault = true;
    if (model())
        model()->propertyStateChanged(this);
}

QString AbstractIntegerProperty::type() const
{
    return Type();
}

QString AbstractIntegerProperty::toolTip() const
{
    QString tip = getText() + " (" + id() + ")<br>Integer<br>[" + QString::number(_min) + ","
                  + QString::number(_max) + "]";
    if (!getHelpText().isEmpty())
        tip += "<br><br>" + getHelpText();
    return tip;
}

PropertyViewNameCell *AbstractIntegerProperty::view()
{
    return PropertyViewMaker::MakeCell(Type(), this);
}

int AbstractIntegerProperty::getInteger() const
{
    return getValue().toInt();
}

int AbstractIntegerProperty::getMin() const
{
    return _min;
}

void AbstractIntegerProperty::setMin(int min)
{
    if (_min == min)
        return;
    // Written while the old limits still apply: a minimum above the old maximum is not
    // reached, and the value stays below its new minimum.
    if (getInteger() < min)
        setValue(QVariant(min), PropertyChangeReason::ReasonInternal);
    _min = min;
    if (model())
        model()->propertyStateChanged(this);
}

int AbstractIntegerProperty::getMax() const
{
    return _max;
}

void AbstractIntegerProperty::setMax(int max)
{
    if (_max == max)
        return;
    if (getInteger() > max)
        setValue(QVariant(max), PropertyChangeReason::ReasonInternal);
    _max = max;
    if (model())
        model()->propertyStateChanged(this);
}

int AbstractIntegerProperty::getStep() const
{
    return _step;
}

void AbstractIntegerProperty::setStep(int step)
{
    if (_step == step)
        return;
    _step = step;
    if (model())
        model()->propertyStateChanged(this);
}

bool AbstractIntegerProperty::getShowButton() const
{
    return _showButton;
}

void AbstractIntegerProperty::setShowButton(bool show)
{
    if (_showButton == show)
        return;
    _showButton = show;
    if (model())
        model()->propertyStateChanged(this);
}

bool AbstractIntegerProperty::getUpdateOnEdit() const
{
    return _updateOnEdit;
}

void AbstractIntegerProperty::setUpdateOnEdit(bool update)
{
    _updateOnEdit = update;
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
