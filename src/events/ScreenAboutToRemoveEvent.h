#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

namespace TES {

// A screen is about to leave the list.
class TES_EXPORT ScreenAboutToRemoveEvent : public ScreenGenericEvent
{
public:
    ScreenAboutToRemoveEvent(QUuid const &screen, int index);
    ~ScreenAboutToRemoveEvent() override;
};

} // namespace TES
