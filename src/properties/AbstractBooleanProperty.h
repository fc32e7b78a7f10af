#pragma once

#include "properties/Property.h"

namespace TES {

// The "boolean" type without its storage. BooleanProperty keeps the value in a field; a
// plug-in that keeps it in its own object derives from this class and supplies getValue and
// _setValue.
class TES_EXPORT AbstractBooleanProperty : public Property
{
public:
    AbstractBooleanProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: false for an unknown id.
    static bool Get(PropertyModel const *model, QString const &id);
    // Through PropertyModel::setValue: false for an unknown id.
    static bool Set(PropertyModel *model, QString const &id, bool value,
                    PropertyChangeReason reason);

    // Exactly a QVariant of type bool.
    bool isCompatible(QVariant const &value) const override;
    bool isDefault() const override;
    QVariant getDefault() const override;
    // Does not change the current value.
    void setDefault(QVariant const &value) override;
    QString type() const override;
    QString toolTip() const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *view() override;

    bool getBool() const;

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;

private:
    bool _default = false;
    bool _hasDefault = false;
};

} // namespace TES
