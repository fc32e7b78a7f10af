#include "events/ScreenAboutToAddEvent.h"

namespace TES {

ScreenAboutToAddEvent::ScreenAboutToAddEvent(QUuid const &screen, int index)
    : ScreenGenericEvent(EVT_SCREEN_ABOUT_TO_ADD, screen, index)
{}

ScreenAboutToAddEvent::~ScreenAboutToAddEvent() = default;

} // namespace TES
