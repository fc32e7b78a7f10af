// SPDX-License-Identifier: MIT
#pragma once

#include "properties/Property.h"
#include "properties/PropertyModel.h"

#include <utility>

namespace TES {

// The work that the typed properties share, written once over the value type T, which a
// QVariant must hold exactly (no conversion). The classes with the type names derive from
// these templates and add only what sets their type apart: its name, tool tip and JSON form.
//
//   TypedProperty<T>           the exact type test, the model accessors, no name cell
//   DefaultedProperty<T>       a default value, set apart from "no default"
//   RangedProperty<T>          inclusive limits and the editor's button flag
//   SteppedProperty<T>         a step and the editor's write-on-edit flag
//   StoredProperty<Base, T>    a value kept in a field: the concrete classes
//
// A plug-in that keeps the value in its own object derives from an abstract typed class and
// supplies getValue and _setValue; it does not use these templates by name.
template<typename T>
class TypedProperty : public Property
{
public:
    // Exactly a QVariant holding a T.
    bool isCompatible(QVariant const &value) const override
    {
        return value.userType() == qMetaTypeId<T>();
    }
    // The host has no name cell for the typed properties: null.
    PropertyViewNameCell *view() override { return nullptr; }

protected:
    using Property::Property;

    // Published by the classes that offer them, with using-declarations.
    // Through PropertyModel::getValue: the zero value for an unknown id.
    static T Get(PropertyModel const *model, QString const &id)
    {
        return model ? model->getValue(id).template value<T>() : T();
    }
    // Through PropertyModel::setValue: false for an unknown id.
    static bool Set(PropertyModel *model, QString const &id, T const &value,
                    PropertyChangeReason reason)
    {
        return model && model->setValue(id, QVariant::fromValue(value), reason);
    }

    T _typedValue() const { return getValue().template value<T>(); }
    void _announceState()
    {
        if (model())
            model()->propertyStateChanged(this);
    }
    // Stores a setting of the property and announces a real change.
    template<typename F>
    void _changeSetting(F &setting, F const &value)
    {
        if (setting == value)
            return;
        setting = value;
        _announceState();
    }
    // The rich tool tip: the display text, the type's part, and the help text after a gap.
    QString _toolTip(QString const &typePart) const
    {
        QString tip = getText() + typePart;
        if (!getHelpText().isEmpty())
            tip += "<br><br>" + getHelpText();
        return tip;
    }
};

template<typename T>
class DefaultedProperty : public TypedProperty<T>
{
public:
    // True while no default is set; otherwise whether the value equals it.
    bool isDefault() const override
    {
        return !_hasDefault || this->getValue() == QVariant::fromValue(_default);
    }
    // The stored default, also while none is set.
    QVariant getDefault() const override { return QVariant::fromValue(_default); }
    // Takes a compatible value only; does not change the current value. Meant for a property
    // that has a model.
    void setDefault(QVariant const &value) override
    {
        if (!this->isCompatible(value))
            return;
        _default = value.template value<T>();
        _hasDefault = true;
        this->_announceState();
    }

protected:
    using TypedProperty<T>::TypedProperty;

private:
    T _default{};
    bool _hasDefault = false;
};

template<typename T>
class RangedProperty : public DefaultedProperty<T>
{
public:
    // Exactly a QVariant holding a T, within the limits.
    bool isCompatible(QVariant const &value) const override
    {
        if (!TypedProperty<T>::isCompatible(value))
            return false;
        T const number = value.template value<T>();
        // Written so that a float NaN fails both tests.
        return number >= _min && number <= _max;
    }

    T getMin() const { return _min; }
    // Pulls the value up to the new minimum first, through the old limits.
    void setMin(T min)
    {
        _setLimit(_min, min, [](T current, T limit) { return current < limit; });
    }
    T getMax() const { return _max; }
    // Pulls the value down to the new maximum first, through the old limits.
    void setMax(T max)
    {
        _setLimit(_max, max, [](T current, T limit) { return current > limit; });
    }
    bool getShowButton() const { return _showButton; }
    void setShowButton(bool show) { this->_changeSetting(_showButton, show); }

protected:
    RangedProperty(PropertyModel *model, QString const &id, T min, T max)
        : DefaultedProperty<T>(model, id), _min(min), _max(max)
    {}

    // Moves the value to the new limit when pulls(value, limit) holds, then stores the limit.
    template<typename Pulls>
    void _setLimit(T &limit, T value, Pulls pulls)
    {
        if (limit == value)
            return;
        // Written while the old limits still apply: a limit beyond the other one is not
        // reached, and the value stays outside its new range.
        if (pulls(this->_typedValue(), value))
            this->setValue(QVariant::fromValue(value), PropertyChangeReason::ReasonInternal);
        limit = value;
        this->_announceState();
    }

    T _min;
    T _max;

private:
    bool _showButton = false;
};

template<typename T>
class SteppedProperty : public RangedProperty<T>
{
public:
    T getStep() const { return _step; }
    void setStep(T step) { this->_changeSetting(_step, step); }
    // Whether the editor writes on every keystroke; read only when the editor is built.
    bool getUpdateOnEdit() const { return _updateOnEdit; }
    // Announces nothing: the editor reads the flag only when it is built.
    void setUpdateOnEdit(bool update) { _updateOnEdit = update; }

protected:
    SteppedProperty(PropertyModel *model, QString const &id, T min, T max, T step)
        : RangedProperty<T>(model, id, min, max), _step(step)
    {}

private:
    T _step;
    bool _updateOnEdit = true;
};

// A typed property whose value lives in a field of type T, starting at initial.
template<class Base, typename T>
class StoredProperty : public Base
{
public:
    StoredProperty(PropertyModel *model, QString const &id, T initial = T())
        : Base(model, id), _value(std::move(initial))
    {}

    QVariant getValue() const override { return QVariant::fromValue(_value); }

protected:
    bool _setValue(QVariant const &value) override
    {
        _value = value.template value<T>();
        return true;
    }

private:
    T _value;
};

} // namespace TES
