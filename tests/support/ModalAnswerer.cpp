// SPDX-License-Identifier: MIT
#include "support/ModalAnswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QtTest>

#include <functional>

namespace TES::Test {

ModalAnswerer::ModalAnswerer(QStringList buttons) : _buttons(std::move(buttons))
{
    connect(&_timer, &QTimer::timeout, this, &ModalAnswerer::_poll);
    _timer.start(10);
}

QStringList ModalAnswerer::remaining() const
{
    return _buttons;
}

void ModalAnswerer::_poll()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || _buttons.isEmpty() || _answering)
        return;
    // A dialog without buttons (a WaitDialog) is not the user's to answer: it ends by itself.
    QList<QAbstractButton *> const buttons = modal->findChildren<QAbstractButton *>();
    if (buttons.isEmpty())
        return;

    QStringList description{modal->windowTitle()};
    if (auto *box = qobject_cast<QMessageBox *>(modal))
        description << box->text() << box->informativeText();
    auto *files = qobject_cast<QFileDialog *>(modal);
    if (files)
        description << files->selectedFiles().value(0) << files->nameFilters().join(";;");
    seen.append(description.join(" | "));

    QString const wanted = _buttons.takeFirst();
    std::function<void()> answer;
    QLineEdit *edit = files ? files->findChild<QLineEdit *>("fileNameEdit") : nullptr;
    if (edit && wanted.startsWith('/')) {
        // Typed into the file name box and confirmed, as a user picks a file by its path.
        QPointer<QLineEdit> target(edit);
        answer = [target, wanted] {
            if (!target)
                return;
            target->selectAll();
            QTest::keyClicks(target, wanted);
            QTest::keyClick(target, Qt::Key_Return);
        };
    }
    for (QAbstractButton *button : buttons) {
        if (answer)
            break;
        if (button->isVisible() && button->text().remove('&') == wanted) {
            QPointer<QAbstractButton> target(button);
            answer = [target] {
                if (target)
                    QTest::mouseClick(target, Qt::LeftButton);
            };
        }
    }
    if (!answer) {
        seen.last() += " | no button " + wanted;
        QPointer<QDialog> dialog(qobject_cast<QDialog *>(modal));
        answer = [dialog] {
            if (dialog)
                dialog->reject();
        };
    }
    // Given from the event loop rather than from this timer's slot, which Qt does not enter
    // again while it runs: a dialog that the answer opens (a file dialog's question whether to
    // replace a file) is then answered too.
    _answering = true;
    QTimer::singleShot(0, this, [this, answer] {
        _answering = false;
        answer();
    });
}

} // namespace TES::Test
