// SPDX-License-Identifier: MIT
#include "properties/ButtonProperty.h"

namespace TES {

ButtonProperty::ButtonProperty(PropertyModel *model, QString const &id) : StoredProperty(model, id)
{
    setPersistent(false);
}

QString ButtonProperty::Type()
{
    return QStringLiteral("button");
}

QString ButtonProperty::GetValue(PropertyModel const *model, QString const &id)
{
    return Get(model, id);
}

bool ButtonProperty::SetValue(PropertyModel *model, QString const &id, QString const &value,
                              PropertyChangeReason reason)
{
    return Set(model, id, value, reason);
}

QString ButtonProperty::type() const
{
    return Type();
}

QString ButtonProperty::toolTip() const
{
    return _toolTip(" (" + id() + ")<br>Button");
}

} // namespace TES
