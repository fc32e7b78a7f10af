// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyChangeReason.h"
#include "properties/PropertyOwner.h"
#include "tessera_export.h"

#include <QJsonObject>
#include <QString>
#include <QVariant>

namespace TES {

class PropertyModel;
class PropertyValidator;
class PropertyViewNameCell;

// One named, typed value that the user edits: of a scene object, a screen, the global state,
// the preferences. A property lives in exactly one PropertyModel, which creates it through a
// factory, owns it and tells the model's listeners of its changes; the model also decides
// whether it shows, through the category or group that lists its id.
//
// A change goes through setValue: type and limits (isCompatible), the re-entrance guard, the
// equality test, the validator, the store, the listeners (synchronously), and last the
// project's dirty flag when the property is tracked. Refusals are silent: the result is
// false, and writing the value a property already holds is a refusal too.
//
// The typed families derive from this class; a plug-in derives from an abstract typed class
// to keep the value in its own object.
class TES_EXPORT Property
{
public:
    Property(PropertyModel *model, QString const &id);
    virtual ~Property();

    Property(Property const &) = delete;
    Property &operator=(Property const &) = delete;

    // The display label, as stored: empty shows empty.
    virtual QString getText() const;
    virtual void setText(QString const &text);
    // Whether the variant has exactly this property's type and lies within its limits.
    virtual bool isCompatible(QVariant const &value) const = 0;
    virtual QVariant getValue() const = 0;
    // The whole change sequence; true when the value was taken and announced.
    virtual bool setValue(QVariant const &value, PropertyChangeReason reason);
    // The value as text, for group summaries.
    virtual QString stringValue() const;
    // True by default: a property without a default counts as at its default.
    virtual bool isDefault() const;
    // Invalid by default, so that reset() leaves such a property alone.
    virtual QVariant getDefault() const;
    virtual void setDefault(QVariant const &value);
    // The type name under which the property's factory registers.
    virtual QString type() const = 0;
    // Rich text for the name cell's tool tip.
    virtual QString toolTip() const = 0;
    virtual QString getHelpText() const;
    virtual void setHelpText(QString const &text);
    // Writes getDefault() through setValue; does nothing without a model.
    virtual void reset();
    // The effective visibility: the property's own flag and the model's itemVisible.
    virtual bool getVisible() const;
    virtual void setVisible(bool visible);
    // False without a model.
    virtual bool getEnabled() const;
    virtual void setEnabled(bool enabled);
    // Whether a successful change marks the project dirty; false without a model.
    virtual bool getTracked() const;
    virtual void setTracked(bool tracked);
    // Whether PropertyModel::save writes the property.
    virtual bool getPersistent() const;
    virtual void setPersistent(bool persistent);
    virtual PropertyValidator *getValidator() const;
    // The validator is not owned.
    virtual void setValidator(PropertyValidator *validator);
    // A new name cell for the property, owned by the caller; null when the type has none.
    virtual PropertyViewNameCell *view() = 0;

    QString id() const;
    PropertyModel *model() const;
    // The validator's answer; true without an enabled validator.
    bool _validate(QVariant const &value) const;
    // Free bits for the owner; the host reads none of them.
    unsigned int getFlags() const;
    void setFlags(unsigned int flags);
    // True when any of the given bits is set.
    bool testFlag(unsigned int flag) const;
    // Whether the property may join the editing of several objects at once.
    bool supportsMulti() const;
    void setMultiEnabled(bool enabled);
    // Whether a successful change is announced to the model's listeners.
    bool getEventsEnabled() const;
    void setEventsEnabled(bool enabled);
    QJsonObject save() const;
    // False, with nothing changed, when the JSON holds a property of another type.
    bool load(QJsonObject const &json);
    PropertyOwner owner() const;

protected:
    // Stores the value without any check. Called by setValue once every test has passed.
    virtual bool _setValue(QVariant const &value) = 0;
    // Adds the value to the JSON form; the base adds nothing.
    virtual void _save(QJsonObject &json) const;
    // Reads the value from the JSON form, through setValue; the base reads nothing.
    virtual void _load(QJsonObject const &json);

private:
    // The model reads the raw visible flag for its visibility rules.
    friend class PropertyModel;

    // Marks the project dirty after a successful change of a tracked property.
    static void _markProjectDirty();

    QString _id;
    QString _text;
    QString _helpText;
    unsigned int _flags = 0;
    bool _visible = true;
    bool _enabled = true;
    bool _persistent = true;
    bool _tracked = true;
    bool _eventsEnabled = true;
    bool _accepting = true;
    bool _multiEnabled = false;
    PropertyValidator *_validator = nullptr;
    PropertyModel *_model;
};

} // namespace TES
