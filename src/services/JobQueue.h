// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QEvent>
#include <QObject>
#include <QRunnable>

#include <vector>

namespace TES {

class AsynchronousJob;

// A batch of AsynchronousJobs started together on the global QThreadPool. When every job has
// called jobDone(), the queue posts a plain event of type 2000 to its owner (a WaitDialog,
// which then closes). The queue owns its jobs and deletes them, last first, with itself; the
// owner is only the receiver of that event, not the QObject parent.
//
// Whoever owns the queue keeps it, and with it the jobs, alive until the 2000 event has
// arrived.
class TES_EXPORT JobQueue : public QObject, public QRunnable
{
    Q_OBJECT

public:
    // Type of the plain event posted to the owner when every job is done.
    static constexpr QEvent::Type FinishedEventType = static_cast<QEvent::Type>(2000);

    explicit JobQueue(QObject *owner);
    ~JobQueue() override;

    // Takes ownership.
    void addJob(AsynchronousJob *job);
    // Runs the queue on a pool thread; returns at once.
    void runLater();
    // Runs the queue on this thread; returns when every job is done.
    void runAndWait();

    int count() const;
    // Throws std::out_of_range for an index outside 0 to count() - 1.
    AsynchronousJob *job(int index) const;

    // Starts every job, waits for all of them, then tells the owner.
    void run() override;

private:
    QObject *_owner;
    std::vector<AsynchronousJob *> _jobs;
};

} // namespace TES
