#include "properties/AbstractFloatProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

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
    : Property(model, id)
    , _min(std::numeric_limits<float>::min())
    , _max(std::numeric_limits<float>::max())
{}

QString AbstractFloatProperty::Type()
{
    return QStringLiteral("float");
}

float AbstractFloatProperty::Get(PropertyModel const *model, QString const &id)
{
    return model ? model->getValue(id).toFloat() : 0.0f;
}

bool AbstractFloatProperty::Set(PropertyModel *model, QString const &id, float value,
                                PropertyChangeReason reason)
{
    return model && model->setValue(id, QVariant(value), reason);
}

bool AbstractFloatProperty::isCompatible(QVariant const &value) const
{
    if (value.userType() != QMetaType::Float)
        return false;
    float const number = value.toFloat();
    // Written so that NaN fails both tests.
    return number >= _min && number <= _max;
}

bool AbstractFloatProperty::isDefault() const
{
    return !_hasDefault || getValue() == QVariant(_default);
}

QVariant AbstractFloatProperty::getDefault() const
{
    return QVariant(_default);
}

void AbstractFloatProperty::setDefault(QVariant const &value)
{
    if (!isCompatible(value))
        return;
    _default = value.toFloat();
    _hasDefault = true;
    if (model())
        model()->propertyStateChanged(this);
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

PropertyViewNameCell *AbstractFloatProperty::view()
{
    return PropertyViewMaker::MakeCell(Type(), this);
}

float AbstractFloatProperty::getFloat() const
{
    return getValue().toFloat();
}

float AbstractFloatProperty::getMin() const
{
    return _min;
}

void AbstractFloatProperty::setMin(float min)
{
    if (_min == min)
        return;
    if (getFloat() < min)
        setValue(QVariant(min), PropertyChangeReason::ReasonInternal);
    _min = min;
    if (model())
        model()->propertyStateChanged(this);
}

float AbstractFloatProperty::getMax() const
{
    return _max;
}

void AbstractFloatProperty::setMax(float max)
{
    if (_max == max)
        return;
    if (getFloat() > max)
        setValue(QVariant(max), PropertyChangeReason::ReasonInternal);
    _max = max;
    if (model())
        model()->propertyStateChanged(this);
}

float AbstractFloatProperty::getStep() const
{
    return _step;
}

void AbstractFloatProperty::setStep(float step)
{
    if (_step == step)
        return;
    _step = step;
    if (model())
        model()->propertyStateChanged(this);
}

bool AbstractFloatProperty::getShowButton() const
{
    return _showButton;
}

void AbstractFloatProperty::setShowButton(bool show)
{
    if (_showButton == show)
        return;
    _showButton = show;
    if (model())
        model()->propertyStateChanged(this);
}

bool AbstractFloatProperty::getUpdateOnEdit() const
{
    return _updateOnEdit;
}

void AbstractFloatProperty::setUpdateOnEdit(bool update)
{
    _updateOnEdit = update;
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
