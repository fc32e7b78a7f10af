// SPDX-License-Identifier: MIT
#include "events/SelectRefreshEvent.h"

namespace TES {

SelectRefreshEvent::SelectRefreshEvent() : Event(EVT_SELECT_REFRESH, EVM_SELECT) {}

SelectRefreshEvent::~SelectRefreshEvent() = default;

} // namespace TES
