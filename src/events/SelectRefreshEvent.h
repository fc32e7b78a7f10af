// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "tessera_export.h"

namespace TES {

// Views showing the selection should refresh it, though it did not change.
class TES_EXPORT SelectRefreshEvent : public Event
{
public:
    SelectRefreshEvent();
    ~SelectRefreshEvent() override;
};

} // namespace TES
