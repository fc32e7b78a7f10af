// SPDX-License-Identifier: MIT
#include "widgets/ColorWheel.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace TES {

namespace {

constexpr int Margin = 10;

// A ramp of the hue, truncated after the multiplication by 255.
int ramp(float share)
{
    return static_cast<int>(share * 255.0f);
}

} // namespace

ColorWheel::ColorWheel() = default;

void ColorWheel::setColorMode(ColorWheelMode mode)
{
    _mode = mode;
}

QColor ColorWheel::colorAtPoint(const QPoint &p, bool clampToEdge) const
{
    if (p.isNull())
        return QColor(Qt::white);
    float const x = static_cast<float>(p.x());
    float const y = static_cast<float>(p.y());
    float const length = std::sqrt(x * x + y * y);
    float const radius = static_cast<float>(_radius);
    float const distance = length > radius && clampToEdge ? radius : length;
    // Without a disc there is no saturation to read; 0 / 0 would give none either.
    if (distance > radius || radius <= 0.0f)
        return QColor(0, 0, 0, 0);

    float angle = std::acos(x / length) * 57.295776f;
    if (y / length > 0.0f)
        angle = 360.0f - angle;
    float const saturation = 1.0f - distance / radius;
    QColor const color = _applySaturation(_getHue(angle), _sliceColor(angle), saturation);
    return ColorWheelColor::PaintColor(color, _mode);
}

QPoint ColorWheel::getCursorPosition() const
{
    return _cursor;
}

void ColorWheel::setCursorPosition(const QPoint &p, bool emitSignal)
{
    if (p == _cursor)
        return;
    _color = colorAtPoint(p, true).toHsv();
    _recalculateCursor();
    _emitValue(emitSignal);
}

void ColorWheel::setValue(const QColor &color, bool emitSignal)
{
    _color = color.toHsv();
    _recalculateCursor();
    _emitValue(emitSignal);
}

QColor ColorWheel::getValue() const
{
    return colorAtPoint(_cursor, false).toRgb();
}

void ColorWheel::_emitValue(bool emitSignal)
{
    if (emitSignal)
        emit valueChanged(colorAtPoint(_cursor, false));
    update();
}

void ColorWheel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    _size = std::min(width(), height());
    _rebuildCache();
    _recalculateCursor();
}

void ColorWheel::_rebuildCache()
{
    _radius = _size / 2 - Margin;
    _cache = QImage(_size, _size, QImage::Format_RGBA8888);
    _cache.fill(Qt::transparent);
    // Every pixel costs a square root, an arc cosine and a PaintColor: hence the cache.
    for (int y = -_radius; y <= _radius; ++y) {
        for (int x = -_radius; x <= _radius; ++x)
            _cache.setPixelColor(x + _radius + Margin, y + _radius + Margin,
                                 colorAtPoint(QPoint(x, y), false));
    }
    _cacheDirty = false;
}

void ColorWheel::_recalculateCursor()
{
    QColor const hsv = _color.toHsv();
    float const angle = static_cast<float>(hsv.hsvHueF()) * 6.283185f;
    float sine = 0.0f;
    float cosine = 0.0f;
    ::sincosf(angle, &sine, &cosine);
    double const reach = _radius * hsv.saturationF();
    _cursor = QPoint(static_cast<int>(static_cast<float>(cosine * reach)),
                     static_cast<int>(static_cast<float>(sine * reach)));
}

QPoint ColorWheel::_cacheOrigin() const
{
    return QPoint((width() - 1) / 2 - _cache.width() / 2, (height() - 1) / 2 - _cache.height() / 2);
}

QPoint ColorWheel::_toCircleSpace(const QPoint &p) const
{
    return p - QRect(_cacheOrigin(), _cache.size()).center();
}

QPoint ColorWheel::_toWidgetSpace(const QPoint &p) const
{
    return p + QRect(_cacheOrigin(), _cache.size()).center();
}

void ColorWheel::paintEvent(QPaintEvent *)
{
    if (_cacheDirty)
        _rebuildCache();
    QPainter painter(this);
    painter.drawImage(_cacheOrigin(), _cache);
    // Qt 5.15 ignores the high-quality hint and deprecates it: plain antialiasing is the same.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::white);
    painter.setPen(Qt::black);
    // The cursor is drawn about the widget's middle, not the image's centre.
    QPoint const at = _cursor + QPoint((width() - 1) / 2, (height() - 1) / 2);
    painter.drawEllipse(QRect(at - QPoint(4, 4), at + QPoint(3, 3)));
}

void ColorWheel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        setCursorPosition(_toCircleSpace(event->pos()), true);
}

void ColorWheel::mouseMoveEvent(QMouseEvent *event)
{
    if (rect().contains(event->pos()))
        setCursorPosition(_toCircleSpace(event->pos()), true);
}

QColor ColorWheel::_getHue(float angle)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    if (angle <= 60.0f || angle >= 300.0f)
        red = 255;
    else if (angle >= 240.0f)
        red = ramp((angle - 240.0f) / 60.0f);
    else if (angle <= 120.0f)
        red = ramp((angle - 60.0f) / -60.0f + 1.0f);

    if (angle >= 180.0f && angle <= 300.0f)
        green = 255;
    else if (angle >= 120.0f && angle < 180.0f)
        green = ramp((angle - 120.0f) / 60.0f);
    else if (angle > 300.0f && angle < 360.0f)
        green = ramp((angle - 300.0f) / -60.0f + 1.0f);

    if (angle >= 60.0f && angle <= 180.0f)
        blue = 255;
    else if (angle >= 0.0f && angle < 60.0f)
        blue = ramp(angle / 60.0f);
    else if (angle > 180.0f && angle < 240.0f)
        blue = ramp((angle - 180.0f) / -60.0f + 1.0f);
    return QColor(red, green, blue);
}

unsigned int ColorWheel::_sliceColor(float angle)
{
    unsigned int slice = 0;
    if (angle <= 60.0f || angle >= 300.0f)
        slice += 0xff0000;
    if (angle >= 180.0f && angle <= 300.0f)
        slice += 0xff00;
    if (angle >= 60.0f && angle <= 180.0f)
        slice += 0xff;
    return slice;
}

QColor ColorWheel::_applySaturation(const QColor &color, unsigned int slice, float saturation)
{
    int red = color.red();
    int green = color.green();
    int blue = color.blue();
    auto lift = [saturation](int c) {
        return c + static_cast<int>(static_cast<float>(255 - c) * saturation);
    };
    if (slice & 0xff0000) {
        green = lift(green);
        blue = lift(blue);
    } else if (slice & 0xff00) {
        red = lift(red);
        blue = lift(blue);
    } else if (slice & 0xff) {
        red = lift(red);
        green = lift(green);
    }
    return QColor(red, green, blue);
}

} // namespace TES
