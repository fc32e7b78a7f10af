#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

namespace TES {

// A screen is about to join the list at index().
class TES_EXPORT ScreenAboutToAddEvent : public ScreenGenericEvent
{
public:
    ScreenAboutToAddEvent(QUuid const &screen, int index);
    ~ScreenAboutToAddEvent() override;
};

} // namespace TES
