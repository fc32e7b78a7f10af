// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QRunnable>

class QSemaphore;

namespace TES {

class ProgressMonitor;

// One piece of background work in a JobQueue, run on a QThreadPool thread. The queue owns
// the job (auto-delete is off) and deletes it with itself; the progress monitor is borrowed.
//
// A job touches no widget and not the EventBus: it reports through its ProgressMonitor and
// logs through Log::WriteThreadMessage.
class TES_EXPORT AsynchronousJob : public QRunnable
{
public:
    explicit AsynchronousJob(ProgressMonitor *monitor = nullptr);
    ~AsynchronousJob() override;

    // The work, on a pool thread. It must end with jobDone(), on every path: the queue waits
    // for that call and waits for ever without it. Nothing may touch the job after jobDone(),
    // since its owner may delete it as soon as the queue has finished.
    void run() override = 0;

    ProgressMonitor *getProgressMonitor() const;
    void setProgressMonitor(ProgressMonitor *monitor);

    // Tells the running queue that this job has finished; outside a queue it does nothing.
    void jobDone();

private:
    friend class JobQueue;

    ProgressMonitor *_monitor;
    QSemaphore *_semaphore = nullptr;
};

} // namespace TES
