// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

namespace TES {

// The "boolean" type without its storage. BooleanProperty keeps the value in a field; a
// plug-in that keeps it in its own object derives from this class and supplies getValue and
// _setValue.
class TES_EXPORT AbstractBooleanProperty : public DefaultedProperty<bool>
{
public:
    AbstractBooleanProperty(PropertyModel *model, QString const &id);

    static QString Type();
    using DefaultedProperty::Get;
    using DefaultedProperty::Set;

    QString type() const override;
    QString toolTip() const override;

    bool getBool() const;

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;
};

} // namespace TES
