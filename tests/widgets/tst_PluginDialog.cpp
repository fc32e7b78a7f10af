#include "widgets/PluginDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

using namespace TES;

namespace {

PluginDescriptor descriptor(QString const &title, QString const &description, QColor color,
                            QSize size = QSize(40, 40))
{
    PluginDescriptor plugin;
    plugin.title = title;
    plugin.description = description;
    plugin.image = QImage(size, QImage::Format_ARGB32);
    plugin.image.fill(color);
    return plugin;
}

std::vector<PluginDescriptor> threePlugins()
{
    return {descriptor("Alpha", "The first framework.", Qt::red),
            descriptor("Beta", "The second framework.", Qt::green, QSize(200, 100)),
            descriptor("Gamma", "The third framework.", Qt::blue)};
}

QListWidget *list(PluginDialog &dialog)
{
    return dialog.findChild<QListWidget *>();
}

QLabel *textLabel(PluginDialog &dialog)
{
    for (QLabel *label : dialog.findChildren<QLabel *>())
        if (label->wordWrap())
            return label;
    return nullptr;
}

QLabel *imageLabel(PluginDialog &dialog)
{
    for (QLabel *label : dialog.findChildren<QLabel *>())
        if (!label->wordWrap())
            return label;
    return nullptr;
}

QColor shownColor(PluginDialog &dialog)
{
    return imageLabel(dialog)->pixmap(Qt::ReturnByValue).toImage().pixelColor(0, 0);
}

void clickRow(QListWidget *listWidget, int row)
{
    QRect const rect = listWidget->visualItemRect(listWidget->item(row));
    QTest::mouseClick(listWidget->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}

} // namespace

class tst_PluginDialog : public QObject
{
    Q_OBJECT

private slots:
    void layout();
    void selectionShowsTheDescription();
    void okTakesTheSelectedRow();
    void closingRefuses_data();
    void closingRefuses();
};

void tst_PluginDialog::layout()
{
    PluginDialog dialog(threePlugins());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));

    QCOMPARE(dialog.windowTitle(), QString("Framework Selection"));
    QCOMPARE(dialog.size(), QSize(780, 480));
    QCOMPARE(dialog.maximumSize(), QSize(780, 480));
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));

    // Ok is the only way out but closing.
    QList<QAbstractButton *> const buttons = dialog.findChild<QDialogButtonBox *>()->buttons();
    QCOMPARE(buttons.size(), 1);
    QCOMPARE(buttons.first()->text().remove('&'), QString("OK"));

    QListWidget *listWidget = list(dialog);
    QCOMPARE(listWidget->count(), 3);
    QStringList titles;
    for (int row = 0; row < listWidget->count(); ++row)
        titles.append(listWidget->item(row)->text());
    QCOMPARE(titles, QStringList({"Alpha", "Beta", "Gamma"}));
    QCOMPARE(listWidget->selectionMode(), QAbstractItemView::SingleSelection);

    // The first plug-in comes up selected and described.
    QCOMPARE(listWidget->selectedItems(), QList<QListWidgetItem *>({listWidget->item(0)}));
    QCOMPARE(textLabel(dialog)->text(), QString("The first framework."));
    QCOMPARE(imageLabel(dialog)->size(), QSize(100, 100));
    QCOMPARE(imageLabel(dialog)->pixmap(Qt::ReturnByValue).size(), QSize(100, 100));
    QCOMPARE(shownColor(dialog), QColor(Qt::red));
}

void tst_PluginDialog::selectionShowsTheDescription()
{
    PluginDialog dialog(threePlugins());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));

    clickRow(list(dialog), 2);
    QCOMPARE(textLabel(dialog)->text(), QString("The third framework."));
    QCOMPARE(shownColor(dialog), QColor(Qt::blue));

    // A wide picture fills the square and overflows it rather than leaving a border.
    clickRow(list(dialog), 1);
    QCOMPARE(textLabel(dialog)->text(), QString("The second framework."));
    QCOMPARE(imageLabel(dialog)->pixmap(Qt::ReturnByValue).size(), QSize(200, 100));
    QCOMPARE(shownColor(dialog), QColor(Qt::green));
}

void tst_PluginDialog::okTakesTheSelectedRow()
{
    PluginDialog dialog(threePlugins());
    QCOMPARE(dialog.selectedIndex(), -1);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));

    clickRow(list(dialog), 1);
    QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                      Qt::LeftButton);
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
    PluginDialog dialog(threePlugins());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    clickRow(list(dialog), 2);

    if (byEscape)
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else
        dialog.close();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(dialog.selectedIndex(), -1);
    QVERIFY(!dialog.isVisible());
}

QTEST_MAIN(tst_PluginDialog)
#include "tst_PluginDialog.moc"
