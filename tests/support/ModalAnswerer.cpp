#include "support/ModalAnswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
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

    QStringList description{modal->windowTitle()};
    if (auto *box = qobject_cast<QMessageBox *>(modal))
        description << box->text() << box->informativeText();
    if (auto *files = qobject_cast<QFileDialog *>(modal))
        description << files->selectedFiles().value(0) << files->nameFilters().join(";;");
    seen.append(description.join(" | "));

    QString const wanted = _buttons.takeFirst();
    for (QAbstractButton *button : modal->findChildren<QAbstractButton *>()) {
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
