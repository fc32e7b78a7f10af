// SPDX-License-Identifier: MIT
#include "widgets/WaitDialog.h"

#include "services/AsynchronousJob.h"
#include "services/HostConstants.h"
#include "services/ProgressMaxSetEvent.h"
#include "services/ProgressTextEvent.h"
#include "windows/TesseraWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>

namespace TES {

// Without a main window (as in tests) the dialog has no parent and centres on the screen.
WaitDialog::WaitDialog(const QString &title, unsigned int width, unsigned int height)
    : QDialog(TesseraWindow::ip()), _monitor(this), _queue(this)
{
    setWindowTitle(title);
    setWindowIcon(QIcon(HostConstants::IconApplication));
    setFixedSize(static_cast<int>(width), static_cast<int>(height));
    setSizeGripEnabled(false);
    setWindowModality(Qt::WindowModal);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    _centre();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    auto *barHolder = new QWidget(this);
    auto *barLayout = new QHBoxLayout(barHolder);
    barLayout->setContentsMargins(0, 0, 0, 0);
    _progressBar = new QProgressBar(barHolder);
    _progressBar->setValue(0);
    barLayout->addWidget(_progressBar);
    layout->addWidget(barHolder);
    _label = new QLabel(this);
    layout->addWidget(_label);
}

WaitDialog::~WaitDialog() = default;

void WaitDialog::addJob(AsynchronousJob *job)
{
    job->setProgressMonitor(&_monitor);
    _queue.addJob(job);
}

int WaitDialog::run()
{
    // Started first, but the jobs' reports and the end are posted events: the dialog's own
    // loop handles them, so even an empty queue ends only once exec() runs.
    _queue.runLater();
    return exec();
}

void WaitDialog::closeEvent(QCloseEvent *e)
{
    _monitor.cancel();
    e->ignore();
}

bool WaitDialog::event(QEvent *e)
{
    switch (static_cast<int>(e->type())) {
    case ProgressTextEvent::EventType:
        _label->setText(static_cast<ProgressTextEvent *>(e)->text);
        return true;
    case ProgressMonitor::IncrementEventType:
        _progressBar->setValue(_progressBar->value() + 1);
        return true;
    case ProgressMaxSetEvent::EventType:
        _progressBar->setValue(0);
        _progressBar->setMaximum(static_cast<ProgressMaxSetEvent *>(e)->max);
        return true;
    case JobQueue::FinishedEventType:
        setVisible(false);
        return true;
    }
    return QDialog::event(e);
}

void WaitDialog::keyPressEvent(QKeyEvent *e)
{
    // Escape would reject() the dialog and let it be deleted under running jobs: it is a
    // close request like any other.
    if (e->matches(QKeySequence::Cancel)) {
        _monitor.cancel();
        e->accept();
        return;
    }
    QDialog::keyPressEvent(e);
}

void WaitDialog::_centre()
{
    QPoint target;
    if (QWidget *host = parentWidget()) {
        QWidget *window = host->window();
        target = window->mapToGlobal(window->rect().center());
    } else if (QScreen *screen = QGuiApplication::primaryScreen()) {
        target = screen->availableGeometry().center();
    } else {
        return;
    }
    move(pos() + target - mapToGlobal(rect().center()));
}

} // namespace TES
