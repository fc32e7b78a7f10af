// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QEvent>
#include <QString>

namespace TES {

// A new progress text from a worker, posted by ProgressMonitor::setProgressText (type 1101).
class TES_EXPORT ProgressTextEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = static_cast<QEvent::Type>(1101);

    explicit ProgressTextEvent(QString const &text);
    ~ProgressTextEvent() override;

    QString text;
};

} // namespace TES
