// SPDX-License-Identifier: MIT
#include "support/RecordingHandler.h"

namespace TES::Test {

RecordingHandler::RecordingHandler(unsigned long long mask, bool persistent, QString name)
    : _mask(mask), _persistent(persistent), _name(std::move(name))
{
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

RecordingHandler::~RecordingHandler()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
}

QString RecordingHandler::getEventHandlerName() const
{
    return _name;
}

bool RecordingHandler::canHandleEvent(unsigned long long mask) const
{
    return (mask & _mask) != 0;
}

void RecordingHandler::handleEvent(QSharedPointer<Event> event)
{
    events.append(event);
    if (onEvent)
        onEvent(event);
}

bool RecordingHandler::persistent() const
{
    return _persistent;
}

QList<unsigned long long> RecordingHandler::types() const
{
    QList<unsigned long long> result;
    for (auto const &event : events)
        result.append(event->type());
    return result;
}

void RecordingHandler::clear()
{
    events.clear();
}

} // namespace TES::Test
