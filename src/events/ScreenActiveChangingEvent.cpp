#include "events/ScreenActiveChangingEvent.h"

namespace TES {

ScreenActiveChangingEvent::ScreenActiveChangingEvent(QUuid const &screen, int index)
    : ScreenGenericEvent(EVT_SCREEN_ACTIVE_CHANGING, screen, index)
{}

ScreenActiveChangingEvent::~ScreenActiveChangingEvent() = default;

} // namespace TES
