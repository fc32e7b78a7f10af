// SPDX-License-Identifier: MIT
#include "widgets/ColorWheelColor.h"

#include <cmath>

namespace TES {

namespace {

// One pixel format: its figures and where its channels sit in the integer form. Channel
// masks are the maxima; alpha is packed only for the formats that have it.
struct ModeInfo
{
    const char *name;
    uint32_t bytes;
    uint32_t bits;
    uint32_t maxRange;
    uint32_t redMax;
    uint32_t greenMax;
    uint32_t blueMax;
    uint32_t alphaMax;
    bool alpha;
    int redShift;
    int greenShift;
    int blueShift;
    int alphaShift;
};

constexpr ModeInfo Modes[] = {
    {"Grayscale", 1, 8, 255, 255, 255, 255, 255, false, 0, 0, 0, 0},
    {"RGB332", 1, 8, 255, 7, 7, 3, 255, false, 5, 2, 0, 0},
    {"RGB565", 2, 16, 65535, 31, 63, 31, 255, false, 11, 5, 0, 0},
    {"RGBA5551", 2, 16, 65535, 31, 31, 31, 1, true, 11, 6, 1, 0},
    {"RGB888", 3, 24, 16777215, 255, 255, 255, 255, false, 16, 8, 0, 0},
    {"RGBA8888", 4, 32, 4294967295u, 255, 255, 255, 255, true, 24, 16, 8, 0},
    {"ARGB8888", 4, 32, 4294967295u, 255, 255, 255, 255, true, 16, 8, 0, 24},
};

// What an invalid mode answers.
constexpr ModeInfo Invalid = {"", 0, 0, 0, 0, 0, 0, 255, false, 0, 0, 0, 0};

const ModeInfo &info(ColorWheelMode mode)
{
    auto const index = static_cast<unsigned int>(mode);
    return index < sizeof(Modes) / sizeof(Modes[0]) ? Modes[index] : Invalid;
}

bool isEightBitAlpha(ColorWheelMode mode)
{
    return mode == ColorWheelMode::RGBA8888 || mode == ColorWheelMode::ARGB8888;
}

// Truncation toward zero. Channels of an extended-range colour may lie outside 0 to 1, so
// the conversion goes through a wide signed integer instead of straight to unsigned.
unsigned int truncated(double value)
{
    if (!std::isfinite(value))
        return 0;
    return static_cast<unsigned int>(static_cast<int64_t>(value));
}

unsigned int roundedChannel(double channelF, uint32_t max)
{
    return truncated(std::round(channelF * max));
}

// The inner product and round in double, the rest in single precision.
int paintChannel(double channelF, uint32_t max)
{
    double const steps = std::round(channelF * max);
    float const share = static_cast<float>(steps) / static_cast<float>(max);
    return static_cast<int>(truncated(std::roundf(share * 255.0f)));
}

// The setters of one channel. RGB332 divides by 15 on every channel, not by the maximum.
void setChannel(QColor &color, void (QColor::*set)(qreal), unsigned int value, uint32_t max,
                ColorWheelMode mode)
{
    uint32_t const divisor = mode == ColorWheelMode::RGB332 ? 15 : max;
    if (mode == ColorWheelMode::Grayscale || divisor == 0)
        (color.*set)(0.0);
    else
        (color.*set)(static_cast<float>(value) / static_cast<float>(divisor));
}

} // namespace

QString ColorWheelColor::Name(ColorWheelMode mode)
{
    return QString::fromLatin1(info(mode).name);
}

uint32_t ColorWheelColor::BytesPerPixel(ColorWheelMode mode)
{
    return info(mode).bytes;
}

uint32_t ColorWheelColor::BitsPerPixel(ColorWheelMode mode)
{
    return info(mode).bits;
}

uint32_t ColorWheelColor::MaxRange(ColorWheelMode mode)
{
    return info(mode).maxRange;
}

uint32_t ColorWheelColor::RedMax(ColorWheelMode mode)
{
    return info(mode).redMax;
}

uint32_t ColorWheelColor::GreenMax(ColorWheelMode mode)
{
    return info(mode).greenMax;
}

uint32_t ColorWheelColor::BlueMax(ColorWheelMode mode)
{
    return info(mode).blueMax;
}

uint32_t ColorWheelColor::AlphaMax(ColorWheelMode mode)
{
    return info(mode).alphaMax;
}

bool ColorWheelColor::IsAlpha(ColorWheelMode mode)
{
    return info(mode).alpha;
}

QColor ColorWheelColor::Create(unsigned int r, unsigned int g, unsigned int b, ColorWheelMode mode)
{
    return Create(r, g, b, AlphaMax(mode), mode);
}

QColor ColorWheelColor::Create(unsigned int r, unsigned int g, unsigned int b, unsigned int a,
                               ColorWheelMode mode)
{
    QColor color;
    ModeInfo const &m = info(mode);
    if (mode == ColorWheelMode::Grayscale || m.bits == 0)
        return color;
    float alpha = 1.0f;
    if (mode == ColorWheelMode::RGBA5551)
        alpha = a != 0 ? 1.0f : 0.0f;
    else if (isEightBitAlpha(mode))
        alpha = static_cast<float>(a) / 255.0f;
    color.setRedF(static_cast<float>(r) / static_cast<float>(m.redMax));
    color.setGreenF(static_cast<float>(g) / static_cast<float>(m.greenMax));
    color.setBlueF(static_cast<float>(b) / static_cast<float>(m.blueMax));
    color.setAlphaF(alpha);
    return color;
}

QColor ColorWheelColor::Create(uint32_t value, ColorWheelMode mode)
{
    if (mode == ColorWheelMode::Grayscale) {
        // Not masked: a value above 255 gives channels above 1, kept as they are.
        float const gray = static_cast<float>(value) / 255.0f;
        QColor color;
        color.setRedF(gray);
        color.setGreenF(gray);
        color.setBlueF(gray);
        color.setAlphaF(1.0f);
        return color;
    }
    ModeInfo const &m = info(mode);
    uint32_t const alpha = m.alpha ? (value >> m.alphaShift) & m.alphaMax : m.alphaMax;
    return Create((value >> m.redShift) & m.redMax, (value >> m.greenShift) & m.greenMax,
                  (value >> m.blueShift) & m.blueMax, alpha, mode);
}

uint32_t ColorWheelColor::Get(const QColor &color, ColorWheelMode mode)
{
    if (mode == ColorWheelMode::Grayscale)
        return Red(color, mode);
    ModeInfo const &m = info(mode);
    if (m.bits == 0)
        return 0;
    uint32_t value = (Red(color, mode) << m.redShift) | (Green(color, mode) << m.greenShift)
                     | (Blue(color, mode) << m.blueShift);
    if (m.alpha)
        value |= Alpha(color, mode) << m.alphaShift;
    return value;
}

unsigned int ColorWheelColor::Red(const QColor &color, ColorWheelMode mode)
{
    if (mode == ColorWheelMode::Grayscale)
        return Gray(color);
    return roundedChannel(color.redF(), RedMax(mode));
}

unsigned int ColorWheelColor::Green(const QColor &color, ColorWheelMode mode)
{
    if (mode == ColorWheelMode::Grayscale)
        return Gray(QColor(QRgb(0)));
    return roundedChannel(color.greenF(), GreenMax(mode));
}

unsigned int ColorWheelColor::Blue(const QColor &color, ColorWheelMode mode)
{
    if (mode == ColorWheelMode::Grayscale)
        return Gray(QColor(QRgb(0)));
    return roundedChannel(color.blueF(), BlueMax(mode));
}

unsigned int ColorWheelColor::Alpha(const QColor &color, ColorWheelMode mode)
{
    if (isEightBitAlpha(mode))
        return roundedChannel(color.alphaF(), 255);
    if (mode == ColorWheelMode::RGBA5551)
        return color.alphaF() != 0.0 ? 1 : 0;
    return 255;
}

unsigned int ColorWheelColor::Gray(const QColor &color)
{
    // The coefficients are the single-precision values of the decimals, summed in double.
    double const sum = color.blueF() * static_cast<double>(0.0722f)
                       + color.greenF() * static_cast<double>(0.7152f)
                       + color.redF() * static_cast<double>(0.2126f);
    return truncated(std::roundf(static_cast<float>(sum) * 255.0f));
}

void ColorWheelColor::SetRed(QColor &color, unsigned int value, ColorWheelMode mode)
{
    setChannel(color, &QColor::setRedF, value, RedMax(mode), mode);
}

void ColorWheelColor::SetGreen(QColor &color, unsigned int value, ColorWheelMode mode)
{
    setChannel(color, &QColor::setGreenF, value, GreenMax(mode), mode);
}

void ColorWheelColor::SetBlue(QColor &color, unsigned int value, ColorWheelMode mode)
{
    setChannel(color, &QColor::setBlueF, value, BlueMax(mode), mode);
}

void ColorWheelColor::SetAlpha(QColor &color, unsigned int value, ColorWheelMode mode)
{
    if (isEightBitAlpha(mode))
        color.setAlphaF(static_cast<float>(value) / 255.0f);
    else if (mode == ColorWheelMode::RGBA5551 && value != 0)
        color.setAlphaF(1.0);
    else
        color.setAlphaF(0.0);
}

void ColorWheelColor::SetGray(QColor &color, unsigned int value)
{
    SetGray(color, std::roundf(static_cast<float>(value / 255.0)));
}

void ColorWheelColor::SetGray(QColor &color, float value)
{
    color.setRedF(value);
    color.setGreenF(value);
    color.setBlueF(value);
    color.setAlphaF(1.0);
}

QColor ColorWheelColor::PaintColor(const QColor &color, ColorWheelMode mode)
{
    switch (mode) {
    case ColorWheelMode::Grayscale: {
        // Truncated, unlike Gray(), and with its own mix of precisions.
        double const sum = color.redF() * 0.2126
                           + static_cast<double>(static_cast<float>(color.greenF()) * 0.7152f)
                           + static_cast<double>(static_cast<float>(color.blueF()) * 0.0722f);
        int const gray = static_cast<int>(truncated(static_cast<float>(sum) * 255.0f));
        return QColor(gray, gray, gray);
    }
    case ColorWheelMode::RGB332:
    case ColorWheelMode::RGB565:
    case ColorWheelMode::RGBA5551: {
        ModeInfo const &m = info(mode);
        QColor painted(paintChannel(color.redF(), m.redMax),
                       paintChannel(color.greenF(), m.greenMax),
                       paintChannel(color.blueF(), m.blueMax));
        if (mode == ColorWheelMode::RGBA5551)
            painted.setAlpha(color.alphaF() > 0.0 ? 255 : 0);
        return painted;
    }
    case ColorWheelMode::RGB888:
        return QColor(color.red(), color.green(), color.blue());
    default:
        return color;
    }
}

QColor ColorWheelColor::Normalize(const QColor &color, ColorWheelMode mode)
{
    return PaintColor(color, mode);
}

QRgb ColorWheelColor::ToInt(const QColor &color, ColorWheelMode mode)
{
    return PaintColor(color, mode).rgba();
}

float ColorWheelColor::Lerp(float a, float b, float t)
{
    return (1.0f - t) * a + b * t;
}

QColor ColorWheelColor::Lerp(const QColor &a, const QColor &b, float t)
{
    if (t == 0.0f)
        return a;
    // 100, not 1: a t of 1 goes through the mixing below like any other.
    if (t == 100.0f)
        return b;
    QColor mixed;
    mixed.setAlphaF(Lerp(static_cast<float>(a.alphaF()), static_cast<float>(b.alphaF()), t));
    mixed.setRedF(Lerp(static_cast<float>(a.redF()), static_cast<float>(b.redF()), t));
    mixed.setGreenF(Lerp(static_cast<float>(a.greenF()), static_cast<float>(b.greenF()), t));
    mixed.setBlueF(Lerp(static_cast<float>(a.blueF()), static_cast<float>(b.blueF()), t));
    return mixed;
}

} // namespace TES
