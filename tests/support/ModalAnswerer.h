// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace TES::Test {

// Answers modal dialogs as a user would. Each time a modal widget comes up, it notes what the
// dialog says and clicks the button whose text (ampersands aside) is next in the queue. It
// polls on a timer, since the dialog runs its own event loop inside the call under test. A
// dialog without the wanted button is rejected, so that the test goes on and fails on `seen`.
// An answer beginning with "/" given to a file dialog is a path, typed into its file name box
// and confirmed with Return. Dialogs without any button, such as a WaitDialog, are left alone:
// they end by themselves.
class ModalAnswerer : public QObject
{
    Q_OBJECT

public:
    explicit ModalAnswerer(QStringList buttons);

    // One entry per dialog met: its window title; for a message box also its text and
    // informative text; for a file dialog the selected file and the name filters; all joined
    // by " | ".
    QStringList seen;
    // The answers not yet given.
    QStringList remaining() const;

private slots:
    void _poll();

private:
    QStringList _buttons;
    QTimer _timer;
    // An answer is on its way; the dialog may still be up until it arrives.
    bool _answering = false;
};

} // namespace TES::Test
