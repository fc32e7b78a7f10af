// SPDX-License-Identifier: MIT
// The design surface at scale: one screen of 2,000 objects. A drag step of the transform tool
// with 100 of them selected, from the mouse move to the repaint of the screen's picture, and a
// rubber band over the whole screen, from the press to the repaint after the selection.
#include "BenchReport.h"
#include "BenchScene.h"

#include "data/KeyValueMap.h"
#include "designer/ScreenDesignArea.h"
#include "designer/ScreenOverlay.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "support/DesignSurface.h"
#include "tools/ToolManager.h"
#include "tools/TransformTool.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QRandomGenerator>

#include <algorithm>

using namespace TES;
using TES::Test::DesignSurface;

namespace {

// Counts the paint events of the screen's overlay.
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    int paints = 0;
};

// Runs the event loop until the screen's overlay has painted again, for at most a second.
void waitForPaint(PaintCounter const &counter, int before)
{
    QElapsedTimer limit;
    limit.start();
    while (counter.paints == before && limit.elapsed() < 1000)
        QCoreApplication::processEvents();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Bench::BenchReport const report(5);
    QRandomGenerator random(7);

    DesignSurface surface;
    QList<QUuid> all = Bench::BenchScene::AddScreen(80);
    QUuid const screen = SceneManager::i().screens().last();
    SceneManager::i().setScreenVisible(screen, true);
    std::printf("designer: %d objects on the screen\n", int(all.size()));

    PaintCounter counter;
    surface.area().getOverlayWidget(OverlayScreen)->installEventFilter(&counter);
    QCoreApplication::processEvents();

    // A rubber band from corner to corner of the page.
    QRect const page = ScreenOverlay::i().screenRect();
    double const band = report.medianNanoseconds([&] {
        SelectionManager::i().deselectAll();
        QCoreApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        int const before = counter.paints;
        surface.press(page.topLeft() - QPoint(2, 2));
        surface.move(page.center());
        surface.move(page.bottomRight() + QPoint(2, 2));
        surface.release(page.bottomRight() + QPoint(2, 2));
        waitForPaint(counter, before);
        qint64 const elapsed = timer.nsecsElapsed();
        return SelectionManager::i().selectedCount() == unsigned(all.size()) ? elapsed : 0;
    });
    report.print("designer.rubber_band.2000_objects", band / 1e6, "ms");

    std::shuffle(all.begin(), all.end(), random);
    SelectionManager::i().select(all.mid(0, 100));
    ToolManager::i().activate("transform", KeyValueMap());
    auto *tool = qobject_cast<TransformTool *>(ToolManager::i().activeTool());
    QPoint const start = tool->boundingBox().center();
    int const steps = 40;
    double const drag = report.medianNanoseconds([&] {
        surface.press(start);
        qint64 total = 0;
        for (int step = 1; step <= steps; ++step) {
            QElapsedTimer timer;
            timer.start();
            int const before = counter.paints;
            surface.move(start + QPoint(step, step / 2));
            waitForPaint(counter, before);
            total += timer.nsecsElapsed();
        }
        surface.release(start + QPoint(steps, steps / 2));
        return total / steps;
    });
    report.print("designer.drag_step.100_of_2000_selected", drag / 1e6, "ms");
    return 0;
}
