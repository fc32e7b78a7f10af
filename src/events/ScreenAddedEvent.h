#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

namespace TES {

// A screen joined the list at index().
class TES_EXPORT ScreenAddedEvent : public ScreenGenericEvent
{
public:
    ScreenAddedEvent(QUuid const &screen, int index);
    ~ScreenAddedEvent() override;
};

} // namespace TES
