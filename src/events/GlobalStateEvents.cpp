// SPDX-License-Identifier: MIT
#include "events/GlobalStateEvents.h"

namespace TES {

GlobalStateChangedEvent::GlobalStateChangedEvent(GlobalPropertyType type, unsigned int id,
                                                 QVariant const &oldValue, QVariant const &newValue)
    : Event(EVT_GLOBALSTATE_VALUE_CHANGED, EVM_GLOBALSTATE)
    , _type(type)
    , _id(id)
    , _oldValue(oldValue)
    , _newValue(newValue)
{}

GlobalStateChangedEvent::~GlobalStateChangedEvent() = default;

GlobalPropertyType GlobalStateChangedEvent::type() const
{
    return _type;
}

unsigned int GlobalStateChangedEvent::id() const
{
    return _id;
}

QVariant GlobalStateChangedEvent::oldValue() const
{
    return _oldValue;
}

QVariant GlobalStateChangedEvent::newValue() const
{
    return _newValue;
}

GlobalStateDirtyChangedEvent::GlobalStateDirtyChangedEvent(bool dirty)
    : Event(EVT_GLOBALSTATE_DIRTY_CHANGED, EVM_GLOBALSTATE), _dirty(dirty)
{}

GlobalStateDirtyChangedEvent::~GlobalStateDirtyChangedEvent() = default;

bool GlobalStateDirtyChangedEvent::dirty() const
{
    return _dirty;
}

GlobalStateLoadedEvent::GlobalStateLoadedEvent() : Event(EVT_GLOBALSTATE_LOADED, EVM_GLOBALSTATE) {}

GlobalStateLoadedEvent::~GlobalStateLoadedEvent() = default;

} // namespace TES
