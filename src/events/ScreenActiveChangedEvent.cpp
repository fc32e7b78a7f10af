#include "events/ScreenActiveChangedEvent.h"

namespace TES {

ScreenActiveChangedEvent::ScreenActiveChangedEvent(QUuid const &screen, int index)
    : ScreenGenericEvent(EVT_SCREEN_ACTIVE_CHANGED, screen, index)
{}

ScreenActiveChangedEvent::~ScreenActiveChangedEvent() = default;

} // namespace TES
