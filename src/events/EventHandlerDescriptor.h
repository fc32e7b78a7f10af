// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "tessera_export.h"

#include <QSharedPointer>
#include <QString>

namespace TES {

class IEventHandler;

// The bus's record of one subscriber. Held by shared pointer so that it outlives an erase
// during a delivery; a removed handler is disconnected (its pointer nulled) at once.
class TES_EXPORT EventHandlerDescriptor
{
public:
    explicit EventHandlerDescriptor(IEventHandler *handler);
    virtual ~EventHandlerDescriptor();

    QString name() const;
    bool contains(IEventHandler *handler) const;
    IEventHandler *handler() const;
    void disconnect();
    bool isPersistent() const;

    // Delivers to the handler unless it is disconnected, switched off, or refuses the mask.
    void handleEvent(QSharedPointer<Event> const &event);

private:
    QString _name;
    IEventHandler *_handler;
};

} // namespace TES
