// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "events/SceneChangeEvent.h"
#include "scene/SceneManager.h"
#include "support/RecordingHandler.h"
#include "support/Services.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"

#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

constexpr unsigned int Unset = 0xFFFFFFFF;

using MoveLog = QList<QPair<QUuid, unsigned int>>;

} // namespace

// The tree used by the walks, with the names in brackets:
//
//   R [R]
//   +- A [A]            container
//   |  +- A1 [twin]     leaf
//   |  +- A2 [A2]       container
//   |     +- A2a [dup]  leaf
//   +- B [twin]         leaf
//   +- C [C]            container
//      +- C1 [dup]      leaf
class tst_SceneObject : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void walks();
    void ancestry();
    void addAndRemoveChildren();
    void reorderingsAndTheirGuards();
    void testSceneRaisesTreeEvents();

private:
    // Four leaves a, b, c, d in one container, and the loose leaf x; answers the container.
    TestContainer *_fourChildren();
    QString _order(TestContainer *container) const;
    QList<QUuid> _ids(QString const &names) const;

    QUuid R, A, A1, A2, A2a, B, C, C1;
    QHash<QUuid, QString> _names;
    std::optional<Services> _services;
};

void tst_SceneObject::init()
{
    _services.emplace(Services::Bus | Services::Scene);
    QRect const box(0, 0, 10, 10);
    R = TestScene::addContainer(QUuid(), box, "R");
    A = TestScene::addContainer(R, box, "A");
    A1 = TestScene::addLeaf(A, box, "twin");
    A2 = TestScene::addContainer(A, box, "A2");
    A2a = TestScene::addLeaf(A2, box, "dup");
    B = TestScene::addLeaf(R, box, "twin");
    C = TestScene::addContainer(R, box, "C");
    C1 = TestScene::addLeaf(C, box, "dup");
}

void tst_SceneObject::cleanup()
{
    _services.reset();
    _names.clear();
}

TestContainer *tst_SceneObject::_fourChildren()
{
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    for (QString const name : {"a", "b", "c", "d"})
        _names.insert(TestScene::addLeaf(group, QRect(), name), name);
    _names.insert(TestScene::addLeaf(QUuid(), QRect()), "x");
    return TestScene::container(group);
}

QString tst_SceneObject::_order(TestContainer *container) const
{
    QString order;
    for (QUuid const &id : container->children(false))
        order += _names.value(id, "?");
    return order;
}

QList<QUuid> tst_SceneObject::_ids(QString const &names) const
{
    QList<QUuid> ids;
    for (QChar const name : names)
        ids.append(_names.key(name));
    return ids;
}

void tst_SceneObject::walks()
{
    SceneObject *root = TestScene::object(R);
    QCOMPARE(root->indexOfChild(C, false), 2);
    QCOMPARE(root->indexOfChild(A1, false), -1);
    QCOMPARE(root->childAt(3, false), QUuid());
    // The base's root() is the object itself, whatever the tree.
    QCOMPARE(TestScene::object(A2a)->root(), A2a);
    QCOMPARE(root->childPointer(C1), TestScene::object(C1));
    QCOMPARE(root->childPointer(QUuid::createUuid()), nullptr);

    QVERIFY(!root->hasChild(A2a, false));
    QVERIFY(root->hasChild(A2a, true));
    QVERIFY(!root->hasChild(R, true));
    QVERIFY(root->hasChildNamed("dup", true));
    QVERIFY(!root->hasChildNamed("DUP", true));
    // B is a direct child and wins over A1 in the earlier subtree.
    QCOMPARE(root->childWithName("twin", true), B);
    // Below the first level the walk is per object: A's subtree goes before C, so the deeper A2a is
    // found before C1.
    QCOMPARE(root->childWithName("dup", true), A2a);
    QCOMPARE(root->childWithName("dup", false), QUuid());

    // Direct matches first, then each child's own matches in turn: not tree order.
    QCOMPARE(root->childrenOfType(TestLeaf::Type(), true), QList<QUuid>({B, A1, A2a, C1}));
    QCOMPARE(root->childrenOfType(TestContainer::Type(), false), QList<QUuid>({A, C}));
    // Names, however, come depth first.
    QCOMPARE(root->childrenNames(true),
             QStringList({"A", "twin", "A2", "dup", "twin", "C", "dup"}));

    // Depth-first pre-order, the object itself not counted.
    QList<QUuid> const preOrder{A, A1, A2, A2a, B, C, C1, QUuid()};
    for (unsigned int index = 0; index < 8; ++index)
        QCOMPARE(root->childAt(index, true), preOrder.at(int(index)));
    QCOMPARE(root->childAt(Unset, true), QUuid());
}

void tst_SceneObject::ancestry()
{
    SceneObject *root = TestScene::object(R);
    SceneObject *deep = TestScene::object(A2a);
    QVERIFY(root->isAncestorOf(A2a));
    QVERIFY(!TestScene::object(A)->isAncestorOf(C1));
    QVERIFY(!deep->isAncestorOf(R));
    QVERIFY(!root->isAncestorOf(R));
    QVERIFY(!root->isAncestorOf(QUuid::createUuid()));
    QVERIFY(deep->isDescendantOf(R));
    QVERIFY(!deep->isDescendantOf(C));
    QVERIFY(!deep->isDescendantOf(A2a));
    QVERIFY(!root->isDescendantOf(A));
    QVERIFY(!deep->isDescendantOf(QUuid::createUuid()));

    // Lists: all must hold, not any; an empty list, or one naming the object itself, is false.
    QVERIFY(root->isAncestorOf(QList<QUuid>{A1, C1, B}));
    QVERIFY(!root->isAncestorOf(QList<QUuid>()));
    QVERIFY(!TestScene::object(A)->isAncestorOf(QList<QUuid>{A1, C1}));
    QVERIFY(!root->isAncestorOf(QList<QUuid>{A1, R}));
    QVERIFY(deep->isDescendantOf(QList<QUuid>{R, A, A2}));
    QVERIFY(!deep->isDescendantOf(QList<QUuid>()));
    QVERIFY(!deep->isDescendantOf(QList<QUuid>{R, A2a}));
    QVERIFY(!deep->isDescendantOf(QList<QUuid>{R, C}));
}

void tst_SceneObject::addAndRemoveChildren()
{
    TestContainer *container = _fourChildren();
    QUuid const y = TestScene::addLeaf(QUuid(), QRect());
    _names.insert(y, "y");

    // The index is ignored: addChild is asked for 0, then 1.
    container->addChildren(_ids("xy"), 5);
    QCOMPARE(_order(container), QString("xyabcd"));

    // Unlike its pair, removeChildren does nothing at all.
    RecordingHandler recorder(EVM_SCENE);
    container->removeChildren(container->children(false));
    QCOMPARE(_order(container), QString("xyabcd"));
    QVERIFY(recorder.events.isEmpty());
}

void tst_SceneObject::reorderingsAndTheirGuards()
{
    // Each operation reaches its own reordering of the children. The first child is not guarded:
    // moveChild is asked for 0xFFFFFFFF, and survives it.
    TestContainer *container = _fourChildren();
    QList<QUuid> const ids = container->children(false);
    QUuid const a = ids.at(0), b = ids.at(1), c = ids.at(2), d = ids.at(3);
    container->raiseChild(a);
    container->raiseChild(c);
    container->raiseChildToTop(d);
    container->lowerChild(a);
    container->lowerChildToBottom(d);
    container->raiseChildren({b});
    container->raiseChildrenToTop({a});
    container->lowerChildren({c});
    container->lowerChildrenToBottom({a});
    QCOMPARE(container->moveLog,
             MoveLog({{a, Unset}, {c, 1}, {d, 0}, {a, 2}, {d, 3}, {b, 1}, {a, 0}, {c, 2}, {a, 3}}));
    QCOMPARE(_order(container), QString("bcda"));

    // A stranger in the list answers false at once.
    QUuid const stranger = _names.key("x");
    QVERIFY(!container->childrenCanMoveUp({c, stranger}));
    QVERIFY(!container->childrenCanMoveDown({b, stranger}));
    QVERIFY(container->childrenCanMoveUp({d, a}) && !container->childrenCanMoveDown({d, a}));
}

void tst_SceneObject::testSceneRaisesTreeEvents()
{
    RecordingHandler recorder(EVM_SCENE);
    TestContainer *root = TestScene::container(R);
    TestContainer *other = TestScene::container(C);

    // Each pair: the first while the tree is unchanged, the second after the change.
    QList<int> placesSeen;
    recorder.onEvent
        = [&](QSharedPointer<Event> const &) { placesSeen.append(root->indexOfChild(B, false)); };
    root->moveChild(B, 0);
    QCOMPARE(recorder.types(),
             QList<unsigned long long>({EVT_SCENE_CHILDABOUTTOMOVE, EVT_SCENE_CHILDMOVED}));
    QCOMPARE(placesSeen, QList<int>({1, 0}));
    auto moved = recorder.events.at(1).staticCast<SceneChangeEvent>();
    QCOMPARE(moved->infoAt(0).id(), R);
    QCOMPARE(moved->infoAt(1).parentIndex(), 0);

    recorder.clear();
    recorder.onEvent = nullptr;
    other->addChild(B, 0);
    QCOMPARE(recorder.types(), QList<unsigned long long>(
                                   {EVT_SCENE_CHILDABOUTTOREPARENT, EVT_SCENE_CHILDREPARENTED}));
    auto reparented = recorder.events.at(1).staticCast<SceneChangeEvent>();
    QCOMPARE(reparented->parentInfo().id(), R);
    QCOMPARE(reparented->childInfo().parentIndex(), 0);
    QCOMPARE(reparented->newParentInfo().id(), C);
    QCOMPARE(reparented->infoAt(3).id(), QUuid()); // out of range: a default info
    QCOMPARE(TestScene::object(B)->parent(), C);
}

QTEST_MAIN(tst_SceneObject)
#include "tst_SceneObject.moc"
