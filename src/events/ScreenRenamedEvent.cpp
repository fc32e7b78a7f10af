#include "events/ScreenRenamedEvent.h"

namespace TES {

ScreenRenamedEvent::ScreenRenamedEvent(QUuid const &screen, int index, QString const &name)
    : ScreenGenericEvent(EVT_SCREEN_RENAMED, screen, index), _name(name)
{}

ScreenRenamedEvent::~ScreenRenamedEvent() = default;

QString ScreenRenamedEvent::name() const
{
    return _name;
}

} // namespace TES
