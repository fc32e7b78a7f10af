// SPDX-License-Identifier: MIT
#include "services/LogStateListener.h"

#include "events/GlobalStateEvents.h"
#include "services/GlobalState.h"
#include "services/Log.h"

namespace TES {

namespace {
// Constructed before main, so it exists for every Log of the run.
LogStateListener _logStateListener;
} // namespace

LogStateListener &LogStateListener::instance()
{
    return _logStateListener;
}

QString LogStateListener::getEventHandlerName() const
{
    return QStringLiteral("Log");
}

bool LogStateListener::canHandleEvent(unsigned long long mask) const
{
    return (mask & EVM_GLOBALSTATE) != 0;
}

void LogStateListener::handleEvent(QSharedPointer<Event> event)
{
    if (event->type() != EVT_GLOBALSTATE_VALUE_CHANGED)
        return;
    auto const *changed = static_cast<GlobalStateChangedEvent const *>(event.data());
    // The id alone decides, whatever the group: id 0 of Project and Session count too.
    if (changed->id() == UserLogLevel && Log::ip())
        Log::ip()->setLevel(static_cast<LogLevel>(changed->newValue().toInt()));
}

bool LogStateListener::persistent() const
{
    return true;
}

} // namespace TES
