// SPDX-License-Identifier: MIT
#include "events/ToolEvent.h"

namespace TES {

ToolEvent::ToolEvent(QString const &toolType, unsigned long long type)
    : Event(type, EVM_TOOL), _toolType(toolType)
{}

ToolEvent::~ToolEvent() = default;

QString ToolEvent::toolType() const
{
    return _toolType;
}

} // namespace TES
