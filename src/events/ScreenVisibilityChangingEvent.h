#pragma once

#include "events/ScreenGenericEvent.h"
#include "tessera_export.h"

namespace TES {

// A screen's tab on the design surface is about to be shown or hidden; visible() is the new state.
class TES_EXPORT ScreenVisibilityChangingEvent : public ScreenGenericEvent
{
public:
    ScreenVisibilityChangingEvent(QUuid const &screen, int index, bool visible);
    ~ScreenVisibilityChangingEvent() override;

    bool visible() const;

private:
    bool _visible;
};

} // namespace TES
