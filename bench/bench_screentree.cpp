// SPDX-License-Identifier: MIT
// The screen tree over a screen of 2,000 objects, shown as in the dock: building it anew,
// showing a selection of 1,000 objects made elsewhere, and a click that replaces such a
// selection; and the tree following a move of such a selection.
#include "BenchReport.h"
#include "BenchScene.h"

#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/Utils.h"
#include "support/TestScene.h"
#include "windows/ScreenTree.h"
#include "windows/ScreenTreeWindow.h"

#include <QApplication>
#include <QRandomGenerator>
#include <QTreeWidgetItemIterator>
#include <QtTest>

using namespace TES;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Bench::BenchReport const report(5);
    QRandomGenerator random(7);

    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
    new SelectionManager();
    Test::TestScene::registerFactories();

    QList<QUuid> const objects = Bench::BenchScene::AddScreen(80);
    SceneManager::i().setScreenVisible(SceneManager::i().screens().last(), true);
    auto *window = new ScreenTreeWindow();
    ScreenTree *tree = window->tree();
    window->resize(300, 800);
    window->show();
    QCoreApplication::processEvents();
    int items = 0;
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        ++items;
    std::printf("screen tree: %d items for %d objects\n", items, int(objects.size()));

    double const rebuild = report.medianNanoseconds([&] {
        tree->rebuild();
        return qint64(-1);
    });
    report.print("screentree.rebuild.2000_objects", rebuild / 1e6, "ms");

    QList<QUuid> selection = objects;
    std::shuffle(selection.begin(), selection.end(), random);
    selection = selection.mid(0, 1000);
    double const select = report.medianNanoseconds([&] {
        SelectionManager::i().deselectAll();
        QElapsedTimer timer;
        timer.start();
        SelectionManager::i().select(selection);
        return timer.nsecsElapsed();
    });
    report.print("screentree.select.1000_objects", select / 1e6, "ms");

    // A plain click on one item while 1,000 are selected: one change back to SelectionManager.
    QTreeWidgetItem *item = tree->findItem(objects.first());
    double const click = report.medianNanoseconds([&] {
        SelectionManager::i().select(selection);
        tree->scrollToItem(item);
        QElapsedTimer timer;
        timer.start();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(item).center());
        qint64 const elapsed = timer.nsecsElapsed();
        return SelectionManager::i().selected() == QList<QUuid>{objects.first()} ? elapsed : 0;
    });
    report.print("screentree.click_replacing.1000_selected", click / 1e6, "ms");

    // 1,000 selected objects one place down, as the tool bar moves them: a move event and a
    // refresh per object, and no rebuild. Timed until the refreshes queued by the tree have
    // been delivered too; with the window's tool bar following each event, and without.
    auto moveDown = [&] {
        SelectionManager::i().select(selection);
        QElapsedTimer timer;
        timer.start();
        Utils::MoveObjectsDown(Utils::SortObjects(selection));
        EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_USER, 0));
        return timer.nsecsElapsed();
    };
    Bench::BenchReport const slow(1);
    slow.print("screentree.move_down.1000_objects", slow.medianNanoseconds(moveDown) / 1e6, "ms");
    EventBus::i().removeHandler(window);
    slow.print("screentree.move_down.1000_objects.tree_alone",
               slow.medianNanoseconds(moveDown) / 1e6, "ms");

    delete window;
    SelectionManager::destroy();
    SceneManager::destroy();
    EventBus::destroy();
    return 0;
}
