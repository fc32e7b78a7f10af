#pragma once

#include "properties/Property.h"

namespace TES {

// The "text" type without its storage. TextProperty keeps the value in a field; a
// plug-in that keeps it in its own object derives from this class and supplies getValue and
// _setValue.
class TES_EXPORT AbstractTextProperty : public Property
{
public:
    AbstractTextProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: empty for an unknown id.
    static QString Get(PropertyModel const *model, QString const &id);
    // Through PropertyModel::setValue: false for an unknown id.
    static bool Set(PropertyModel *model, QString const &id, QString const &value,
                    PropertyChangeReason reason);

    // Exactly a QVariant holding a QString.
    bool isCompatible(QVariant const &value) const override;
    bool isDefault() const override;
    QVariant getDefault() const override;
    // Does not change the current value.
    void setDefault(QVariant const &value) override;
    QString type() const override;
    QString toolTip() const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *view() override;

    QString getString() const;

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;

private:
    QString _default;
    bool _hasDefault = false;
};

} // namespace TES
