#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

namespace TES {

// A screen's tab on the design surface was shown or hidden; visible() is the new state.
class TES_EXPORT ScreenVisibilityChangedEvent : public ScreenGenericEvent
{
public:
    ScreenVisibilityChangedEvent(QUuid const &screen, int index, bool visible);
    ~ScreenVisibilityChangedEvent() override;

    bool visible() const;

private:
    bool _visible;
};

} // namespace TES
