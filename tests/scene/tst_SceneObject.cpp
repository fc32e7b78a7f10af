#include "events/EventBus.h"
#include "events/SceneChangeEvent.h"
#include "properties/AbstractBooleanProperty.h"
#include "scene/SceneManager.h"
#include "support/RecordingHandler.h"
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

    void directWalks();
    void searchesLevelByLevel();
    void childAtCountsDepthFirst_data();
    void childAtCountsDepthFirst();
    void fixedAnswers();
    void ancestry();
    void ancestryOfLists();
    void childPointer();
    void addChildrenIgnoresIndex();
    void removeChildrenDoesNothing();
    void singleReorderings();
    void listReorderings_data();
    void listReorderings();
    void childrenCanMove_data();
    void childrenCanMove();
    void testSceneRaisesTreeEvents();

private:
    // Four leaves a, b, c, d in one container; answers the container.
    TestContainer *_fourChildren();
    QString _order(TestContainer *container) const;

    QUuid R, A, A1, A2, A2a, B, C, C1;
    QHash<QUuid, QString> _names;
};

void tst_SceneObject::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
    TestScene::registerFactories();

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
    SceneManager::destroy();
    EventBus::destroy();
    _names.clear();
}

TestContainer *tst_SceneObject::_fourChildren()
{
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    for (QString const name : {"a", "b", "c", "d"})
        _names.insert(TestScene::addLeaf(group, QRect(), name), name);
    return TestScene::container(group);
}

QString tst_SceneObject::_order(TestContainer *container) const
{
    QString order;
    for (QUuid const &id : container->children(false))
        order += _names.value(id, "?");
    return order;
}

void tst_SceneObject::directWalks()
{
    SceneObject *root = TestScene::object(R);
    QCOMPARE(root->children(false), QList<QUuid>({A, B, C}));
    QCOMPARE(root->childCount(false), 3u);
    QCOMPARE(root->indexOfChild(A, false), 0);
    QCOMPARE(root->indexOfChild(C, false), 2);
    QCOMPARE(root->indexOfChild(A1, false), -1);
    QCOMPARE(root->childAt(1, false), B);
    QCOMPARE(root->childAt(3, false), QUuid());
    QCOMPARE(root->parent(), QUuid());
    QCOMPARE(TestScene::object(A2a)->parent(), A2);
    // The base's root() is the object itself, whatever the tree.
    QCOMPARE(TestScene::object(A2a)->root(), A2a);
    QCOMPARE(root->childrenNames(false), QStringList({"A", "twin", "C"}));
    QCOMPARE(root->childrenOfType(TestLeaf::Type(), false), QList<QUuid>({B}));
    QCOMPARE(TestScene::object(B)->childCount(false), 0u);

    QVERIFY(root->hasChild(B, false));
    QVERIFY(!root->hasChild(A2a, false));
    QVERIFY(root->hasChild(A2a, true));
    QVERIFY(!root->hasChild(R, true));
    QVERIFY(!root->hasChild(QUuid::createUuid(), true));
    QVERIFY(root->hasChildNamed("C", false));
    QVERIFY(!root->hasChildNamed("dup", false));
    QVERIFY(root->hasChildNamed("dup", true));
    QVERIFY(!root->hasChildNamed("DUP", true));
    QVERIFY(!root->hasChildNamed("R", true));
}

void tst_SceneObject::searchesLevelByLevel()
{
    SceneObject *root = TestScene::object(R);
    // B is a direct child and wins over A1 in the earlier subtree.
    QCOMPARE(root->childWithName("twin", true), B);
    QCOMPARE(root->childWithName("twin", false), B);
    // Below the first level the walk is per object: A's subtree goes before C, so the deeper
    // A2a is found before C1.
    QCOMPARE(root->childWithName("dup", true), A2a);
    QCOMPARE(root->childWithName("dup", false), QUuid());
    QCOMPARE(root->childWithName("nothing", true), QUuid());

    // Direct matches first, then each child's own matches in turn: not tree order.
    QCOMPARE(root->childrenOfType(TestLeaf::Type(), true), QList<QUuid>({B, A1, A2a, C1}));
    QCOMPARE(root->childrenOfType(TestContainer::Type(), true), QList<QUuid>({A, C, A2}));
    // Names, however, come depth first.
    QCOMPARE(root->childrenNames(true),
             QStringList({"A", "twin", "A2", "dup", "twin", "C", "dup"}));
}

void tst_SceneObject::childAtCountsDepthFirst_data()
{
    QTest::addColumn<unsigned int>("index");
    QTest::addColumn<QString>("expected");
    QTest::newRow("first child") << 0u << "A";
    QTest::newRow("grandchild") << 1u << "A1";
    QTest::newRow("great-grandchild") << 3u << "A2a";
    QTest::newRow("back up to the second child") << 4u << "B";
    QTest::newRow("last") << 6u << "C1";
    QTest::newRow("past the end") << 7u << "";
    QTest::newRow("far past") << Unset << "";
}

void tst_SceneObject::childAtCountsDepthFirst()
{
    QFETCH(unsigned int, index);
    QFETCH(QString, expected);
    QHash<QString, QUuid> const ids{{"A", A}, {"A1", A1}, {"A2a", A2a}, {"B", B}, {"C1", C1}};
    QCOMPARE(TestScene::object(R)->childAt(index, true), ids.value(expected));
}

void tst_SceneObject::fixedAnswers()
{
    SceneObject *root = TestScene::object(R);
    QCOMPARE(root->childCount(true), 0u);
    QCOMPARE(TestScene::object(A)->childCount(true), 0u);
    QCOMPARE(root->childCountOfType(TestLeaf::Type(), false), 0u);
    QCOMPARE(root->childCountOfType(TestLeaf::Type(), true), 0u);
    // Found or not, the recursive index is -1.
    QCOMPARE(root->indexOfChild(A, true), -1);
    QCOMPARE(root->indexOfChild(A2a, true), -1);
    QCOMPARE(root->indexOfChild(QUuid::createUuid(), true), -1);
    // An ancestor of the type exists, yet the base answers the null id.
    QCOMPARE(TestScene::object(A2a)->firstAncestorOfType(TestContainer::Type()), QUuid());
    QCOMPARE(TestScene::object(A2a)->firstAncestorOfType("Nothing"), QUuid());
    QCOMPARE(root->firstAncestorOfType(TestContainer::Type()), QUuid());
}

void tst_SceneObject::ancestry()
{
    SceneObject *root = TestScene::object(R);
    SceneObject *deep = TestScene::object(A2a);
    QVERIFY(root->isAncestorOf(A2a));
    QVERIFY(root->isAncestorOf(A));
    QVERIFY(TestScene::object(A)->isAncestorOf(A2a));
    QVERIFY(!TestScene::object(A)->isAncestorOf(C1));
    QVERIFY(!deep->isAncestorOf(R));
    QVERIFY(!root->isAncestorOf(R));
    QVERIFY(!root->isAncestorOf(QUuid()));
    QVERIFY(!root->isAncestorOf(QUuid::createUuid()));

    QVERIFY(deep->isDescendantOf(R));
    QVERIFY(deep->isDescendantOf(A2));
    QVERIFY(!deep->isDescendantOf(C));
    QVERIFY(!deep->isDescendantOf(A2a));
    QVERIFY(!root->isDescendantOf(A));
    QVERIFY(!deep->isDescendantOf(QUuid()));
    QVERIFY(!deep->isDescendantOf(QUuid::createUuid()));
}

void tst_SceneObject::ancestryOfLists()
{
    SceneObject *root = TestScene::object(R);
    SceneObject *deep = TestScene::object(A2a);
    QVERIFY(root->isAncestorOf(QList<QUuid>{A1, C1, B}));
    QVERIFY(!root->isAncestorOf(QList<QUuid>()));
    // All must hold, not any.
    QVERIFY(!TestScene::object(A)->isAncestorOf(QList<QUuid>{A1, C1}));
    QVERIFY(!root->isAncestorOf(QList<QUuid>{A1, R}));

    QVERIFY(deep->isDescendantOf(QList<QUuid>{R, A, A2}));
    QVERIFY(!deep->isDescendantOf(QList<QUuid>()));
    QVERIFY(!deep->isDescendantOf(QList<QUuid>{R, A2a}));
    QVERIFY(!deep->isDescendantOf(QList<QUuid>{R, C}));
}

void tst_SceneObject::childPointer()
{
    SceneObject *root = TestScene::object(R);
    QCOMPARE(root->childPointer(C1), TestScene::object(C1));
    QCOMPARE(root->childPointer(R), root);
    QCOMPARE(root->childPointer(QUuid::createUuid()), nullptr);
    QCOMPARE(root->childPointer(QUuid()), nullptr);
}

void tst_SceneObject::addChildrenIgnoresIndex()
{
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    _names.insert(TestScene::addLeaf(group, QRect()), "a");
    _names.insert(TestScene::addLeaf(group, QRect()), "b");
    QUuid const x = TestScene::addLeaf(QUuid(), QRect());
    QUuid const y = TestScene::addLeaf(QUuid(), QRect());
    _names.insert(x, "x");
    _names.insert(y, "y");

    TestContainer *container = TestScene::container(group);
    RecordingHandler recorder(EVM_SCENE);
    container->addChildren({x, y}, 5);
    // Placed by addChild at 0, then 1.
    QCOMPARE(_order(container), QString("xyab"));
    QCOMPARE(recorder.types(),
             QList<unsigned long long>({EVT_SCENE_CHILDABOUTTOADD, EVT_SCENE_CHILDADDED,
                                        EVT_SCENE_CHILDABOUTTOADD, EVT_SCENE_CHILDADDED}));
    auto const added = recorder.events.at(3).staticCast<SceneChangeEvent>();
    QCOMPARE(added->infoAt(1).id(), y);
    QCOMPARE(added->infoAt(1).parentIndex(), 1);
}

void tst_SceneObject::removeChildrenDoesNothing()
{
    TestContainer *container = _fourChildren();
    RecordingHandler recorder(EVM_SCENE);
    container->removeChildren(container->children(false));
    QCOMPARE(_order(container), QString("abcd"));
    QVERIFY(recorder.events.isEmpty());
}

void tst_SceneObject::singleReorderings()
{
    TestContainer *container = _fourChildren();
    QList<QUuid> const ids = container->children(false);
    QUuid const a = ids.at(0), b = ids.at(1), c = ids.at(2), d = ids.at(3);

    // The first child is not guarded: moveChild is asked for 0xFFFFFFFF, and survives it.
    container->raiseChild(a);
    QCOMPARE(container->moveLog, MoveLog({{a, Unset}}));
    QCOMPARE(_order(container), QString("abcd"));

    container->moveLog.clear();
    container->raiseChild(c);
    container->raiseChild(QUuid::createUuid());
    QCOMPARE(container->moveLog, MoveLog({{c, 1}}));
    QCOMPARE(_order(container), QString("acbd"));

    container->moveLog.clear();
    container->raiseChildToTop(d);
    container->raiseChildToTop(QUuid::createUuid());
    QCOMPARE(container->moveLog, MoveLog({{d, 0}}));
    QCOMPARE(_order(container), QString("dacb"));

    // The last child is guarded when lowered, unlike the first when raised.
    container->moveLog.clear();
    container->lowerChild(b);
    container->lowerChild(QUuid::createUuid());
    container->lowerChild(a);
    QCOMPARE(container->moveLog, MoveLog({{a, 2}}));
    QCOMPARE(_order(container), QString("dcab"));

    container->moveLog.clear();
    container->lowerChildToBottom(b);
    container->lowerChildToBottom(d);
    QCOMPARE(container->moveLog, MoveLog({{d, 3}}));
    QCOMPARE(_order(container), QString("cabd"));
}

void tst_SceneObject::listReorderings_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("moves");
    QTest::addColumn<QString>("order");

    // Moves as "id:index" words; the container starts as abcd.
    QTest::newRow("raise block at the top") << "raise"
                                            << "ab"
                                            << ""
                                            << "abcd";
    QTest::newRow("raise spread") << "raise"
                                  << "bd"
                                  << "b:0 d:2"
                                  << "badc";
    QTest::newRow("raise top and gap") << "raise"
                                       << "ac"
                                       << "c:1"
                                       << "acbd";
    QTest::newRow("raise skips strangers") << "raise"
                                           << "xc"
                                           << "c:1"
                                           << "acbd";
    QTest::newRow("raise to top") << "top"
                                  << "ca"
                                  << "c:0 a:1"
                                  << "cabd";
    QTest::newRow("raise to top, already there") << "top"
                                                 << "a"
                                                 << "a:0"
                                                 << "abcd";
    // Walking backward, only the last place is tested: the two at the bottom swap.
    QTest::newRow("lower block at the bottom") << "lower"
                                               << "cd"
                                               << "c:3"
                                               << "abdc";
    QTest::newRow("lower spread") << "lower"
                                  << "ac"
                                  << "c:3 a:1"
                                  << "badc";
    QTest::newRow("lower last alone") << "lower"
                                      << "d"
                                      << ""
                                      << "abcd";
    QTest::newRow("lower to bottom") << "bottom"
                                     << "ab"
                                     << "a:3 b:3"
                                     << "cdab";
    QTest::newRow("lower to bottom skips strangers") << "bottom"
                                                     << "xb"
                                                     << "b:3"
                                                     << "acdb";
    QTest::newRow("empty") << "raise"
                           << ""
                           << ""
                           << "abcd";
}

void tst_SceneObject::listReorderings()
{
    QFETCH(QString, operation);
    QFETCH(QString, ids);
    QFETCH(QString, moves);
    QFETCH(QString, order);

    TestContainer *container = _fourChildren();
    QHash<QChar, QUuid> byName;
    for (QUuid const &id : container->children(false))
        byName.insert(_names.value(id).at(0), id);
    byName.insert('x', TestScene::addLeaf(QUuid(), QRect()));
    QList<QUuid> list;
    for (QChar const name : ids)
        list.append(byName.value(name));

    if (operation == "raise")
        container->raiseChildren(list);
    else if (operation == "top")
        container->raiseChildrenToTop(list);
    else if (operation == "lower")
        container->lowerChildren(list);
    else
        container->lowerChildrenToBottom(list);

    QStringList words;
    for (auto const &move : container->moveLog)
        words.append(QString("%1:%2").arg(_names.value(move.first)).arg(move.second));
    QCOMPARE(words.join(' '), moves);
    QCOMPARE(_order(container), order);
}

void tst_SceneObject::childrenCanMove_data()
{
    QTest::addColumn<QString>("ids");
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("down");
    QTest::newRow("top block") << "ab" << false << true;
    QTest::newRow("top block, any order") << "ba" << false << true;
    QTest::newRow("gap at the top") << "ac" << true << true;
    QTest::newRow("bottom block") << "dc" << true << false;
    QTest::newRow("all") << "abcd" << false << false;
    QTest::newRow("one in the middle") << "b" << true << true;
    QTest::newRow("a stranger") << "ax" << false << false;
    QTest::newRow("empty") << "" << false << false;
}

void tst_SceneObject::childrenCanMove()
{
    QFETCH(QString, ids);
    QFETCH(bool, up);
    QFETCH(bool, down);

    TestContainer *container = _fourChildren();
    QHash<QChar, QUuid> byName;
    for (QUuid const &id : container->children(false))
        byName.insert(_names.value(id).at(0), id);
    byName.insert('x', A1);
    QList<QUuid> list;
    for (QChar const name : ids)
        list.append(byName.value(name));
    QCOMPARE(container->childrenCanMoveUp(list), up);
    QCOMPARE(container->childrenCanMoveDown(list), down);
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
    QCOMPARE(moved->infoAt(0).parentIndex(), -1);
    QCOMPARE(moved->infoAt(1).id(), B);
    QCOMPARE(moved->infoAt(1).parentIndex(), 0);
    QCOMPARE(recorder.events.at(0).staticCast<SceneChangeEvent>()->infoAt(1).parentIndex(), 1);

    recorder.clear();
    recorder.onEvent = nullptr;
    other->addChild(B, 0);
    QCOMPARE(recorder.types(), QList<unsigned long long>(
                                   {EVT_SCENE_CHILDABOUTTOREPARENT, EVT_SCENE_CHILDREPARENTED}));
    auto reparented = recorder.events.at(1).staticCast<SceneChangeEvent>();
    QCOMPARE(reparented->parentInfo().id(), R);
    QCOMPARE(reparented->childInfo().id(), B);
    QCOMPARE(reparented->childInfo().parentIndex(), 0);
    QCOMPARE(reparented->newParentInfo().id(), C);
    QCOMPARE(reparented->infoAt(3).id(), QUuid()); // out of range: a default info
    QCOMPARE(TestScene::object(B)->parent(), C);
    QCOMPARE(root->children(false), QList<QUuid>({A, C}));

    recorder.clear();
    other->removeChild(C1);
    QCOMPARE(recorder.types(),
             QList<unsigned long long>({EVT_SCENE_CHILDABOUTTOREMOVE, EVT_SCENE_CHILDREMOVED}));
    QCOMPARE(recorder.events.at(0).staticCast<SceneChangeEvent>()->infoAt(1).parentIndex(), 1);
    QCOMPARE(TestScene::object(C1)->parent(), QUuid());

    // Refusals raise nothing.
    recorder.clear();
    QVERIFY(!other->addChild(B, 0));
    QVERIFY(!other->addChild(C, 0));
    QVERIFY(!TestScene::container(A2)->addChild(R, 0));
    QVERIFY(!other->addChild(QUuid::createUuid(), 0));
    QVERIFY(!TestScene::leaf(A1)->addChild(C1, 0));
    other->removeChild(C1);
    other->moveChild(B, 0);
    other->moveChild(B, 9);
    QVERIFY(recorder.events.isEmpty());

    TestSceneObject *leaf = TestScene::object(C1);
    leaf->setRectangle(QRect(1, 1, 5, 5));
    leaf->setRectangle(QRect(1, 1, 5, 5));
    AbstractBooleanProperty::Set(leaf->model(), "editorLocked", true,
                                 PropertyChangeReason::ReasonView);
    leaf->setName("renamed");
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_SCENE_SCENEOBJECTSTATECHANGED,
                                                          EVT_SCENE_SCENEOBJECTSTATECHANGED,
                                                          EVT_SCENE_SCENEOBJECTRENAMED}));
    auto renamed = recorder.events.at(2).staticCast<SceneChangeEvent>();
    QCOMPARE(renamed->info().id(), C1);
    QCOMPARE(renamed->name(), QString("renamed"));
}

QTEST_MAIN(tst_SceneObject)
#include "tst_SceneObject.moc"
