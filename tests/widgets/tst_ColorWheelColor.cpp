// SPDX-License-Identifier: MIT
#include "widgets/ColorWheelColor.h"

#include <QtTest>

using namespace TES;

Q_DECLARE_METATYPE(TES::ColorWheelMode)

namespace {

constexpr auto Gray = ColorWheelMode::Grayscale;
constexpr auto C332 = ColorWheelMode::RGB332;
constexpr auto C565 = ColorWheelMode::RGB565;
constexpr auto C5551 = ColorWheelMode::RGBA5551;
constexpr auto C888 = ColorWheelMode::RGB888;
constexpr auto C8888 = ColorWheelMode::RGBA8888;
constexpr auto A8888 = ColorWheelMode::ARGB8888;
constexpr auto Bad = static_cast<ColorWheelMode>(7);

using Channels = QVector<uint>;

} // namespace

// Expected values are worked out by hand from the formulas, written beside each row. Input
// colours are 8-bit, so a channel's F value is n / 255.
class tst_ColorWheelColor : public QObject
{
    Q_OBJECT

private slots:
    void figures_data();
    void figures();
    void channels_data();
    void channels();
    void create_data();
    void create();
    void setters_data();
    void setters();
    void lerp();
    void roundTrips();
};

void tst_ColorWheelColor::figures_data()
{
    QTest::addColumn<ColorWheelMode>("mode");
    QTest::addColumn<QString>("name");
    // bytes, bits, range, red, green, blue, alpha maxima
    QTest::addColumn<Channels>("figures");
    QTest::addColumn<bool>("alpha");

    QTest::newRow("gray") << Gray << "Grayscale" << Channels{1, 8, 255, 255, 255, 255, 255}
                          << false;
    QTest::newRow("332") << C332 << "RGB332" << Channels{1, 8, 255, 7, 7, 3, 255} << false;
    QTest::newRow("565") << C565 << "RGB565" << Channels{2, 16, 65535, 31, 63, 31, 255} << false;
    QTest::newRow("5551") << C5551 << "RGBA5551" << Channels{2, 16, 65535, 31, 31, 31, 1} << true;
    QTest::newRow("888") << C888 << "RGB888" << Channels{3, 24, 16777215, 255, 255, 255, 255}
                         << false;
    QTest::newRow("8888") << C8888 << "RGBA8888" << Channels{4, 32, 4294967295u, 255, 255, 255, 255}
                          << true;
    QTest::newRow("a8888") << A8888 << "ARGB8888"
                           << Channels{4, 32, 4294967295u, 255, 255, 255, 255} << true;
    // Out of range: zeros, but an alpha maximum of 255.
    QTest::newRow("7") << Bad << "" << Channels{0, 0, 0, 0, 0, 0, 255} << false;
    QTest::newRow("huge") << static_cast<ColorWheelMode>(0xFFFFFFFFu) << ""
                          << Channels{0, 0, 0, 0, 0, 0, 255} << false;
}

void tst_ColorWheelColor::figures()
{
    QFETCH(ColorWheelMode, mode);
    QFETCH(QString, name);
    QFETCH(Channels, figures);
    QFETCH(bool, alpha);

    QCOMPARE(ColorWheelColor::Name(mode), name);
    Channels const actual{ColorWheelColor::BytesPerPixel(mode), ColorWheelColor::BitsPerPixel(mode),
                          ColorWheelColor::MaxRange(mode),      ColorWheelColor::RedMax(mode),
                          ColorWheelColor::GreenMax(mode),      ColorWheelColor::BlueMax(mode),
                          ColorWheelColor::AlphaMax(mode)};
    QCOMPARE(actual, figures);
    QCOMPARE(ColorWheelColor::IsAlpha(mode), alpha);
    QCOMPARE(ColorWheelColor::GrayMax(), 255u);
}

void tst_ColorWheelColor::channels_data()
{
    QTest::addColumn<ColorWheelMode>("mode");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<Channels>("rgba"); // Red, Green, Blue, Alpha in the mode
    QTest::addColumn<uint>("value");    // Get
    QTest::addColumn<QRgb>("paint");    // PaintColor, ToInt

    QColor const sample(100, 150, 200, 77);

    // Gray rounds 1 * (0.0722f + 0.7152f + 0.2126f) * 255 = 255; only red carries it.
    QTest::newRow("gray white") << Gray << QColor(Qt::white) << Channels{255, 0, 0, 255} << 255u
                                << qRgb(255, 255, 255);
    // 100 * .2126 + 150 * .7152 + 200 * .0722 = 142.98: Gray rounds to 143, PaintColor
    // truncates to 142 and drops the alpha.
    QTest::newRow("gray sample") << Gray << sample << Channels{143, 0, 0, 255} << 143u
                                 << qRgb(142, 142, 142);
    // 7 * .0722 = 0.5054: rounds up to 1, truncates to 0.
    QTest::newRow("gray blue 7") << Gray << QColor(0, 0, 7) << Channels{1, 0, 0, 255} << 1u
                                 << qRgb(0, 0, 0);

    QTest::newRow("332 white") << C332 << QColor(Qt::white) << Channels{7, 7, 3, 255}
                               << (7u << 5 | 7u << 2 | 3u) << qRgb(255, 255, 255);
    // 100*7/255 = 2.75 -> 3, 150*7/255 = 4.12 -> 4, 200*3/255 = 2.35 -> 2;
    // paint 3/7*255 = 109.3, 4/7*255 = 145.7, 2/3*255 = 170.
    QTest::newRow("332 sample") << C332 << sample << Channels{3, 4, 2, 255}
                                << (3u << 5 | 4u << 2 | 2u) << qRgb(109, 146, 170);
    // Either side of a half: 19*7/255 = 0.522 -> 1, 18*7/255 = 0.494 -> 0, 43*3/255 = 0.506
    // -> 1; paint 1/7*255 = 36.4, 1/3*255 = 85.
    QTest::newRow("332 halves") << C332 << QColor(19, 18, 43) << Channels{1, 0, 1, 255}
                                << (1u << 5 | 0u << 2 | 1u) << qRgb(36, 0, 85);

    // 100*31/255 = 12.16, 150*63/255 = 37.06, 200*31/255 = 24.31; paint 12/31*255 = 98.7,
    // 37/63*255 = 149.8, 24/31*255 = 197.4, opaque.
    QTest::newRow("565 sample") << C565 << sample << Channels{12, 37, 24, 255}
                                << (12u << 11 | 37u << 5 | 24u) << qRgb(99, 150, 197);
    // 5*31/255 = 0.608 -> 1, 2*63/255 = 0.494 -> 0, 4*31/255 = 0.486 -> 0; 1/31*255 = 8.2.
    QTest::newRow("565 halves") << C565 << QColor(5, 2, 4) << Channels{1, 0, 0, 255} << (1u << 11)
                                << qRgb(8, 0, 0);

    // Green has 31 steps here: 150*31/255 = 18.24, 18/31*255 = 148.1. Alpha 77 counts as 1
    // and paints opaque.
    QTest::newRow("5551 sample") << C5551 << sample << Channels{12, 18, 24, 1}
                                 << (12u << 11 | 18u << 6 | 24u << 1 | 1u)
                                 << qRgba(99, 148, 197, 255);
    QTest::newRow("5551 clear") << C5551 << QColor(255, 255, 255, 0) << Channels{31, 31, 31, 0}
                                << (31u << 11 | 31u << 6 | 31u << 1) << qRgba(255, 255, 255, 0);

    QTest::newRow("888 sample") << C888 << sample << Channels{100, 150, 200, 255}
                                << (100u << 16 | 150u << 8 | 200u) << qRgb(100, 150, 200);
    QTest::newRow("8888 sample") << C8888 << sample << Channels{100, 150, 200, 77}
                                 << (100u << 24 | 150u << 16 | 200u << 8 | 77u)
                                 << qRgba(100, 150, 200, 77);
    QTest::newRow("a8888 sample") << A8888 << sample << Channels{100, 150, 200, 77}
                                  << (77u << 24 | 100u << 16 | 150u << 8 | 200u)
                                  << qRgba(100, 150, 200, 77);
    QTest::newRow("invalid") << Bad << sample << Channels{0, 0, 0, 255} << 0u
                             << qRgba(100, 150, 200, 77);
}

void tst_ColorWheelColor::channels()
{
    QFETCH(ColorWheelMode, mode);
    QFETCH(QColor, color);
    QFETCH(Channels, rgba);
    QFETCH(uint, value);
    QFETCH(QRgb, paint);

    Channels const actual{ColorWheelColor::Red(color, mode), ColorWheelColor::Green(color, mode),
                          ColorWheelColor::Blue(color, mode), ColorWheelColor::Alpha(color, mode)};
    QCOMPARE(actual, rgba);
    QCOMPARE(ColorWheelColor::Get(color, mode), value);
    QCOMPARE(ColorWheelColor::PaintColor(color, mode).rgba(), paint);
    QCOMPARE(ColorWheelColor::Normalize(color, mode).rgba(), paint);
    QCOMPARE(ColorWheelColor::ToInt(color, mode), paint);
}

void tst_ColorWheelColor::create_data()
{
    QTest::addColumn<ColorWheelMode>("mode");
    // One entry: Create(value); three: Create(r, g, b); four: Create(r, g, b, a).
    QTest::addColumn<Channels>("input");
    QTest::addColumn<QColor>("expected");

    QTest::newRow("gray channels") << Gray << Channels{10, 20, 30} << QColor();
    QTest::newRow("gray channels alpha") << Gray << Channels{10, 20, 30, 40} << QColor();
    QTest::newRow("gray value") << Gray << Channels{128}
                                << QColor::fromRgbF(128 / 255.f, 128 / 255.f, 128 / 255.f);
    // Not masked: 510 / 255 = 2 on each channel, handed to QColor as it is.
    QTest::newRow("gray above 255") << Gray << Channels{510} << QColor::fromRgbF(2, 2, 2);

    QTest::newRow("332") << C332 << Channels{3, 4, 2}
                         << QColor::fromRgbF(3 / 7.f, 4 / 7.f, 2 / 3.f);
    QTest::newRow("332 ignores alpha")
        << C332 << Channels{3, 4, 2, 0} << QColor::fromRgbF(3 / 7.f, 4 / 7.f, 2 / 3.f);
    QTest::newRow("332 value") << C332 << Channels{3u << 5 | 4u << 2 | 2u}
                               << QColor::fromRgbF(3 / 7.f, 4 / 7.f, 2 / 3.f);
    // Bits above the format's width are dropped.
    QTest::newRow("332 value masked")
        << C332 << Channels{0x100 | 7u << 5} << QColor::fromRgbF(1, 0, 0);
    QTest::newRow("565 value") << C565 << Channels{12u << 11 | 37u << 5 | 24u}
                               << QColor::fromRgbF(12 / 31.f, 37 / 63.f, 24 / 31.f);
    QTest::newRow("5551 alpha 5") << C5551 << Channels{31, 0, 0, 5} << QColor::fromRgbF(1, 0, 0, 1);
    QTest::newRow("5551 alpha 0") << C5551 << Channels{31, 0, 0, 0} << QColor::fromRgbF(1, 0, 0, 0);
    QTest::newRow("5551 value") << C5551 << Channels{12u << 11 | 18u << 6 | 24u << 1 | 1u}
                                << QColor::fromRgbF(12 / 31.f, 18 / 31.f, 24 / 31.f, 1);
    QTest::newRow("5551 value clear")
        << C5551 << Channels{31u << 1} << QColor::fromRgbF(0, 0, 1, 0);
    QTest::newRow("888 value") << C888 << Channels{100u << 16 | 150u << 8 | 200u}
                               << QColor::fromRgbF(100 / 255.f, 150 / 255.f, 200 / 255.f);
    QTest::newRow("8888 no alpha given")
        << C8888 << Channels{0, 0, 255} << QColor::fromRgbF(0, 0, 1, 1);
    QTest::newRow("8888") << C8888 << Channels{100, 150, 200, 77}
                          << QColor::fromRgbF(100 / 255.f, 150 / 255.f, 200 / 255.f, 77 / 255.f);
    QTest::newRow("8888 value") << C8888 << Channels{100u << 24 | 150u << 16 | 200u << 8 | 77u}
                                << QColor::fromRgbF(100 / 255.f, 150 / 255.f, 200 / 255.f,
                                                    77 / 255.f);
    QTest::newRow("a8888 value") << A8888 << Channels{77u << 24 | 100u << 16 | 150u << 8 | 200u}
                                 << QColor::fromRgbF(100 / 255.f, 150 / 255.f, 200 / 255.f,
                                                     77 / 255.f);
    QTest::newRow("invalid channels") << Bad << Channels{1, 2, 3} << QColor();
    QTest::newRow("invalid value") << Bad << Channels{123} << QColor();
}

void tst_ColorWheelColor::create()
{
    QFETCH(ColorWheelMode, mode);
    QFETCH(Channels, input);
    QFETCH(QColor, expected);

    QColor actual;
    if (input.size() == 1)
        actual = ColorWheelColor::Create(uint32_t(input[0]), mode);
    else if (input.size() == 3)
        actual = ColorWheelColor::Create(input[0], input[1], input[2], mode);
    else
        actual = ColorWheelColor::Create(input[0], input[1], input[2], input[3], mode);
    QCOMPARE(actual, expected);
    QCOMPARE(actual.isValid(), expected.isValid());
}

void tst_ColorWheelColor::setters_data()
{
    QTest::addColumn<QString>("setter");
    QTest::addColumn<ColorWheelMode>("mode");
    QTest::addColumn<uint>("value");
    QTest::addColumn<QColor>("expected"); // starting from opaque white

    // RGB332 divides by 15 on every channel.
    QTest::newRow("332 red") << "red" << C332 << 7u << QColor::fromRgbF(7 / 15.f, 1, 1);
    QTest::newRow("332 green") << "green" << C332 << 7u << QColor::fromRgbF(1, 7 / 15.f, 1);
    QTest::newRow("332 blue") << "blue" << C332 << 3u << QColor::fromRgbF(1, 1, 3 / 15.f);
    QTest::newRow("565 green") << "green" << C565 << 21u << QColor::fromRgbF(1, 21 / 63.f, 1);
    QTest::newRow("5551 green") << "green" << C5551 << 21u << QColor::fromRgbF(1, 21 / 31.f, 1);
    QTest::newRow("888 blue") << "blue" << C888 << 51u << QColor::fromRgbF(1, 1, 51 / 255.f);
    QTest::newRow("gray red") << "red" << Gray << 200u << QColor::fromRgbF(0, 1, 1);
    QTest::newRow("invalid blue") << "blue" << Bad << 200u << QColor::fromRgbF(1, 1, 0);

    QTest::newRow("8888 alpha") << "alpha" << C8888 << 77u << QColor::fromRgbF(1, 1, 1, 77 / 255.f);
    QTest::newRow("5551 alpha 5") << "alpha" << C5551 << 5u << QColor::fromRgbF(1, 1, 1, 1);
    QTest::newRow("5551 alpha 0") << "alpha" << C5551 << 0u << QColor::fromRgbF(1, 1, 1, 0);
    // Without alpha in the format, the colour becomes transparent.
    QTest::newRow("888 alpha") << "alpha" << C888 << 255u << QColor::fromRgbF(1, 1, 1, 0);

    // roundf(value / 255.0): 127 / 255 = 0.498 -> black, 128 / 255 = 0.502 -> white.
    QTest::newRow("gray 100") << "gray" << Gray << 100u << QColor(Qt::black);
    QTest::newRow("gray 127") << "gray" << Gray << 127u << QColor(Qt::black);
    QTest::newRow("gray 128") << "gray" << Gray << 128u << QColor(Qt::white);
    QTest::newRow("gray 200") << "gray" << Gray << 200u << QColor(Qt::white);
}

void tst_ColorWheelColor::setters()
{
    QFETCH(QString, setter);
    QFETCH(ColorWheelMode, mode);
    QFETCH(uint, value);
    QFETCH(QColor, expected);

    QColor color(Qt::white);
    if (setter == "red")
        ColorWheelColor::SetRed(color, value, mode);
    else if (setter == "green")
        ColorWheelColor::SetGreen(color, value, mode);
    else if (setter == "blue")
        ColorWheelColor::SetBlue(color, value, mode);
    else if (setter == "alpha")
        ColorWheelColor::SetAlpha(color, value, mode);
    else
        ColorWheelColor::SetGray(color, value);
    QCOMPARE(color, expected);
}

void tst_ColorWheelColor::lerp()
{
    QCOMPARE(ColorWheelColor::Lerp(2.0f, 4.0f, 0.25f), 2.5f); // 0.75 * 2 + 4 * 0.25

    QColor const black(0, 0, 0, 255);
    QColor const clearWhite(255, 255, 255, 0);
    QCOMPARE(ColorWheelColor::Lerp(black, clearWhite, 0.5f), QColor::fromRgbF(.5, .5, .5, .5));

    // 0 and 100 hand back copies, keeping the colour model (QColor's == compares it too);
    // 1 mixes into a new RGB colour.
    QColor const hsvRed = QColor::fromHsv(0, 255, 255);
    QColor const hsvBlue = QColor::fromHsv(240, 255, 255);
    QCOMPARE(ColorWheelColor::Lerp(hsvRed, hsvBlue, 0.0f), hsvRed);
    QVERIFY(ColorWheelColor::Lerp(hsvRed, hsvBlue, 0.0f) != hsvRed.toRgb());
    QCOMPARE(ColorWheelColor::Lerp(hsvRed, hsvBlue, 100.0f), hsvBlue);
    QColor const one = ColorWheelColor::Lerp(hsvRed, hsvBlue, 1.0f);
    QCOMPARE(one, one.toRgb());
    QCOMPARE(one.rgba(), hsvBlue.rgba());
}

void tst_ColorWheelColor::roundTrips()
{
    // Every value of the small formats comes back through Create then Get.
    struct
    {
        ColorWheelMode mode;
        uint32_t count;
    } const exhaustive[] = {{Gray, 256}, {C332, 256}, {C565, 65536}, {C5551, 65536}};
    for (auto const &format : exhaustive) {
        for (uint32_t v = 0; v < format.count; ++v) {
            uint32_t const back
                = ColorWheelColor::Get(ColorWheelColor::Create(v, format.mode), format.mode);
            if (back != v)
                QFAIL(qPrintable(QString("%1: %2 came back as %3")
                                     .arg(ColorWheelColor::Name(format.mode))
                                     .arg(v)
                                     .arg(back)));
        }
    }
    // The wide formats by a prime stride through the whole range, both ends included.
    for (ColorWheelMode mode : {C888, C8888, A8888}) {
        uint32_t const max = ColorWheelColor::MaxRange(mode);
        for (uint64_t v = 0; v <= max; v += 65521) {
            uint32_t const value = uint32_t(v);
            QCOMPARE(ColorWheelColor::Get(ColorWheelColor::Create(value, mode), mode), value);
        }
        QCOMPARE(ColorWheelColor::Get(ColorWheelColor::Create(max, mode), mode), max);
    }

    // What does not come back: a colour through a narrow format, a colour through Grayscale
    // (no channels to create from), and an RGB332 setter read back (7 / 15 * 7 = 3.27 -> 3).
    QColor const sample(100, 150, 200);
    QColor const through565 = ColorWheelColor::Create(ColorWheelColor::Get(sample, C565), C565);
    QVERIFY(through565 != sample);
    QCOMPARE(ColorWheelColor::PaintColor(through565, C565),
             ColorWheelColor::PaintColor(sample, C565));
    QColor const gray = ColorWheelColor::Create(ColorWheelColor::Get(sample, Gray), Gray);
    QCOMPARE(gray, QColor::fromRgbF(143 / 255.f, 143 / 255.f, 143 / 255.f));
    QColor set(Qt::black);
    ColorWheelColor::SetRed(set, 7, C332);
    QCOMPARE(ColorWheelColor::Red(set, C332), 3u);
}

QTEST_GUILESS_MAIN(tst_ColorWheelColor)
#include "tst_ColorWheelColor.moc"
