// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QUuid>

namespace TES {

// The payload of scene events: an object's id and its index within its parent, taken when
// the event is built, so that a handler learns the place even after the object has moved.
class TES_EXPORT SceneObjectInfo
{
public:
    SceneObjectInfo() = default;
    // Takes the index from the tree as it stands: the object's place among its parent's
    // children. 0 when the object does not resolve, -1 when its parent doesn't (as for a root).
    explicit SceneObjectInfo(QUuid const &id);
    SceneObjectInfo(QUuid const &id, int parentIndex);

    QUuid id() const;
    int parentIndex() const;

private:
    QUuid _id;
    int _parentIndex = -1;
};

} // namespace TES
