#include "properties/AbstractTextProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

AbstractTextProperty::AbstractTextProperty(PropertyModel *model, QString const &id)
    : Property(model, id)
{}

QString AbstractTextProperty::Type()
{
    return QStringLiteral("text");
}

QString AbstractTextProperty::Get(PropertyModel const *model, QString const &id)
{
    return model ? model->getValue(id).toString() : QString();
}

bool AbstractTextProperty::Set(PropertyModel *model, QString const &id, QString const &value,
                               PropertyChangeReason reason)
{
    return model && model->setValue(id, QVariant(value), reason);
}

bool AbstractTextProperty::isCompatible(QVariant const &value) const
{
    return value.userType() == QMetaType::QString;
}

bool AbstractTextProperty::isDefault() const
{
    return !_hasDefault || getValue() == QVariant(_default);
}

QVariant AbstractTextProperty::getDefault() const
{
    return QVariant(_default);
}

void AbstractTextProperty::setDefault(QVariant const &value)
{
    if (!isCompatible(value))
        return;
    _default = value.toString();
    _hasDefault = true;
    if (model())
        model()->propertyStateChanged(this);
}

QString AbstractTextProperty::type() const
{
    return Type();
}

QString AbstractTextProperty::toolTip() const
{
    QString tip = getText() + " (" + id() + ")<br>Text";
    if (!getHelpText().isEmpty())
        tip += "<br><br>" + getHelpText();
    return tip;
}

PropertyViewNameCell *AbstractTextProperty::view()
{
    return PropertyViewMaker::MakeCell(Type(), this);
}

QString AbstractTextProperty::getString() const
{
    return getValue().toString();
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
