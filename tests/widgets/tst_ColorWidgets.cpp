// SPDX-License-Identifier: MIT
// Mouse events through the window system's path, so that moves carry the pressed button
// the way a real drag does.
#define QTEST_QPA_MOUSE_HANDLING

#include "support/GoldenImage.h"
#include "support/ModalAnswerer.h"
#include "widgets/ColorButton.h"
#include "widgets/ColorEditDialog.h"
#include "widgets/ColorSlider.h"
#include "widgets/ColorWheel.h"
#include "widgets/HexSpinBox.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

// The field a form row shows beside its label.
template<typename Field>
Field *field(QWidget *dialog, QString const &label)
{
    for (QLabel *candidate : dialog->findChildren<QLabel *>()) {
        if (candidate->text() == label)
            return qobject_cast<Field *>(candidate->buddy());
    }
    return nullptr;
}

QVector<int> channels(QWidget *dialog)
{
    return {field<QSpinBox>(dialog, "Red:")->value(), field<QSpinBox>(dialog, "Green:")->value(),
            field<QSpinBox>(dialog, "Blue:")->value(), field<QSpinBox>(dialog, "Alpha:")->value()};
}

void retype(QWidget *spin, QString const &keys)
{
    QTest::keyClick(spin, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(spin, Qt::Key_Backspace);
    QTest::keyClicks(spin, keys);
    QTest::keyClick(spin, Qt::Key_Return);
}

QColor lastColor(QSignalSpy const &spy)
{
    return spy.isEmpty() ? QColor() : spy.last().at(0).value<QColor>();
}

} // namespace

class tst_ColorWidgets : public QObject
{
    Q_OBJECT

private slots:
    void wheel();
    void slider();
    void dialogInRgb565();
    void dialogInRgb332AndGrayscale();
};

void tst_ColorWidgets::wheel()
{
    ColorWheel wheel;
    wheel.setColorMode(ColorWheelMode::RGB565);
    wheel.resize(120, 120);
    wheel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&wheel));
    QSignalSpy changed(&wheel, &ColorWheel::valueChanged);

    // Size 120: radius 120 / 2 - 10 = 50; the image's centre is (58, 58). A click 30 to the
    // right is bearing 0, saturation 1 - 30 / 50 = 0.4: red with green and blue lifted by
    // int(255 * 0.4f) = 101. In RGB565 green stays 101 (25 / 63 * 255 = 101.2) and blue
    // becomes 99 (12 / 31 * 255 = 98.7).
    QTest::mouseClick(&wheel, Qt::LeftButton, {}, QPoint(88, 58));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(lastColor(changed), QColor(255, 101, 99));
    QCOMPARE(wheel.getValue(), QColor(255, 101, 99));
    QCOMPARE(wheel.getCursorPosition(), QPoint(30, 0));

    QImage const image = wheel.grab().toImage();
    QString const why = GoldenImage::compare(image, "widgets/golden/color_wheel_rgb565.png");
    QVERIFY2(why.isEmpty(), qPrintable(why));

    // Outside the disc, inside the widget: pulled onto the rim, pure red.
    QTest::mouseClick(&wheel, Qt::LeftButton, {}, QPoint(116, 58));
    QCOMPARE(wheel.getCursorPosition(), QPoint(50, 0));
    QCOMPARE(lastColor(changed), QColor(255, 0, 0));
    // The centre is white, and no saturation keeps the cursor there.
    QTest::mouseClick(&wheel, Qt::LeftButton, {}, QPoint(58, 58));
    QCOMPARE(wheel.getCursorPosition(), QPoint(0, 0));
    QCOMPARE(lastColor(changed), QColor(Qt::white));
    int const clicks = changed.count();
    wheel.setValue(QColor(Qt::blue), false);
    QCOMPARE(changed.count(), clicks);

    // Too small for a disc: nothing drawn, and no failure.
    wheel.resize(15, 15);
    QCOMPARE(wheel.colorAtPoint(QPoint(1, 0), false), QColor(0, 0, 0, 0));
    QVERIFY(!wheel.grab().isNull());
}

void tst_ColorWidgets::slider()
{
    ColorSlider slider;
    slider.resize(216, 26); // a bar of 216 - 16 = 200 pixels from x = 8
    slider.show();
    QVERIFY(QTest::qWaitForWindowExposed(&slider));
    QSignalSpy changed(&slider, &ColorSlider::valueChanged);

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(58, 13)); // (58 - 8) / 200
    QTest::mouseMove(&slider, QPoint(158, 13));
    QTest::mouseMove(&slider, QPoint(300, 13)); // clamped
    QTest::mouseMove(&slider, QPoint(300, 13)); // no change, no signal
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(300, 13));
    QTest::mouseMove(&slider, QPoint(108, 13)); // not dragging any more
    QTest::mouseClick(&slider, Qt::RightButton, {}, QPoint(108, 13));

    QList<float> values;
    for (QList<QVariant> const &arguments : changed)
        values << arguments.at(0).toFloat();
    QCOMPARE(values, (QList<float>{0.25f, 0.75f, 1.0f}));
    QCOMPARE(slider.getValue(), 1.0f);

    slider.setValue(1.0f, true);
    slider.setValue(0.5f, false);
    QCOMPARE(changed.count(), 3);
    QCOMPARE(slider.getValue(), 0.5f);
}

void tst_ColorWidgets::dialogInRgb565()
{
    ColorEditDialog dialog(QColor(100, 150, 200), ColorWheelMode::RGB565);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QCOMPARE(dialog.windowTitle(), QString("Color Editor (RGB565)"));
    auto *hex = field<HexSpinBox>(&dialog, "Hexadecimal:");
    auto *alpha = field<QSpinBox>(&dialog, "Alpha:");
    QVERIFY(hex && alpha);

    // 100, 150, 200 in 31, 63, 31 steps: 12, 37, 24, that is 12 << 11 | 37 << 5 | 24.
    QCOMPARE(channels(&dialog), (QVector<int>{12, 37, 24, 255}));
    QCOMPARE(hex->getValue(), 0x64B8u);
    QVERIFY(!alpha->isEnabled());
    QCOMPARE(field<QSpinBox>(&dialog, "Green:")->maximum(), 63);

    // Typing a channel rebuilds the colour from all spinners: 31, 37, 24.
    retype(field<QSpinBox>(&dialog, "Red:"), "31");
    QCOMPARE(hex->getValue(), 31u << 11 | 37u << 5 | 24u);

    // Pure red in hexadecimal: the spinners follow, the wheel goes to the rim at bearing 0
    // and the slider to full brightness, so the result is pure red.
    retype(hex, "F800");
    QCOMPARE(channels(&dialog), (QVector<int>{31, 0, 0, 255}));
    QCOMPARE(dialog.resultColor(), QColor(255, 0, 0));

    // Dragging the brightness to the left end gives black, back to the right end red.
    auto *slider = dialog.findChild<ColorSlider *>();
    QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(8, 10));
    QCOMPARE(channels(&dialog), (QVector<int>{0, 0, 0, 255}));
    QCOMPARE(hex->getValue(), 0u);
    QCOMPARE(dialog.resultColor(), QColor(0, 0, 0));
    QTest::mouseMove(slider, QPoint(slider->width() - 8, 10));
    QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(slider->width() - 8, 10));
    QCOMPARE(channels(&dialog), (QVector<int>{31, 0, 0, 255}));
    QCOMPARE(hex->getValue(), 0xF800u);

    // A click on the wheel: the colour there, at the slider's brightness, in RGB565.
    auto *wheel = dialog.findChild<ColorWheel *>();
    QPoint const centre(wheel->width() / 2, wheel->height() / 2);
    QTest::mouseClick(wheel, Qt::LeftButton, {}, centre);
    QColor const result = dialog.resultColor();
    QCOMPARE(ColorWheelColor::PaintColor(result, ColorWheelMode::RGB565), result);
    QCOMPARE(hex->getValue(), ColorWheelColor::Get(result, ColorWheelMode::RGB565));

    dialog.hide();
    ModalAnswerer answerer({"OK"});
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(answerer.remaining().isEmpty());
}

void tst_ColorWidgets::dialogInRgb332AndGrayscale()
{
    {
        ColorEditDialog dialog(QColor(100, 150, 200), ColorWheelMode::RGB332);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        // The palette in row 2, column 1 is red: 7, 0, 0, that is 7 << 5.
        QList<ColorButton *> const palette = dialog.findChildren<ColorButton *>();
        QCOMPARE(palette.size(), 48);
        QCOMPARE(palette[17]->getColor(), QColor(255, 0, 0));
        QTest::mouseClick(palette[17], Qt::LeftButton);
        QCOMPARE(channels(&dialog), (QVector<int>{7, 0, 0, 255}));
        QCOMPARE(field<HexSpinBox>(&dialog, "Hexadecimal:")->getValue(), 0xE0u);
    }
    {
        // In Grayscale only red carries the value: 100 * .2126 + 150 * .7152 + 200 * .0722
        // = 142.98, rounded to 143.
        ColorEditDialog dialog(QColor(100, 150, 200), ColorWheelMode::Grayscale);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(channels(&dialog), (QVector<int>{143, 0, 0, 255}));
        QColor const result = dialog.resultColor();
        QVERIFY(result.red() == result.green() && result.green() == result.blue());

        auto *hex = field<HexSpinBox>(&dialog, "Hexadecimal:");
        QCOMPARE(hex->getMaximum(), 255u);
        retype(hex, "40");
        QCOMPARE(channels(&dialog), (QVector<int>{64, 0, 0, 255}));
        QCOMPARE(dialog.findChild<ColorWheel *>()->getCursorPosition(), QPoint(0, 0));
    }
    {
        ColorEditDialog dialog(QColor(255, 255, 255, 100), ColorWheelMode::RGBA5551);
        auto *alpha = field<QSpinBox>(&dialog, "Alpha:");
        QVERIFY(alpha->isEnabled());
        QCOMPARE(alpha->maximum(), 1);
        QCOMPARE(alpha->value(), 1);
    }
}

QTEST_MAIN(tst_ColorWidgets)
#include "tst_ColorWidgets.moc"
