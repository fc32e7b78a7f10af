// SPDX-License-Identifier: MIT
#include "services/AsynchronousJob.h"
#include "services/JobQueue.h"
#include "services/ProgressMaxSetEvent.h"
#include "services/ProgressMonitor.h"
#include "widgets/WaitDialog.h"
#include "windows/TesseraWindow.h"

#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QSemaphore>
#include <QThreadPool>
#include <QTimer>
#include <QtTest>

#include <atomic>
#include <functional>

using namespace TES;

namespace {

// Never reached unless the code under test is broken; it keeps a broken run from hanging.
constexpr int Patience = 30000;

// A job whose work is a function, given the job's monitor and a gate that the test opens
// one step at a time.
class GatedJob : public AsynchronousJob
{
public:
    using Work = std::function<void(ProgressMonitor &, GatedJob &)>;

    explicit GatedJob(Work work) : _work(std::move(work)) {}

    void run() override
    {
        onPoolThread = QThread::currentThread() != QCoreApplication::instance()->thread();
        _work(*getProgressMonitor(), *this);
        jobDone();
    }

    // Waits until the test opens the gate once more.
    void waitForGate() { _gate.tryAcquire(1, Patience); }
    void openGate() { _gate.release(1); }

    std::atomic<bool> onPoolThread{false};

private:
    Work _work;
    QSemaphore _gate;
};

// Runs the dialog with a driver that starts once the dialog's own loop runs, and checks that
// the driver ran to its end and the queue ended the dialog. Should the queue never end, the
// rescue hides the dialog so that the test fails instead of hanging.
int runDriven(WaitDialog &dialog, std::function<void(bool &)> driver)
{
    bool driven = false;
    bool rescued = false;
    if (driver)
        QTimer::singleShot(0, &dialog, [&] { driver(driven); });
    QTimer::singleShot(2 * Patience, &dialog, [&] {
        rescued = true;
        dialog.hide();
    });
    int const result = dialog.run();
    if (rescued || (driver && !driven) || dialog.isVisible())
        return -1;
    return result;
}

QProgressBar *barOf(WaitDialog &dialog)
{
    return dialog.findChild<QProgressBar *>();
}

QLabel *labelOf(WaitDialog &dialog)
{
    return dialog.findChild<QLabel *>();
}

} // namespace

class tst_WaitDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void frame();
    void centredOnTheMainWindowWithAnEmptyQueue();
    void runsTwoJobsOnPoolThreads();
    void closeRequestCancels_data();
    void closeRequestCancels();
};

void tst_WaitDialog::initTestCase()
{
    // The two jobs below meet only when the pool runs them side by side.
    QThreadPool::globalInstance()->setMaxThreadCount(2);
}

void tst_WaitDialog::cleanup()
{
    QVERIFY(QThreadPool::globalInstance()->waitForDone(Patience));
}

void tst_WaitDialog::frame()
{
    // Title, size and modality are seen as the data manager's saves show it.
    WaitDialog dialog("Saving Project", 320, 90);
    // No main window: centred on the primary screen, and kept there when shown.
    QPoint const centre = QGuiApplication::primaryScreen()->availableGeometry().center();
    QCOMPARE(dialog.mapToGlobal(dialog.rect().center()), centre);
    QPoint const place = dialog.pos();
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.pos(), place);

    // A new maximum starts the bar again; the queue's end hides the dialog, run or not.
    QProgressBar *bar = barOf(dialog);
    QCoreApplication::postEvent(&dialog, new ProgressMaxSetEvent(3));
    QCoreApplication::postEvent(&dialog, new QEvent(static_cast<QEvent::Type>(1104)));
    QCoreApplication::postEvent(&dialog, new QEvent(ProgressMonitor::IncrementEventType));
    QTRY_COMPARE(bar->value(), 1);
    QCoreApplication::postEvent(&dialog, new ProgressMaxSetEvent(10));
    QTRY_COMPARE(bar->maximum(), 10);
    QCOMPARE(bar->value(), 0);
    QCoreApplication::postEvent(&dialog, new QEvent(JobQueue::FinishedEventType));
    QTRY_VERIFY(!dialog.isVisible());
}

void tst_WaitDialog::centredOnTheMainWindowWithAnEmptyQueue()
{
    TesseraWindow window;
    window.setGeometry(40, 30, 900, 500);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    WaitDialog dialog("Saving Project", 320, 90);
    QCOMPARE(dialog.parentWidget(), &window);
    QVERIFY(dialog.isWindow());
    QCOMPARE(dialog.mapToGlobal(dialog.rect().center()),
             window.mapToGlobal(window.rect().center()));

    // With nothing to do the queue ends the dialog as soon as its loop runs.
    QCOMPARE(runDriven(dialog, nullptr), int(QDialog::Rejected));
    QCOMPARE(barOf(dialog)->value(), 0);
    QVERIFY(window.isVisible());
}

void tst_WaitDialog::runsTwoJobsOnPoolThreads()
{
    WaitDialog dialog("Saving Project", 320, 90);
    QProgressBar *bar = barOf(dialog);
    QLabel *label = labelOf(dialog);

    auto *writer = new GatedJob([](ProgressMonitor &monitor, GatedJob &job) {
        monitor.setMaxProgress(4);
        monitor.setProgressText("Writing screens");
        job.waitForGate();
        monitor.incrementValue();
        job.waitForGate();
        monitor.incrementValue();
    });
    auto *packer = new GatedJob([](ProgressMonitor &monitor, GatedJob &job) {
        job.waitForGate();
        monitor.setProgressText("Packing archive");
        monitor.incrementValue();
        job.waitForGate();
        monitor.incrementValue();
    });
    dialog.addJob(writer);
    dialog.addJob(packer);

    auto driver = [&](bool &driven) {
        QTRY_COMPARE(label->text(), QString("Writing screens"));
        QCOMPARE(bar->maximum(), 4);
        QCOMPARE(bar->value(), 0);
        QCOMPARE(QApplication::activeModalWidget(), &dialog);

        writer->openGate();
        QTRY_COMPARE(bar->value(), 1);
        // The writer is held at its gate while the packer runs: both jobs are under way.
        packer->openGate();
        QTRY_COMPARE(label->text(), QString("Packing archive"));
        QTRY_COMPARE(bar->value(), 2);
        writer->openGate();
        QTRY_COMPARE(bar->value(), 3);
        QVERIFY(dialog.isVisible());
        driven = true;
        packer->openGate();
    };

    QCOMPARE(runDriven(dialog, driver), int(QDialog::Rejected));
    // Every report was posted before the end, so every one has been shown.
    QCOMPARE(bar->value(), 4);
    QCOMPARE(QApplication::activeModalWidget(), static_cast<QWidget *>(nullptr));
    QVERIFY(writer->onPoolThread && packer->onPoolThread);
}

void tst_WaitDialog::closeRequestCancels_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("close") << false;
    QTest::newRow("escape key") << true;
}

void tst_WaitDialog::closeRequestCancels()
{
    QFETCH(bool, escape);

    WaitDialog dialog("Loading Project", 300, 80);
    auto *job = new GatedJob([](ProgressMonitor &monitor, GatedJob &job) {
        monitor.setProgressText("Working");
        job.waitForGate();
        monitor.setProgressText(monitor.isCancelled() ? "Stopped" : "Finished");
    });
    dialog.addJob(job);

    auto driver = [&](bool &driven) {
        QTRY_COMPARE(labelOf(dialog)->text(), QString("Working"));
        QVERIFY(!job->getProgressMonitor()->isCancelled());
        if (escape)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            QVERIFY(!dialog.close());
        QVERIFY(job->getProgressMonitor()->isCancelled());
        // Still up, and still modal, until the job has ended.
        QVERIFY(dialog.isVisible());
        QCOMPARE(QApplication::activeModalWidget(), &dialog);
        driven = true;
        job->openGate();
    };

    QVERIFY(runDriven(dialog, driver) >= 0);
    QCOMPARE(labelOf(dialog)->text(), QString("Stopped"));
}

QTEST_MAIN(tst_WaitDialog)
#include "tst_WaitDialog.moc"
