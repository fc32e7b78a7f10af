#include "events/ScreenVisibilityChangedEvent.h"

namespace TES {

ScreenVisibilityChangedEvent::ScreenVisibilityChangedEvent(QUuid const &screen, int index,
                                                           bool visible)
    : ScreenGenericEvent(EVT_SCREEN_VISIBLE_CHANGED, screen, index), _visible(visible)
{}

ScreenVisibilityChangedEvent::~ScreenVisibilityChangedEvent() = default;

bool ScreenVisibilityChangedEvent::visible() const
{
    return _visible;
}

} // namespace TES
