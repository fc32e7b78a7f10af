// SPDX-License-Identifier: MIT
#include "events/SceneEvent.h"

namespace TES {

SceneEvent::SceneEvent(unsigned long long type, unsigned long long mask) : Event(type, mask) {}

SceneEvent::~SceneEvent() = default;

} // namespace TES
