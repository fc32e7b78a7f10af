// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QEvent>
#include <QString>

#include <atomic>

class QObject;

namespace TES {

// How a worker talks to the interface: every report is a Qt event posted to the target, so
// the monitor may be used from any thread and the target handles the reports on its own
// thread, in posting order. WaitDialog is the target that gives them meaning; any other
// QObject drops them.
//
// The monitor does not own its target. The cancel flag goes the other way: the interface
// sets it and a job may poll it.
class TES_EXPORT ProgressMonitor
{
public:
    // Type of the plain event that adds one to the progress value.
    static constexpr QEvent::Type IncrementEventType = static_cast<QEvent::Type>(1102);

    explicit ProgressMonitor(QObject *target);

    // Post a ProgressTextEvent, a plain increment event, a ProgressMaxSetEvent.
    void setProgressText(QString const &text);
    void incrementValue();
    void setMaxProgress(int max);

    void cancel();
    bool isCancelled() const;

private:
    void _post(QEvent *event);

    QObject *_target;
    std::atomic<bool> _cancelled{false};
};

} // namespace TES
