// SPDX-License-Identifier: MIT
#include "widgets/ExpandButtonWidget.h"
#include "widgets/ExpandGridLayout.h"
#include "widgets/PlusExpandButton.h"
#include "widgets/RollupContainerWidget.h"

#include <QtTest>

using namespace TES;

class tst_Rollup : public QObject
{
    Q_OBJECT

private slots:
    void plusButtonToggles();
    void rollupFoldsAndUnfolds();
    void gridChoosesColumns_data();
    void gridChoosesColumns();
};

void tst_Rollup::plusButtonToggles()
{
    PlusExpandButton button;
    QSignalSpy spy(&button, &PlusExpandButton::expanded);
    QTest::mouseClick(&button, Qt::RightButton);
    QVERIFY(spy.isEmpty());
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
    QVERIFY(!button.getExpanded());
    QCOMPARE(button.size(), QSize(14, 14));
}

void tst_Rollup::rollupFoldsAndUnfolds()
{
    RollupContainerWidget rollup("Section");
    auto *content = new QWidget();
    content->setFixedHeight(60);
    rollup.setContent(content);
    rollup.resize(200, 80);
    rollup.show();
    QWidget *container = rollup.findChild<QWidget *>("container");
    QTRY_COMPARE(container->height(), 60);

    auto *button = rollup.findChild<ExpandButtonWidget *>("pushButton");
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!button->getExpanded());
    QTRY_COMPARE(container->height(), 0);
    // The widget's own flag never moves: the layout holds the state.
    QVERIFY(rollup.isExpanded());

    QTest::mouseClick(button, Qt::LeftButton);
    QTRY_COMPARE(container->height(), 60);
    QCOMPARE(rollup.findChild<QWidget *>("header")->geometry(), QRect(0, 0, 200, 20));
}

void tst_Rollup::gridChoosesColumns_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("parentWidth");
    QTest::addColumn<int>("columns");

    // Items 50 wide.
    QTest::newRow("one item takes the width") << 1 << 300 << 1;
    QTest::newRow("two of half the width") << 2 << 100 << 2;
    QTest::newRow("a pixel less") << 2 << 99 << 1;
    QTest::newRow("wraps") << 5 << 160 << 3;
    QTest::newRow("all in a row") << 5 << 400 << 5;
}

void tst_Rollup::gridChoosesColumns()
{
    QFETCH(int, items);
    QFETCH(int, parentWidth);
    QFETCH(int, columns);
    QWidget parent;
    parent.resize(parentWidth, 200);
    auto *grid = new ExpandGridLayout(&parent);
    QList<QWidget *> buttons;
    for (int index = 0; index < items; ++index) {
        auto *button = new QWidget(&parent);
        button->setMinimumSize(50, 22);
        grid->addWidget(button);
        buttons.append(button);
    }
    grid->invalidate();
    grid->setGeometry(QRect(0, 0, parentWidth, 200));
    int const rows = (items + columns - 1) / columns;
    QCOMPARE(grid->sizeHint().height(), rows * 22);
    int const cell = qMax(parentWidth / columns, grid->sizeHint().width() / columns);
    QCOMPARE(buttons.last()->geometry(),
             QRect(((items - 1) % columns) * cell, ((items - 1) / columns) * 22, cell, 22));

    while (QLayoutItem *item = grid->takeAt(0))
        delete item;
    QCOMPARE(grid->sizeHint(), QSize(0, 0));
}

QTEST_MAIN(tst_Rollup)
#include "tst_Rollup.moc"
