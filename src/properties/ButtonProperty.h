// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

namespace TES {

// A push button in the property view; the value is its caption. A press reaches the model's
// listeners as PropertyModel::raisePropertyEvent. Never saved: the constructor makes it not
// persistent, and its JSON form has no value. It has no default, so reset() leaves it alone.
class TES_EXPORT ButtonProperty : public StoredProperty<TypedProperty<QString>, QString>
{
public:
    ButtonProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: empty for an unknown id.
    static QString GetValue(PropertyModel const *model, QString const &id);
    // Through PropertyModel::setValue: false for an unknown id.
    static bool SetValue(PropertyModel *model, QString const &id, QString const &value,
                         PropertyChangeReason reason);

    QString type() const override;
    QString toolTip() const override;
};

} // namespace TES
