// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "tessera_export.h"

namespace TES {

// Connects the log level to GlobalState: a change of any global value with id 0 sets the
// Log's level to the new value. One static instance exists for the whole run; the Log
// subscribes it when it is created and unsubscribes it when it is destroyed.
class TES_EXPORT LogStateListener : public IEventHandler
{
public:
    QString getEventHandlerName() const override;
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;
    bool persistent() const override;

    static LogStateListener &instance();
};

} // namespace TES
