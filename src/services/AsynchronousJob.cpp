// SPDX-License-Identifier: MIT
#include "services/AsynchronousJob.h"

#include <QSemaphore>

namespace TES {

AsynchronousJob::AsynchronousJob(ProgressMonitor *monitor) : _monitor(monitor)
{
    setAutoDelete(false);
}

AsynchronousJob::~AsynchronousJob() = default;

ProgressMonitor *AsynchronousJob::getProgressMonitor() const
{
    return _monitor;
}

void AsynchronousJob::setProgressMonitor(ProgressMonitor *monitor)
{
    _monitor = monitor;
}

void AsynchronousJob::jobDone()
{
    if (_semaphore)
        _semaphore->release(1);
}

} // namespace TES
