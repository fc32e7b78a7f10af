// SPDX-License-Identifier: MIT
#include "tools/TransformToolSelectRunnable.h"

#include "scene/SelectionManager.h"

namespace TES {

TransformToolSelectRunnable::TransformToolSelectRunnable(QUuid const &id) : _id(id) {}

TransformToolSelectRunnable::~TransformToolSelectRunnable() = default;

void TransformToolSelectRunnable::_exec()
{
    if (SelectionManager::ip())
        SelectionManager::ip()->select(_id);
    deleteLater();
}

} // namespace TES
