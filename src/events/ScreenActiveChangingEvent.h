#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

namespace TES {

// The active screen is about to change away from screen(); a null id and index -1 when
// no screen was active.
class TES_EXPORT ScreenActiveChangingEvent : public ScreenGenericEvent
{
public:
    ScreenActiveChangingEvent(QUuid const &screen, int index);
    ~ScreenActiveChangingEvent() override;
};

} // namespace TES
