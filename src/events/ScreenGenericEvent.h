#pragma once

#include "events/ScreenEvent.h"
#include "tessera_export.h"

#include <QUuid>

namespace TES {

// A screen event naming one screen and its index in the screen list; the type is given by
// the subclass, the mask is EVM_SCREEN.
class TES_EXPORT ScreenGenericEvent : public ScreenEvent
{
public:
    ScreenGenericEvent(unsigned long long type, QUuid const &screen, int index);
    ~ScreenGenericEvent() override;

    QUuid screen() const;
    int index() const;

private:
    QUuid _screen;
    int _index;
};

} // namespace TES
