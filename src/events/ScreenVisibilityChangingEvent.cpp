#include "events/ScreenVisibilityChangingEvent.h"

namespace TES {

ScreenVisibilityChangingEvent::ScreenVisibilityChangingEvent(QUuid const &screen, int index,
                                                             bool visible)
    : ScreenGenericEvent(EVT_SCREEN_VISIBLE_CHANGING, screen, index), _visible(visible)
{}

ScreenVisibilityChangingEvent::~ScreenVisibilityChangingEvent() = default;

bool ScreenVisibilityChangingEvent::visible() const
{
    return _visible;
}

} // namespace TES
