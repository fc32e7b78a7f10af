// SPDX-License-Identifier: MIT
#include "widgets/ImageCanvas.h"

#include <QPainter>

#include <algorithm>

namespace TES {

ImageCanvas::ImageCanvas(float lowestZoom) : _lowestZoom(lowestZoom)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

ImageCanvas::~ImageCanvas() = default;

float ImageCanvas::zoom() const
{
    return _zoom;
}

void ImageCanvas::zoomIn()
{
    _zoom += ZoomStep;
    _applyZoom();
}

void ImageCanvas::zoomOut()
{
    _zoom = std::max(_zoom - ZoomStep, _lowestZoom);
    _applyZoom();
}

void ImageCanvas::resetZoom()
{
    _zoom = 1.0f;
    _applyZoom();
}

void ImageCanvas::_applyZoom()
{
    setFixedSize(int(float(_image.width()) * _zoom), int(float(_image.height()) * _zoom));
    update();
}

void ImageCanvas::_drawImage(QPainter &painter) const
{
    painter.drawImage(QRect(0, 0, width(), height()), _image, _image.rect());
}

} // namespace TES
