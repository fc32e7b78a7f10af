#include "events/ScreenAddedEvent.h"

namespace TES {

ScreenAddedEvent::ScreenAddedEvent(QUuid const &screen, int index)
    : ScreenGenericEvent(EVT_SCREEN_ADDED, screen, index)
{}

ScreenAddedEvent::~ScreenAddedEvent() = default;

} // namespace TES
