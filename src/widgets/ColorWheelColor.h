// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QColor>
#include <QString>

#include <cstdint>

namespace TES {

// The pixel formats of embedded displays. The underlying type is fixed so that any unsigned
// value may be held: values from 7 up are invalid, and every operation of ColorWheelColor
// answers a neutral result for them.
enum class ColorWheelMode : unsigned int {
    Grayscale = 0,
    RGB332 = 1,
    RGB565 = 2,
    RGBA5551 = 3,
    RGB888 = 4,
    RGBA8888 = 5,
    ARGB8888 = 6
};

// Converts between a QColor and the integer form of a colour in one of the pixel formats,
// and limits a colour to what a format can show. Stateless: static operations only, safe on
// any thread. The colour widgets and plug-ins rely on its exact arithmetic (rounding,
// divisors, precision), including its asymmetries: the Grayscale channels, the divisor 15 of
// the RGB332 setters, the fixed 100 of the colour Lerp. Keep them.
class TES_EXPORT ColorWheelColor
{
public:
    ColorWheelColor() = delete;

    static QString Name(ColorWheelMode mode);
    static uint32_t BytesPerPixel(ColorWheelMode mode);
    static uint32_t BitsPerPixel(ColorWheelMode mode);
    static uint32_t MaxRange(ColorWheelMode mode);
    static uint32_t RedMax(ColorWheelMode mode);
    static uint32_t GreenMax(ColorWheelMode mode);
    static uint32_t BlueMax(ColorWheelMode mode);
    // 255 for an invalid mode.
    static uint32_t AlphaMax(ColorWheelMode mode);
    static bool IsAlpha(ColorWheelMode mode);
    static uint32_t GrayMax() { return 255; }

    // Channels in the mode's range; Grayscale and invalid modes give an invalid QColor.
    static QColor Create(unsigned int r, unsigned int g, unsigned int b, ColorWheelMode mode);
    static QColor Create(unsigned int r, unsigned int g, unsigned int b, unsigned int a,
                         ColorWheelMode mode);
    // From the mode's integer form. Grayscale does not mask: value / 255 for all three.
    static QColor Create(uint32_t value, ColorWheelMode mode);
    static uint32_t Get(const QColor &color, ColorWheelMode mode);

    static unsigned int Red(const QColor &color, ColorWheelMode mode);
    // 0 in Grayscale, whatever the colour: only red carries the gray.
    static unsigned int Green(const QColor &color, ColorWheelMode mode);
    static unsigned int Blue(const QColor &color, ColorWheelMode mode);
    static unsigned int Alpha(const QColor &color, ColorWheelMode mode);
    static unsigned int Gray(const QColor &color);

    // RGB332 divides by 15 here, not by the channel's maximum.
    static void SetRed(QColor &color, unsigned int value, ColorWheelMode mode);
    static void SetGreen(QColor &color, unsigned int value, ColorWheelMode mode);
    static void SetBlue(QColor &color, unsigned int value, ColorWheelMode mode);
    static void SetAlpha(QColor &color, unsigned int value, ColorWheelMode mode);
    // Rounds value / 255: black or white.
    static void SetGray(QColor &color, unsigned int value);
    static void SetGray(QColor &color, float value);

    // The colour as the display shows it.
    static QColor PaintColor(const QColor &color, ColorWheelMode mode);
    static QColor Normalize(const QColor &color, ColorWheelMode mode);
    static QRgb ToInt(const QColor &color, ColorWheelMode mode);

    static float Lerp(float a, float b, float t);
    // t of exactly 0 gives a, of exactly 100 (not 1) gives b; any other t mixes.
    static QColor Lerp(const QColor &a, const QColor &b, float t);
};

} // namespace TES
