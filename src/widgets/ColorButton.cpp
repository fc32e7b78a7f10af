// SPDX-License-Identifier: MIT
#include "widgets/ColorButton.h"

#include <QPainter>

namespace TES {

ColorButton::ColorButton(const QColor &color) : _color(color)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QColor ColorButton::getColor() const
{
    return _color;
}

void ColorButton::setColor(const QColor &color)
{
    _color = color;
    update();
}

void ColorButton::setSizeHint(const QSize &size)
{
    _sizeHint = size;
}

QSize ColorButton::sizeHint() const
{
    return _sizeHint;
}

void ColorButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), _color);
    if (!_hovered)
        return;
    painter.setPen(Qt::darkGray);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(Qt::lightGray);
    painter.drawRect(rect().adjusted(1, 1, 0, 0));
}

void ColorButton::enterEvent(QEvent *)
{
    _hovered = true;
    update();
}

void ColorButton::leaveEvent(QEvent *)
{
    _hovered = false;
    update();
}

void ColorButton::mouseReleaseEvent(QMouseEvent *)
{
    emit selected(_color);
}

} // namespace TES
