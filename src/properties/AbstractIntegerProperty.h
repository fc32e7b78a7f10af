#pragma once

#include "properties/Property.h"

namespace TES {

// The "integer" type without its storage: an int within inclusive limits, with a step and
// the flags that its editor reads. IntegerProperty keeps the value in a field; a plug-in
// that keeps it in its own object derives from this class and supplies getValue and
// _setValue.
class TES_EXPORT AbstractIntegerProperty : public Property
{
public:
    AbstractIntegerProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: 0 for an unknown id.
    static int Get(PropertyModel const *model, QString const &id);
    // Through PropertyModel::setValue: false for an unknown id.
    static bool Set(PropertyModel *model, QString const &id, int value,
                    PropertyChangeReason reason);

    // Exactly a QVariant of type int, within the limits.
    bool isCompatible(QVariant const &value) const override;
    bool isDefault() const override;
    QVariant getDefault() const override;
    // Takes a compatible value only; does not change the current value.
    void setDefault(QVariant const &value) override;
    QString type() const override;
    QString toolTip() const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *view() override;

    int getInteger() const;
    int getMin() const;
    // Pulls the value up to the new minimum first, through the old limits.
    void setMin(int min);
    int getMax() const;
    // Pulls the value down to the new maximum first, through the old limits.
    void setMax(int max);
    int getStep() const;
    void setStep(int step);
    bool getShowButton() const;
    void setShowButton(bool show);
    // Whether the editor writes on every keystroke; read only when the editor is built.
    bool getUpdateOnEdit() const;
    void setUpdateOnEdit(bool update);

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;

private:
    int _default = 0;
    bool _hasDefault = false;
    int _min;
    int _max;
    int _step = 1;
    bool _showButton = false;
    bool _updateOnEdit = true;
};

} // namespace TES
