// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

class QEvent;

namespace TES {

// Debugging aids that write to standard output.
TES_EXPORT void printQS(QString const &text);
// Writes "QEvent" and the name of the event's type.
TES_EXPORT void printQEvent(QEvent const *event);

} // namespace TES
