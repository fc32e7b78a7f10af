// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

#include <QUuid>

namespace TES {

// A QUuid value, a fresh random one from construction on. It has no default, so reset()
// leaves it alone. JSON holds the id as text in braces.
class TES_EXPORT UuidProperty : public StoredProperty<TypedProperty<QUuid>, QUuid>
{
public:
    UuidProperty(PropertyModel *model, QString const &id);

    static QString Type();
    using StoredProperty::Get;

    QString type() const override;
    QString toolTip() const override;

    QUuid getUuid() const;

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;
};

} // namespace TES
