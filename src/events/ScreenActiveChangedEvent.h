#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

namespace TES {

// The active screen is now screen(); a null id and index -1 when none is.
class TES_EXPORT ScreenActiveChangedEvent : public ScreenGenericEvent
{
public:
    ScreenActiveChangedEvent(QUuid const &screen, int index);
    ~ScreenActiveChangedEvent() override;
};

} // namespace TES
