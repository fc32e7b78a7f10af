// SPDX-License-Identifier: MIT
#pragma once

#include "services/JobQueue.h"
#include "services/ProgressMonitor.h"
#include "tessera_export.h"

#include <QDialog>

class QLabel;
class QProgressBar;

namespace TES {

class AsynchronousJob;

// Blocks the user while a queue of background jobs runs, and shows their progress: a bar
// and a line of text. Project save and load run behind it.
//
// The dialog owns its monitor and its queue, and through the queue the jobs. The jobs run on
// pool threads and reach the dialog only by events posted to it: 1101 text, 1102 one step,
// 1103 maximum, from the ProgressMonitor, and 2000 from the queue when every job is done,
// which hides the dialog and ends run(). A close request or Escape only sets the monitor's
// cancel flag: the dialog stays up until the queue has finished, so the jobs never outlive
// it. A WaitDialog runs once.
class TES_EXPORT WaitDialog : public QDialog
{
    Q_OBJECT

public:
    // Parented to the main window when there is one, and centred on it; otherwise centred on
    // the primary screen.
    WaitDialog(const QString &title, unsigned int width, unsigned int height);
    ~WaitDialog() override;

    // Takes ownership; the job reports through the dialog's monitor.
    void addJob(AsynchronousJob *job);
    // Starts the queue and shows the dialog modally until the queue has finished; the result
    // of exec().
    int run();

protected:
    // Sets the cancel flag and refuses: the queue's end is what closes the dialog.
    void closeEvent(QCloseEvent *e) override;
    // Handles the posted reports 1101, 1102, 1103 and the queue's end, 2000.
    bool event(QEvent *e) override;
    // Escape is a close request too.
    void keyPressEvent(QKeyEvent *e) override;

private:
    void _centre();

    QProgressBar *_progressBar;
    QLabel *_label;
    ProgressMonitor _monitor;
    JobQueue _queue;
};

} // namespace TES
