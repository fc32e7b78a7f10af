// SPDX-License-Identifier: MIT
#pragma once

#include "properties/TypedProperty.h"

#include <list>

namespace TES {

// The "combo" type without its storage: the index of one string in a list of choices, -1
// while nothing is chosen. The value and the JSON form are the index, not the string.
// ComboProperty keeps the index in a field; a plug-in that keeps it in its own object
// derives from this class and supplies getValue and _setValue.
class TES_EXPORT AbstractComboProperty : public DefaultedProperty<int>
{
public:
    AbstractComboProperty(PropertyModel *model, QString const &id);

    static QString Type();
    // -1 for an unknown id.
    static int GetIndex(PropertyModel const *model, QString const &id);
    // Empty for an unknown id.
    static QString GetString(PropertyModel const *model, QString const &id);
    // Writes through the property itself, not the model: a model with events off does not
    // silence it. False for an unknown id.
    static bool SetIndex(PropertyModel *model, QString const &id, int index,
                         PropertyChangeReason reason);
    // False for an unknown id or a string that is not a choice.
    static bool SetString(PropertyModel *model, QString const &id, QString const &text,
                          PropertyChangeReason reason);

    // Exactly a QVariant of type int, indexing the list.
    bool isCompatible(QVariant const &value) const override;
    // The string at the current index; empty when there is none.
    QString stringValue() const override;
    QString type() const override;
    QString toolTip() const override;

    virtual int getCurrentIndex() const;
    // False for an index outside the list.
    virtual bool setCurrentIndex(int index, PropertyChangeReason reason);
    // Empty when nothing is chosen.
    virtual QString getCurrentString() const;
    // False for a string that is not a choice.
    virtual bool setCurrentString(QString const &text, PropertyChangeReason reason);
    virtual std::list<QString> getComboValues() const;
    // Replaces the choices; an index past the new end moves to 0, and -1 stays.
    virtual void setComboValues(std::list<QString> const &values);
    // The position of the string in the list, -1 when absent.
    virtual int indexForValue(QString const &text) const;

    QString getString() const;

protected:
    // The index as a JSON number.
    void _save(QJsonObject &json) const override;
    void _load(QJsonObject const &json) override;

private:
    QString _stringAt(int index) const;

    std::list<QString> _comboValues;
};

} // namespace TES
