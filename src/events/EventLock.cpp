// SPDX-License-Identifier: MIT
#include "events/EventLock.h"

namespace TES {

EventLock::EventLock(bool *flag) : _flag(flag)
{
    lock();
}

EventLock::~EventLock()
{
    unlock();
}

void EventLock::lock()
{
    if (_flag)
        *_flag = false;
}

void EventLock::unlock()
{
    if (_flag)
        *_flag = true;
}

bool EventLock::isLocked() const
{
    return _flag && *_flag;
}

} // namespace TES
