// SPDX-License-Identifier: MIT
#pragma once

#include "services/LogMessage.h"
#include "tessera_export.h"

#include <QEvent>
#include <QString>

namespace TES {

// Carries a log line from any thread to the Log on the main thread (posted, type 1000).
class TES_EXPORT LogThreadMessageEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = static_cast<QEvent::Type>(1000);

    LogThreadMessageEvent(QString const &message, QString const &source, LogSeverity severity,
                          LogLevel level);
    ~LogThreadMessageEvent() override;

    QString message;
    QString source;
    LogSeverity severity;
    LogLevel level;
};

} // namespace TES
