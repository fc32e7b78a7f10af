// SPDX-License-Identifier: MIT
#include "events/EventBus.h"

#include "events/EventHandlerDescriptor.h"
#include "events/IEventHandler.h"
#include "services/Log.h"

#include <vector>

namespace TES {

template<>
EventBus *Singleton<EventBus>::_instance = nullptr;

EventBus::EventBus()
{
    _instance = this;
}

EventBus::~EventBus()
{
    _instance = nullptr;
    _events.clear();
    _descriptors.clear();
    _timer.stop();
    if (Log::ip())
        Log::ip()->writeMessage("Destroying Event Bus", "Event", LogSeverity::Info,
                                LogLevel::Debug);
}

void EventBus::addHandler(IEventHandler *handler)
{
    // Reached through ip() by destructors that run after destroy(): test before touching
    // any member.
    if (!handler || !_instance)
        return;
    _handlersToAdd.insert(handler);
}

void EventBus::removeHandler(IEventHandler *handler)
{
    if (!handler || !_instance)
        return;
    if (_handlersToAdd.erase(handler) > 0)
        return;
    DescriptorPtr descriptor = _descriptor(handler);
    if (!descriptor)
        return;
    // Nulling now keeps a delivery under way from reaching the handler; the emptied
    // descriptor stays until the next reset().
    descriptor->disconnect();
    _handlersToRemove.insert(handler);
}

void EventBus::Raise(QSharedPointer<Event> event)
{
    if (_instance)
        _instance->raiseEvent(std::move(event));
}

void EventBus::RaiseNow(QSharedPointer<Event> event)
{
    if (_instance)
        _instance->raiseEventNow(std::move(event));
}

void EventBus::raiseEvent(QSharedPointer<Event> event)
{
    if (!_instance || !_eventsEnabled)
        return;
    _events.append(std::move(event));
    _schedulePump();
}

void EventBus::raiseEventNow(QSharedPointer<Event> event)
{
    if (!_instance || !_eventsEnabled)
        return;
    if (_pumping) {
        raiseEvent(std::move(event));
        return;
    }
    _events.append(std::move(event));
    _pump();
}

bool EventBus::getEventsEnabled() const
{
    return _instance && _eventsEnabled;
}

void EventBus::setEventsEnabled(bool on)
{
    if (!_instance)
        return;
    _eventsEnabled = on;
    if (on && !_events.isEmpty())
        _schedulePump();
}

void EventBus::clearEvents()
{
    _events.clear();
}

void EventBus::reset()
{
    _events.clear();
    _flushQueues();
    for (auto it = _descriptors.begin(); it != _descriptors.end();) {
        if (!(*it)->isPersistent())
            it = _descriptors.erase(it);
        else
            ++it;
    }
    _timer.stop();
}

void EventBus::_pump()
{
    if (!_instance || !_eventsEnabled || _events.isEmpty() || _pumping)
        return;
    _pumping = true;
    _flushQueues();

    std::vector<QSharedPointer<Event>> batch;
    batch.reserve(static_cast<size_t>(_events.size()));
    for (auto const &event : qAsConst(_events))
        batch.push_back(event);
    _events.clear();

    // Subscriptions only change in _flushQueues() above, but a handler may reset the bus and
    // erase descriptors: walk a snapshot of shared references so that none dies on its turn.
    std::vector<DescriptorPtr> const descriptors(_descriptors.begin(), _descriptors.end());
    for (auto const &event : batch) {
        for (DescriptorPtr const &descriptor : descriptors)
            descriptor->handleEvent(event);
    }
    _pumping = false;
}

void EventBus::_schedulePump()
{
    if (!_timer.isActive())
        QTimer::singleShot(100, this, SLOT(_pump()));
}

void EventBus::_flushQueues()
{
    for (IEventHandler *handler : _handlersToAdd) {
        if (_containsHandler(handler))
            continue;
        _descriptors.insert(std::make_shared<EventHandlerDescriptor>(handler));
    }
    _handlersToAdd.clear();
    for (IEventHandler *handler : _handlersToRemove) {
        if (DescriptorPtr descriptor = _descriptor(handler))
            _descriptors.erase(descriptor);
    }
    _handlersToRemove.clear();
}

EventBus::DescriptorPtr EventBus::_descriptor(IEventHandler *handler) const
{
    for (DescriptorPtr const &descriptor : _descriptors) {
        if (descriptor->contains(handler))
            return descriptor;
    }
    return nullptr;
}

bool EventBus::_containsHandler(IEventHandler *handler) const
{
    return _descriptor(handler) != nullptr;
}

} // namespace TES
