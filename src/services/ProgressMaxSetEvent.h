// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QEvent>

namespace TES {

// A new maximum for the progress value, posted by ProgressMonitor::setMaxProgress (type
// 1103). The receiver also starts the value again from 0.
class TES_EXPORT ProgressMaxSetEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = static_cast<QEvent::Type>(1103);

    explicit ProgressMaxSetEvent(int max);
    ~ProgressMaxSetEvent() override;

    int max;
};

} // namespace TES
