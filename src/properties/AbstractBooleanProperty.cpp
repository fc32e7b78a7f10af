#include "properties/AbstractBooleanProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

AbstractBooleanProperty::AbstractBooleanProperty(PropertyModel *model, QString const &id)
    : Property(model, id)
{}

QString AbstractBooleanProperty::Type()
{
    return QStringLiteral("boolean");
}

bool AbstractBooleanProperty::Get(PropertyModel const *model, QString const &id)
{
    return model ? model->getValue(id).toBool() : false;
}

bool AbstractBooleanProperty::Set(PropertyModel *model, QString const &id, bool value,
                                  PropertyChangeReason reason)
{
    return model && model->setValue(id, QVariant(value), reason);
}

bool AbstractBooleanProperty::isCompatible(QVariant const &value) const
{
    return value.userType() == QMetaType::Bool;
}

bool AbstractBooleanProperty::isDefault() const
{
    return !_hasDefault || getValue() == QVariant(_default);
}

QVariant AbstractBooleanProperty::getDefault() const
{
    return QVariant(_default);
}

void AbstractBooleanProperty::setDefault(QVariant const &value)
{
    if (!isCompatible(value))
        return;
    _default = value.toBool();
    _hasDefault = true;
    if (model())
        model()->propertyStateChanged(this);
}

QString AbstractBooleanProperty::type() const
{
    return Type();
}

QString AbstractBooleanProperty::toolTip() const
{
    QString tip = getText() + " <i>(" + id() + ")</i><br><b>Boolean</b>";
    if (!getHelpText().isEmpty())
        tip += "<br><br>" + getHelpText();
    return tip;
}

PropertyViewNameCell *AbstractBooleanProperty::view()
{
    return PropertyViewMaker::MakeCell(Type(), this);
}

bool AbstractBooleanProperty::getBool() const
{
    return getValue().toBool();
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
