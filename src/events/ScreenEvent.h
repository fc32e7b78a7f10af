#pragma once

#include "events/Event.h"
#include "tessera_export.h"

namespace TES {

// The base of the screen events. Built plainly, it is the repaint request that
// SceneManager raises when the screen size changes.
class TES_EXPORT ScreenEvent : public Event
{
public:
    explicit ScreenEvent(unsigned long long type = EVT_SCREEN_REPAINT_REQUEST,
                         unsigned long long mask = EVM_SCREEN);
    ~ScreenEvent() override;
};

} // namespace TES
