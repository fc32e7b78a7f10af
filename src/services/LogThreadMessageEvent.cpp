// SPDX-License-Identifier: MIT
#include "services/LogThreadMessageEvent.h"

namespace TES {

LogThreadMessageEvent::LogThreadMessageEvent(QString const &message, QString const &source,
                                             LogSeverity severity, LogLevel level)
    : QEvent(EventType), message(message), source(source), severity(severity), level(level)
{}

LogThreadMessageEvent::~LogThreadMessageEvent() = default;

} // namespace TES
