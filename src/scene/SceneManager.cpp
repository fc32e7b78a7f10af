#include "scene/SceneManager.h"

#include "properties/Property.h"
#include "properties/PropertyModel.h"
#include "scene/SceneObject.h"
#include "scene/SceneObjectFactory.h"

namespace TES {

SceneManager *SceneManager::_instance = nullptr;

SceneManager::SceneManager()
{
    _instance = this;
}

SceneManager::~SceneManager()
{
    _instance = nullptr;
    // Swapped out first, so that no destructor of an object sees a half-emptied list.
    QList<QSharedPointer<SceneObject>> objects;
    objects.swap(_objects);
    objects.clear();
    _objectFactories.clear();
}

SceneManager &SceneManager::i()
{
    return *_instance;
}

SceneManager *SceneManager::ip()
{
    return _instance;
}

void SceneManager::destroy()
{
    delete _instance;
}

bool SceneManager::addObjectFactory(QString const &type, SceneObjectFactory *factory)
{
    if (!factory || _objectFactories.count(type) > 0)
        return false;
    _objectFactories[type] = factory;
    return true;
}

SceneObjectFactory *SceneManager::getObjectFactory(QString const &type) const
{
    auto const found = _objectFactories.find(type);
    return found == _objectFactories.end() ? nullptr : found->second;
}

QUuid SceneManager::createObject(QString const &type)
{
    SceneObjectFactory *factory = getObjectFactory(type);
    if (!factory)
        return QUuid();
    QSharedPointer<SceneObject> object = factory->create();
    // A factory answering null breaks its contract; it must not take the host down with it.
    if (!object)
        return QUuid();
    _objects.append(object);
    return object->id();
}

QUuid SceneManager::createObjectWithID(QString const &type, QUuid const &id)
{
    SceneObjectFactory *factory = getObjectFactory(type);
    if (!factory)
        return QUuid();
    QSharedPointer<SceneObject> object = factory->create();
    if (!object)
        return QUuid();
    PropertyModel *model = object->model();
    model->setEventsEnabled(false);
    if (Property *property = model->property("id"))
        property->setValue(QVariant(id), PropertyChangeReason::ReasonInternal);
    _objects.append(object);
    model->setEventsEnabled(true);
    return object->id();
}

QWeakPointer<SceneObject> SceneManager::getObject(QUuid const &id) const
{
    for (auto const &object : _objects) {
        if (object->id() == id)
            return object;
    }
    return QWeakPointer<SceneObject>();
}

} // namespace TES
