// SPDX-License-Identifier: MIT
#include "support/GoldenImage.h"
#include "widgets/ImageColorPicker.h"
#include "widgets/ImagePainter.h"
#include "widgets/ImagePicker.h"
#include "widgets/ImageViewer.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <QtTest>

using namespace TES;

class tst_ImageViewers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<uint32_t>("uint32_t"); }
    void pickAtZoom_data();
    void pickAtZoom();
    void viewerZoomsAndPaints();
};

// A wheel turn over the scroll area's viewport, where the turns over the image arrive too.
static void wheel(QWidget *widget, int delta)
{
    QPointF const at(widget->width() / 2.0, widget->height() / 2.0);
    QWheelEvent event(at, widget->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void tst_ImageViewers::pickAtZoom_data()
{
    QTest::addColumn<int>("zoomIns");
    QTest::addColumn<int>("zoomOuts");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<QPoint>("pixel");

    // A 5 by 3 image; a zoom of z shows it at int(5z) by int(3z).
    QTest::newRow("1.0 last column") << 0 << 0 << QSize(5, 3) << QPoint(4, 0) << QPoint(4, 0);
    QTest::newRow("1.0 middle") << 0 << 0 << QSize(5, 3) << QPoint(2, 1) << QPoint(2, 1);
    // Not below 1: three steps out from 1.2 end at 1.
    QTest::newRow("out to 1.0") << 1 << 3 << QSize(5, 3) << QPoint(1, 2) << QPoint(1, 2);
    // 7 by 4: x 3 of 7 is 2.14 pixels in, y 2 of 4 is 1.5.
    QTest::newRow("1.4") << 2 << 0 << QSize(7, 4) << QPoint(3, 2) << QPoint(2, 1);
    QTest::newRow("1.4 last column") << 2 << 0 << QSize(7, 4) << QPoint(6, 3) << QPoint(4, 2);
    QTest::newRow("2.0") << 5 << 0 << QSize(10, 6) << QPoint(3, 1) << QPoint(1, 0);
    QTest::newRow("2.0 last column") << 5 << 0 << QSize(10, 6) << QPoint(9, 5) << QPoint(4, 2);
    // 12 by 7: 8 of 12 is 3.33, 4 of 7 is 1.71.
    QTest::newRow("2.4") << 7 << 0 << QSize(12, 7) << QPoint(8, 4) << QPoint(3, 1);
}

void tst_ImageViewers::pickAtZoom()
{
    QFETCH(int, zoomIns);
    QFETCH(int, zoomOuts);
    QFETCH(QSize, size);
    QFETCH(QPoint, at);
    QFETCH(QPoint, pixel);

    QImage image(5, 3, QImage::Format_ARGB32);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 5; ++x)
            image.setPixelColor(x, y, QColor(40 * x, 80 * y, 200));
    }
    ImageColorPicker picker;
    picker.setImage(image);
    picker.setIndex(99);
    picker.show();
    auto *canvas = picker.findChild<ImagePicker *>();
    QCOMPARE(canvas->size(), QSize(5, 3));
    QCOMPARE(picker.getIndex(), 99u);

    QList<QAction *> const actions = picker.findChild<QToolBar *>()->actions();
    auto click = [&](int action) {
        QTest::mouseClick(picker.findChild<QToolBar *>()->widgetForAction(actions.at(action)),
                          Qt::LeftButton);
    };
    for (int i = 0; i < zoomIns; ++i)
        click(0);
    for (int i = 0; i < zoomOuts; ++i)
        click(1);
    QCOMPARE(canvas->size(), size);

    QSignalSpy picked(&picker, &ImageColorPicker::indexSelected);
    QTest::mouseClick(canvas, Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(picked.count(), 1);
    uint32_t const index = uint32_t(5 * pixel.y() + pixel.x());
    QCOMPARE(picked.first().at(0).value<uint32_t>(), index);
    QCOMPARE(picked.first().at(1).value<QColor>(), QColor(40 * pixel.x(), 80 * pixel.y(), 200));
    QCOMPARE(picker.getIndex(), index);

    // A new image takes its own size whatever the zoom; reset goes back to 1 from there.
    picker.setImage(image.scaled(5, 5));
    QCOMPARE(canvas->size(), QSize(5, 5));
    click(2);
    click(0);
    QCOMPARE(canvas->size(), QSize(6, 6));
}

void tst_ImageViewers::viewerZoomsAndPaints()
{
    // Left half opaque red, right half transparent: the checkerboard of 10 pixel cells shows.
    QImage image(40, 80, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 20; ++x)
            image.setPixelColor(x, y, Qt::red);
    }
    ImageViewer viewer;
    viewer.resize(120, 120);
    viewer.setImage(image, false);
    viewer.show();
    auto *painter = viewer.findChild<ImagePainter *>();
    auto *area = viewer.findChild<QScrollArea *>();
    QCOMPARE(painter->size(), QSize(40, 80));

    for (int i = 0; i < 5; ++i)
        wheel(area->viewport(), 120);
    QCOMPARE(painter->size(), QSize(80, 160));
    QImage shown = painter->grab().toImage();
    QString const why = Test::GoldenImage::compare(shown, "widgets/golden/image_viewer_zoom2.png");
    QVERIFY2(why.isEmpty(), qPrintable(why));
    QCOMPARE(shown.pixelColor(39, 159), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(45, 5), QColor(Qt::gray));
    QCOMPARE(shown.pixelColor(55, 5), QColor(Qt::lightGray));

    // The wheel zooms and never scrolls; a viewer goes below 1.
    QScrollBar *bar = area->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    wheel(area->viewport(), -120);
    wheel(area, -120);
    QCOMPARE(bar->value(), 0);
    QCOMPARE(painter->size(), QSize(64, 128));
    for (int i = 0; i < 10; ++i)
        wheel(area->viewport(), -120);
    QCOMPARE(painter->size(), QSize(8, 16));

    viewer.setPaintChecker(false);
    viewer.setImage(image, true);
    QCOMPARE(painter->size(), QSize(40, 80));
    shown = painter->grab().toImage();
    QCOMPARE(shown.pixelColor(5, 5), QColor(Qt::red));
    QVERIFY(shown.pixelColor(30, 5) != QColor(Qt::gray));
    QVERIFY(shown.pixelColor(30, 5) != QColor(Qt::lightGray));
}

QTEST_MAIN(tst_ImageViewers)
#include "tst_ImageViewers.moc"
