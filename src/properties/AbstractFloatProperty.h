#pragma once

#include "properties/Property.h"

namespace TES {

// The "float" type without its storage: a float within inclusive limits, with a step and the
// flags that its editor reads. The host ships no concrete float property and registers no
// "float" factory: a plug-in derives from this class, supplies getValue and _setValue, and
// registers a factory whose type() is "float".
//
// The default minimum is the smallest positive normal float, not the most negative one, so
// zero and negative numbers are refused until setMin lowers it.
class TES_EXPORT AbstractFloatProperty : public Property
{
public:
    AbstractFloatProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // Through PropertyModel::getValue: 0 for an unknown id.
    static float Get(PropertyModel const *model, QString const &id);
    // Through PropertyModel::setValue: false for an unknown id.
    static bool Set(PropertyModel *model, QString const &id, float value,
                    PropertyChangeReason reason);

    // Exactly a QVariant of type float, within the limits; a double is refused.
    bool isCompatible(QVariant const &value) const override;
    bool isDefault() const override;
    QVariant getDefault() const override;
    // Takes a compatible value only; does not change the current value.
    void setDefault(QVariant const &value) override;
    QString type() const override;
    // With a help text, ends in the separator that would precede it, without the text.
    QString toolTip() const override;
    // A new name cell of the type, owned by the caller.
    PropertyViewNameCell *view() override;

    float getFloat() const;
    float getMin() const;
    // Pulls the value up to the new minimum first, through the old limits.
    void setMin(float min);
    float getMax() const;
    // Pulls the value down to the new maximum first, through the old limits.
    void setMax(float max);
    float getStep() const;
    void setStep(float step);
    bool getShowButton() const;
    void setShowButton(bool show);
    // Whether the editor writes on every keystroke; read only when the editor is built.
    bool getUpdateOnEdit() const;
    void setUpdateOnEdit(bool update);

protected:
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;

private:
    float _default = 0.0f;
    bool _hasDefault = false;
    float _min;
    float _max;
    float _step = 1.0f;
    bool _showButton = false;
    bool _updateOnEdit = true;
};

} // namespace TES
