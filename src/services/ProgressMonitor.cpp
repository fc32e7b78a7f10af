// SPDX-License-Identifier: MIT
#include "services/ProgressMonitor.h"

#include "services/ProgressMaxSetEvent.h"
#include "services/ProgressTextEvent.h"

#include <QCoreApplication>

namespace TES {

ProgressMonitor::ProgressMonitor(QObject *target) : _target(target) {}

void ProgressMonitor::setProgressText(QString const &text)
{
    _post(new ProgressTextEvent(text));
}

void ProgressMonitor::incrementValue()
{
    _post(new QEvent(IncrementEventType));
}

void ProgressMonitor::setMaxProgress(int max)
{
    _post(new ProgressMaxSetEvent(max));
}

void ProgressMonitor::cancel()
{
    _cancelled = true;
}

bool ProgressMonitor::isCancelled() const
{
    return _cancelled;
}

void ProgressMonitor::_post(QEvent *event)
{
    if (!_target) {
        delete event;
        return;
    }
    QCoreApplication::postEvent(_target, event, 0);
}

} // namespace TES
