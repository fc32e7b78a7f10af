// SPDX-License-Identifier: MIT
#include "events/SelectionChangedEvent.h"

namespace TES {

SelectionChangedEvent::SelectionChangedEvent(QList<QUuid> const &added, QList<QUuid> const &removed)
    : Event(EVT_SELECT_CHANGED, EVM_SELECT), _added(added), _removed(removed)
{}

SelectionChangedEvent::~SelectionChangedEvent() = default;

QList<QUuid> SelectionChangedEvent::added() const
{
    return _added;
}

QList<QUuid> SelectionChangedEvent::removed() const
{
    return _removed;
}

} // namespace TES
