// SPDX-License-Identifier: MIT
// The scene model at scale: a design of 50 screens with 200 objects each, in trees three
// levels deep, plus one screen of 2,000 objects for picking and selections.
#include "BenchReport.h"
#include "BenchScene.h"

#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/Utils.h"
#include "support/TestScene.h"
#include "support/TestScreen.h"

#include <QApplication>
#include <QRandomGenerator>

using namespace TES;
using TES::Test::TestScene;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Bench::BenchReport const report(5);
    QRandomGenerator random(7);

    new EventBus();
    new SceneManager();
    new SelectionManager();
    TestScene::registerFactories();

    QList<QUuid> all = Bench::BenchScene::AddDesign();
    QList<QUuid> const big = Bench::BenchScene::AddScreen(80);
    all += big;
    QUuid const bigScreen = SceneManager::i().screens().last();
    std::printf("scene: %d objects on %u screens\n", int(all.size()),
                SceneManager::i().screenCount());

    int const lookups = 2000;
    double const lookup = report.medianNanoseconds([&] {
        int found = 0;
        for (int index = 0; index < lookups; ++index)
            found += !SceneManager::i().getObject(all.at(random.bounded(all.size()))).isNull();
        return qint64(found == lookups ? -1 : 0);
    });
    report.print("scene.get_object", lookup / lookups, "ns");

    Screen *screen = SceneManager::i().screen(bigScreen).toStrongRef().data();
    int const points = 200;
    double const pointPick = report.medianNanoseconds([&] {
        for (int index = 0; index < points; ++index)
            screen->pick(QPoint(random.bounded(480), random.bounded(272)), true, {});
        return qint64(-1);
    });
    report.print("scene.pick_point.2000_objects", pointPick / points / 1000.0, "us");

    int const rects = 20;
    double const rectPick = report.medianNanoseconds([&] {
        for (int index = 0; index < rects; ++index)
            screen->pick(QRect(random.bounded(400), random.bounded(200), 80, 60), true, {});
        return qint64(-1);
    });
    report.print("scene.pick_rect.2000_objects", rectPick / rects / 1000.0, "us");

    QList<QUuid> selection = big;
    std::shuffle(selection.begin(), selection.end(), random);
    selection = selection.mid(0, 1000);

    Bench::BenchReport const slow(3);
    double const trim = slow.medianNanoseconds(
        [&] { return qint64(Utils::TrimToAncestors(selection).isEmpty() ? 0 : -1); });
    slow.print("scene.trim_to_ancestors.1000_ids", trim / 1e6, "ms");

    double const sort = slow.medianNanoseconds(
        [&] { return qint64(Utils::SortObjects(selection).isEmpty() ? 0 : -1); });
    slow.print("scene.sort_objects.1000_ids", sort / 1e6, "ms");

    // With the bus on, so that the selection's one event is delivered too.
    EventBus::i().setEventsEnabled(true);
    double const select = report.medianNanoseconds([&] {
        SelectionManager::i().deselectAll();
        QElapsedTimer timer;
        timer.start();
        SelectionManager::i().select(selection);
        return timer.nsecsElapsed();
    });
    report.print("selection.select.1000_ids", select / 1e6, "ms");

    SelectionManager::destroy();
    SceneManager::destroy();
    EventBus::destroy();
    return 0;
}
