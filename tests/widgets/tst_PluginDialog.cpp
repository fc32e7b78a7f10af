// SPDX-License-Identifier: MIT
#include "widgets/PluginDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

using namespace TES;

namespace {

PluginDescriptor descriptor(QString const &title, QColor color, QSize size = QSize(40, 40))
{
    PluginDescriptor plugin;
    plugin.title = title;
    plugin.description = "About " + title + ".";
    plugin.image = QImage(size, QImage::Format_ARGB32);
    plugin.image.fill(color);
    return plugin;
}

// A dialog over three plug-ins, shown.
struct Shown
{
    Shown()
        : dialog({descriptor("Alpha", Qt::red), descriptor("Beta", Qt::green, QSize(200, 100)),
                  descriptor("Gamma", Qt::blue)})
    {
        dialog.show();
        exposed = QTest::qWaitForWindowExposed(&dialog);
        list = dialog.findChild<QListWidget *>();
        for (QLabel *label : dialog.findChildren<QLabel *>())
            (label->wordWrap() ? text : image) = label;
    }
    void clickRow(int row)
    {
        QRect const rect = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    }
    QPixmap picture() const { return image->pixmap(Qt::ReturnByValue); }

    PluginDialog dialog;
    bool exposed = false;
    QListWidget *list = nullptr;
    QLabel *text = nullptr;
    QLabel *image = nullptr;
};

} // namespace

class tst_PluginDialog : public QObject
{
    Q_OBJECT

private slots:
    void layoutSelectionAndOk();
    void closingRefuses_data();
    void closingRefuses();
};

void tst_PluginDialog::layoutSelectionAndOk()
{
    Shown shown;
    PluginDialog &dialog = shown.dialog;
    QVERIFY(shown.exposed);
    QCOMPARE(dialog.windowTitle(), QString("Framework Selection"));
    QCOMPARE(dialog.size(), QSize(780, 480));
    QCOMPARE(dialog.maximumSize(), QSize(780, 480));
    // Ok is the only way out but closing.
    QList<QAbstractButton *> const buttons = dialog.findChild<QDialogButtonBox *>()->buttons();
    QCOMPARE(buttons.size(), 1);
    QCOMPARE(buttons.first()->text().remove('&'), QString("OK"));
    QCOMPARE(shown.list->count(), 3);
    QCOMPARE(shown.list->item(2)->text(), QString("Gamma"));

    // The first plug-in comes up selected and described.
    QCOMPARE(shown.list->selectedItems(), QList<QListWidgetItem *>({shown.list->item(0)}));
    QCOMPARE(shown.text->text(), QString("About Alpha."));
    QCOMPARE(shown.image->size(), QSize(100, 100));
    QCOMPARE(shown.picture().size(), QSize(100, 100));
    QCOMPARE(shown.picture().toImage().pixelColor(0, 0), QColor(Qt::red));

    // A wide picture fills the square and overflows it rather than leaving a border.
    shown.clickRow(1);
    QCOMPARE(shown.text->text(), QString("About Beta."));
    QCOMPARE(shown.picture().size(), QSize(200, 100));
    QCOMPARE(shown.picture().toImage().pixelColor(0, 0), QColor(Qt::green));

    QCOMPARE(dialog.selectedIndex(), -1);
    QTest::mouseClick(buttons.first(), Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.selectedIndex(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_PluginDialog::closingRefuses_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("window closed") << false;
    QTest::newRow("escape") << true;
}

void tst_PluginDialog::closingRefuses()
{
    QFETCH(bool, byEscape);
    Shown shown;
    QVERIFY(shown.exposed);
    shown.clickRow(2);
    if (byEscape)
        QTest::keyClick(&shown.dialog, Qt::Key_Escape);
    else
        shown.dialog.close();
    QCOMPARE(shown.dialog.result(), int(QDialog::Rejected));
    QCOMPARE(shown.dialog.selectedIndex(), -1);
    QVERIFY(!shown.dialog.isVisible());
}

QTEST_MAIN(tst_PluginDialog)
#include "tst_PluginDialog.moc"
