// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "properties/AbstractBooleanProperty.h"
#include "scene/SceneManager.h"
#include "scene/SceneObject.h"
#include "scene/SelectionManager.h"
#include "support/ModalAnswerer.h"
#include "support/RecordingHandler.h"
#include "support/TestContainer.h"
#include "support/TestScene.h"
#include "support/TestScreen.h"
#include "windows/ScreenTree.h"
#include "windows/ScreenTreeDragDropInterface.h"
#include "windows/ScreenTreeStyleManipulator.h"
#include "windows/ScreenTreeWindow.h"
#include "windows/ScreenTreeWindowStateListener.h"

#include <QAction>
#include <QMimeData>
#include <QToolBar>
#include <QtTest>

#include <memory>

using namespace TES;
using namespace TES::Test;

namespace {

QUuid id(QString const &name)
{
    return SceneManager::i().findObjectByName(name).toStrongRef()->id();
}

QString name(QUuid const &id)
{
    auto object = SceneManager::i().getObject(id).toStrongRef();
    return object ? object->getName() : QString("?");
}

QString names(QList<QUuid> const &ids, bool sorted = false)
{
    QStringList list;
    for (QUuid const &id : ids)
        list.append(name(id));
    if (sorted)
        list.sort();
    return list.join(' ');
}

QList<QUuid> ids(QString const &names)
{
    QList<QUuid> list;
    for (QString const &name : names.split(' ', Qt::SkipEmptyParts))
        list.append(id(name));
    return list;
}

// "A(a1 a2) r3": the tree's items, or the scene's objects, with children in brackets.
QString nested(QString const &name, QStringList const &children)
{
    return name + (children.isEmpty() ? "" : "(" + children.join(' ') + ")");
}

QString itemText(QTreeWidgetItem *item)
{
    QStringList children;
    for (int index = 0; index < item->childCount(); ++index)
        children.append(itemText(item->child(index)));
    return nested(item->text(0), children);
}

QString objectText(QUuid const &id)
{
    QStringList children;
    for (QUuid const &child : SceneManager::i().getObject(id).toStrongRef()->children(false))
        children.append(objectText(child));
    return nested(name(id), children);
}

// Handlers raise from inside deliveries; those events wait for the next pump.
void flush()
{
    for (int pump = 0; pump < 3; ++pump)
        EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_USER, 0));
}

struct Listener : ScreenTreeWindowStateListener
{
    void stateRefreshed(QList<QUuid> selected) override { calls.append(names(selected)); }
    QStringList calls;
};

struct Styler : ScreenTreeStyleManipulator
{
    void styleItem(QTreeWidgetItem *, QUuid const &id) override { styled.append(name(id)); }
    QStringList styled;
};

// Accepts or refuses everything; a drop moves the items into the target container.
struct DragDrop : ScreenTreeDragDropInterface
{
    bool canDrop(QUuid const &target, QList<QUuid> items) override
    {
        calls.append("canDrop " + name(target) + ": " + names(items, true));
        return accept;
    }
    void drop(QUuid const &target, QList<QUuid> items) override
    {
        calls.append("drop " + name(target) + ": " + names(items, true));
        for (QUuid const &item : items)
            TestScene::container(target)->addChild(item, 0xFFFFFFFF);
    }
    bool canDrag(QList<QUuid> items) override
    {
        calls.append("canDrag " + names(items, true));
        return accept;
    }
    bool accept = true;
    QStringList calls;
};

} // namespace

class tst_ScreenTree : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void clicksAndSelectionsInStep();
    void toolBarActions_data();
    void toolBarActions();
    void followsTheScene();
    void dragAndDrop();

private:
    QString _treeText() const;
    QString _sceneText() const;
    QString _shownSelection() const;
    QString _enabled() const;
    void _click(QString const &name, Qt::KeyboardModifiers modifiers = {},
                Qt::MouseButton button = Qt::LeftButton);
    // Sends the event to the viewport with the data the tree itself gives a drag.
    template<typename DragEvent>
    bool _drag(QPoint const &position, QString const &text = "ScreenTree");
    QPoint _at(QString const &name) const;

    std::unique_ptr<ScreenTreeWindow> _window;
    ScreenTree *_tree = nullptr;
    QUuid _main;
    QUuid _other;
};

void tst_ScreenTree::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
    new SelectionManager();
    TestScene::registerFactories();
    _main = TestScene::addScreen("main");
    _other = TestScene::addScreen("other");
    QUuid const a = TestScene::addContainer(_main, QRect(0, 0, 200, 100), "A");
    for (QString const leaf : {"a1", "a2", "a3"})
        TestScene::addLeaf(a, QRect(5, 5, 20, 20), leaf);
    QUuid const b = TestScene::addContainer(_main, QRect(0, 120, 200, 100), "B");
    TestScene::addLeaf(b, QRect(5, 5, 20, 20), "b1");
    TestScene::addLeaf(b, QRect(5, 5, 20, 20), "b2");
    TestScene::addLeaf(_main, QRect(300, 20, 50, 50), "r3");
    TestScene::addLeaf(_other, QRect(0, 0, 50, 50), "o1");
    SceneManager::i().setScreenVisible(_main, true); // the first shown becomes active
    _window = std::make_unique<ScreenTreeWindow>();
    _tree = _window->tree();
    _window->resize(240, 400);
    _window->show();
    QVERIFY(QTest::qWaitForWindowExposed(_window.get()));
}

void tst_ScreenTree::cleanup()
{
    _window.reset();
    SelectionManager::destroy();
    SceneManager::destroy();
    EventBus::destroy();
}

void tst_ScreenTree::clicksAndSelectionsInStep()
{
    QCOMPARE(_treeText(), QString("A(a1 a2 a3) B(b1 b2) r3"));
    QTreeWidgetItem *a1 = _tree->findItem(id("a1"));
    QCOMPARE(a1->data(0, Qt::UserRole).toUuid(), id("a1"));
    QVERIFY(!a1->icon(0).isNull());
    QVERIFY(!ScreenTree::LockedIcon().isNull() && !ScreenTree::HiddenIcon().isNull());
    Listener listener;
    _window->setListener(&listener);
    QCOMPARE(listener.calls, QStringList({""}));
    RecordingHandler recorder(EVM_SELECT);

    Qt::KeyboardModifiers const shift = Qt::ShiftModifier;
    Qt::KeyboardModifiers const control = Qt::ControlModifier;
    struct Step
    {
        char const *item;
        Qt::KeyboardModifiers modifiers;
        char const *selection;
        int events;
    };
    // Shift adds, Control removes, both flip; a plain click replaces, in one event however
    // many objects it drops.
    QList<Step> const steps = {{"a1", {}, "a1", 1},
                               {"a2", shift, "a1 a2", 1},
                               {"b1", shift, "a1 a2 b1", 1},
                               {"a1", control, "a2 b1", 1},
                               {"a1", control, "a2 b1", 0},
                               {"a2", shift | control, "b1", 1},
                               {"a2", shift | control, "b1 a2", 1},
                               {"r3", {}, "r3", 1},
                               {"a1", {}, "a1", 1}};
    for (Step const &step : steps) {
        recorder.clear();
        _click(step.item, step.modifiers);
        QCOMPARE(names(SelectionManager::i().selected()), QString(step.selection));
        QCOMPARE(_shownSelection(), names(ids(step.selection), true));
        QCOMPARE(recorder.types().count(EVT_SELECT_CHANGED), step.events);
        QCOMPARE(listener.calls.last(), QString(step.selection));
    }
    // The right button selects nothing; a click on empty space clears.
    _click("b2", {}, Qt::RightButton);
    QCOMPARE(names(SelectionManager::i().selected()), QString("a1"));
    recorder.clear();
    QTest::mouseClick(_tree->viewport(), Qt::LeftButton, {},
                      QPoint(5, _tree->viewport()->height() - 5));
    QVERIFY(SelectionManager::i().selected().isEmpty());
    QCOMPARE(_shownSelection(), QString());
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_SELECT_CHANGED}));

    // A selection made elsewhere shows, the first item current; one selected anew stays.
    SelectionManager::i().select(ids("a3 b2"));
    QCOMPARE(_shownSelection(), QString("a3 b2"));
    QCOMPARE(_tree->currentItem()->text(0), QString("a3"));
    SelectionManager::i().select(ids("b2 r3"));
    QCOMPARE(_shownSelection(), QString("b2 r3"));
    // ... and is scrolled to.
    SelectionManager::i().deselectAll();
    _window->resize(240, 90);
    QCoreApplication::processEvents();
    _tree->scrollToTop();
    SelectionManager::i().select(id("r3"));
    QVERIFY(_tree->viewport()->rect().contains(_tree->visualItemRect(_tree->findItem(id("r3")))));
    _window->setListener(nullptr);
}

void tst_ScreenTree::toolBarActions_data()
{
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("action");
    // Delete, up, to top, down, to bottom.
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<QString>("after");

    auto row = [](char const *tag, char const *selection, char const *action, char const *enabled,
                  char const *after) {
        QTest::newRow(tag) << QString(selection) << QString("actionMove_") + action
                           << QString(enabled) << QString(after);
    };
    // clang-format off
    row("first down", "a1", "Down", "10011", "A(a2 a1 a3) B(b1 b2) r3");
    row("last up", "a3", "Up", "11100", "A(a1 a3 a2) B(b1 b2) r3");
    row("middle to top", "a2", "ToTop", "11111", "A(a2 a1 a3) B(b1 b2) r3");
    row("first two to bottom", "a1 a2", "ToBottom", "10011", "A(a3 a1 a2) B(b1 b2) r3");
    row("last two up", "a2 a3", "Up", "11100", "A(a2 a3 a1) B(b1 b2) r3");
    row("last two to top", "a3 a2", "ToTop", "11100", "A(a2 a3 a1) B(b1 b2) r3");
    // Roots move along with objects below them, as the objects allow.
    row("root and child up", "B a2", "Up", "11111", "B(b1 b2) A(a2 a1 a3) r3");
    row("last root and child to bottom", "A a2", "ToBottom", "11111", "B(b1 b2) r3 A(a1 a3 a2)");
    // Every parent's group must be able to move: one at the top, one at the bottom.
    row("groups at both ends", "a1 b2", "Up", "10000", "A(a1 a2 a3) B(b1 b2) r3");
    row("roots alone", "A r3", "Up", "10000", "A(a1 a2 a3) B(b1 b2) r3");
    // clang-format on
}

void tst_ScreenTree::toolBarActions()
{
    QFETCH(QString, selection);
    QFETCH(QString, action);
    QFETCH(QString, enabled);
    QFETCH(QString, after);

    QCOMPARE(_enabled(), QString("00000"));
    QStringList const items = selection.split(' ');
    for (int index = 0; index < items.size(); ++index)
        _click(items.at(index), index == 0 ? Qt::NoModifier : Qt::ShiftModifier);
    QCOMPARE(_enabled(), enabled);

    RecordingHandler recorder(EVM_SELECT);
    auto *button = _window->toolBar()->widgetForAction(_window->findChild<QAction *>(action));
    QTest::mouseClick(button, Qt::LeftButton);
    flush();
    QCOMPARE(_sceneText(), after);
    QCOMPARE(_treeText(), after);
    // The moved items stay selected, and the selection itself did not change.
    QCOMPARE(_shownSelection(), names(ids(selection), true));
    QCOMPARE(recorder.types().count(EVT_SELECT_CHANGED), 0);
}

void tst_ScreenTree::followsTheScene()
{
    // Keys move the current item without selecting. Closed by the user at its branch mark,
    // the object keeps it.
    _click("a1");
    QTest::keyClick(_tree, Qt::Key_Down);
    QCOMPARE(_tree->currentItem()->text(0), QString("a2"));
    QRect const row = _tree->visualItemRect(_tree->findItem(id("A")));
    QTest::mouseClick(_tree->viewport(), Qt::LeftButton, {},
                      QPoint(row.left() - _tree->indentation() / 2, row.center().y()));
    QVERIFY(!_tree->findItem(id("A"))->isExpanded());
    QVERIFY(!AbstractBooleanProperty::Get(TestScene::object(id("A"))->model(), "editorExpanded"));
    QCOMPARE(names(SelectionManager::i().selected()), QString("a1"));

    TestContainer *a = TestScene::container(id("A"));
    TestContainer *b = TestScene::container(id("B"));
    TestScreen *main = TestScene::screen(_main);
    TestScene::addLeaf(id("A"), QRect(), "a4");
    a->moveChild(id("a3"), 0);
    b->addChild(id("a1"), 0);
    main->moveRoot(id("r3"), 0);
    TestScene::object(id("a2"))->setName("two");
    flush();
    QCOMPARE(_treeText(), QString("r3 A(a3 two a4) B(a1 b1 b2)"));
    QCOMPARE(_sceneText(), _treeText());
    QVERIFY(_tree->findItem(id("A"))->isExpanded()); // opened for the new child
    QCOMPARE(_shownSelection(), QString("a1"));

    // Delete on its release, after a confirmation; a root through its screen.
    _click("two");
    _click("r3", Qt::ShiftModifier);
    {
        ModalAnswerer answers({"No", "Yes"});
        QTest::keyClick(_tree, Qt::Key_Delete);
        QCOMPARE(_treeText(), QString("r3 A(a3 two a4) B(a1 b1 b2)"));
        QTest::keyClick(_tree, Qt::Key_Delete);
        QCOMPARE(answers.seen.first(),
                 QString("Confirm Delete Objects | Are you sure you want to delete the selected "
                         "objects?  This can not be undone. | Delete selected objects?"));
        QCOMPARE(answers.remaining(), QStringList());
    }
    flush();
    QCOMPARE(_treeText(), QString("A(a3 a4) B(a1 b1 b2)"));
    QCOMPARE(_sceneText(), _treeText());
    QVERIFY(SelectionManager::i().selected().isEmpty());
    QCOMPARE(_enabled(), QString("00000"));

    // Another screen shows its own tree; the one left changes unseen, and is built anew on
    // return, its items open or closed as their objects say.
    Styler styler;
    _tree->setStyleManipulator(&styler);
    _click("a3");
    SceneManager::i().setActiveScreen(_other);
    QCOMPARE(_treeText(), QString("o1"));
    QVERIFY(SelectionManager::i().selected().isEmpty());
    TestScene::addLeaf(_main, QRect(), "late");
    a->moveChild(id("a4"), 0);
    QCOMPARE(_treeText(), QString("o1"));
    SceneManager::i().setActiveScreen(_main);
    QCOMPARE(_treeText(), QString("A(a4 a3) B(a1 b1 b2) late"));
    _tree->findItem(id("B"))->setExpanded(false);
    SceneManager::i().setActiveScreen(QUuid());
    QCOMPARE(_tree->topLevelItemCount(), 0);
    SceneManager::i().setActiveScreen(_main);
    QVERIFY(_tree->findItem(id("A"))->isExpanded());
    QVERIFY(!_tree->findItem(id("B"))->isExpanded());
    QCOMPARE(styler.styled.join(' '),
             QString("o1 A a4 a3 B a1 b1 b2 late A a4 a3 B a1 b1 b2 late"));
    styler.styled.clear();
    _tree->refreshStyle();
    QCOMPARE(styler.styled.join(' '), QString("A a4 a3 B a1 b1 b2 late"));
    _tree->setStyleManipulator(nullptr);
}

void tst_ScreenTree::dragAndDrop()
{
    // Drag events as the drag goes on, to the viewport.
    _click("a2");
    _click("a3", Qt::ShiftModifier);
    DragDrop dragDrop;
    QVERIFY(!_drag<QDragEnterEvent>(_at("a2")));
    _tree->setDragDropInterface(&dragDrop);
    QVERIFY(!_drag<QDragEnterEvent>(_at("a2"), "ToolBox"));
    QVERIFY(dragDrop.calls.isEmpty());

    QVERIFY(_drag<QDragEnterEvent>(_at("a2")));
    QVERIFY(_drag<QDragMoveEvent>(_at("B")));
    QCOMPARE(_tree->findItem(id("B"))->background(0).color(), QColor(Qt::yellow));
    QCOMPARE(_tree->findItem(id("A"))->background(0).color(), QColor(Qt::white));
    dragDrop.accept = false;
    QVERIFY(!_drag<QDragMoveEvent>(_at("r3")));
    QCOMPARE(_tree->findItem(id("B"))->background(0).color(), QColor(Qt::yellow));
    QVERIFY(!_drag<QDragEnterEvent>(_at("a2")));
    QCOMPARE(dragDrop.calls, QStringList({"canDrag a2 a3", "canDrop B: a2 a3", "canDrop r3: a2 a3",
                                          "canDrag a2 a3"}));

    // The view moves nothing itself: the items go where the scene's events say.
    dragDrop.calls.clear();
    QVERIFY(!_drag<QDropEvent>(_at("B")));
    flush();
    QCOMPARE(dragDrop.calls, QStringList({"drop B: a2 a3"}));
    QCOMPARE(_treeText(), _sceneText());
    QVERIFY(_treeText().contains("B(b1 b2 a"));
    QCOMPARE(_tree->findItem(id("B"))->background(0).color(), QColor(Qt::white));
    QCOMPARE(_shownSelection(), QString("a2 a3"));

    // A drop on empty space only clears the mark.
    dragDrop.accept = true;
    QVERIFY(_drag<QDragEnterEvent>(_at("r3")));
    QVERIFY(_drag<QDragMoveEvent>(_at("r3")));
    dragDrop.calls.clear();
    QVERIFY(!_drag<QDropEvent>(QPoint(5, _tree->viewport()->height() - 5)));
    QVERIFY(dragDrop.calls.isEmpty());
    QCOMPARE(_tree->findItem(id("r3"))->background(0).color(), QColor(Qt::white));
    _tree->setDragDropInterface(nullptr);
}

QString tst_ScreenTree::_treeText() const
{
    QStringList roots;
    for (int index = 0; index < _tree->topLevelItemCount(); ++index)
        roots.append(itemText(_tree->topLevelItem(index)));
    return roots.join(' ');
}

QString tst_ScreenTree::_sceneText() const
{
    QStringList roots;
    for (QUuid const &root : TestScene::screen(_main)->roots())
        roots.append(objectText(root));
    return roots.join(' ');
}

QString tst_ScreenTree::_shownSelection() const
{
    QList<QUuid> shown;
    for (QTreeWidgetItem *item : _tree->selectedItems())
        shown.append(item->data(0, Qt::UserRole).toUuid());
    return names(shown, true);
}

QString tst_ScreenTree::_enabled() const
{
    QString flags;
    for (QAction *action :
         {_window->deleteButton(), _window->moveUpButton(), _window->moveToTopButton(),
          _window->moveDownButton(), _window->moveToBottomButton()})
        flags += action->isEnabled() ? '1' : '0';
    return flags;
}

QPoint tst_ScreenTree::_at(QString const &name) const
{
    QTreeWidgetItem *item = _tree->findItem(id(name));
    return item ? _tree->visualItemRect(item).center() : QPoint(-1, -1);
}

void tst_ScreenTree::_click(QString const &name, Qt::KeyboardModifiers modifiers,
                            Qt::MouseButton button)
{
    QTest::mouseClick(_tree->viewport(), button, modifiers, _at(name));
}

template<typename DragEvent>
bool tst_ScreenTree::_drag(QPoint const &position, QString const &text)
{
    std::unique_ptr<QMimeData> data(_tree->mimeData({}));
    if (data->text() != text)
        data->setText(text);
    DragEvent event(position, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(_tree->viewport(), &event);
    return event.isAccepted();
}

QTEST_MAIN(tst_ScreenTree)
#include "tst_ScreenTree.moc"
