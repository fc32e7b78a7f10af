// SPDX-License-Identifier: MIT
#include "properties/AbstractFloatProperty.h"
#include "properties/Property.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "properties/PropertyValidator.h"
#include "properties/view/PropertyView.h"
#include "properties/view/PropertyViewBands.h"
#include "properties/view/PropertyViewNameCell.h"
#include "properties/view/PropertyViewValueCell.h"
#include "support/PropertyShowcase.h"
#include "support/RecordingPropertyListener.h"
#include "widgets/PlusExpandButton.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

#include <limits>

using namespace TES;
using TES::Test::PropertyShowcase;
using TES::Test::RecordingPropertyListener;

namespace {

constexpr auto Internal = PropertyChangeReason::ReasonInternal;

// Refuses one value.
class Refuse : public PropertyValidator
{
public:
    explicit Refuse(QVariant value) : _value(std::move(value)) {}
    bool validate(QVariant const &value) const override { return value != _value; }

private:
    QVariant _value;
};

// The showcase model on show in a view, with a listener registered after the view's.
struct Shown
{
    Shown()
    {
        PropertyShowcase::fill(model);
        view.setModel(&model);
        model.addListener(&listener);
        view.resize(400, 600);
        view.show();
        settle();
    }
    ~Shown() { view.setModel(nullptr); }

    static void settle()
    {
        // A layout pass may ask for one more when rows change size.
        for (int pass = 0; pass < 3; ++pass)
            QCoreApplication::processEvents();
    }
    PropertyViewNameCell *name(QString const &id) const
    {
        return dynamic_cast<PropertyViewNameCell *>(view._findCell(id));
    }
    // The editor widget in the value cell, whatever its type.
    QWidget *editor(QString const &id) const
    {
        return name(id)
            ->right()
            ->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)
            .value(0);
    }
    // What the value cell shows.
    QString shown(QString const &id) const
    {
        QWidget *widget = editor(id);
        if (auto *spin = qobject_cast<QAbstractSpinBox *>(widget))
            return spin->text();
        if (auto *line = qobject_cast<QLineEdit *>(widget))
            return line->text();
        if (auto *combo = qobject_cast<QComboBox *>(widget))
            return combo->currentText();
        if (auto *check = qobject_cast<QCheckBox *>(widget))
            return QString::number(check->checkState());
        if (auto *button = qobject_cast<QPushButton *>(widget))
            return button->text();
        return qobject_cast<QLabel *>(widget)->text();
    }
    // Performs "type:<text>" (select all, type, Return), "click" or "down" on the editor.
    void act(QString const &id, QString const &action) const
    {
        QWidget *widget = editor(id);
        if (action.startsWith("type:")) {
            QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(widget, action.mid(5));
            QTest::keyClick(widget, Qt::Key_Return);
        } else if (action == "click") {
            // At the left, where a check box has its indicator.
            QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(6, widget->height() / 2));
        } else if (action == "down") {
            QTest::keyClick(widget, Qt::Key_Down);
        }
    }
    int changesOf(QString const &id) const { return listener.words().count("value:" + id); }
    // The row of an item in a pane: its outermost widget, named after the id.
    static QWidget *row(QWidget *pane, QString const &id)
    {
        return pane->findChild<QWidget *>(id, Qt::FindDirectChildrenOnly);
    }
    // Top and height of the item's row, checked to be the same in both panes.
    QPair<int, int> place(QString const &id) const
    {
        QWidget *left = row(view.leftPane(), id);
        QWidget *right = row(view.rightPane(), id);
        if (left->geometry() != right->geometry())
            return {-1, -1};
        return {left->y(), left->height()};
    }

    PropertyModel model;
    PropertyView view;
    RecordingPropertyListener listener;
};

// Triggers an action of the context menu once it is up, and notes whether it was enabled.
void chooseInMenu(QString const &text, bool *enabled)
{
    QTimer::singleShot(0, [text, enabled] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *action : menu->actions()) {
            if (action->text() != text)
                continue;
            *enabled = action->isEnabled();
            if (action->isEnabled())
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
        if (menu->isVisible())
            menu->close();
    });
}

void middleDrag(QWidget *label, QList<int> const &moves)
{
    QPoint position(20, 5);
    QTest::mousePress(label, Qt::MiddleButton, {}, position);
    for (int move : moves) {
        position.rx() += move;
        QMouseEvent event(QEvent::MouseMove, position, label->mapToGlobal(position), Qt::NoButton,
                          Qt::MiddleButton, Qt::NoModifier);
        QApplication::sendEvent(label, &event);
    }
    QTest::mouseRelease(label, Qt::MiddleButton, {}, position);
}

} // namespace

class tst_PropertyView : public QObject
{
    Q_OBJECT

private slots:
    void editInCell_data();
    void editInCell();
    void refusedValueComesBack_data();
    void refusedValueComesBack();
    void dragAdjusts_data();
    void dragAdjusts();
    void resetToDefaultFromMenu();
    void collapseAndHide();
    void buttonRaisesAndWheelScrolls();
};

void tst_PropertyView::editInCell_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QVariant>("edited");
    QTest::addColumn<QVariant>("fromCode");
    QTest::addColumn<QString>("shown");

    QTest::newRow("integer") << "count"
                             << "type:42" << QVariant(42) << QVariant(7) << "7";
    QTest::newRow("float") << "ratio"
                           << "type:2.5" << QVariant(2.5f) << QVariant(3.25f) << "3.25";
    QTest::newRow("hex") << "mask"
                         << "type:AB" << QVariant(0xABu) << QVariant(0x10u) << "10";
    QTest::newRow("text") << "label"
                          << "type:World" << QVariant("World") << QVariant("Code") << "Code";
    QTest::newRow("combo") << "mode"
                           << "down" << QVariant(1) << QVariant(2) << "Off";
    QTest::newRow("boolean") << "enabled"
                             << "click" << QVariant(false) << QVariant(true)
                             << QString::number(Qt::Checked);
}

void tst_PropertyView::editInCell()
{
    QFETCH(QString, id);
    QFETCH(QString, action);
    QFETCH(QVariant, edited);
    QFETCH(QVariant, fromCode);
    QFETCH(QString, shown);
    Shown s;
    Property *property = s.model.property(id);

    s.act(id, action);
    QCOMPARE(property->getValue(), edited);
    QCOMPARE(s.changesOf(id), 1);
    QCOMPARE(s.listener.calls.last().reason, PropertyChangeReason::ReasonView);

    QVERIFY(property->setValue(fromCode, Internal));
    QCOMPARE(s.shown(id), shown);
    QCOMPARE(s.changesOf(id), 2);
}

void tst_PropertyView::refusedValueComesBack_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QVariant>("refused");
    QTest::addColumn<QString>("shown");

    QTest::newRow("integer, validator") << "count"
                                        << "type:13" << QVariant(13) << "10";
    QTest::newRow("text, validator") << "label"
                                     << "type:bad" << QVariant("bad") << "Hello";
    QTest::newRow("boolean, validator")
        << "enabled"
        << "click" << QVariant(false) << QString::number(Qt::Checked);
    // The float's smallest positive minimum shows as 0.00 in the spin box, and the property
    // refuses the 0 that the spin box lets through.
    QTest::newRow("float, limits") << "ratio"
                                   << "type:0" << QVariant() << "1.50";
}

void tst_PropertyView::refusedValueComesBack()
{
    QFETCH(QString, id);
    QFETCH(QString, action);
    QFETCH(QVariant, refused);
    QFETCH(QString, shown);
    Shown s;
    Property *property = s.model.property(id);
    Refuse validator(refused);
    if (refused.isValid())
        property->setValidator(&validator);
    else
        dynamic_cast<AbstractFloatProperty *>(property)->setMin(std::numeric_limits<float>::min());
    QVariant const before = property->getValue();

    s.act(id, action);
    QCOMPARE(property->getValue(), before);
    QCOMPARE(s.shown(id), shown);
    QCOMPARE(s.changesOf(id), 0);
}

void tst_PropertyView::dragAdjusts_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QList<int>>("moves");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("shown");

    QTest::newRow("integer") << "count" << QList<int>{5} << QVariant(15) << "15";
    QTest::newRow("integer, beyond the limits")
        << "count" << QList<int>{95} << QVariant(10) << "10";
    QTest::newRow("float") << "ratio" << QList<int>{3} << QVariant(4.5f) << "4.50";
    QTest::newRow("hex") << "mask" << QList<int>{-5} << QVariant(0xFFFAu) << "FFFA";
    QTest::newRow("boolean") << "enabled" << QList<int>{-5} << QVariant(false)
                             << QString::number(Qt::Unchecked);
    // Short moves keep the anchor: 5 and then 6 more make the 11 of one step.
    QTest::newRow("combo, short") << "mode" << QList<int>{5} << QVariant(0) << "Fast";
    QTest::newRow("combo, step") << "mode" << QList<int>{5, 6} << QVariant(1) << "Slow";
    QTest::newRow("button, no drag") << "run" << QList<int>{5} << QVariant("Run") << "Run";
}

void tst_PropertyView::dragAdjusts()
{
    QFETCH(QString, id);
    QFETCH(QList<int>, moves);
    QFETCH(QVariant, value);
    QFETCH(QString, shown);
    Shown s;

    middleDrag(s.name(id)->label(), moves);
    QCOMPARE(s.model.property(id)->getValue(), value);
    QCOMPARE(s.shown(id), shown);
}

void tst_PropertyView::resetToDefaultFromMenu()
{
    Shown s;
    Property *count = s.model.property("count");
    QLabel *label = s.name("count")->label();
    QVERIFY(!label->text().contains("<b>"));
    QCOMPARE(label->toolTip(), count->toolTip());

    QVERIFY(count->setValue(QVariant(50), Internal));
    QVERIFY(label->text().startsWith("<b>"));

    bool enabled = false;
    chooseInMenu("Reset to Default", &enabled);
    QTest::mouseClick(label, Qt::RightButton, {}, QPoint(10, 5));
    QVERIFY(enabled);
    QCOMPARE(count->getValue(), QVariant(10));
    QCOMPARE(s.shown("count"), QString("10"));
    QVERIFY(!label->text().contains("<b>"));

    // Without a default a property is always at it: the entry is off.
    enabled = true;
    chooseInMenu("Reset to Default", &enabled);
    QTest::mouseClick(s.name("mask")->label(), Qt::RightButton, {}, QPoint(10, 5));
    QVERIFY(!enabled);
}

void tst_PropertyView::collapseAndHide()
{
    Shown s;
    QWidget *left = s.view.leftPane();
    int const hint = left->sizeHint().height();
    // Bands and rows in one depth-first pass; the group starts closed.
    QCOMPARE(s.place("general"), qMakePair(0, 21));
    QCOMPARE(s.place("margins"), qMakePair(21 * 9, 21));
    QCOMPARE(s.place("left"), qMakePair(21 * 10, 0));
    QCOMPARE(s.place("notes"), qMakePair(21 * 10, 21));
    auto *group = dynamic_cast<GroupViewName *>(s.view._findCell("margins"));
    QCOMPARE(qobject_cast<QLabel *>(group->right()->findChild<QLabel *>())->text(),
             QString("[4,8]"));

    QTest::mouseClick(group->button(), Qt::LeftButton);
    s.settle();
    QVERIFY(s.model.group("margins")->getExpanded());
    QCOMPARE(s.place("left"), qMakePair(21 * 10, 21));
    QCOMPARE(s.place("right"), qMakePair(21 * 11, 21));
    QCOMPARE(s.place("notes"), qMakePair(21 * 12, 21));
    QCOMPARE(left->sizeHint().height(), hint + 42);
    s.model.property("left")->setValue(QVariant(5), Internal);
    QCOMPARE(group->right()->findChild<QLabel *>()->text(), QString("[5,8]"));

    auto *general = dynamic_cast<CategoryViewName *>(s.view._findCell("general"));
    QTest::mouseClick(general->button(), Qt::LeftButton);
    s.settle();
    QVERIFY(!s.model.category("general")->getExpanded());
    for (QString const &id : QStringList{"label", "count", "run", "margins", "left", "right"})
        QCOMPARE(s.place(id).second, 0);
    QCOMPARE(s.place("notes"), qMakePair(21, 21));
    QCOMPARE(left->sizeHint().height(), 21 * 3);

    QTest::mouseClick(general->button(), Qt::LeftButton);
    s.model.property("note")->setVisible(false);
    s.settle();
    QCOMPARE(s.place("count"), qMakePair(21 * 2, 21));
    QCOMPARE(s.place("note").second, 0);
    QCOMPARE(s.view.rightPane()->sizeHint().height(), hint + 42 - 21);
}

void tst_PropertyView::buttonRaisesAndWheelScrolls()
{
    Shown s;
    QTest::mouseClick(s.editor("run"), Qt::LeftButton);
    QCOMPARE(s.listener.words(), QStringList{"event:run"});

    QWidget *spin = s.editor("count");
    QPointF const centre = QRectF(spin->rect()).center();
    QWheelEvent wheel(centre, QPointF(spin->mapToGlobal(centre.toPoint())), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(spin, &wheel);
    QCOMPARE(s.shown("count"), QString("10"));
    QVERIFY(s.listener.words().count() == 1);
}

QTEST_MAIN(tst_PropertyView)
#include "tst_PropertyView.moc"
