#include "events/EventBus.h"
#include "properties/AbstractBooleanProperty.h"
#include "scene/SceneManager.h"
#include "scene/SceneObjectFactory.h"
#include "scene/TransformSceneObject.h"
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

// A scene object without geometry that claims children.
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

void lock(QUuid const &id, QString const &flag = "editorLocked")
{
    AbstractBooleanProperty::Set(TestScene::object(id)->model(), flag, true,
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
    void translate();
    void scale_data();
    void scale();
    void scaleWorksFromTheStoredRecord();
    void acceptAndReject();
    void conversions();
    void climbStopsAtNonTransformAncestors();
    void visibleRectangle_data();
    void visibleRectangle();
    void pickByPoint_data();
    void pickByPoint();
    void pickByPointFromInnerNode();
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
};

void tst_TransformSceneObject::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
    TestScene::registerFactories();
}

void tst_TransformSceneObject::cleanup()
{
    SceneManager::destroy();
    EventBus::destroy();
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
    QCOMPARE(leaf.getRectangle(), QRect(QPoint(10, -5), QPoint(99, 99)));
    QCOMPARE(leaf.getHeight(), 105);
    QCOMPARE(leaf.getX(), 10);
    QCOMPARE(leaf.getY(), -5);

    leaf.setWidth(20);
    leaf.setHeight(30);
    QCOMPARE(leaf.getRectangle(), QRect(10, -5, 20, 30));
    leaf.setPosition(QPoint(3, 4));
    QCOMPARE(leaf.getRectangle(), QRect(3, 4, 20, 30));
    QCOMPARE(leaf.getPosition(), QPoint(3, 4));
    leaf.setSize(QSize(7, 8));
    QCOMPARE(leaf.getRectangle(), QRect(3, 4, 7, 8));
    QCOMPARE(leaf.getSize(), QSize(7, 8));
    leaf.modifyGeometry(1, 2, 3, 4);
    QCOMPARE(leaf.getRectangle(), QRect(QPoint(4, 6), QPoint(12, 15)));
    QCOMPARE(leaf.parentRectangle(), leaf.getRectangle());
    // A root's rectangle is its root rectangle.
    QCOMPARE(leaf.rootRectangle(), leaf.getRectangle());
    QCOMPARE(leaf.getTransformer(), nullptr);
    QVERIFY(!leaf.shouldRejectPick());

    // An empty rectangle is trusted as given.
    leaf.setWidth(0);
    QCOMPARE(leaf.getWidth(), 0);
    QCOMPARE(leaf.getRectangle().right(), 3);
}

void tst_TransformSceneObject::translate()
{
    TestLeaf leaf;
    leaf.setRectangle(QRect(10, 20, 30, 40));
    // Without a start the stored position is (0, 0).
    QCOMPARE(leaf.getStoredPosition(), QPoint(0, 0));
    leaf.translate(1, 2, false);
    QCOMPARE(leaf.getRectangle(), QRect(1, 2, 30, 40));

    leaf.setRectangle(QRect(10, 20, 30, 40));
    leaf.startTransform(true);
    QCOMPARE(leaf.getStoredPosition(), QPoint(10, 20));
    // A drag is measured from its start, not from the step before.
    leaf.translate(5, 5, false);
    leaf.translate(7, -3, false);
    QCOMPARE(leaf.getRectangle(), QRect(17, 17, 30, 40));
    QCOMPARE(leaf.getTransformDelta(), QPoint(7, -3));
    leaf.translate(1, 1, true);
    QCOMPARE(leaf.getRectangle(), QRect(18, 18, 30, 40));

    leaf.rectangleLog.clear();
    leaf.translate(2, 2, true);
    QCOMPARE(leaf.rectangleLog, QList<QRect>({QRect(20, 20, 30, 40)}));
}

void tst_TransformSceneObject::scale_data()
{
    QTest::addColumn<QRect>("stored");
    QTest::addColumn<RectanglePoint>("grip");
    QTest::addColumn<int>("dx");
    QTest::addColumn<int>("dy");
    QTest::addColumn<QRect>("expected");

    QRect const box(0, 0, 10, 10);
    QTest::newRow("top left inward")
        << box << RectanglePoint::TopLeft << 3 << 4 << QRect(3, 4, 7, 6);
    // Past the opposite edge: one pixel, standing just before that edge.
    QTest::newRow("top left past the right edge")
        << box << RectanglePoint::TopLeft << 20 << 0 << QRect(9, 0, 1, 10);
    QTest::newRow("top left onto the right edge")
        << box << RectanglePoint::TopLeft << 10 << 10 << QRect(9, 9, 1, 1);
    QTest::newRow("top left outward")
        << QRect(5, 5, 10, 10) << RectanglePoint::TopLeft << -5 << -5 << QRect(0, 0, 15, 15);
    QTest::newRow("top middle") << box << RectanglePoint::TopMiddle << 4 << -5
                                << QRect(0, -5, 10, 15);
    QTest::newRow("top middle past")
        << box << RectanglePoint::TopMiddle << 0 << 30 << QRect(0, 9, 10, 1);
    QTest::newRow("top right") << box << RectanglePoint::TopRight << 5 << 2 << QRect(0, 2, 15, 8);
    QTest::newRow("middle left") << box << RectanglePoint::MiddleLeft << -5 << 9
                                 << QRect(-5, 0, 15, 10);
    QTest::newRow("middle right shrinking")
        << box << RectanglePoint::MiddleRight << -9 << 0 << QRect(0, 0, 1, 10);
    QTest::newRow("middle right onto the left edge")
        << box << RectanglePoint::MiddleRight << -10 << 0 << QRect(0, 0, 1, 10);
    QTest::newRow("bottom left") << box << RectanglePoint::BottomLeft << 2 << 3
                                 << QRect(2, 0, 8, 13);
    QTest::newRow("bottom middle past the top edge")
        << box << RectanglePoint::BottomMiddle << 7 << -20 << QRect(0, 0, 10, 1);
    QTest::newRow("bottom right past the left edge")
        << box << RectanglePoint::BottomRight << -20 << 0 << QRect(0, 0, 1, 10);
    // A growing drag is taken without a test, even from the empty record.
    QTest::newRow("bottom right from the empty record")
        << QRect() << RectanglePoint::BottomRight << 0 << 0 << QRect(0, 0, -1, -1);
    QTest::newRow("bottom right growing the empty record")
        << QRect() << RectanglePoint::BottomRight << 5 << 1 << QRect(0, 0, 4, 0);
    QTest::newRow("top left on the empty record")
        << QRect() << RectanglePoint::TopLeft << 0 << 0 << QRect(-2, -2, 1, 1);
    QTest::newRow("no such grip") << QRect(5, 6, 7, 8) << static_cast<RectanglePoint>(8) << 3 << 3
                                  << QRect(5, 6, 7, 8);
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

void tst_TransformSceneObject::scaleWorksFromTheStoredRecord()
{
    TestLeaf leaf;
    leaf.setRectangle(QRect(10, 10, 20, 20));
    leaf.startTransform(false);
    // Each step is the whole movement since the start.
    leaf.scale(QPoint(), RectanglePoint::BottomRight, 5, 5);
    leaf.scale(QPoint(), RectanglePoint::BottomRight, 10, 0);
    QCOMPARE(leaf.getRectangle(), QRect(10, 10, 30, 20));
}

void tst_TransformSceneObject::acceptAndReject()
{
    TestLeaf leaf;
    leaf.setRectangle(QRect(10, 10, 20, 20));
    leaf.startTransform(true);
    // Nothing changed: the record stays filled, so the delta keeps its reference.
    leaf.acceptTransform();
    QCOMPARE(leaf.getTransformDelta(), QPoint(0, 0));
    QCOMPARE(leaf.getStoredPosition(), QPoint(10, 10));
    leaf.setPosition(QPoint(15, 10));
    QCOMPARE(leaf.getTransformDelta(), QPoint(5, 0));

    // A change clears the record.
    leaf.acceptTransform();
    QCOMPARE(leaf.getStoredPosition(), QPoint(0, 0));
    QCOMPARE(leaf.getTransformDelta(), QPoint(15, 10));
    leaf.rectangleLog.clear();
    leaf.rejectTransform();
    QCOMPARE(leaf.rectangleLog, QList<QRect>({QRect(0, 0, 20, 20), QRect(0, 0, -1, -1)}));

    // Reject: first the stored position with the current size, then the stored size.
    leaf.setRectangle(QRect(10, 10, 20, 20));
    leaf.startTransform(false);
    leaf.setRectangle(QRect(30, 40, 50, 60));
    leaf.rectangleLog.clear();
    leaf.rejectTransform();
    QCOMPARE(leaf.rectangleLog, QList<QRect>({QRect(10, 10, 50, 60), QRect(10, 10, 20, 20)}));
    QCOMPARE(leaf.getStoredPosition(), QPoint(10, 10));
    // The record stays after a reject.
    leaf.setRectangle(QRect(0, 0, 5, 5));
    leaf.rejectTransform();
    QCOMPARE(leaf.getRectangle(), QRect(10, 10, 20, 20));
}

void tst_TransformSceneObject::conversions()
{
    QUuid const root = TestScene::addContainer(QUuid(), QRect(100, 50, 200, 150));
    QUuid const group = TestScene::addContainer(root, QRect(10, 20, 100, 80));
    QUuid const item = TestScene::addLeaf(group, QRect(5, 6, 10, 10));
    TransformSceneObject *top = TestScene::object(root);
    TransformSceneObject *middle = TestScene::object(group);
    TransformSceneObject *leaf = TestScene::object(item);

    QCOMPARE(leaf->rootRectangle(), QRect(115, 76, 10, 10));
    QCOMPARE(middle->rootRectangle(), QRect(110, 70, 100, 80));
    QCOMPARE(top->rootRectangle(), QRect(100, 50, 200, 150));
    QCOMPARE(leaf->rectToRoot(QRect(0, 0, 1, 1)), QRect(110, 70, 1, 1));

    // Points are in the object's own coordinates: its own position counts.
    QCOMPARE(leaf->pointToRoot(QPoint(1, 1)), QPoint(116, 77));
    QCOMPARE(top->pointToRoot(QPoint(1, 1)), QPoint(1, 1));
    // The way back adds the own position too: not an inverse.
    QCOMPARE(leaf->pointFromRoot(QPoint(200, 200)), QPoint(95, 136));
    QCOMPARE(leaf->rectFromRoot(QRect(200, 200, 4, 4)), QRect(95, 136, 4, 4));
    QCOMPARE(top->pointFromRoot(QPoint(200, 200)), QPoint(200, 200));
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
    QUuid const inner = SceneManager::i().createObject("Orphan");
    Orphan *middle = orphan(outer);
    Orphan *leaf = orphan(inner);
    middle->setRectangle(QRect(100, 100, 50, 50));
    leaf->setRectangle(QRect(5, 5, 10, 10));

    // Directly under a parent that is no transform object: no offset at all.
    leaf->fakeParent = plain;
    QCOMPARE(leaf->rootRectangle(), QRect(5, 5, 10, 10));
    QCOMPARE(leaf->pointToRoot(QPoint(1, 1)), QPoint(1, 1));
    QCOMPARE(leaf->pointFromRoot(QPoint(1, 1)), QPoint(1, 1));
    QCOMPARE(leaf->rectFromRoot(QRect(1, 1, 2, 2)), QRect(1, 1, 2, 2));
    // The same for a parent that resolves to nothing.
    leaf->fakeParent = QUuid::createUuid();
    QCOMPARE(leaf->rootRectangle(), QRect(5, 5, 10, 10));
    QCOMPARE(leaf->pointToRoot(QPoint(1, 1)), QPoint(1, 1));
    QCOMPARE(leaf->visibleRectangle(), QRect(5, 5, 10, 10));

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
    QTest::newRow("inside") << top << middle << QRect(5, 5, 10, 10) << QRect(5, 5, 10, 10);
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
    QUuid const group = TestScene::addContainer(root, middle);
    QUuid const item = TestScene::addLeaf(group, leaf);
    QRect const visible = TestScene::object(item)->visibleRectangle();
    QCOMPARE(visible, expected);
    if (expected.isNull())
        QCOMPARE(visible, QRect());
    // A root is not clipped.
    QCOMPARE(TestScene::object(root)->visibleRectangle(), top);
}

void tst_TransformSceneObject::pickByPoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("clip");
    QTest::addColumn<QString>("shielded");
    QTest::addColumn<QString>("exclude");
    QTest::addColumn<QString>("expected");

    // Objects by one letter: R, A, 1 (A1), 2 (A2), B. "shielded" holds "<flag>:<objects>"
    // with the flag l (locked), h (hidden) or r (rejects picks).
    QTest::newRow("the later sibling wins") << QPoint(40, 40) << true << ""
                                            << ""
                                            << "2";
    QTest::newRow("only the earlier sibling") << QPoint(15, 15) << true << ""
                                              << ""
                                              << "1";
    QTest::newRow("the group between its children") << QPoint(90, 90) << true << ""
                                                    << ""
                                                    << "A";
    QTest::newRow("the root") << QPoint(5, 5) << true << ""
                              << ""
                              << "R";
    QTest::newRow("nothing") << QPoint(300, 300) << false << ""
                             << ""
                             << "";
    QTest::newRow("the group's edge counts") << QPoint(109, 109) << true << ""
                                             << ""
                                             << "A";
    QTest::newRow("just past the group") << QPoint(110, 110) << true << ""
                                         << ""
                                         << "R";
    QTest::newRow("outside the parent, no clip") << QPoint(220, 220) << false << ""
                                                 << ""
                                                 << "B";
    QTest::newRow("outside the parent, clipped") << QPoint(220, 220) << true << ""
                                                 << ""
                                                 << "";
    QTest::newRow("locked child, sibling beneath") << QPoint(40, 40) << true << "l:2"
                                                   << ""
                                                   << "1";
    QTest::newRow("locked parent hides all") << QPoint(40, 40) << true << "l:A"
                                             << ""
                                             << "R";
    QTest::newRow("hidden child") << QPoint(40, 40) << true << "h:2"
                                  << ""
                                  << "1";
    QTest::newRow("hidden root") << QPoint(40, 40) << true << "h:R"
                                 << ""
                                 << "";
    QTest::newRow("child rejecting picks") << QPoint(40, 40) << true << "r:2"
                                           << ""
                                           << "1";
    QTest::newRow("root rejecting picks") << QPoint(40, 40) << true << "r:R"
                                          << ""
                                          << "";
    QTest::newRow("excluded hit") << QPoint(40, 40) << true << ""
                                  << "2"
                                  << "1";
    QTest::newRow("both excluded") << QPoint(40, 40) << true << ""
                                   << "21"
                                   << "A";
    // An excluded group does not stop the search below it.
    QTest::newRow("excluded group") << QPoint(40, 40) << true << ""
                                    << "A"
                                    << "2";
    QTest::newRow("all excluded up to the root") << QPoint(40, 40) << true << ""
                                                 << "A12"
                                                 << "R";
    QTest::newRow("everything excluded") << QPoint(40, 40) << true << ""
                                         << "RA12"
                                         << "";
}

void tst_TransformSceneObject::pickByPoint()
{
    QFETCH(QPoint, point);
    QFETCH(bool, clip);
    QFETCH(QString, shielded);
    QFETCH(QString, exclude);
    QFETCH(QString, expected);

    _buildPickScene();
    QHash<QChar, QUuid> const ids{{'R', R}, {'A', A}, {'1', A1}, {'2', A2}, {'B', B}};
    if (!shielded.isEmpty()) {
        QChar const flag = shielded.at(0);
        for (QChar const name : shielded.mid(2)) {
            if (flag == 'l')
                lock(ids.value(name));
            else if (flag == 'h')
                lock(ids.value(name), "editorHidden");
            else
                TestScene::object(ids.value(name))->rejectPick = true;
        }
    }
    QList<QUuid> excluded;
    for (QChar const name : exclude)
        excluded.append(ids.value(name));

    QUuid const hit = TestScene::object(R)->pick(point, clip, excluded);
    QCOMPARE(ids.key(hit, '-'), expected.isEmpty() ? QChar('-') : expected.at(0));
    QCOMPARE(hit.isNull(), expected.isEmpty());
}

void tst_TransformSceneObject::pickByPointFromInnerNode()
{
    _buildPickScene();
    TransformSceneObject *group = TestScene::object(A);
    // The point is in root coordinates wherever the pick starts.
    QCOMPARE(group->pick(QPoint(40, 40), true, {}), A2);
    QCOMPARE(group->pick(QPoint(100, 100), true, {}), A);
    QCOMPARE(group->pick(QPoint(5, 5), false, {}), QUuid());
    QCOMPARE(TestScene::object(A1)->pick(QPoint(40, 40), true, {}), A1);
    QCOMPARE(TestScene::object(A1)->pick(QPoint(40, 40), true, {A1}), QUuid());
}

void tst_TransformSceneObject::pickByRectangle()
{
    _buildPickScene();
    TransformSceneObject *root = TestScene::object(R);
    TransformSceneObject *group = TestScene::object(A);

    QCOMPARE(root->pick(QRect(0, 0, 5, 5), true, {}), QList<QUuid>({R}));
    // Children before their parents, the later child first.
    QCOMPARE(group->pick(QRect(35, 35, 2, 2), true, {}), QList<QUuid>({A2, A1, A}));
    // The group's answer of three ids is appended once per id: three times over.
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {}),
             QList<QUuid>({A2, A1, A, A2, A1, A, A2, A1, A, R}));
    // An excluded id leaves the answers out and cuts the repetitions.
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {A1}), QList<QUuid>({A2, A, A2, A, R}));
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {R}),
             QList<QUuid>({A2, A1, A, A2, A1, A, A2, A1, A}));
    // Wider than the group: B too, with its one id once.
    QCOMPARE(root->pick(QRect(100, 100, 60, 60), true, {}), QList<QUuid>({B, A, R}));

    // Outside the root: only without clipping.
    QCOMPARE(root->pick(QRect(210, 210, 5, 5), true, {}), QList<QUuid>());
    QCOMPARE(root->pick(QRect(210, 210, 5, 5), false, {}), QList<QUuid>({B}));

    lock(A);
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {}), QList<QUuid>({R}));
    lock(R, "editorHidden");
    QCOMPARE(root->pick(QRect(35, 35, 2, 2), true, {}), QList<QUuid>());
}

QTEST_MAIN(tst_TransformSceneObject)
#include "tst_TransformSceneObject.moc"
