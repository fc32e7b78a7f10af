// SPDX-License-Identifier: MIT
#pragma once

#include "events/SceneObjectEvent.h"
#include "tessera_export.h"

namespace TES {

// An object is about to be deleted; it still resolves while this event is delivered.
class TES_EXPORT SceneObjectAboutToDeleteEvent : public SceneObjectEvent
{
public:
    explicit SceneObjectAboutToDeleteEvent(SceneObjectInfo const &info);
    ~SceneObjectAboutToDeleteEvent() override;
};

} // namespace TES
