// SPDX-License-Identifier: MIT
#include "events/Event.h"

namespace TES {

Event::Event(unsigned long long type, unsigned long long mask) : _type(type), _mask(mask) {}

Event::~Event() = default;

unsigned long long Event::mask() const
{
    return _mask;
}

unsigned long long Event::type() const
{
    return _type;
}

QString Event::toString() const
{
    return printEventType(_type);
}

bool Event::isVetoed() const
{
    return _vetoed;
}

void Event::veto()
{
    _vetoed = true;
}

} // namespace TES
