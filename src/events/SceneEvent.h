// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "tessera_export.h"

namespace TES {

// The base of the scene events; type and mask are given by the subclass.
class TES_EXPORT SceneEvent : public Event
{
public:
    SceneEvent(unsigned long long type, unsigned long long mask = EVM_SCENE);
    ~SceneEvent() override;
};

} // namespace TES
