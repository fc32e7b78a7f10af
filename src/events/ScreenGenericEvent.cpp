#include "events/ScreenGenericEvent.h"

namespace TES {

ScreenGenericEvent::ScreenGenericEvent(unsigned long long type, QUuid const &screen, int index)
    : ScreenEvent(type, EVM_SCREEN), _screen(screen), _index(index)
{}

ScreenGenericEvent::~ScreenGenericEvent() = default;

QUuid ScreenGenericEvent::screen() const
{
    return _screen;
}

int ScreenGenericEvent::index() const
{
    return _index;
}

} // namespace TES
