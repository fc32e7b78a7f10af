// SPDX-License-Identifier: MIT
#include "services/JobQueue.h"

#include "services/AsynchronousJob.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QThreadPool>

namespace TES {

JobQueue::JobQueue(QObject *owner) : _owner(owner)
{
    setAutoDelete(false);
}

JobQueue::~JobQueue()
{
    for (auto job = _jobs.rbegin(); job != _jobs.rend(); ++job)
        delete *job;
}

void JobQueue::addJob(AsynchronousJob *job)
{
    _jobs.push_back(job);
}

void JobQueue::runLater()
{
    QThreadPool::globalInstance()->start(this, 0);
}

void JobQueue::runAndWait()
{
    run();
}

int JobQueue::count() const
{
    return static_cast<int>(_jobs.size());
}

AsynchronousJob *JobQueue::job(int index) const
{
    return _jobs.at(static_cast<std::size_t>(index));
}

void JobQueue::run()
{
    int const jobCount = count();
    QSemaphore semaphore(jobCount);
    QThreadPool *pool = QThreadPool::globalInstance();

    // While this thread only waits, the pool may use its place for a job: otherwise a pool of
    // one thread would never start a job at all, and one of two threads would run the jobs
    // one after the other.
    pool->releaseThread();
    for (AsynchronousJob *job : _jobs) {
        job->_semaphore = &semaphore;
        semaphore.acquire(1);
        pool->start(job, 0);
    }
    semaphore.acquire(jobCount);
    semaphore.release(jobCount);
    pool->reserveThread();
    // Every job has released its unit: none reads its pointer any more.
    for (AsynchronousJob *job : _jobs)
        job->_semaphore = nullptr;

    // The owner may delete this queue as soon as the event arrives: it is the last use.
    if (QObject *owner = _owner)
        QCoreApplication::postEvent(owner, new QEvent(FinishedEventType), 0);
}

} // namespace TES
