// SPDX-License-Identifier: MIT
#include "support/LogRecorder.h"

#include "services/Log.h"

namespace TES::Test {

LogRecorder::LogRecorder() = default;

LogRecorder::~LogRecorder()
{
    if (Log::ip())
        Log::ip()->setListener(nullptr);
}

void LogRecorder::attach()
{
    Log::i().setListener(this);
    Log::i().flushBuffer();
    Log::i().setUseBuffering(false);
}

void LogRecorder::logMessageWritten(LogMessage const &message)
{
    messages.append(message);
}

QStringList LogRecorder::texts() const
{
    QStringList result;
    for (LogMessage const &message : messages)
        result.append(message.message);
    return result;
}

QStringList LogRecorder::lines() const
{
    QStringList result;
    for (LogMessage const &message : messages)
        result.append(message.source + '|' + message.message);
    return result;
}

} // namespace TES::Test
