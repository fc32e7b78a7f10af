// SPDX-License-Identifier: MIT
#pragma once

#include "services/LogMessage.h"
#include "tessera_export.h"

namespace TES {

// Receives every message that the Log lets through, on the main thread. The console window
// implements it; the Log does not own its listener.
class TES_EXPORT ILogListener
{
public:
    virtual void logMessageWritten(LogMessage const &message) = 0;
};

} // namespace TES
