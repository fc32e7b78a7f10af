// SPDX-License-Identifier: MIT
#pragma once

#include "properties/PropertyChangeReason.h"
#include "properties/PropertyOwner.h"
#include "tessera_export.h"

#include <QJsonObject>
#include <QString>
#include <QVariant>

#include <list>
#include <map>
#include <memory>
#include <vector>

namespace TES {

class IPropertyFactory;
class IPropertyModelListener;
class Property;
class PropertyCategory;
class PropertyGroup;

// The editable state of one thing (an object, a screen, a group of global values, the
// preferences): a flat table of properties by id, with the categories and groups that arrange
// them for display. The model owns all three; whoever embeds the model builds its shape in
// code, and load() only fills values into that shape.
//
// Properties are created by type name through a registry of factories shared by all models.
// Changes reach the listeners synchronously through the fan-out operations below, which the
// properties, categories, groups and view cells call; listeners are held weakly, so one that
// is destroyed simply drops out.
class TES_EXPORT PropertyModel
{
public:
    PropertyModel();
    virtual ~PropertyModel();

    PropertyModel(PropertyModel const &) = delete;
    PropertyModel &operator=(PropertyModel const &) = delete;

    // Null when the id exists.
    PropertyCategory *addCategory(QString const &id);
    // The children that the category listed stay in the model, unlisted.
    bool removeCategory(QString const &id);
    PropertyCategory *category(QString const &id) const;
    std::list<PropertyCategory *> categories() const;
    // Null when the id exists. The group shows once a category lists its id.
    PropertyGroup *addGroup(QString const &id);
    // Also unlists the group from its category; its properties stay, unlisted.
    bool removeGroup(QString const &id);
    PropertyGroup *group(QString const &id) const;
    std::list<PropertyGroup *> groups() const;
    // The first category, else the first group, that lists the id.
    PropertyOwner findOwner(QString const &id) const;

    // Creates a property through the factory registered for the type. Null when the id
    // exists or the type is unknown. The property is not listed anywhere yet.
    Property *addProperty(QString const &type, QString const &id,
                          std::map<QString, QVariant> params);
    bool removeProperty(QString const &id);
    Property *property(QString const &id) const;
    // In ascending order.
    std::list<QString> propertyNames() const;
    int propertyCount(bool visibleOnly) const;
    // True with at least one property and one category.
    bool hasContent() const;
    // Invalid for an unknown id.
    QVariant getValue(QString const &id) const;
    // Property::setValue; silent while the model's events are off.
    bool setValue(QString const &id, QVariant const &value, PropertyChangeReason reason);

    bool getEventsEnabled() const;
    void setEventsEnabled(bool enabled);
    // The listener is not owned; adding it twice keeps one entry.
    void addListener(IPropertyModelListener *listener);
    void removeListener(IPropertyModelListener *listener);

    // Whether a category, group or property shows, taking the flags of its category and group
    // into account. Anything not listed in a category is hidden.
    bool itemVisible(QString const &id) const;

    // The fan-out to the listeners.
    void propertyValueChanged(Property *property, QVariant const &oldValue,
                              QVariant const &newValue, PropertyChangeReason reason);
    void propertyStateChanged(Property *property);
    void categoryExpandStateChanged(PropertyCategory *category);
    void categoryVisibleStateChanged(PropertyCategory *category);
    void groupExpandStateChanged(PropertyGroup *group);
    void groupVisibleStateChanged(PropertyGroup *group);
    void raisePropertyEvent(Property *property, unsigned int event,
                            std::map<QString, QVariant> const &params);

    // Every property back to its default, in ascending id order.
    void reset();
    // Deletes every property, category and group, telling nobody.
    void clear();

    // Free values for the owner of the model; never saved.
    QVariant getData(QString const &key) const;
    void setData(QString const &key, QVariant const &value);

    QJsonObject save() const;
    // Fills values, visible and enabled flags into the existing properties, with the
    // model's events off; ends with events on and modelLoaded. Never fails.
    bool load(QJsonObject const &json);
    // Debugging aid: the ids of properties, categories and groups on standard output.
    void print() const;

    // False for null or a type that is registered already. Plug-ins add their types here.
    static bool AddFactory(IPropertyFactory *factory);
    static bool RemoveFactory(QString const &type);
    static IPropertyFactory *Factory(QString const &type);

private:
    using ListenerList = std::vector<std::weak_ptr<IPropertyModelListener>>;

    template<typename Call>
    void _notify(Call call);
    void _eraseExpiredListeners();

    bool _eventsEnabled = true;
    bool _destroying = false;
    ListenerList _listeners;
    std::map<QString, Property *> _properties;
    std::list<PropertyCategory *> _categories;
    std::list<PropertyGroup *> _groups;
    std::map<QString, QVariant> _data;

    static std::map<QString, IPropertyFactory *> _factories;
};

} // namespace TES
