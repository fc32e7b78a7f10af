// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

namespace TES {

// The "hex" type without its storage: an unsigned 32-bit number within inclusive limits,
// edited in hexadecimal. HexProperty keeps the value in a field; a plug-in that keeps it in
// its own object derives from this class and supplies getValue and _setValue.
class TES_EXPORT AbstractHexProperty : public RangedProperty<unsigned int>
{
public:
    AbstractHexProperty(PropertyModel *model, QString const &id);

    static QString Type();
    using RangedProperty::Get;
    using RangedProperty::Set;

    QString type() const override;
    // The range shown always ends in 0xFFFFFFFF, whatever the maximum.
    QString toolTip() const override;

    unsigned int getHex() const;
    // Raises a value below the new maximum to it, through the old limits; a value above it
    // stays. Plug-ins depend on this.
    void setMax(unsigned int max);

protected:
    // Written as a signed 32-bit number: 0xFFFFFFFF is stored as -1.
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;
};

} // namespace TES
