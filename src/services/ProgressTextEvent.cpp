// SPDX-License-Identifier: MIT
#include "services/ProgressTextEvent.h"

namespace TES {

ProgressTextEvent::ProgressTextEvent(QString const &text) : QEvent(EventType), text(text) {}

ProgressTextEvent::~ProgressTextEvent() = default;

} // namespace TES
