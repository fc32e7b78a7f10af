// SPDX-License-Identifier: MIT
#include "data/KeyValueMap.h"
#include "designer/ScreenDesignArea.h"
#include "designer/ScreenOverlay.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/Utils.h"
#include "support/DesignSurface.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"
#include "tools/ITransformToolDelegate.h"
#include "tools/ToolManager.h"
#include "tools/TransformTool.h"
#include "tools/TransformToolExtender.h"

#include <QtTest>

using namespace TES;
using TES::Test::DesignSurface;
using TES::Test::TestScene;

namespace {

// A plug-in's reparenting: containers take anything, and the move keeps objects in place.
class Delegate : public ITransformToolDelegate
{
public:
    bool canReparent(QUuid const &target, QList<QUuid> const &) override
    {
        return allow && TestScene::container(target);
    }
    void reparent(QUuid const &target, QList<QUuid> const &objects) override
    {
        for (QUuid const &id : objects)
            Utils::ReparentAndTranslate(id, target);
    }
    bool allow = true;
};

QRect rectOf(QUuid const &id)
{
    return TestScene::object(id)->getRectangle();
}

} // namespace

class tst_TransformTool : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void moveByDrag();
    void scaleByGrip_data();
    void scaleByGrip();
    void nudgeAndDelete();
    void reparentWithControl();

private:
    // Selects the ids and has the plug-in tell the tool, as the host leaves it to do.
    void select(QList<QUuid> const &ids);
    TransformTool *tool() const;

    DesignSurface *_surface = nullptr;
    QUuid _screen;
    QUuid _group;
    QUuid _inner;
    QUuid _loose;
};

void tst_TransformTool::init()
{
    _surface = new DesignSurface();
    _screen = _surface->addScreen("main");
    _group = TestScene::addContainer(_screen, QRect(10, 10, 200, 100), "group");
    _inner = TestScene::addLeaf(_group, QRect(5, 5, 20, 20), "inner");
    _loose = TestScene::addLeaf(_screen, QRect(300, 150, 40, 30), "loose");
    ToolManager::i().activate("transform", KeyValueMap());
}

void tst_TransformTool::cleanup()
{
    delete _surface;
}

void tst_TransformTool::select(QList<QUuid> const &ids)
{
    SelectionManager::i().select(ids);
    ToolManager::i().update();
}

TransformTool *tst_TransformTool::tool() const
{
    return qobject_cast<TransformTool *>(ToolManager::i().activeTool());
}

void tst_TransformTool::moveByDrag()
{
    // The paddings put the design away from the overlay's origin.
    QPoint const origin = ScreenOverlay::i().screenRect().topLeft();
    QVERIFY(origin.x() > 0 && origin.y() > 0);

    select({_loose});
    QRect const box = DesignSurface::onSurface(_loose);
    QCOMPARE(tool()->boundingBox(), box);
    // The tool paints above the screen: its red width line over the white page.
    QImage const image = _surface->area().overlayContainer()->grab().toImage();
    QColor const line = image.pixelColor(box.center().x(), box.top() - 10);
    QVERIFY2(line.red() > 100 && line.green() < 80 && line.blue() < 80, qPrintable(line.name()));
    _surface->drag(box.center(), box.center() + QPoint(13, -7));
    QCOMPARE(rectOf(_loose), QRect(313, 143, 40, 30));
    QCOMPARE(tool()->boundingBox(), box.translated(13, -7));
    // The press stayed with the tool: no rubber band selected anything else.
    QCOMPARE(SelectionManager::i().selected(), QList<QUuid>{_loose});

    // Parent and child selected: only the parent moves, the child goes along with it.
    select({_inner, _group});
    QVERIFY(tool()->isTopMostObject(_group) && !tool()->isTopMostObject(_inner));
    TestScene::object(_inner)->rectangleLog.clear();
    QPoint const start = DesignSurface::onSurface(_group).topLeft() + QPoint(100, 60);
    _surface->drag(start, start + QPoint(-4, 9));
    QCOMPARE(rectOf(_group), QRect(6, 19, 200, 100));
    QVERIFY(TestScene::object(_inner)->rectangleLog.isEmpty());
    QCOMPARE(DesignSurface::onSurface(_inner).topLeft(), origin + QPoint(11, 24));

    // A click on the box without a move selects what lies under it, after the event.
    QPoint const onInner = DesignSurface::onSurface(_inner).center();
    _surface->press(onInner);
    _surface->release(onInner);
    QCOMPARE(SelectionManager::i().selected(), (QList<QUuid>{_inner, _group}));
    select({_group});
    _surface->press(onInner);
    _surface->release(onInner);
    QTRY_COMPARE(SelectionManager::i().selected(), QList<QUuid>{_inner});
}

void tst_TransformTool::scaleByGrip_data()
{
    QTest::addColumn<int>("grip");
    QTest::addColumn<QPoint>("drag");
    QTest::addColumn<QRect>("expected");
    // "loose" stands at (300, 150), 40 by 30.
    QTest::newRow("top left") << 0 << QPoint(-5, -6) << QRect(295, 144, 45, 36);
    QTest::newRow("top middle") << 1 << QPoint(8, 4) << QRect(300, 154, 40, 26);
    QTest::newRow("top right") << 2 << QPoint(5, 4) << QRect(300, 154, 45, 26);
    QTest::newRow("middle left") << 3 << QPoint(7, 9) << QRect(307, 150, 33, 30);
    QTest::newRow("middle right") << 4 << QPoint(-7, 9) << QRect(300, 150, 33, 30);
    QTest::newRow("bottom left") << 5 << QPoint(3, 2) << QRect(303, 150, 37, 32);
    QTest::newRow("bottom middle") << 6 << QPoint(9, -10) << QRect(300, 150, 40, 20);
    QTest::newRow("bottom right") << 7 << QPoint(6, 6) << QRect(300, 150, 46, 36);
    // Past the opposite edge: one pixel, that edge staying where it was.
    QTest::newRow("left past right") << 3 << QPoint(60, 0) << QRect(339, 150, 1, 30);
    QTest::newRow("bottom past top") << 6 << QPoint(0, -50) << QRect(300, 150, 40, 1);
    QTest::newRow("top right past both") << 2 << QPoint(-80, 80) << QRect(300, 179, 1, 1);
}

void tst_TransformTool::scaleByGrip()
{
    QFETCH(int, grip);
    QFETCH(QPoint, drag);
    QFETCH(QRect, expected);
    select({_loose});
    QRect const box = tool()->boundingBox();
    // The grips' corners, by the tool's table, and the centre of each 8 by 8 grip.
    int const l = box.left(), t = box.top(), r = box.right(), b = box.bottom();
    QList<QPoint> const corners = {{l - 3, t - 3},           {(l + r) / 2 - 3, t - 3},
                                   {r - 4, t - 3},           {l - 3, (t + b) / 2 - 3},
                                   {r - 4, (t + b) / 2 - 3}, {l - 3, b - 4},
                                   {(l + r) / 2 - 4, b - 4}, {r - 4, b - 4}};
    QPoint const at = corners.at(grip) + QPoint(4, 4);
    _surface->move(at);
    QVERIFY(_surface->area().getCursor() != Qt::ArrowCursor);
    QVERIFY(_surface->area().getCursor() != Qt::SizeAllCursor);
    _surface->drag(at, at + drag);
    QCOMPARE(rectOf(_loose), expected);
    QCOMPARE(tool()->boundingBox(), DesignSurface::onSurface(_loose));
}

void tst_TransformTool::nudgeAndDelete()
{
    select({_loose, _inner});
    QWidget *input = _surface->input();
    QTest::keyClick(input, Qt::Key_Right);
    QTest::keyClick(input, Qt::Key_Up, Qt::ControlModifier);
    QTest::keyClick(input, Qt::Key_Down);
    QCOMPARE(rectOf(_loose), QRect(310, 159, 40, 30));
    QCOMPARE(rectOf(_inner), QRect(15, 14, 20, 20));
    QCOMPARE(tool()->boundingBox(),
             DesignSurface::onSurface(_inner) | DesignSurface::onSurface(_loose));

    // Deleted on the release of the key, not on the press.
    QTest::keyPress(input, Qt::Key_Delete);
    QVERIFY(TestScene::object(_loose));
    QTest::keyRelease(input, Qt::Key_Delete);
    QVERIFY(!TestScene::object(_loose) && !TestScene::object(_inner));
    QVERIFY(TestScene::object(_group));
    select({_group});
    QTest::keyClick(input, Qt::Key_Backspace);
    QVERIFY(!TestScene::object(_group));
}

void tst_TransformTool::reparentWithControl()
{
    Delegate delegate;
    TransformToolExtender::i()._delegate = &delegate;
    QUuid const inside = TestScene::addContainer(_group, QRect(100, 40, 60, 50), "inside");
    select({_loose});
    QPoint const from = DesignSurface::onSurface(_loose).center();
    QPoint const to = DesignSurface::onSurface(inside).center();

    // Refused: the move happens, the tree stays.
    delegate.allow = false;
    _surface->drag(from, to, Qt::ControlModifier);
    QVERIFY(TestScene::object(_loose)->parent().isNull());
    QCOMPARE(DesignSurface::onSurface(_loose).center(), to);

    // Allowed: over "inside" (not "group", a screen root), it takes the object in place.
    delegate.allow = true;
    QRect const before = TestScene::object(_loose)->rootRectangle();
    _surface->press(to, Qt::ControlModifier);
    _surface->move(to + QPoint(3, 3), Qt::ControlModifier);
    _surface->move(to + QPoint(1, 1), Qt::ControlModifier);
    _surface->release(to + QPoint(1, 1), Qt::ControlModifier);
    QCOMPARE(TestScene::object(_loose)->parent(), inside);
    QCOMPARE(TestScene::object(_loose)->rootRectangle(), before.translated(1, 1));
    TransformToolExtender::i()._delegate = nullptr;
}

QTEST_MAIN(tst_TransformTool)
#include "tst_TransformTool.moc"
