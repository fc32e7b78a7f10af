// SPDX-License-Identifier: MIT
#include "services/AsynchronousJob.h"
#include "services/JobQueue.h"
#include "services/Log.h"
#include "services/ProgressMaxSetEvent.h"
#include "services/ProgressMonitor.h"
#include "services/ProgressTextEvent.h"
#include "services/Runnable.h"
#include "services/ThreadJob.h"
#include "services/ThreadListener.h"
#include "services/ThreadManager.h"
#include "support/LogRecorder.h"

#include <QPointer>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>
#include <QtTest>

#include <atomic>
#include <stdexcept>

using namespace TES;

namespace {

// Long enough never to be reached unless the code under test is broken; it only keeps a
// broken run from hanging.
constexpr int Patience = 30000;

bool onMainThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

// Records the posted events it receives as short texts, and whether all came on its thread.
class Receiver : public QObject
{
public:
    bool event(QEvent *e) override
    {
        switch (static_cast<int>(e->type())) {
        case ProgressTextEvent::EventType:
            return note("text " + static_cast<ProgressTextEvent *>(e)->text);
        case ProgressMonitor::IncrementEventType:
            return note("step");
        case ProgressMaxSetEvent::EventType:
            return note(QString("max %1").arg(static_cast<ProgressMaxSetEvent *>(e)->max));
        case JobQueue::FinishedEventType:
            if (onFinished)
                onFinished();
            return note("finished");
        }
        return QObject::event(e);
    }
    bool note(QString const &what)
    {
        seen.append(what);
        allOnMainThread = allOnMainThread && onMainThread();
        return true;
    }

    QStringList seen;
    bool allOnMainThread = true;
    std::function<void()> onFinished;
};

// The names of the FunctionJobs deleted, in order.
QStringList deaths;

// A job whose work is a function; it signals jobDone() itself.
class FunctionJob : public AsynchronousJob
{
public:
    explicit FunctionJob(std::function<void(FunctionJob &)> work, QString name = QString())
        : _work(std::move(work)), _name(std::move(name))
    {}
    ~FunctionJob() override { deaths.append(_name); }
    void run() override
    {
        if (_work)
            _work(*this);
        done = true;
        jobDone();
    }

    std::atomic<bool> done{false};

private:
    std::function<void(FunctionJob &)> _work;
    QString _name;
};

class CountingRunnable : public Runnable
{
public:
    int calls = 0;
    bool selfDeleting = false;

protected:
    void _exec() override
    {
        ++calls;
        if (selfDeleting)
            deleteLater();
    }
};

struct ThreadJobTrace
{
    std::atomic<bool> ranOffMainThread{false};
    std::atomic<bool> deleted{false};
    QPointer<QThread> thread;
};

// Reports twice and then ends its thread, arranging for the QThread to go too.
class ReportingThreadJob : public ThreadJob
{
    Q_OBJECT

public:
    explicit ReportingThreadJob(ThreadJobTrace *trace) : _trace(trace) {}
    ~ReportingThreadJob() override { _trace->deleted = true; }

private slots:
    void run() override
    {
        _trace->thread = thread();
        _trace->ranOffMainThread = !onMainThread();
        emit progressTextUpdated("half way");
        emit progressValueUpdated(50);
        connect(thread(), &QThread::finished, thread(), &QObject::deleteLater);
        thread()->quit();
    }

private:
    ThreadJobTrace *_trace;
};

class RecordingThreadListener : public ThreadListener
{
    Q_OBJECT

public:
    QStringList seen;
    bool allOnMainThread = true;

protected slots:
    void threadProgressText(const QString &text) override { note("text " + text); }
    void threadProgressValue(int val) override { note(QString("value %1").arg(val)); }
    void threadFinished() override { note("finished"); }

private:
    void note(QString const &what)
    {
        seen.append(what);
        allOnMainThread = allOnMainThread && onMainThread();
    }
};

} // namespace

class tst_Jobs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void queueRunsItsJobsTogether();
    void queueOnAPoolOfOneThread();
    void runAndWaitEmptyQueueAndOwnership();
    void runnableRunsOnTheNextTurn();
    void threadManagerRunsAJob();
};

void tst_Jobs::initTestCase()
{
    // Fixed, so that the tests mean the same on every machine.
    QThreadPool::globalInstance()->setMaxThreadCount(2);
}

void tst_Jobs::cleanup()
{
    QThreadPool::globalInstance()->setMaxThreadCount(2);
    QVERIFY(QThreadPool::globalInstance()->waitForDone(Patience));
}

void tst_Jobs::queueRunsItsJobsTogether()
{
    Receiver owner;
    QSemaphore startedA, startedB, release;
    std::atomic<bool> aSawB{false}, bSawA{false};
    bool bothDoneAtFinish = false;

    auto *queue = new JobQueue(&owner);
    auto *a = new FunctionJob([&](FunctionJob &) {
        startedA.release();
        aSawB = startedB.tryAcquire(1, Patience);
        release.tryAcquire(1, Patience);
    });
    auto *b = new FunctionJob([&](FunctionJob &) {
        startedB.release();
        bSawA = startedA.tryAcquire(1, Patience);
        release.tryAcquire(1, Patience);
    });
    queue->addJob(a);
    queue->addJob(b);
    owner.onFinished = [&] { bothDoneAtFinish = a->done && b->done; };

    queue->runLater();
    // Each job waits for the other to have started: they can only meet if they run at once,
    // while the queue itself holds a third thread.
    QTRY_VERIFY(aSawB && bSawA);

    // One job done is not enough.
    release.release(1);
    QTRY_VERIFY(a->done || b->done);
    QVERIFY(owner.seen.isEmpty());

    release.release(1);
    QTRY_COMPARE(owner.seen, QStringList({"finished"}));
    QVERIFY(bothDoneAtFinish);
    delete queue;
}

void tst_Jobs::queueOnAPoolOfOneThread()
{
    // The queue occupies the only thread while it waits; its job must run all the same.
    QThreadPool::globalInstance()->setMaxThreadCount(1);
    Receiver owner;
    JobQueue queue(&owner);
    queue.addJob(new FunctionJob(nullptr));
    queue.runLater();
    QTRY_COMPARE(owner.seen, QStringList({"finished"}));
    QVERIFY(static_cast<FunctionJob *>(queue.job(0))->done);
}

void tst_Jobs::runAndWaitEmptyQueueAndOwnership()
{
    Receiver owner;
    ProgressMonitor monitor(&owner);
    {
        JobQueue queue(&owner);
        auto *job = new FunctionJob([](FunctionJob &job) {
            job.getProgressMonitor()->setMaxProgress(3);
            job.getProgressMonitor()->setProgressText("Writing");
            job.getProgressMonitor()->incrementValue();
        });
        job->setProgressMonitor(&monitor);
        queue.addJob(job);
        queue.runAndWait();
        QVERIFY(job->done);
        // Posted from the pool thread, not sent: nothing arrives before the main loop turns,
        // and then all in order, on the main thread.
        QVERIFY(owner.seen.isEmpty());
        QTRY_COMPARE(owner.seen, QStringList({"max 3", "text Writing", "step", "finished"}));
        QVERIFY(owner.allOnMainThread);
    }
    owner.seen.clear();
    JobQueue empty(&owner);
    empty.runAndWait();
    QTRY_COMPARE(owner.seen, QStringList({"finished"}));

    // Without an owner nobody is told. The queue owns its jobs, which the pool that ran them
    // doesn't delete, and deletes them in reverse order.
    deaths.clear();
    auto *orphan = new JobQueue(nullptr);
    for (QString const name : {"first", "second", "third"})
        orphan->addJob(new FunctionJob(nullptr, name));
    QVERIFY_EXCEPTION_THROWN(orphan->job(3), std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(orphan->job(-1), std::out_of_range);
    orphan->runAndWait();
    QVERIFY(deaths.isEmpty());
    delete orphan;
    QCOMPARE(deaths, QStringList({"third", "second", "first"}));

    // Outside a queue jobDone() has no semaphore to release.
    FunctionJob alone(nullptr);
    QVERIFY(!alone.autoDelete());
    alone.jobDone();
    alone.run();
    QVERIFY(alone.done);
}

void tst_Jobs::runnableRunsOnTheNextTurn()
{
    CountingRunnable runnable;
    runnable.schedule();
    runnable.schedule();
    QCOMPARE(runnable.calls, 0);
    QTRY_COMPARE(runnable.calls, 2);

    QPointer<CountingRunnable> once = new CountingRunnable;
    once->selfDeleting = true;
    once->schedule();
    QVERIFY(!once.isNull());
    QTRY_VERIFY(once.isNull());
}

void tst_Jobs::threadManagerRunsAJob()
{
    Test::LogRecorder log;
    new Log("test.log", false);
    Log::i().setListener(&log);
    Log::i().setLevel(LogLevel::Debug);

    new ThreadManager();
    QCOMPARE(log.lines().last(), QString("Data|Initializing Thread Manager"));

    RecordingThreadListener listener;
    QVERIFY(!ThreadManager::i().runJob(nullptr, &listener));

    ThreadJobTrace trace;
    QVERIFY(ThreadManager::i().runJob(new ReportingThreadJob(&trace), &listener));
    QTRY_COMPARE(listener.seen, QStringList({"text half way", "value 50", "finished"}));
    QVERIFY(trace.ranOffMainThread);
    QVERIFY(listener.allOnMainThread);
    // The job and its thread are gone once the thread has ended.
    QTRY_VERIFY(trace.deleted);
    QTRY_VERIFY(trace.thread.isNull());

    ThreadManager::destroy();
    QVERIFY(!ThreadManager::ip());
    QCOMPARE(log.lines().last(), QString("Data|Destroying Thread Manager"));
    Log::destroy();
    // Without a Log it still starts and stops.
    new ThreadManager();
    ThreadManager::destroy();
}

QTEST_GUILESS_MAIN(tst_Jobs)
#include "tst_Jobs.moc"
