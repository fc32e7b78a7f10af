#include "events/ScreenAboutToRemoveEvent.h"

namespace TES {

ScreenAboutToRemoveEvent::ScreenAboutToRemoveEvent(QUuid const &screen, int index)
    : ScreenGenericEvent(EVT_SCREEN_ABOUT_TO_REMOVE, screen, index)
{}

ScreenAboutToRemoveEvent::~ScreenAboutToRemoveEvent() = default;

} // namespace TES
