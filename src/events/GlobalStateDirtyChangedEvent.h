#pragma once

#include "events/Event.h"
#include "tessera_export.h"

namespace TES {

// The project's dirty flag changed to dirty().
class TES_EXPORT GlobalStateDirtyChangedEvent : public Event
{
public:
    explicit GlobalStateDirtyChangedEvent(bool dirty);
    ~GlobalStateDirtyChangedEvent() override;
    bool dirty() const;

private:
    bool _dirty;
};

} // namespace TES
