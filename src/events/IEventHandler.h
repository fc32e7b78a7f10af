// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "tessera_export.h"

#include <QSharedPointer>
#include <QString>

namespace TES {

// A subscriber of the EventBus. Neither constructor nor destructor touches the bus: an
// implementation calls EventBus::addHandler(this) and EventBus::removeHandler(this) itself,
// the latter at the latest in its destructor.
class TES_EXPORT IEventHandler
{
public:
    IEventHandler();
    virtual ~IEventHandler();

    // A name for the log and for debugging; taken once when the subscription is applied.
    virtual QString getEventHandlerName() const = 0;

    // Whether this handler may receive an event of the given category mask. Called once per
    // handler per delivered event, so keep it a plain bit test. The default accepts all.
    virtual bool canHandleEvent(unsigned long long mask) const;

    // The delivery. Runs on the main thread, never nested inside another delivery. Events
    // raised from here are queued and delivered by the next pump.
    virtual void handleEvent(QSharedPointer<Event> event) = 0;

    // Whether the subscription survives EventBus::reset(). The default is false: such a
    // handler must subscribe again after a project is blanked.
    virtual bool persistent() const;

    // A per-handler switch: deliveries are skipped while it is false. The host never turns it
    // off; it is there for plug-ins.
    virtual bool eventHandlerEnabled() const;
    virtual void setEventHandlerEnabled(bool enabled);

protected:
    bool _eventHandlerEnabled = true;
};

} // namespace TES
