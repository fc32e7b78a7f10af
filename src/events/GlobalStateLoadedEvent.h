#pragma once

#include "events/Event.h"
#include "tessera_export.h"

namespace TES {

// Global state was loaded. The host never raises it; it is there for plug-ins.
class TES_EXPORT GlobalStateLoadedEvent : public Event
{
public:
    GlobalStateLoadedEvent();
    ~GlobalStateLoadedEvent() override;
};

} // namespace TES
