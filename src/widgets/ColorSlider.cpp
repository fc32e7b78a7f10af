// SPDX-License-Identifier: MIT
#include "widgets/ColorSlider.h"

#include "services/HostConstants.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

namespace TES {

namespace {

constexpr int Margin = 8;
constexpr int Top = 2;

} // namespace

ColorSlider::ColorSlider()
    : _topArrow(QString::fromLatin1(HostConstants::IconDownArrow))
    , _bottomArrow(QString::fromLatin1(HostConstants::IconUpArrow))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

float ColorSlider::getValue() const
{
    return _value;
}

void ColorSlider::setValue(float value, bool emitSignal)
{
    if (value == _value)
        return;
    _value = value;
    if (emitSignal)
        emit valueChanged(_value);
    update();
}

QColor ColorSlider::getStartColor() const
{
    return _startColor;
}

void ColorSlider::setStartColor(const QColor &color)
{
    _startColor = color;
}

QColor ColorSlider::getEndColor() const
{
    return _endColor;
}

void ColorSlider::setEndColor(const QColor &color)
{
    _endColor = color;
}

QSize ColorSlider::sizeHint() const
{
    return QSize(100, 26);
}

QRect ColorSlider::_gradientRect() const
{
    return QRect(QPoint(Margin, Top), QPoint(rect().right() - Margin, rect().bottom() - Top));
}

void ColorSlider::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QRect const bar = _gradientRect();
    QLinearGradient gradient(Margin, Top, bar.right(), Top);
    gradient.setColorAt(0, _startColor);
    gradient.setColorAt(1, _endColor);
    painter.fillRect(bar, gradient);
    painter.setPen(Qt::gray);
    painter.drawRect(bar);

    int const x = static_cast<int>(static_cast<float>(width() - _topArrow.width()) * _value);
    painter.drawPixmap(x, 0, _topArrow);
    painter.drawPixmap(x, height() - _bottomArrow.height(), _bottomArrow);
}

void ColorSlider::_setFromMouse(int x)
{
    float const t = qBound(
        0.0f, static_cast<float>(x - Margin) / static_cast<float>(width() - 2 * Margin), 1.0f);
    if (t == _value)
        return;
    _value = t;
    emit valueChanged(t);
    update();
}

void ColorSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    _setFromMouse(event->pos().x());
    _dragging = true;
}

void ColorSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (_dragging)
        _setFromMouse(event->pos().x());
}

void ColorSlider::mouseReleaseEvent(QMouseEvent *)
{
    _dragging = false;
}

} // namespace TES
