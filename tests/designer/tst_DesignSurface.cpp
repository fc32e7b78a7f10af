// SPDX-License-Identifier: MIT
#include "designer/BackgroundOverlay.h"
#include "designer/ScreenDesignArea.h"
#include "designer/ScreenDesignerWindow.h"
#include "designer/ScreenOverlay.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "support/DesignSurface.h"
#include "support/TestScene.h"

#include <QTabBar>
#include <QtTest>

using namespace TES;
using TES::Test::DesignSurface;
using TES::Test::TestScene;
using Ids = QList<QUuid>;

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

class tst_DesignSurface : public QObject
{
    Q_OBJECT

private slots:
    void coordinatesAndSlots();
    void screenIsPainted();
    void tabsFollowScreens();
    void rubberBand_data();
    void rubberBand();
};

void tst_DesignSurface::coordinatesAndSlots()
{
    DesignSurface surface;
    ScreenOverlay &overlay = ScreenOverlay::i();
    surface.area().overlayContainer()->setFixedSize(1001, 501);
    QTRY_COMPARE(overlay.overlayWidget()->size(), QSize(1001, 501));
    QCOMPARE(overlay.screenRect(), QRect(QPoint(261, 115), QPoint(740, 386)));
    QPoint const p(-7, 300);
    QCOMPARE(ScreenOverlay::toScreenCoords(ScreenOverlay::toWidgetCoords(p)), p);
    QCOMPARE(ScreenOverlay::toScreenCoords(QRect(0, 0, 10, 10)), QRect(261, 115, 10, 10));

    // Sized as a plug-in sizes it, the design sits at the paddings.
    surface.sizeContainer();
    QTRY_COMPARE(overlay.overlayWidget()->size(), QSize(480 + 74, 272 + 46));
    QCOMPARE(overlay.screenRect(), QRect(37, 23, 480, 272));
    QCOMPARE(ScreenOverlay::toWidgetCoords(QPoint(37, 23)), QPoint(0, 0));

    ScreenDesignArea &area = surface.area();
    BackgroundOverlay first;
    BackgroundOverlay second;
    QVERIFY(area.attachOverlay(6, &first));
    QVERIFY(!area.attachOverlay(6, &first));
    QVERIFY(!area.attachOverlay(8, &first));
    QVERIFY(!area.detatchIfOwned(6, &second));
    QVERIFY(area.attachOverlay(6, &second));
    QCOMPARE(area.getOverlayOwner(6), &second);
    QVERIFY(area.detachOverlay(6));
    QVERIFY(!area.detachOverlay(6));
    QVERIFY(!area.isOverlayOwned(6) && !area.isOverlayOwned(9));
}

void tst_DesignSurface::screenIsPainted()
{
    DesignSurface surface;
    QUuid const screen = surface.addScreen("main");
    QUuid const item = TestScene::addLeaf(screen, QRect(30, 40, 50, 20));
    QCOMPARE(surface.area().getOverlayOwner(OverlayScreen), &ScreenOverlay::i());
    QRect const drawn = DesignSurface::onSurface(item);
    QImage const image = surface.area().overlayContainer()->grab().toImage();
    QCOMPARE(image.pixelColor(drawn.topLeft()), QColor(Qt::black));
    QCOMPARE(image.pixelColor(drawn.center()), QColor(Qt::white));

    // Hiding the only screen leaves none active: the picture goes.
    SceneManager::i().setScreenVisible(screen, false);
    QTRY_VERIFY(!surface.area().isOverlayOwned(OverlayScreen));
}

void tst_DesignSurface::tabsFollowScreens()
{
    DesignSurface surface;
    QTabBar *tabs = surface.window().tabBar();
    SceneManager &scene = SceneManager::i();
    auto texts = [tabs] {
        QStringList names;
        for (int index = 0; index < tabs->count(); ++index)
            names << tabs->tabText(index);
        return names;
    };
    QVERIFY(!tabs->isVisible());
    QUuid const first = surface.addScreen("first");
    QVERIFY(tabs->isVisible());
    QUuid const second = surface.addScreen("second");
    QUuid const third = surface.addScreen("third");
    QCOMPARE(texts(), QStringList({"first", "second", "third"}));
    // A shown screen's tab is selected quietly: the first shown stays active.
    QCOMPARE(tabs->currentIndex(), 2);
    QCOMPARE(scene.getActiveScreen(), first);

    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    QCOMPARE(scene.getActiveScreen(), second);
    scene.setActiveScreen(third);
    QCOMPARE(tabs->currentIndex(), 2);
    QVERIFY(scene.setScreenName(second, "renamed"));
    QCOMPARE(texts(), QStringList({"first", "renamed", "third"}));
    scene.setScreenVisible(second, false);
    QCOMPARE(texts(), QStringList({"first", "third"}));

    // Closing the active screen's tab hides it and activates the tab then current.
    QWidget *close = tabs->tabButton(1, QTabBar::RightSide);
    QTest::mouseClick(close, Qt::LeftButton, {}, close->rect().center());
    QCOMPARE(texts(), QStringList({"first"}));
    QVERIFY(!scene.getScreenVisible(third));
    QCOMPARE(scene.getActiveScreen(), first);
    scene.removeScreen(first);
    QVERIFY(texts().isEmpty());
    QVERIFY(scene.getActiveScreen().isNull());
}

void tst_DesignSurface::rubberBand_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QStringList>("after");
    Qt::KeyboardModifiers const none = Qt::NoModifier;
    Qt::KeyboardModifiers const shift = Qt::ShiftModifier;
    Qt::KeyboardModifiers const control = Qt::ControlModifier;
    using L = QStringList;
    // Design coordinates; "a" at (20, 20) and "b" at (80, 20), 30 by 30, "c" at (20, 100).
    QPoint const overAB(120, 60), onA(30, 30), empty(200, 200);
    // In the order of the pick.
    QTest::newRow("band replaces") << L{"c"} << QPoint(10, 10) << overAB << none << L{"b", "a"};
    QTest::newRow("shift adds") << L{"c"} << QPoint(10, 10) << onA << shift << L{"c", "a"};
    QTest::newRow("shift and control add")
        << L{"c"} << QPoint(10, 10) << onA << (shift | control) << L{"c", "a"};
    QTest::newRow("control removes") << L{"a", "b"} << QPoint(10, 10) << onA << control << L{"b"};
    QTest::newRow("empty band clears") << L{"a"} << empty << QPoint(260, 250) << none << L{};
    QTest::newRow("empty band, shift") << L{"a"} << empty << QPoint(260, 250) << shift << L{"a"};
    QTest::newRow("3 by 3 is a click") << L{"c"} << onA << QPoint(32, 32) << none << L{"a"};
    // A click at its start would hit nothing.
    QTest::newRow("4 by 1 is a band")
        << L{"c"} << QPoint(17, 30) << QPoint(20, 30) << none << L{"a"};
    QTest::newRow("control click") << L{"a", "b"} << onA << onA << control << L{"b"};
    QTest::newRow("control click, empty") << L{"a"} << empty << empty << control << L{"a"};
    // Unnormalised: dragged up and to the left, it is a click at its start.
    QTest::newRow("up-left is a click")
        << L{"a"} << QPoint(130, 70) << QPoint(10, 10) << none << L{};
}

void tst_DesignSurface::rubberBand()
{
    QFETCH(QStringList, before);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QStringList, after);
    DesignSurface surface;
    QUuid const screen = surface.addScreen("main");
    QMap<QString, QUuid> ids;
    ids["a"] = TestScene::addLeaf(screen, QRect(20, 20, 30, 30), "a");
    ids["b"] = TestScene::addLeaf(screen, QRect(80, 20, 30, 30), "b");
    ids["c"] = TestScene::addLeaf(screen, QRect(20, 100, 30, 30), "c");
    Ids selection;
    for (QString const &name : before)
        selection << ids[name];
    SelectionManager::i().select(selection);

    surface.drag(ScreenOverlay::toScreenCoords(from), ScreenOverlay::toScreenCoords(to), modifiers);
    QStringList selected;
    for (QUuid const &id : SelectionManager::i().selected())
        selected << ids.key(id);
    QCOMPARE(selected, after);
}

QTEST_MAIN(tst_DesignSurface)
#include "tst_DesignSurface.moc"
