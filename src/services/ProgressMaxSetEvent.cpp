// SPDX-License-Identifier: MIT
#include "services/ProgressMaxSetEvent.h"

namespace TES {

ProgressMaxSetEvent::ProgressMaxSetEvent(int max) : QEvent(EventType), max(max) {}

ProgressMaxSetEvent::~ProgressMaxSetEvent() = default;

} // namespace TES
