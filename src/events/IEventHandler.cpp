// SPDX-License-Identifier: MIT
#include "events/IEventHandler.h"

namespace TES {

IEventHandler::IEventHandler() = default;

IEventHandler::~IEventHandler() = default;

bool IEventHandler::canHandleEvent(unsigned long long) const
{
    return true;
}

bool IEventHandler::persistent() const
{
    return false;
}

bool IEventHandler::eventHandlerEnabled() const
{
    return _eventHandlerEnabled;
}

void IEventHandler::setEventHandlerEnabled(bool enabled)
{
    _eventHandlerEnabled = enabled;
}

} // namespace TES
