#pragma once

#include "properties/Property.h"

namespace TES {

// A push button in the property view; the value is its caption. A press reaches the model's
// listeners as PropertyModel::raisePropertyEvent. Never saved: the constructor makes it not
// persistent, and its JSON form has no value.
class TES_EXPORT ButtonProperty : public Property
{
public:
    ButtonProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: empty for an unknown id.
    static QString GetValue(PropertyModel const *model, QString const &id);
    // Through PropertyModel::setValue: false for an unknown id.
    static bool SetValue(PropertyModel *model, QString const &id, QString const &value,
                         PropertyChangeReason reason);

    // Exactly a QVariant holding a QString.
    bool isCompatible(QVariant const &value) const override;
    QVariant getValue() const override;
    QString type() const override;
    QString toolTip() const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *view() override;

protected:
    bool _setValue(QVariant const &value) override;

private:
    QString _value;
};

} // namespace TES
