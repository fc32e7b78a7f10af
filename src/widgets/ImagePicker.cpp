// SPDX-License-Identifier: MIT
#include "widgets/ImagePicker.h"

#include "services/HostConstants.h"

#include <QMouseEvent>
#include <QPainter>

namespace TES {

ImagePicker::ImagePicker()
    : ImageCanvas(1.0f), _cursorPixmap(HostConstants::IconEyedropper), _cursor(_cursorPixmap, 0, 15)
{}

ImagePicker::~ImagePicker() = default;

void ImagePicker::setImage(QImage const &image)
{
    _image = image;
    setFixedSize(_image.size());
    update();
}

void ImagePicker::paintEvent(QPaintEvent *)
{
    if (_image.isNull())
        return;
    QPainter painter(this);
    _drawImage(painter);
}

void ImagePicker::mousePressEvent(QMouseEvent *event)
{
    _pick(event);
}

void ImagePicker::mouseMoveEvent(QMouseEvent *event)
{
    _pick(event);
}

void ImagePicker::_pick(QMouseEvent *event)
{
    if (width() <= 0 || height() <= 0)
        return;
    QPoint const position = event->localPos().toPoint();
    float const fx = float(position.x()) / float(width());
    float const fy = float(position.y()) / float(height());
    int const px = int(float(_image.width()) * fx);
    int const py = int(float(_image.height()) * fy);
    uint32_t const index = uint32_t(_image.width() * py + px);
    emit indexSelected(index, _image.pixelColor(px, py));
}

void ImagePicker::enterEvent(QEvent *)
{
    setCursor(_cursor);
}

void ImagePicker::leaveEvent(QEvent *)
{
    setCursor(QCursor(Qt::ArrowCursor));
}

} // namespace TES
