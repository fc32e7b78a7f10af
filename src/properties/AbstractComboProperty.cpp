// SPDX-License-Identifier: MIT
#include "properties/AbstractComboProperty.h"

#include <iterator>

namespace TES {

AbstractComboProperty::AbstractComboProperty(PropertyModel *model, QString const &id)
    : DefaultedProperty(model, id)
{}

QString AbstractComboProperty::Type()
{
    return QStringLiteral("combo");
}

int AbstractComboProperty::GetIndex(PropertyModel const *model, QString const &id)
{
    auto *combo = model ? dynamic_cast<AbstractComboProperty *>(model->property(id)) : nullptr;
    return combo ? combo->getCurrentIndex() : -1;
}

QString AbstractComboProperty::GetString(PropertyModel const *model, QString const &id)
{
    auto *combo = model ? dynamic_cast<AbstractComboProperty *>(model->property(id)) : nullptr;
    return combo ? combo->getCurrentString() : QString();
}

bool AbstractComboProperty::SetIndex(PropertyModel *model, QString const &id, int index,
                                     PropertyChangeReason reason)
{
    Property *property = model ? model->property(id) : nullptr;
    return property && property->setValue(QVariant(index), reason);
}

bool AbstractComboProperty::SetString(PropertyModel *model, QString const &id, QString const &text,
                                      PropertyChangeReason reason)
{
    auto *combo = model ? dynamic_cast<AbstractComboProperty *>(model->property(id)) : nullptr;
    return combo && combo->setCurrentString(text, reason);
}

bool AbstractComboProperty::isCompatible(QVariant const &value) const
{
    if (!DefaultedProperty::isCompatible(value))
        return false;
    int const index = value.toInt();
    return index >= 0 && index < static_cast<int>(_comboValues.size());
}

QString AbstractComboProperty::stringValue() const
{
    return getString();
}

QString AbstractComboProperty::type() const
{
    return Type();
}

QString AbstractComboProperty::toolTip() const
{
    return _toolTip(" (" + id() + ")<br>Combo");
}

int AbstractComboProperty::getCurrentIndex() const
{
    return getValue().toInt();
}

bool AbstractComboProperty::setCurrentIndex(int index, PropertyChangeReason reason)
{
    if (index < 0 || index >= static_cast<int>(_comboValues.size()))
        return false;
    return setValue(QVariant(index), reason);
}

QString AbstractComboProperty::getCurrentString() const
{
    return _stringAt(getCurrentIndex());
}

bool AbstractComboProperty::setCurrentString(QString const &text, PropertyChangeReason reason)
{
    int const index = indexForValue(text);
    if (index < 0)
        return false;
    return setValue(QVariant(index), reason);
}

std::list<QString> AbstractComboProperty::getComboValues() const
{
    return _comboValues;
}

void AbstractComboProperty::setComboValues(std::list<QString> const &values)
{
    _comboValues = values;
    // On an empty list the write is refused and the old index stays.
    if (getCurrentIndex() >= static_cast<int>(_comboValues.size()))
        setValue(QVariant(0), PropertyChangeReason::ReasonInternal);
    _announceState();
}

int AbstractComboProperty::indexForValue(QString const &text) const
{
    int index = 0;
    for (QString const &value : _comboValues) {
        if (value == text)
            return index;
        ++index;
    }
    return -1;
}

QString AbstractComboProperty::getString() const
{
    return _stringAt(getCurrentIndex());
}

void AbstractComboProperty::_save(QJsonObject &json) const
{
    json.insert("value", getCurrentIndex());
}

void AbstractComboProperty::_load(QJsonObject const &json)
{
    setValue(QVariant(json.value("value").toInt(0)), PropertyChangeReason::ReasonInternal);
}

QString AbstractComboProperty::_stringAt(int index) const
{
    if (index < 0 || index >= static_cast<int>(_comboValues.size()))
        return QString();
    return *std::next(_comboValues.begin(), index);
}

} // namespace TES
