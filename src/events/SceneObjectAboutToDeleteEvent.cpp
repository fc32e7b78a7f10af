// SPDX-License-Identifier: MIT
#include "events/SceneObjectAboutToDeleteEvent.h"

namespace TES {

SceneObjectAboutToDeleteEvent::SceneObjectAboutToDeleteEvent(SceneObjectInfo const &info)
    : SceneObjectEvent(EVT_SCENE_CHILDABOUTTODELETE, info)
{}

SceneObjectAboutToDeleteEvent::~SceneObjectAboutToDeleteEvent() = default;

} // namespace TES
