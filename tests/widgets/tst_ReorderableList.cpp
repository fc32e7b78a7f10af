// SPDX-License-Identifier: MIT
#include "widgets/ListConfigureWidget.h"

#include <QListWidget>
#include <QToolBar>
#include <QtTest>

using namespace TES;

namespace {

// The items are letters, named in order of creation; a row shows its item's letter.
class Letters : public ReorderableListFactory, public ListConfigureItemFactory
{
public:
    void *createItem(ReorderableListModel *) override { return new QChar('A' + next++); }
    void destroyItem(void *item) override
    {
        destroyed += *static_cast<QChar *>(item);
        delete static_cast<QChar *>(item);
    }
    QListWidgetItem *createListItem(ListConfigureWidget *, unsigned int index) override
    {
        return new QListWidgetItem(QString(*static_cast<QChar *>(model->item(index))));
    }
    void destroyListItem(ListConfigureWidget *, QListWidgetItem *item) override { delete item; }

    ReorderableListModel *model = nullptr;
    char next = 0;
    QString destroyed;
};

enum Action { New = 0, Delete = 1, DeleteAll = 2, Up = 4, Top = 5, Down = 6, Bottom = 7 };

// A list editor shown with `count` items made through its New action.
struct Editor
{
    explicit Editor(int count)
    {
        letters.model = &model;
        widget.resize(300, 300);
        widget.show();
        for (int i = 0; i < count; ++i)
            click(New);
    }
    // The model outlives the widget here, so the widget has to leave it first.
    ~Editor() { model.removeListener(&widget); }

    QAction *action(Action which) { return toolBar->actions().at(which); }
    void click(Action which)
    {
        QTest::mouseClick(toolBar->widgetForAction(action(which)), Qt::LeftButton);
    }
    // A plain click on the first row, control-clicks on the others.
    void select(QList<unsigned int> const &rows)
    {
        for (unsigned int row : rows) {
            QRect const rect = list->visualItemRect(list->item(int(row)));
            QTest::mouseClick(list->viewport(), Qt::LeftButton,
                              row == rows.first() ? Qt::NoModifier : Qt::ControlModifier,
                              rect.center());
        }
    }
    QString order() const
    {
        QString letters;
        for (void *item : model.items())
            letters += *static_cast<QChar *>(item);
        return letters;
    }
    QString rows() const
    {
        QString texts;
        for (int row = 0; row < list->count(); ++row)
            texts += list->item(row)->text();
        return texts;
    }

    Letters letters;
    ReorderableListModel model{&letters};
    ListConfigureWidget widget{&model, &letters};
    QToolBar *toolBar = widget.findChild<QToolBar *>();
    QListWidget *list = widget.findChild<QListWidget *>();
};

} // namespace

class tst_ReorderableList : public QObject
{
    Q_OBJECT

private slots:
    void moves_data();
    void moves();
    void editing();
};

void tst_ReorderableList::moves_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<QList<unsigned int>>("selection");
    QTest::addColumn<bool>("canUp");
    QTest::addColumn<bool>("canDown");
    QTest::addColumn<QString>("order");
    QTest::addColumn<QList<unsigned int>>("selectedAfter");

    using L = QList<unsigned int>;
    // Of five items ABCDE. Up goes through the selection from the top, down from the bottom;
    // a block already packed against the end it moves to stays put.
    QTest::newRow("up contiguous") << int(Up) << L{1, 2} << true << true << "BCADE" << L{0, 1};
    QTest::newRow("up split touching top")
        << int(Up) << L{0, 1, 3} << true << true << "ABDCE" << L{0, 1, 2};
    QTest::newRow("up packed at top") << int(Up) << L{0, 1} << false << true << "ABCDE" << L{0, 1};
    QTest::newRow("down packed at bottom")
        << int(Down) << L{3, 4} << true << false << "ABCDE" << L{3, 4};
    // D goes first, then B.
    QTest::newRow("down split") << int(Down) << L{1, 3} << true << true << "ACBED" << L{2, 4};
    QTest::newRow("down split touching bottom")
        << int(Down) << L{1, 3, 4} << true << true << "ACBDE" << L{2, 3, 4};
    QTest::newRow("top split") << int(Top) << L{1, 3} << true << true << "BDACE" << L{0, 1};
    QTest::newRow("top touching top") << int(Top) << L{0, 2} << true << true << "ACBDE" << L{0, 1};
    QTest::newRow("top packed at top")
        << int(Top) << L{0, 1} << false << true << "ABCDE" << L{0, 1};
    QTest::newRow("bottom split") << int(Bottom) << L{1, 3} << true << true << "ACEBD" << L{3, 4};
    QTest::newRow("bottom touching bottom")
        << int(Bottom) << L{2, 4} << true << true << "ABDCE" << L{3, 4};
    QTest::newRow("bottom packed at bottom")
        << int(Bottom) << L{3, 4} << true << false << "ABCDE" << L{3, 4};
}

void tst_ReorderableList::moves()
{
    QFETCH(int, action);
    QFETCH(QList<unsigned int>, selection);
    QFETCH(bool, canUp);
    QFETCH(bool, canDown);
    QFETCH(QString, order);
    QFETCH(QList<unsigned int>, selectedAfter);

    Editor editor(5);
    editor.select(selection);
    QCOMPARE(editor.widget.selectedRows(), selection);
    QCOMPARE(editor.action(Up)->isEnabled(), canUp);
    QCOMPARE(editor.action(Top)->isEnabled(), canUp);
    QCOMPARE(editor.action(Down)->isEnabled(), canDown);
    QCOMPARE(editor.action(Bottom)->isEnabled(), canDown);

    editor.click(Action(action));
    QCOMPARE(editor.order(), order);
    QCOMPARE(editor.rows(), order);
    QCOMPARE(editor.widget.selectedRows(), selectedAfter);
}

void tst_ReorderableList::editing()
{
    Editor editor(0);
    QVERIFY(editor.action(New)->isEnabled());
    QVERIFY(!editor.action(Delete)->isEnabled());
    QVERIFY(!editor.action(DeleteAll)->isEnabled());

    // New selects the new row alone.
    QSignalSpy selectionChanged(&editor.widget, &ListConfigureWidget::selectionChanged);
    for (int i = 0; i < 5; ++i)
        editor.click(New);
    QCOMPARE(editor.rows(), QString("ABCDE"));
    QCOMPARE(editor.widget.selectedRows(), QList<unsigned int>({4}));
    QVERIFY(!selectionChanged.isEmpty());
    QVERIFY(editor.action(Delete)->isEnabled());

    editor.select({1, 3});
    editor.click(Delete);
    QCOMPARE(editor.order(), QString("ACE"));
    QCOMPARE(editor.rows(), QString("ACE"));
    QCOMPARE(editor.letters.destroyed, QString("DB"));
    QVERIFY(editor.widget.selectedRows().isEmpty());
    QVERIFY(!editor.action(Delete)->isEnabled());

    // Highest first: the repeated 3 deletes G, which moved into F's place.
    editor.click(New);
    editor.click(New);
    editor.model.deleteItems({3, 1, 3});
    QCOMPARE(editor.order(), QString("AE"));
    QCOMPARE(editor.rows(), QString("AE"));
    QCOMPARE(editor.letters.destroyed, QString("DBFGC"));

    // A press beside the rows, at the tool bar's right end, clears the selection.
    editor.select({0, 1});
    QTest::mouseClick(editor.toolBar, Qt::LeftButton, Qt::NoModifier,
                      QPoint(editor.toolBar->width() - 1, editor.toolBar->height() / 2));
    QVERIFY(editor.widget.selectedRows().isEmpty());
    QCOMPARE(editor.list->currentRow(), -1);

    editor.click(DeleteAll);
    QVERIFY(editor.model.items().isEmpty());
    QCOMPARE(editor.list->count(), 0);
    QCOMPARE(editor.letters.destroyed, QString("DBFGCAE"));
    QVERIFY(editor.action(New)->isEnabled());
    QVERIFY(!editor.action(Delete)->isEnabled());
    QVERIFY(!editor.action(DeleteAll)->isEnabled());
}

QTEST_MAIN(tst_ReorderableList)
#include "tst_ReorderableList.moc"
