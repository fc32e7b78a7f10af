// SPDX-License-Identifier: MIT
#include "properties/PropertyModel.h"

#include "properties/IPropertyModelListener.h"
#include "properties/Property.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/TypedPropertyFactories.h"

#include <QJsonArray>

#include <algorithm>
#include <cstdio>

namespace TES {

// Defined before the registrar below, so that the table exists when it runs.
std::map<QString, IPropertyFactory *> PropertyModel::_factories;

namespace {

// Registers the host's property types when the library loads, before main() runs.
struct PropertyFactoryRegistrar
{
    PropertyFactoryRegistrar()
    {
        static BooleanPropertyFactory boolean;
        static ButtonPropertyFactory button;
        static ComboPropertyFactory combo;
        static HexPropertyFactory hex;
        static IntegerPropertyFactory integer;
        static TextPropertyFactory text;
        static UuidPropertyFactory uuid;
        PropertyModel::AddFactory(&boolean);
        PropertyModel::AddFactory(&button);
        PropertyModel::AddFactory(&combo);
        PropertyModel::AddFactory(&hex);
        PropertyModel::AddFactory(&integer);
        PropertyModel::AddFactory(&text);
        PropertyModel::AddFactory(&uuid);
    }
};

PropertyFactoryRegistrar registrar;

template<typename T>
T *findById(std::list<T *> const &items, QString const &id)
{
    for (T *item : items) {
        if (item->id() == id)
            return item;
    }
    return nullptr;
}

} // namespace

PropertyModel::PropertyModel() = default;

PropertyModel::~PropertyModel()
{
    _destroying = true;
    _listeners.clear();
    _data.clear();
    for (PropertyGroup *group : _groups)
        delete group;
    _groups.clear();
    for (PropertyCategory *category : _categories)
        delete category;
    _categories.clear();
    for (auto const &entry : _properties)
        delete entry.second;
    _properties.clear();
}

PropertyCategory *PropertyModel::addCategory(QString const &id)
{
    if (_destroying || category(id))
        return nullptr;
    auto *created = new PropertyCategory(this, id);
    _categories.push_back(created);
    return created;
}

bool PropertyModel::removeCategory(QString const &id)
{
    PropertyCategory *found = _destroying ? nullptr : category(id);
    if (!found)
        return false;
    _categories.remove(found);
    delete found;
    return true;
}

PropertyCategory *PropertyModel::category(QString const &id) const
{
    return findById(_categories, id);
}

std::list<PropertyCategory *> PropertyModel::categories() const
{
    return _categories;
}

PropertyGroup *PropertyModel::addGroup(QString const &id)
{
    if (_destroying || group(id))
        return nullptr;
    auto *created = new PropertyGroup(this, id);
    _groups.push_back(created);
    return created;
}

bool PropertyModel::removeGroup(QString const &id)
{
    PropertyGroup *found = _destroying ? nullptr : group(id);
    if (!found)
        return false;
    PropertyOwner const owner = findOwner(id);
    if (owner.type == PropertyOwnerType::OwnerCategory)
        category(owner.id)->removeChild(id);
    _groups.remove(found);
    delete found;
    return true;
}

PropertyGroup *PropertyModel::group(QString const &id) const
{
    return findById(_groups, id);
}

std::list<PropertyGroup *> PropertyModel::groups() const
{
    return _groups;
}

PropertyOwner PropertyModel::findOwner(QString const &id) const
{
    for (PropertyCategory *item : _categories) {
        if (item->hasChild(id))
            return {item->id(), PropertyOwnerType::OwnerCategory};
    }
    for (PropertyGroup *item : _groups) {
        if (item->hasChild(id))
            return {item->id(), PropertyOwnerType::OwnerGroup};
    }
    return PropertyOwner();
}

Property *PropertyModel::addProperty(QString const &type, QString const &id,
                                     std::map<QString, QVariant> params)
{
    if (_destroying || _properties.count(id) > 0)
        return nullptr;
    IPropertyFactory *factory = Factory(type);
    if (!factory)
        return nullptr;
    Property *created = factory->createProperty(this, id, std::move(params));
    if (created)
        _properties.emplace(id, created);
    return created;
}

bool PropertyModel::removeProperty(QString const &id)
{
    if (_destroying)
        return false;
    auto it = _properties.find(id);
    if (it == _properties.end())
        return false;
    PropertyOwner const owner = findOwner(id);
    if (owner.type == PropertyOwnerType::OwnerCategory)
        category(owner.id)->removeChild(id);
    else if (owner.type == PropertyOwnerType::OwnerGroup)
        group(owner.id)->removeChild(id);
    Property *removed = it->second;
    _properties.erase(it);
    delete removed;
    return true;
}

Property *PropertyModel::property(QString const &id) const
{
    auto it = _properties.find(id);
    return it == _properties.end() ? nullptr : it->second;
}

std::list<QString> PropertyModel::propertyNames() const
{
    std::list<QString> names;
    for (auto const &entry : _properties)
        names.push_back(entry.first);
    return names;
}

int PropertyModel::propertyCount(bool) const
{
    return static_cast<int>(_properties.size());
}

bool PropertyModel::hasContent() const
{
    return !_properties.empty() && !_categories.empty();
}

QVariant PropertyModel::getValue(QString const &id) const
{
    Property *found = property(id);
    return found ? found->getValue() : QVariant();
}

bool PropertyModel::setValue(QString const &id, QVariant const &value, PropertyChangeReason reason)
{
    if (_destroying)
        return false;
    Property *found = property(id);
    if (!found)
        return false;
    bool const silence = !_eventsEnabled && found->getEventsEnabled();
    if (silence)
        found->setEventsEnabled(false);
    bool const taken = found->setValue(value, reason);
    if (silence)
        found->setEventsEnabled(true);
    return taken;
}

bool PropertyModel::getEventsEnabled() const
{
    return _eventsEnabled;
}

void PropertyModel::setEventsEnabled(bool enabled)
{
    _eventsEnabled = enabled;
}

void PropertyModel::addListener(IPropertyModelListener *listener)
{
    if (!listener)
        return;
    for (auto const &entry : _listeners) {
        if (entry.lock().get() == listener)
            return;
    }
    _listeners.push_back(listener->reference());
}

void PropertyModel::removeListener(IPropertyModelListener *listener)
{
    if (_destroying)
        return;
    _listeners.erase(std::remove_if(_listeners.begin(), _listeners.end(),
                                    [listener](std::weak_ptr<IPropertyModelListener> const &entry) {
                                        auto locked = entry.lock();
                                        return !locked || locked.get() == listener;
                                    }),
                     _listeners.end());
}

bool PropertyModel::itemVisible(QString const &id) const
{
    if (PropertyCategory *found = category(id))
        return found->getVisible();

    if (PropertyGroup *found = group(id)) {
        PropertyOwner const owner = findOwner(id);
        if (owner.type != PropertyOwnerType::OwnerCategory)
            return false;
        PropertyCategory *parent = category(owner.id);
        return parent->getVisible() && parent->getExpanded() && found->_visible;
    }

    if (Property *found = property(id)) {
        PropertyOwner const owner = found->owner();
        switch (owner.type) {
        case PropertyOwnerType::OwnerGroup: {
            PropertyGroup *parent = group(owner.id);
            if (!parent->getVisible() || !parent->getExpanded())
                return false;
            break;
        }
        case PropertyOwnerType::OwnerCategory: {
            PropertyCategory *parent = category(owner.id);
            if (!parent->getVisible() || !parent->getExpanded())
                return false;
            break;
        }
        case PropertyOwnerType::OwnerNone:
            return false;
        }
        // The property's own flag, not getVisible(), which asks this function.
        return found->_visible;
    }
    return false;
}

template<typename Call>
void PropertyModel::_notify(Call call)
{
    if (!_eventsEnabled || _destroying)
        return;
    _eraseExpiredListeners();
    // A copy, so that listeners may add and remove listeners while they are told.
    ListenerList const listeners = _listeners;
    for (auto const &entry : listeners) {
        if (auto listener = entry.lock())
            call(listener.get());
    }
}

void PropertyModel::_eraseExpiredListeners()
{
    _listeners.erase(std::remove_if(_listeners.begin(), _listeners.end(),
                                    [](std::weak_ptr<IPropertyModelListener> const &entry) {
                                        return entry.expired();
                                    }),
                     _listeners.end());
}

void PropertyModel::propertyValueChanged(Property *property, QVariant const &oldValue,
                                         QVariant const &newValue, PropertyChangeReason reason)
{
    if (!property || !property->getEventsEnabled())
        return;
    _notify([&](IPropertyModelListener *listener) {
        listener->propertyValueChanged(property, oldValue, newValue, reason);
    });
}

void PropertyModel::propertyStateChanged(Property *property)
{
    if (!property || !property->getEventsEnabled())
        return;
    _notify([&](IPropertyModelListener *listener) { listener->propertyStateChanged(property); });
}

void PropertyModel::categoryExpandStateChanged(PropertyCategory *category)
{
    if (!category)
        return;
    QString const id = category->id();
    _notify([&](IPropertyModelListener *listener) { listener->categoryExpandStateChanged(id); });
}

void PropertyModel::categoryVisibleStateChanged(PropertyCategory *category)
{
    if (!category)
        return;
    QString const id = category->id();
    _notify([&](IPropertyModelListener *listener) { listener->categoryVisibleStateChanged(id); });
}

void PropertyModel::groupExpandStateChanged(PropertyGroup *group)
{
    if (!group)
        return;
    QString const id = group->id();
    _notify([&](IPropertyModelListener *listener) { listener->groupExpandStateChanged(id); });
}

void PropertyModel::groupVisibleStateChanged(PropertyGroup *group)
{
    if (!group)
        return;
    QString const id = group->id();
    _notify([&](IPropertyModelListener *listener) { listener->groupVisibleStateChanged(id); });
}

void PropertyModel::raisePropertyEvent(Property *property, unsigned int event,
                                       std::map<QString, QVariant> const &params)
{
    if (!property || !property->getEventsEnabled())
        return;
    _notify([&](IPropertyModelListener *listener) {
        listener->propertyEventRaised(property, event, params);
    });
}

void PropertyModel::reset()
{
    if (_destroying)
        return;
    for (auto const &entry : _properties)
        entry.second->reset();
}

void PropertyModel::clear()
{
    if (_destroying)
        return;
    for (auto const &entry : _properties)
        delete entry.second;
    _properties.clear();
    for (PropertyCategory *category : _categories)
        delete category;
    _categories.clear();
    for (PropertyGroup *group : _groups)
        delete group;
    _groups.clear();
}

QVariant PropertyModel::getData(QString const &key) const
{
    auto it = _data.find(key);
    return it == _data.end() ? QVariant() : it->second;
}

void PropertyModel::setData(QString const &key, QVariant const &value)
{
    _data[key] = value;
}

QJsonObject PropertyModel::save() const
{
    QJsonObject json;
    // The raw flags: a group's getVisible() would answer for its category too.
    QJsonArray categoryNodes;
    for (PropertyCategory *item : _categories) {
        categoryNodes.append(QJsonObject{{"id", item->id()},
                                         {"visible", item->getVisible()},
                                         {"expanded", item->getExpanded()}});
    }
    json.insert("__categories", categoryNodes);
    QJsonArray groupNodes;
    for (PropertyGroup *item : _groups) {
        groupNodes.append(QJsonObject{
            {"id", item->id()}, {"visible", item->_visible}, {"expanded", item->getExpanded()}});
    }
    json.insert("__groups", groupNodes);
    for (auto const &entry : _properties) {
        if (entry.second->getPersistent())
            json.insert(entry.first, entry.second->save());
    }
    return json;
}

bool PropertyModel::load(QJsonObject const &json)
{
    _eventsEnabled = false;

    // Nodes are looked up by "name" while save() writes "id", so the open and visible state
    // of categories and groups does not come back from a saved file. Plug-ins rely on that.
    for (QJsonValue const node : json.value("__categories").toArray()) {
        QJsonObject const object = node.toObject();
        if (PropertyCategory *found = category(object.value("name").toString())) {
            found->setVisible(object.value("visible").toBool(true));
            found->setExpanded(object.value("expanded").toBool(true));
        }
    }
    for (QJsonValue const node : json.value("__groups").toArray()) {
        QJsonObject const object = node.toObject();
        if (PropertyGroup *found = group(object.value("name").toString())) {
            found->setVisible(object.value("visible").toBool(true));
            found->setExpanded(object.value("expanded").toBool(true));
        }
    }
    // Tracked properties mark the project dirty as they load; the caller cleans up.
    for (auto const &entry : _properties) {
        auto it = json.constFind(entry.first);
        if (it != json.constEnd())
            entry.second->load(it.value().toObject());
    }

    _eventsEnabled = true;
    _eraseExpiredListeners();
    // By index: a listener may add another while it is told.
    for (std::size_t i = 0; i < _listeners.size(); ++i) {
        if (auto listener = _listeners[i].lock())
            listener->modelLoaded();
    }
    return true;
}

void PropertyModel::print() const
{
    std::puts("properties:");
    for (auto const &entry : _properties)
        std::puts(qPrintable("    " + entry.first));
    std::puts("categories:");
    for (PropertyCategory *item : _categories) {
        std::puts(qPrintable("    " + item->id()));
        for (QString const &child : item->children())
            std::puts(qPrintable("        " + child));
    }
    std::puts("groups:");
    for (PropertyGroup *item : _groups) {
        std::puts(qPrintable("    " + item->id()));
        for (QString const &child : item->children())
            std::puts(qPrintable("        " + child));
    }
}

bool PropertyModel::AddFactory(IPropertyFactory *factory)
{
    if (!factory)
        return false;
    return _factories.emplace(factory->type(), factory).second;
}

bool PropertyModel::RemoveFactory(QString const &type)
{
    return _factories.erase(type) > 0;
}

IPropertyFactory *PropertyModel::Factory(QString const &type)
{
    auto it = _factories.find(type);
    return it == _factories.end() ? nullptr : it->second;
}

} // namespace TES
