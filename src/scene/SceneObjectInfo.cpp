// SPDX-License-Identifier: MIT
#include "scene/SceneObjectInfo.h"

#include "scene/SceneManager.h"
#include "scene/SceneObject.h"

namespace TES {

SceneObjectInfo::SceneObjectInfo(QUuid const &id) : _id(id), _parentIndex(0)
{
    SceneManager *manager = SceneManager::ip();
    if (!manager)
        return;
    QSharedPointer<SceneObject> object = manager->getObject(id).toStrongRef();
    if (!object)
        return;
    QSharedPointer<SceneObject> parent = manager->getObject(object->parent()).toStrongRef();
    _parentIndex = parent ? parent->indexOfChild(id, false) : -1;
}

SceneObjectInfo::SceneObjectInfo(QUuid const &id, int parentIndex)
    : _id(id), _parentIndex(parentIndex)
{}

QUuid SceneObjectInfo::id() const
{
    return _id;
}

int SceneObjectInfo::parentIndex() const
{
    return _parentIndex;
}

} // namespace TES
