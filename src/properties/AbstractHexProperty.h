#pragma once

#include "properties/Property.h"

namespace TES {

// The "hex" type without its storage: an unsigned 32-bit number within inclusive limits,
// edited in hexadecimal. HexProperty keeps the value in a field; a plug-in that keeps it in
// its own object derives from this class and supplies getValue and _setValue.
class TES_EXPORT AbstractHexProperty : public Property
{
public:
    AbstractHexProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: 0 for an unknown id.
    static unsigned int Get(PropertyModel const *model, QString const &id);
    // Through PropertyModel::setValue: false for an unknown id.
    static bool Set(PropertyModel *model, QString const &id, unsigned int value,
                    PropertyChangeReason reason);

    // Exactly a QVariant of type uint, within the limits; an int is refused.
    bool isCompatible(QVariant const &value) const override;
    bool isDefault() const override;
    QVariant getDefault() const override;
    // Takes a compatible value only; does not change the current value.
    void setDefault(QVariant const &value) override;
    QString type() const override;
    // The range shown always ends in 0xFFFFFFFF, whatever the maximum.
    QString toolTip() const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *view() override;

    unsigned int getHex() const;
    unsigned int getMin() const;
    // Pulls the value up to the new minimum first, through the old limits.
    void setMin(unsigned int min);
    unsigned int getMax() const;
    // Raises a value below the new maximum to it, through the old limits; a value above it
    // stays. Plug-ins depend on this.
    void setMax(unsigned int max);
    bool getShowButton() const;
    void setShowButton(bool show);

protected:
    // Written as a signed 32-bit number: 0xFFFFFFFF is stored as -1.
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;

private:
    unsigned int _default = 0;
    bool _hasDefault = false;
    unsigned int _min;
    unsigned int _max;
    bool _showButton = false;
};

} // namespace TES
