// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

namespace TES {

// The "integer" type without its storage: an int within inclusive limits, with a step and
// the flags that its editor reads. IntegerProperty keeps the value in a field; a plug-in
// that keeps it in its own object derives from this class and supplies getValue and
// _setValue.
class TES_EXPORT AbstractIntegerProperty : public SteppedProperty<int>
{
public:
    AbstractIntegerProperty(PropertyModel *model, QString const &id);

    static QString Type();
    using SteppedProperty::Get;
    using SteppedProperty::Set;

    QString type() const override;
    QString toolTip() const override;

    int getInteger() const;

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;
};

} // namespace TES
