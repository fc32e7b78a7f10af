// SPDX-License-Identifier: MIT
#include "events/EventHandlerDescriptor.h"

#include "events/IEventHandler.h"

namespace TES {

EventHandlerDescriptor::EventHandlerDescriptor(IEventHandler *handler)
    : _name(handler ? handler->getEventHandlerName() : QString()), _handler(handler)
{}

EventHandlerDescriptor::~EventHandlerDescriptor()
{
    _handler = nullptr;
}

QString EventHandlerDescriptor::name() const
{
    return _name;
}

bool EventHandlerDescriptor::contains(IEventHandler *handler) const
{
    return _handler == handler;
}

IEventHandler *EventHandlerDescriptor::handler() const
{
    return _handler;
}

void EventHandlerDescriptor::disconnect()
{
    _handler = nullptr;
}

bool EventHandlerDescriptor::isPersistent() const
{
    return _handler && _handler->persistent();
}

void EventHandlerDescriptor::handleEvent(QSharedPointer<Event> const &event)
{
    if (!_handler || !_handler->eventHandlerEnabled() || !_handler->canHandleEvent(event->mask()))
        return;
    _handler->handleEvent(event);
}

} // namespace TES
