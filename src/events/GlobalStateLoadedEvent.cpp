#include "events/GlobalStateLoadedEvent.h"

namespace TES {

GlobalStateLoadedEvent::GlobalStateLoadedEvent() : Event(EVT_GLOBALSTATE_LOADED, EVM_GLOBALSTATE) {}

GlobalStateLoadedEvent::~GlobalStateLoadedEvent() = default;

} // namespace TES
