#include "scene/SceneObjectInfo.h"

namespace TES {

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
