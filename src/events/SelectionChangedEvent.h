// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "tessera_export.h"

#include <QList>
#include <QUuid>

namespace TES {

// The selection changed: the ids added to it and the ids removed from it. A re-selection
// may name the same id in both lists.
class TES_EXPORT SelectionChangedEvent : public Event
{
public:
    SelectionChangedEvent(QList<QUuid> const &added, QList<QUuid> const &removed);
    ~SelectionChangedEvent() override;

    QList<QUuid> added() const;
    QList<QUuid> removed() const;

private:
    QList<QUuid> _added;
    QList<QUuid> _removed;
};

} // namespace TES
