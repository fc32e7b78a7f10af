// SPDX-License-Identifier: MIT
#include "widgets/ImagePainter.h"

#include "services/Utils.h"

#include <QPainter>

namespace TES {

ImagePainter::ImagePainter() : ImageCanvas(0.2f) {}

ImagePainter::~ImagePainter() = default;

void ImagePainter::setImage(QImage const &image, bool resetZoom)
{
    _image = image;
    if (resetZoom)
        _zoom = 1.0f;
    _applyZoom();
}

void ImagePainter::setPaintChecker(bool paintChecker)
{
    _paintChecker = paintChecker;
    update();
}

void ImagePainter::paintEvent(QPaintEvent *)
{
    if (_image.isNull())
        return;
    QPainter painter(this);
    if (_paintChecker)
        Utils::PaintCheckerboard(painter, rect(), 10);
    _drawImage(painter);
}

} // namespace TES
