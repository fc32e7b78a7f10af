#include "properties/ButtonProperty.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyViewMaker.h"

namespace TES {

ButtonProperty::ButtonProperty(PropertyModel *model, QString const &id) : Property(model, id)
{
    setPersistent(false);
}

QString ButtonProperty::Type()
{
    return QStringLiteral("button");
}

QString ButtonProperty::GetValue(PropertyModel const *model, QString const &id)
{
    return model ? model->getValue(id).toString() : QString();
}

bool ButtonProperty::SetValue(PropertyModel *model, QString const &id, QString const &value,
                              PropertyChangeReason reason)
{
    return model && model->setValue(id, QVariant(value), reason);
}

bool ButtonProperty::isCompatible(QVariant const &value) const
{
    return value.userType() == QMetaType::QString;
}

QVariant ButtonProperty::getValue() const
{
    return QVariant(_value);
}

QString ButtonProperty::type() const
{
    return Type();
}

QString ButtonProperty::toolTip() const
{
    QString tip = getText() + " (" + id() + ")<br>Button";
    if (!getHelpText().isEmpty())
        tip += "<br><br>" + getHelpText();
    return tip;
}

PropertyViewNameCell *ButtonProperty::view()
{
    return PropertyViewMaker::MakeCell(Type(), this);
}

bool ButtonProperty::_setValue(QVariant const &value)
{
    _value = value.toString();
    return true;
}

} // namespace TES
