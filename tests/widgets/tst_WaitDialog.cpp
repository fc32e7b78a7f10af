#include "services/AsynchronousJob.h"
#include "services/JobQueue.h"
#include "services/ProgressMaxSetEvent.h"
#include "services/ProgressMonitor.h"
#include "services/ProgressTextEvent.h"
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
    void waitForGate() { gateOpened = _gate.tryAcquire(1, Patience) && gateOpened; }
    void openGate(int times = 1) { _gate.release(times); }

    std::atomic<bool> onPoolThread{false};
    std::atomic<bool> gateOpened{true};
    std::atomic<bool> sawCancel{false};

private:
    Work _work;
    QSemaphore _gate;
};

// Runs the dialog with a driver that starts once the dialog's own loop runs. Should the
// queue never end the dialog, the rescue hides it so that the test fails instead of hanging.
int runDriven(WaitDialog &dialog, std::function<void()> driver, bool &rescued)
{
    rescued = false;
    if (driver)
        QTimer::singleShot(0, &dialog, driver);
    QTimer::singleShot(2 * Patience, &dialog, [&] {
        rescued = true;
        dialog.hide();
    });
    return dialog.run();
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
    void centredOnTheMainWindow();
    void eventsDriveTheBarAndLabel();
    void runsTwoJobsOnPoolThreads();
    void closeRequestCancels_data();
    void closeRequestCancels();
    void emptyQueue();
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
    WaitDialog dialog("Saving Project", 320, 90);
    QCOMPARE(dialog.windowTitle(), QString("Saving Project"));
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(dialog.minimumSize(), QSize(320, 90));
    QCOMPARE(dialog.maximumSize(), QSize(320, 90));
    QVERIFY(!dialog.isSizeGripEnabled());
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QVERIFY(barOf(dialog));
    QVERIFY(labelOf(dialog));
    QVERIFY(labelOf(dialog)->text().isEmpty());

    // No main window: centred on the primary screen. Showing keeps the place (the frame, if
    // any, is added around it): the dialog does not centre itself a second time.
    QPoint const centre = QGuiApplication::primaryScreen()->availableGeometry().center();
    QCOMPARE(dialog.mapToGlobal(dialog.rect().center()), centre);
    QPoint const place = dialog.pos();
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.pos(), place);

    // The bar over the text, inside a margin of 10.
    QPoint const barCorner = barOf(dialog)->mapTo(&dialog, QPoint(0, 0));
    QCOMPARE(barCorner.x(), 10);
    QVERIFY(labelOf(dialog)->mapTo(&dialog, QPoint(0, 0)).y()
            >= barCorner.y() + barOf(dialog)->height());
}

void tst_WaitDialog::centredOnTheMainWindow()
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

    auto *job = new GatedJob([](ProgressMonitor &monitor, GatedJob &job) {
        monitor.setProgressText("Over the window");
        job.waitForGate();
    });
    dialog.addJob(job);
    bool driven = false;
    bool rescued = false;
    runDriven(
        dialog,
        [&] {
            QTRY_COMPARE(labelOf(dialog)->text(), QString("Over the window"));
            QCOMPARE(QApplication::activeModalWidget(), &dialog);
            QVERIFY(window.isVisible());
            driven = true;
            job->openGate();
        },
        rescued);
    QVERIFY(!rescued);
    QVERIFY(driven);
    QVERIFY(!dialog.isVisible());
    QVERIFY(window.isVisible());
}

void tst_WaitDialog::eventsDriveTheBarAndLabel()
{
    WaitDialog dialog("Loading", 300, 80);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QProgressBar *bar = barOf(dialog);

    // Sent directly, each of the four is consumed.
    ProgressMaxSetEvent max(3);
    QVERIFY(QCoreApplication::sendEvent(&dialog, &max));
    QCOMPARE(bar->maximum(), 3);
    QCOMPARE(bar->value(), 0);
    QEvent step(ProgressMonitor::IncrementEventType);
    QVERIFY(QCoreApplication::sendEvent(&dialog, &step));
    QVERIFY(QCoreApplication::sendEvent(&dialog, &step));
    QCOMPARE(bar->value(), 2);
    ProgressTextEvent text("Reading screens");
    QVERIFY(QCoreApplication::sendEvent(&dialog, &text));
    QCOMPARE(labelOf(dialog)->text(), QString("Reading screens"));
    // Other numbers are not the dialog's business.
    QEvent other(static_cast<QEvent::Type>(1104));
    QCoreApplication::sendEvent(&dialog, &other);
    QCOMPARE(bar->value(), 2);
    QCOMPARE(labelOf(dialog)->text(), QString("Reading screens"));

    // A new maximum starts the bar again.
    QCoreApplication::postEvent(&dialog, new ProgressMaxSetEvent(10));
    QTRY_COMPARE(bar->maximum(), 10);
    QCOMPARE(bar->value(), 0);

    // The queue's end hides the dialog whether or not it runs.
    QCoreApplication::postEvent(&dialog, new QEvent(JobQueue::FinishedEventType));
    QTRY_VERIFY(!dialog.isVisible());
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

    bool driven = false;
    auto driver = [&] {
        QTRY_COMPARE(label->text(), QString("Writing screens"));
        QCOMPARE(bar->maximum(), 4);
        QCOMPARE(bar->value(), 0);
        QVERIFY(dialog.isVisible());
        QCOMPARE(QApplication::activeModalWidget(), &dialog);

        writer->openGate();
        QTRY_COMPARE(bar->value(), 1);
        // The writer is held at its gate while the packer runs: both jobs are under way.
        packer->openGate();
        QTRY_COMPARE(label->text(), QString("Packing archive"));
        QTRY_COMPARE(bar->value(), 2);
        QVERIFY(dialog.isVisible());

        writer->openGate();
        QTRY_COMPARE(bar->value(), 3);
        QVERIFY(dialog.isVisible());
        driven = true;
        packer->openGate();
    };

    bool rescued = false;
    QCOMPARE(runDriven(dialog, driver, rescued), int(QDialog::Rejected));
    QVERIFY(!rescued);
    QVERIFY(driven);
    // Every report was posted before the end, so every one has been shown.
    QCOMPARE(bar->value(), 4);
    QCOMPARE(label->text(), QString("Packing archive"));
    QVERIFY(!dialog.isVisible());
    QCOMPARE(QApplication::activeModalWidget(), static_cast<QWidget *>(nullptr));
    QVERIFY(writer->onPoolThread && packer->onPoolThread);
    QVERIFY(writer->gateOpened && packer->gateOpened);
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
        job.sawCancel = monitor.isCancelled();
        monitor.setProgressText(job.sawCancel ? "Stopped" : "Finished");
    });
    dialog.addJob(job);

    bool driven = false;
    auto driver = [&] {
        QTRY_COMPARE(labelOf(dialog)->text(), QString("Working"));
        QVERIFY(!job->getProgressMonitor()->isCancelled());
        if (escape) {
            QTest::keyClick(&dialog, Qt::Key_Escape);
        } else {
            QVERIFY(!dialog.close());
        }
        QVERIFY(job->getProgressMonitor()->isCancelled());
        // Still up, and still modal, until the job has ended.
        QVERIFY(dialog.isVisible());
        QCOMPARE(QApplication::activeModalWidget(), &dialog);
        driven = true;
        job->openGate();
    };

    bool rescued = false;
    runDriven(dialog, driver, rescued);
    QVERIFY(!rescued);
    QVERIFY(driven);
    QVERIFY(job->sawCancel);
    QCOMPARE(labelOf(dialog)->text(), QString("Stopped"));
    QVERIFY(!dialog.isVisible());
}

void tst_WaitDialog::emptyQueue()
{
    WaitDialog dialog("Nothing", 200, 60);
    bool rescued = false;
    QCOMPARE(runDriven(dialog, nullptr, rescued), int(QDialog::Rejected));
    QVERIFY(!rescued);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(barOf(dialog)->value(), 0);
}

QTEST_MAIN(tst_WaitDialog)
#include "tst_WaitDialog.moc"
