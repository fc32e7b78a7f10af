// SPDX-License-Identifier: MIT
#include "widgets/ImageViewer.h"

#include "widgets/ImagePainter.h"

namespace TES {

ImageViewer::ImageViewer(QWidget *parent)
    : ImageScrollFrame(parent, new ImagePainter), _painter(static_cast<ImagePainter *>(canvas()))
{}

ImageViewer::~ImageViewer() = default;

void ImageViewer::setImage(QImage const &image, bool resetZoom)
{
    _painter->setImage(image, resetZoom);
    update();
}

void ImageViewer::zoomIn()
{
    _painter->zoomIn();
}

void ImageViewer::zoomOut()
{
    _painter->zoomOut();
}

void ImageViewer::resetZoom()
{
    _painter->resetZoom();
}

void ImageViewer::setPaintChecker(bool paintChecker)
{
    _painter->setPaintChecker(paintChecker);
}

} // namespace TES
