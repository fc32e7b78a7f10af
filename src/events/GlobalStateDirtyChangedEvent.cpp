#include "events/GlobalStateDirtyChangedEvent.h"

namespace TES {

GlobalStateDirtyChangedEvent::GlobalStateDirtyChangedEvent(bool dirty)
    : Event(EVT_GLOBALSTATE_DIRTY_CHANGED, EVM_GLOBALSTATE), _dirty(dirty)
{}

GlobalStateDirtyChangedEvent::~GlobalStateDirtyChangedEvent() = default;

bool GlobalStateDirtyChangedEvent::dirty() const
{
    return _dirty;
}

} // namespace TES
