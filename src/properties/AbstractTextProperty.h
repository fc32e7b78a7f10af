// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

namespace TES {

// The "text" type without its storage. TextProperty keeps the value in a field; a
// plug-in that keeps it in its own object derives from this class and supplies getValue and
// _setValue.
class TES_EXPORT AbstractTextProperty : public DefaultedProperty<QString>
{
public:
    AbstractTextProperty(PropertyModel *model, QString const &id);

    static QString Type();
    using DefaultedProperty::Get;
    using DefaultedProperty::Set;

    QString type() const override;
    QString toolTip() const override;

    QString getString() const;

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;
};

} // namespace TES
