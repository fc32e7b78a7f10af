#include "properties/UuidProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

UuidProperty::UuidProperty(PropertyModel *model, QString const &id)
    : Property(model, id), _value(QUuid::createUuid())
{}

QString UuidProperty::Type()
{
    return QStringLiteral("uuid");
}

QUuid UuidProperty::Get(PropertyModel const *model, QString const &id)
{
    return model ? model->getValue(id).toUuid() : QUuid();
}

bool UuidProperty::isCompatible(QVariant const &value) const
{
    return value.userType() == QMetaType::QUuid;
}

QVariant UuidProperty::getValue() const
{
    return QVariant(_value);
}

QString UuidProperty::type() const
{
    return Type();
}

QString UuidProperty::toolTip() const
{
    QString tip = getText() + " (" + id() + ")<br>Uuid";
    if (!getHelpText().isEmpty())
        tip += "<br><br>" + getHelpText();
    return tip;
}

PropertyViewNameCell *UuidProperty::view()
{
    return PropertyViewMaker::MakeCell(Type(), this);
}

QUuid UuidProperty::getUuid() const
{
    return _value;
}

bool UuidProperty::_setValue(QVariant const &value)
{
    _value = QUuid(value.toString());
    return true;
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
