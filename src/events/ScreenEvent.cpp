#include "events/ScreenEvent.h"

namespace TES {

ScreenEvent::ScreenEvent(unsigned long long type, unsigned long long mask) : Event(type, mask) {}

ScreenEvent::~ScreenEvent() = default;

} // namespace TES
