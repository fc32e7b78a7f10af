#pragma once

#include "properties/Property.h"

#include <QUuid>

namespace TES {

// A QUuid value, a fresh random one from construction on. It has no default, so reset()
// leaves it alone. JSON holds the id as text in braces.
class TES_EXPORT UuidProperty : public Property
{
public:
    UuidProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: the null id for an unknown id.
    static QUuid Get(PropertyModel const *model, QString const &id);

    // Exactly a QVariant holding a QUuid.
    bool isCompatible(QVariant const &value) const override;
    QVariant getValue() const override;
    QString type() const override;
    QString toolTip() const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *view() override;

    QUuid getUuid() const;

protected:
    bool _setValue(QVariant const &value) override;
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;

private:
    QUuid _value;
};

} // namespace TES
