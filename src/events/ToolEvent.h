// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "tessera_export.h"

#include <QString>

namespace TES {

// A tool is activating, activated, deactivating or deactivated (EVT_TOOL_ACTIVATING to
// EVT_TOOL_DEACTIVATED); toolType() names the tool.
class TES_EXPORT ToolEvent : public Event
{
public:
    ToolEvent(QString const &toolType, unsigned long long type);
    ~ToolEvent() override;

    QString toolType() const;

private:
    QString _toolType;
};

} // namespace TES
