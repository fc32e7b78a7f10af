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

// Records the posted events it receives as short texts, with the thread they arrived on.
class Receiver : public QObject
{
public:
    bool event(QEvent *e) override
    {
        threads.append(QThread::currentThread());
        switch (static_cast<int>(e->type())) {
        case ProgressTextEvent::EventType:
            seen.append("text " + static_cast<ProgressTextEvent *>(e)->text);
            return true;
        case ProgressMonitor::IncrementEventType:
            seen.append("step");
            return true;
        case ProgressMaxSetEvent::EventType:
            seen.append(QString("max %1").arg(static_cast<ProgressMaxSetEvent *>(e)->max));
            return true;
        case JobQueue::FinishedEventType:
            seen.append("finished");
            if (onFinished)
                onFinished();
            return true;
        }
        return QObject::event(e);
    }

    QStringList seen;
    QList<QThread *> threads;
    std::function<void()> onFinished;
};

// A job whose work is a function; it signals jobDone() itself and notes its own deletion.
class FunctionJob : public AsynchronousJob
{
public:
    explicit FunctionJob(std::function<void(FunctionJob &)> work, QStringList *deaths = nullptr,
                         QString name = QString())
        : _work(std::move(work)), _deaths(deaths), _name(std::move(name))
    {}
    ~FunctionJob() override
    {
        if (_deaths)
            _deaths->append(_name);
    }
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
    QStringList *_deaths;
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
        _trace->ranOffMainThread
            = QThread::currentThread() != QCoreApplication::instance()->thread();
        emit progressTextUpdated("half way");
        emit progressValueUpdated(50);
        _trace->thread = thread();
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
    QList<QThread *> threads;
    QPointer<QThread> finishedThread;

protected slots:
    void threadProgressText(const QString &text) override
    {
        seen.append("text " + text);
        threads.append(QThread::currentThread());
    }
    void threadProgressValue(int val) override
    {
        seen.append(QString("value %1").arg(val));
        threads.append(QThread::currentThread());
    }
    void threadFinished() override
    {
        seen.append("finished");
        threads.append(QThread::currentThread());
        finishedThread = qobject_cast<QThread *>(sender());
    }
};

class LogLines : public ILogListener
{
public:
    void logMessageWritten(LogMessage const &message) override
    {
        lines.append(message.source + ": " + message.message);
    }
    QStringList lines;
};

} // namespace

class tst_Jobs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void monitorPostsInOrderToTheTargetThread();
    void queueRunsItsJobsTogether();
    void queueOnAPoolOfOneThread();
    void runAndWaitAndTheEmptyQueue();
    void queueOwnsItsJobs();
    void jobDoneOutsideAQueue();
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

void tst_Jobs::monitorPostsInOrderToTheTargetThread()
{
    Receiver receiver;
    ProgressMonitor monitor(&receiver);

    QThread *worker = QThread::create([&monitor] {
        monitor.setMaxProgress(3);
        monitor.setProgressText("Writing");
        monitor.incrementValue();
        monitor.incrementValue();
        monitor.setProgressText("Done");
    });
    worker->start();
    QVERIFY(worker->wait(Patience));
    delete worker;

    // Posted, not sent: nothing has arrived before the main loop turns.
    QVERIFY(receiver.seen.isEmpty());
    QTRY_COMPARE(receiver.seen.size(), 5);
    QCOMPARE(receiver.seen, QStringList({"max 3", "text Writing", "step", "step", "text Done"}));
    for (QThread *thread : qAsConst(receiver.threads))
        QCOMPARE(thread, QCoreApplication::instance()->thread());

    QVERIFY(!monitor.isCancelled());
    monitor.cancel();
    QVERIFY(monitor.isCancelled());

    // Without a target the reports go nowhere (and are not leaked).
    ProgressMonitor lost(nullptr);
    lost.setProgressText("nobody");
    lost.incrementValue();
    lost.setMaxProgress(1);
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
    QVERIFY(owner.seen.isEmpty());

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
    queue.addJob(new FunctionJob(
        [](FunctionJob &job) { job.getProgressMonitor()->setProgressText("alone"); }));
    ProgressMonitor monitor(&owner);
    queue.job(0)->setProgressMonitor(&monitor);

    queue.runLater();
    QTRY_COMPARE(owner.seen, QStringList({"text alone", "finished"}));
}

void tst_Jobs::runAndWaitAndTheEmptyQueue()
{
    Receiver owner;
    {
        JobQueue queue(&owner);
        ProgressMonitor monitor(&owner);
        for (int index = 0; index < 3; ++index) {
            auto *job = new FunctionJob(
                [](FunctionJob &job) { job.getProgressMonitor()->incrementValue(); });
            job->setProgressMonitor(&monitor);
            queue.addJob(job);
        }
        queue.runAndWait();
        for (int index = 0; index < queue.count(); ++index)
            QVERIFY(static_cast<FunctionJob *>(queue.job(index))->done);
        // Every step was posted before the end.
        QVERIFY(owner.seen.isEmpty());
        QTRY_COMPARE(owner.seen, QStringList({"step", "step", "step", "finished"}));
    }

    owner.seen.clear();
    {
        JobQueue empty(&owner);
        QCOMPARE(empty.count(), 0);
        empty.runAndWait();
        QTRY_COMPARE(owner.seen, QStringList({"finished"}));
    }

    // Without an owner nobody is told, and nothing is left behind.
    JobQueue orphan(nullptr);
    orphan.addJob(new FunctionJob(nullptr));
    orphan.runAndWait();
    QVERIFY(static_cast<FunctionJob *>(orphan.job(0))->done);
}

void tst_Jobs::queueOwnsItsJobs()
{
    QStringList deaths;
    auto *queue = new JobQueue(nullptr);
    QVERIFY_EXCEPTION_THROWN(queue->job(0), std::out_of_range);
    for (QString const name : {"first", "second", "third"})
        queue->addJob(new FunctionJob(nullptr, &deaths, name));
    QCOMPARE(queue->count(), 3);
    QVERIFY(queue->job(2) != nullptr);
    QVERIFY_EXCEPTION_THROWN(queue->job(3), std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(queue->job(-1), std::out_of_range);

    // A queue's jobs are not deleted by the pool that ran them.
    queue->runAndWait();
    QVERIFY(deaths.isEmpty());
    delete queue;
    QCOMPARE(deaths, QStringList({"third", "second", "first"}));
}

void tst_Jobs::jobDoneOutsideAQueue()
{
    ProgressMonitor monitor(nullptr);
    FunctionJob job(nullptr);
    QCOMPARE(job.getProgressMonitor(), static_cast<ProgressMonitor *>(nullptr));
    job.setProgressMonitor(&monitor);
    QCOMPARE(job.getProgressMonitor(), &monitor);
    QVERIFY(!job.autoDelete());

    job.jobDone();
    // Run directly, as a plain QRunnable: its jobDone() has no queue to tell.
    job.run();
    QVERIFY(job.done);
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
    LogLines log;
    new Log("test.log", false);
    Log::i().setListener(&log);
    Log::i().setLevel(LogLevel::Debug);

    new ThreadManager();
    QCOMPARE(ThreadManager::ip(), &ThreadManager::i());
    QCOMPARE(log.lines.last(), QString("Data: Initializing Thread Manager"));

    RecordingThreadListener listener;
    QVERIFY(!ThreadManager::i().runJob(nullptr, &listener));

    ThreadJobTrace trace;
    QVERIFY(ThreadManager::i().runJob(new ReportingThreadJob(&trace), &listener));
    QTRY_COMPARE(listener.seen, QStringList({"text half way", "value 50", "finished"}));
    QVERIFY(trace.ranOffMainThread);
    for (QThread *thread : qAsConst(listener.threads))
        QCOMPARE(thread, QCoreApplication::instance()->thread());
    QTRY_VERIFY(trace.deleted);
    QTRY_VERIFY(listener.finishedThread.isNull());

    // Without a listener the job runs all the same.
    ThreadJobTrace quiet;
    QVERIFY(ThreadManager::i().runJob(new ReportingThreadJob(&quiet), nullptr));
    QTRY_VERIFY(quiet.deleted);
    QVERIFY(quiet.ranOffMainThread);
    QTRY_VERIFY(quiet.thread.isNull());

    ThreadManager::destroy();
    QCOMPARE(ThreadManager::ip(), static_cast<ThreadManager *>(nullptr));
    QCOMPARE(log.lines.last(), QString("Data: Destroying Thread Manager"));
    Log::destroy();

    // Without a Log it still starts and stops.
    new ThreadManager();
    ThreadManager::destroy();
}

QTEST_GUILESS_MAIN(tst_Jobs)
#include "tst_Jobs.moc"
