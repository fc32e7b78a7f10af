#include "support/ModalAnswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QtTest>

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
    if (!modal || _buttons.isEmpty())
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
    if (files && wanted.startsWith('/')) {
        // Typed into the file name box and confirmed, as a user picks a file by its path.
        if (auto *edit = files->findChild<QLineEdit *>("fileNameEdit")) {
            edit->selectAll();
            QTest::keyClicks(edit, wanted);
            QTest::keyClick(edit, Qt::Key_Return);
            return;
        }
    }
    for (QAbstractButton *button : buttons) {
        if (button->isVisible() && button->text().remove('&') == wanted) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    seen.last() += " | no button " + wanted;
    if (auto *dialog = qobject_cast<QDialog *>(modal))
        dialog->reject();
}

} // namespace TES::Test
