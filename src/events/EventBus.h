// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QTimer>

#include <memory>
#include <set>

namespace TES {

class EventHandlerDescriptor;
class IEventHandler;

// The application's one message channel: a main-thread queue of shared events and a set of
// subscribers. Delivery never nests and handlers never run in parallel; an event raised
// from inside a delivery waits for the next pump (a 100 ms single shot).
//
// Core creates the bus first and destroys it near the end of the run. Subscribing takes
// effect at the next pump; unsubscribing takes effect at once, so an object may leave the
// bus in its destructor even from inside a delivery. addHandler, removeHandler and the
// raise operations are safe to call after destroy().
class TES_EXPORT EventBus : public QObject, public Singleton<EventBus>
{
    Q_OBJECT

public:
    EventBus();
    ~EventBus() override;

    void addHandler(IEventHandler *handler);
    void removeHandler(IEventHandler *handler);

    // Queues the event for the next pump; dropped while the bus is off.
    void raiseEvent(QSharedPointer<Event> event);
    // Delivers the whole queue, this event last, before returning; from inside a delivery
    // it behaves as raiseEvent. Dropped while the bus is off.
    void raiseEventNow(QSharedPointer<Event> event);
    // raiseEvent and raiseEventNow on the bus if there is one; nothing after destroy().
    static void Raise(QSharedPointer<Event> event);
    static void RaiseNow(QSharedPointer<Event> event);

    bool getEventsEnabled() const;
    void setEventsEnabled(bool on);
    void clearEvents();
    // Empties the queue and drops every subscriber that is not persistent.
    void reset();

private slots:
    void _pump();

private:
    using DescriptorPtr = std::shared_ptr<EventHandlerDescriptor>;

    void _schedulePump();
    void _flushQueues();
    DescriptorPtr _descriptor(IEventHandler *handler) const;
    bool _containsHandler(IEventHandler *handler) const;

    bool _eventsEnabled = false;
    std::set<DescriptorPtr> _descriptors;
    std::set<IEventHandler *> _handlersToAdd;
    std::set<IEventHandler *> _handlersToRemove;
    QList<QSharedPointer<Event>> _events;
    bool _pumping = false;
    QTimer _timer;
};

template<>
TES_EXPORT EventBus *Singleton<EventBus>::_instance;

} // namespace TES
