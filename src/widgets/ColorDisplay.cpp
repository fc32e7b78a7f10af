// SPDX-License-Identifier: MIT
#include "widgets/ColorDisplay.h"

#include "services/Utils.h"

#include <QPainter>

namespace TES {

QColor ColorDisplay::getColor() const
{
    return _color;
}

void ColorDisplay::setColor(const QColor &color)
{
    _color = color;
    update();
}

void ColorDisplay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (_color.alphaF() < 1.0)
        Utils::PaintCheckerboard(painter, rect(), 10);
    painter.fillRect(rect(), _color);
}

} // namespace TES
