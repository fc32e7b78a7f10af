// SPDX-License-Identifier: MIT
#include "events/SceneObjectEvent.h"

namespace TES {

SceneObjectEvent::SceneObjectEvent(unsigned long long type, SceneObjectInfo const &info)
    : SceneEvent(type, EVM_SCENE), _info(info)
{}

SceneObjectEvent::~SceneObjectEvent() = default;

SceneObjectInfo SceneObjectEvent::info() const
{
    return _info;
}

} // namespace TES
