// SPDX-License-Identifier: MIT
#include "properties/Property.h"

#include "properties/PropertyModel.h"
#include "properties/PropertyValidator.h"
#include "services/GlobalState.h"

namespace TES {

Property::Property(PropertyModel *model, QString const &id) : _id(id), _model(model) {}

Property::~Property() = default;

QString Property::getText() const
{
    return _text;
}

void Property::setText(QString const &text)
{
    _text = text;
}

bool Property::setValue(QVariant const &value, PropertyChangeReason reason)
{
    if (!isCompatible(value))
        return false;
    // A listener writing to the property it is being told about is refused, not queued.
    if (!_accepting)
        return false;

    QVariant const oldValue = getValue();
    QVariant const newValue = value;
    if (getValue() == newValue)
        return false;
    if (_validator && _validator->getEnabled() && !_validator->validate(newValue))
        return false;
    if (!_setValue(newValue))
        return false;

    if (_eventsEnabled) {
        _accepting = false;
        if (_model)
            _model->propertyValueChanged(this, oldValue, newValue, reason);
        _accepting = true;
    }
    // After the listeners, and whether or not they were told: a silent change still makes
    // the project dirty.
    if (_tracked)
        _markProjectDirty();
    return true;
}

QString Property::stringValue() const
{
    return getValue().toString();
}

bool Property::isDefault() const
{
    return true;
}

QVariant Property::getDefault() const
{
    return QVariant();
}

void Property::setDefault(QVariant const &) {}

QString Property::getHelpText() const
{
    return _helpText;
}

void Property::setHelpText(QString const &text)
{
    _helpText = text;
}

void Property::reset()
{
    if (_model)
        setValue(getDefault(), PropertyChangeReason::ReasonInternal);
}

bool Property::getVisible() const
{
    if (!_model)
        return false;
    return _model->itemVisible(_id) && _visible;
}

void Property::setVisible(bool visible)
{
    if (_visible == visible)
        return;
    bool const wasVisible = getVisible();
    _visible = visible;
    // Judged by the effective value before the change: a property in a closed group, which
    // shows neither way, still announces becoming visible but not becoming hidden.
    if (wasVisible != visible && _model)
        _model->propertyStateChanged(this);
}

bool Property::getEnabled() const
{
    return _model ? _enabled : false;
}

void Property::setEnabled(bool enabled)
{
    if (_enabled == enabled)
        return;
    _enabled = enabled;
    if (_model)
        _model->propertyStateChanged(this);
}

bool Property::getTracked() const
{
    return _model ? _tracked : false;
}

void Property::setTracked(bool tracked)
{
    _tracked = tracked;
}

bool Property::getPersistent() const
{
    return _persistent;
}

void Property::setPersistent(bool persistent)
{
    _persistent = persistent;
}

PropertyValidator *Property::getValidator() const
{
    return _validator;
}

void Property::setValidator(PropertyValidator *validator)
{
    _validator = validator;
}

QString Property::id() const
{
    return _id;
}

PropertyModel *Property::model() const
{
    return _model;
}

bool Property::_validate(QVariant const &value) const
{
    if (!_validator || !_validator->getEnabled())
        return true;
    return _validator->validate(value);
}

unsigned int Property::getFlags() const
{
    return _flags;
}

void Property::setFlags(unsigned int flags)
{
    _flags = flags;
}

bool Property::testFlag(unsigned int flag) const
{
    return (_flags & flag) != 0;
}

bool Property::supportsMulti() const
{
    return _multiEnabled;
}

void Property::setMultiEnabled(bool enabled)
{
    _multiEnabled = enabled;
}

bool Property::getEventsEnabled() const
{
    return _eventsEnabled;
}

void Property::setEventsEnabled(bool enabled)
{
    _eventsEnabled = enabled;
}

QJsonObject Property::save() const
{
    // Only what the user can change: texts, limits and defaults come from the code that
    // builds the model.
    QJsonObject json;
    json.insert("type", type());
    json.insert("visible", _visible);
    json.insert("enabled", _enabled);
    _save(json);
    return json;
}

bool Property::load(QJsonObject const &json)
{
    if (json.value("type").toString() != type())
        return false;
    _visible = json.value("visible").toBool(true);
    _enabled = json.value("enabled").toBool(true);
    // A stored value that the current limits or validator refuse is dropped, and the
    // property keeps the one it had.
    _load(json);
    return true;
}

PropertyOwner Property::owner() const
{
    if (!_model)
        return PropertyOwner();
    return _model->findOwner(_id);
}

void Property::_save(QJsonObject &) const {}

void Property::_load(QJsonObject const &) {}

void Property::_markProjectDirty()
{
    // The one place where a property change reaches the project's dirty flag.
    if (GlobalState::ip())
        GlobalState::ip()->setDirty(true);
}

} // namespace TES
