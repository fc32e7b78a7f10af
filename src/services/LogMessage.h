// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

namespace TES {

enum class LogSeverity { Info = 0, Warning = 1, Error = 2 };

// The level at which a message becomes visible; the Log lets through every message whose
// level is at most its own. Named as the preferences show them.
enum class LogLevel { User = 0, Debug = 1, All = 2 };

// One line of the log as the console receives it.
struct TES_EXPORT LogMessage
{
    QString message;
    QString source;
    // Local time as "(hh:mm:ss)", brackets included.
    QString timestamp;
    LogSeverity severity = LogSeverity::Info;
    LogLevel level = LogLevel::User;
};

} // namespace TES
