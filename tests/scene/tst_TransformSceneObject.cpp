// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "properties/AbstractBooleanProperty.h"
#include "scene/SceneManager.h"
#include "scene/SceneObjectFactory.h"
#include "scene/TransformSceneObject.h"
#include "support/Services.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"

#include <QtTest>

using namespace TES;
using namespace TES::Test;

Q_DECLARE_METATYPE(TES::RectanglePoint)

namespace {

// A leaf whose parent link a test sets at will: to an object that is no transform object, or
// to an id that resolves to nothing.
class Orphan : public TestLeaf
{
public:
    QUuid parent() const override { return fakeParent; }
    QUuid fakeParent;
};

// A scene object without geometry.
class PlainGroup : public SceneObject
{
public:
    QList<QUuid> children(bool) const override { return {}; }
    bool addChild(QUuid const &, unsigned int) override { return false; }
    void removeChild(QUuid const &) override {}
    void moveChild(QUuid const &, unsigned int) override {}
};

template<typename T>
class Factory : public SceneObjectFactory
{
public:
    QString text() override { return QString(); }
    QString label() override { return QString(); }
    QIcon icon() override { return QIcon(); }
    QSharedPointer<SceneObject> create() override { return QSharedPointer<T>::create(); }
};

void flag(QUuid const &id, QString const &name)
{
    AbstractBooleanProperty::Set(TestScene::object(id)->model(), name, true,
                                 PropertyChangeReason::ReasonView);
}

} // namespace

class tst_TransformSceneObject : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void plainGeometry();
    void translateAndTransforms();
    void scale_data();
    void scale();
    void conversions();
    void climbStopsAtNonTransformAncestors();
    void visibleRectangle_data();
    void visibleRectangle();
    void pickByPoint_data();
    void pickByPoint();
    void pickByRectangle();

private:
    // The pick scene, in root coordinates:
    //   R  (0,0)-(199,199)
    //   A  (10,10)-(109,109), in R
    //   A1 (10,10)-(59,59), in A
    //   A2 (30,30)-(79,79), in A, after A1
    //   B  (150,150)-(249,249), in R, outside R in part
    void _buildPickScene();

    QUuid R, A, A1, A2, B;
    std::optional<Services> _services;
};

void tst_TransformSceneObject::init()
{
    _services.emplace(Services::Bus | Services::Scene);
}

void tst_TransformSceneObject::cleanup()
{
    _services.reset();
}

void tst_TransformSceneObject::_buildPickScene()
{
    R = TestScene::addContainer(QUuid(), QRect(0, 0, 200, 200));
    A = TestScene::addContainer(R, QRect(10, 10, 100, 100));
    A1 = TestScene::addLeaf(A, QRect(0, 0, 50, 50));
    A2 = TestScene::addLeaf(A, QRect(20, 20, 50, 50));
    B = TestScene::addLeaf(R, QRect(150, 150, 100, 100));
}

void tst_TransformSceneObject::plainGeometry()
{
    TestLeaf leaf;
    leaf.setRectangle(QRect(QPoint(0, 0), QPoint(99, 99)));
    // Only the left edge moves: not a move.
    leaf.setX(10);
    QCOMPARE(leaf.getRectangle(), QRect(QPoint(10, 0), QPoint(99, 99)));
    QCOMPARE(leaf.getWidth(), 90);
    leaf.setY(-5);
    leaf.setWidth(20);
    QCOMPARE(leaf.getRectangle(), QRect(10, -5, 20, 105));
    leaf.setPosition(QPoint(3, 4));
    leaf.setSize(QSize(7, 8));
    QCOMPARE(leaf.getRectangle(), QRect(3, 4, 7, 8));
    leaf.modifyGeometry(1, 2, 3, 4);
    QCOMPARE(leaf.getRectangle(), QRect(QPoint(4, 6), QPoint(12, 15)));
    // A root's rectangle is its root rectangle.
    QCOMPARE(leaf.rootRectangle(), leaf.getRectangle());
    QCOMPARE(leaf.getTransformer(), nullptr);
}

void tst_TransformSceneObject::translateAndTransforms()
{
    TestLeaf leaf;
    leaf.setRectangle(QRect(10, 20, 30, 40));
    // Without a start the stored position is (0, 0).
    leaf.translate(1, 2, false);
    QCOMPARE(leaf.getRectangle(), QRect(1, 2, 30, 40));

    leaf.setRectangle(QRect(10, 20, 30, 40));
    leaf.startTransform(true);
    // A drag is measured from its start, not from the step before; so is a scale.
    leaf.translate(5, 5, false);
    leaf.translate(7, -3, false);
    QCOMPARE(leaf.getRectangle(), QRect(17, 17, 30, 40));
    QCOMPARE(leaf.getTransformDelta(), QPoint(7, -3));
    leaf.rectangleLog.clear();
    leaf.translate(1, 1, true);
    QCOMPARE(leaf.rectangleLog, QList<QRect>({QRect(18, 18, 30, 40)}));
    leaf.scale(QPoint(), RectanglePoint::BottomRight, 5, 5);
    leaf.scale(QPoint(), RectanglePoint::BottomRight, 10, 0);
    QCOMPARE(leaf.getRectangle(), QRect(10, 20, 40, 40));

    // Nothing changed: the record stays filled, so the delta keeps its reference.
    leaf.setRectangle(QRect(10, 10, 20, 20));
    leaf.startTransform(true);
    leaf.acceptTransform();
    QCOMPARE(leaf.getTransformDelta(), QPoint(0, 0));
    leaf.setPosition(QPoint(15, 10));
    QCOMPARE(leaf.getTransformDelta(), QPoint(5, 0));
    // A change clears the record.
    leaf.acceptTransform();
    QCOMPARE(leaf.getStoredPosition(), QPoint(0, 0));
    QCOMPARE(leaf.getTransformDelta(), QPoint(15, 10));

    // Reject: first the stored position with the current size, then the stored size; the
    // record stays.
    leaf.setRectangle(QRect(10, 10, 20, 20));
    leaf.startTransform(false);
    leaf.setRectangle(QRect(30, 40, 50, 60));
    leaf.rectangleLog.clear();
    leaf.rejectTransform();
    QCOMPARE(leaf.rectangleLog, QList<QRect>({QRect(10, 10, 50, 60), QRect(10, 10, 20, 20)}));
    leaf.setRectangle(QRect(0, 0, 5, 5));
    leaf.rejectTransform();
    QCOMPARE(leaf.getRectangle(), QRect(10, 10, 20, 20));
}

void tst_TransformSceneObject::scale_data()
{
    QTest::addColumn<QRect>("stored");
    QTest::addColumn<RectanglePoint>("grip");
    QTest::addColumn<int>("dx");
    QTest::addColumn<int>("dy");
    QTest::addColumn<QRect>("expected");

    // Past the opposite edge: one pixel, standing just before that edge.
    using G = RectanglePoint;
    QRect const box(0, 0, 10, 10);
    QTest::newRow("TL past the right edge") << box << G::TopLeft << 20 << 0 << QRect(9, 0, 1, 10);
    QTest::newRow("TL onto the far corner") << box << G::TopLeft << 10 << 10 << QRect(9, 9, 1, 1);
    QTest::newRow("TM past the bottom") << box << G::TopMiddle << 0 << 30 << QRect(0, 9, 10, 1);
    QTest::newRow("TR") << box << G::TopRight << 5 << 2 << QRect(0, 2, 15, 8);
    QTest::newRow("ML") << box << G::MiddleLeft << -5 << 9 << QRect(-5, 0, 15, 10);
    QTest::newRow("MR onto the left") << box << G::MiddleRight << -10 << 0 << QRect(0, 0, 1, 10);
    QTest::newRow("BL") << box << G::BottomLeft << 2 << 3 << QRect(2, 0, 8, 13);
    QTest::newRow("BM past the top") << box << G::BottomMiddle << 7 << -20 << QRect(0, 0, 10, 1);
    QTest::newRow("BR past the left") << box << G::BottomRight << -20 << 0 << QRect(0, 0, 1, 10);
    // A growing drag is taken without a test, even from the empty record.
    QTest::newRow("BR, empty record") << QRect() << G::BottomRight << 0 << 0 << QRect(0, 0, -1, -1);
    QTest::newRow("TL, empty record") << QRect() << G::TopLeft << 0 << 0 << QRect(-2, -2, 1, 1);
    QTest::newRow("no such grip") << QRect(5, 6, 7, 8) << G(8) << 3 << 3 << QRect(5, 6, 7, 8);
}

void tst_TransformSceneObject::scale()
{
    QFETCH(QRect, stored);
    QFETCH(RectanglePoint, grip);
    QFETCH(int, dx);
    QFETCH(int, dy);
    QFETCH(QRect, expected);

    TestLeaf leaf;
    leaf.setRectangle(stored);
    if (stored.isValid())
        leaf.startTransform(false);
    // Whatever the current geometry, the stored record counts.
    leaf.setRectangle(QRect(100, 100, 3, 3));
    leaf.rectangleLog.clear();
    QVERIFY(leaf.scale(QPoint(1000, 1000), grip, dx, dy));
    QCOMPARE(leaf.rectangleLog, QList<QRect>({expected}));
}

void tst_TransformSceneObject::conversions()
{
    QUuid const root = TestScene::addContainer(QUuid(), QRect(100, 50, 200, 150));
    QUuid const group = TestScene::addContainer(root, QRect(10, 20, 100, 80));
    TransformSceneObject *top = TestScene::object(root);
    TransformSceneObject *leaf = TestScene::object(TestScene::addLeaf(group, QRect(5, 6, 10, 10)));

    QCOMPARE(leaf->rootRectangle(), QRect(115, 76, 10, 10));
    QCOMPARE(leaf->rectToRoot(QRect(0, 0, 1, 1)), QRect(110, 70, 1, 1));
    // Points are in the object's own coordinates: its own position counts.
    QCOMPARE(leaf->pointToRoot(QPoint(1, 1)), QPoint(116, 77));
    QCOMPARE(top->pointToRoot(QPoint(1, 1)), QPoint(1, 1));
    // The way back adds the own position too: not an inverse.
    QCOMPARE(leaf->pointFromRoot(QPoint(200, 200)), QPoint(95, 136));
    QCOMPARE(leaf->rectFromRoot(QRect(200, 200, 4, 4)), QRect(95, 136, 4, 4));
    QCOMPARE(top->rectFromRoot(QRect(200, 200, 4, 4)), QRect(200, 200, 4, 4));
}

void tst_TransformSceneObject::climbStopsAtNonTransformAncestors()
{
    static Factory<Orphan> orphans;
    static Factory<PlainGroup> plainGroups;
    QVERIFY(SceneManager::i().addObjectFactory("Orphan", &orphans));
    QVERIFY(SceneManager::i().addObjectFactory("PlainGroup", &plainGroups));
    auto orphan = [](QUuid const &id) {
        return dynamic_cast<Orphan *>(SceneManager::i().getObject(id).toStrongRef().data());
    };
    QUuid const plain = SceneManager::i().createObject("PlainGroup");
    QUuid const outer = SceneManager::i().createObject("Orphan");
    Orphan *middle = orphan(outer);
    Orphan *leaf = orphan(SceneManager::i().createObject("Orphan"));
    middle->setRectangle(QRect(100, 100, 50, 50));
    leaf->setRectangle(QRect(5, 5, 10, 10));

    // Directly under a parent that is no transform object, or none at all: no offset.
    for (QUuid const &parent : {plain, QUuid::createUuid()}) {
        leaf->fakeParent = parent;
        QCOMPARE(leaf->rootRectangle(), QRect(5, 5, 10, 10));
        QCOMPARE(leaf->pointToRoot(QPoint(1, 1)), QPoint(1, 1));
        QCOMPARE(leaf->pointFromRoot(QPoint(1, 1)), QPoint(1, 1));
        QCOMPARE(leaf->visibleRectangle(), QRect(5, 5, 10, 10));
    }
    // One level up the climb stops: the middle's position counts, nothing above it.
    leaf->fakeParent = outer;
    middle->fakeParent = plain;
    QCOMPARE(leaf->rootRectangle(), QRect(105, 105, 10, 10));
    QCOMPARE(leaf->pointToRoot(QPoint(1, 1)), QPoint(106, 106));
    QCOMPARE(leaf->pointFromRoot(QPoint(1, 1)), QPoint(-94, -94));
}

void tst_TransformSceneObject::visibleRectangle_data()
{
    QTest::addColumn<QRect>("top");
    QTest::addColumn<QRect>("middle");
    QTest::addColumn<QRect>("leaf");
    QTest::addColumn<QRect>("expected");

    QRect const top(0, 0, 200, 150);
    QRect const middle(0, 0, 100, 80);
    QTest::newRow("clipped by the parent")
        << top << middle << QRect(90, 70, 20, 20) << QRect(90, 70, 10, 10);
    QTest::newRow("outside the parent") << top << middle << QRect(150, 10, 5, 5) << QRect();
    // Each ancestor's shift is applied before its bounds, which stand at (0, 0).
    QTest::newRow("shifted by the ancestors")
        << QRect(100, 50, 200, 150) << middle << QRect(90, 70, 20, 20) << QRect(190, 120, 10, 10);
    QTest::newRow("cut by the parent after its shift")
        << top << QRect(150, 0, 100, 80) << QRect(60, 0, 20, 20) << QRect();
}

void tst_TransformSceneObject::visibleRectangle()
{
    QFETCH(QRect, top);
    QFETCH(QRect, middle);
    QFETCH(QRect, leaf);
    QFETCH(QRect, expected);

    QUuid const root = TestScene::addContainer(QUuid(), top);
    QUuid const item = TestScene::addLeaf(TestScene::addContainer(root, middle), leaf);
    QCOMPARE(TestScene::object(item)->visibleRectangle(), expected);
    // A root is not clipped.
    QCOMPARE(TestScene::object(root)->visibleRectangle(), top);
}

void tst_TransformSceneObject::pickByPoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("clip");
    // "<flag>:<objects>", the flag l (locked), h (hidden), r (rejects picks) or x (excluded).
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QChar>("expected");

    // Objects by one letter: R, A, 1 (A1), 2 (A2), B; '-' for none.
    QPoint const both(40, 40);
    QTest::newRow("the later sibling wins") << both << true << "" << QChar('2');
    QTest::newRow("only the earlier sibling") << QPoint(15, 15) << true << "" << QChar('1');
    QTest::newRow("the group between children") << QPoint(90, 90) << true << "" << QChar('A');
    QTest::newRow("the group's edge counts") << QPoint(109, 109) << true << "" << QChar('A');
    QTest::newRow("just past the group") << QPoint(110, 110) << true << "" << QChar('R');
    QTest::newRow("outside the parent, no clip") << QPoint(220, 220) << false << "" << QChar('B');
    QTest::newRow("outside the parent, clipped") << QPoint(220, 220) << true << "" << QChar('-');
    QTest::newRow("locked child, sibling beneath") << both << true << "l:2" << QChar('1');
    QTest::newRow("locked parent hides all") << both << true << "l:A" << QChar('R');
    QTest::newRow("hidden root") << both << true << "h:R" << QChar('-');
    QTest::newRow("child rejecting picks") << both << true << "r:2" << QChar('1');
    QTest::newRow("excluded hit") << both << true << "x:2" << QChar('1');
    // An excluded group does not stop the search below it.
    QTest::newRow("excluded group") << both << true << "x:A" << QChar('2');
    QTest::newRow("everything excluded") << both << true << "x:RA12" << QChar('-');
}

void tst_TransformSceneObject::pickByPoint()
{
    QFETCH(QPoint, point);
    QFETCH(bool, clip);
    QFETCH(QString, setting);
    QFETCH(QChar, expected);

    _buildPickScene();
    QHash<QChar, QUuid> const ids{{'R', R}, {'A', A}, {'1', A1}, {'2', A2}, {'B', B}};
    QList<QUuid> excluded;
    for (QChar const name : setting.mid(2)) {
        QChar const kind = setting.at(0);
        if (kind == 'l')
            flag(ids.value(name), "editorLocked");
        else if (kind == 'h')
            flag(ids.value(name), "editorHidden");
        else if (kind == 'r')
            TestScene::object(ids.value(name))->rejectPick = true;
        else
            excluded.append(ids.value(name));
    }
    QCOMPARE(ids.key(TestScene::object(R)->pick(point, clip, excluded), '-'), expected);
}

void tst_TransformSceneObject::pickByRectangle()
{
    _buildPickScene();
    TransformSceneObject *root = TestScene::object(R);
    TransformSceneObject *group = TestScene::object(A);

    // Points and rectangles are in root coordinates wherever the pick starts.
    QCOMPARE(group->pick(QPoint(40, 40), true, {}), A2);
    QCOMPARE(root->pick(QRect(0, 0, 5, 5), true, {}), QList<QUuid>({R}));
    // Children before their parents, the later child first.
    QCOMPARE(group->pick(QRect(35, 35, 2, 2), true, {}), QList<QUuid>({A2, A1, A}));
    // The group's answer of three ids is appended once per id: three times over.
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {}),
             QList<QUuid>({A2, A1, A, A2, A1, A, A2, A1, A, R}));
    // An excluded id leaves the answers out and cuts the repetitions.
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {A1}), QList<QUuid>({A2, A, A2, A, R}));
    // Wider than the group: B too, with its one id once.
    QCOMPARE(root->pick(QRect(100, 100, 60, 60), true, {}), QList<QUuid>({B, A, R}));

    // Outside the root: only without clipping.
    QCOMPARE(root->pick(QRect(210, 210, 5, 5), true, {}), QList<QUuid>());
    QCOMPARE(root->pick(QRect(210, 210, 5, 5), false, {}), QList<QUuid>({B}));

    flag(A, "editorLocked");
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {}), QList<QUuid>({R}));
    flag(R, "editorHidden");
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {}), QList<QUuid>());
}

QTEST_MAIN(tst_TransformSceneObject)
#include "tst_TransformSceneObject.moc"
