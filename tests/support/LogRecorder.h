// SPDX-License-Identifier: MIT
#pragma once

#include "services/ILogListener.h"

#include <QList>
#include <QStringList>

namespace TES::Test {

// Collects what the Log passes to its listener. Attach it with attach(), which also turns
// buffering off, so that every later message arrives at once; it detaches itself when it
// goes, so it may die before the Log.
class LogRecorder : public ILogListener
{
public:
    LogRecorder();
    ~LogRecorder();

    void attach();
    void logMessageWritten(LogMessage const &message) override;

    // The message texts, in order.
    QStringList texts() const;
    // "source|text" for each message, in order.
    QStringList lines() const;

    QList<LogMessage> messages;
};

} // namespace TES::Test
