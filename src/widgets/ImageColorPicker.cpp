// SPDX-License-Identifier: MIT
#include "widgets/ImageColorPicker.h"

#include "services/HostConstants.h"
#include "widgets/ImagePicker.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolBar>

namespace TES {

ImageColorPicker::ImageColorPicker(QWidget *parent)
    : ImageScrollFrame(parent, new ImagePicker)
    , _toolBar(new QToolBar(this))
    , _picker(static_cast<ImagePicker *>(canvas()))
{
    _toolBar->setFloatable(false);
    _toolBar->setMovable(false);
    _layout->setMenuBar(_toolBar);
    _zoomInAction = _toolBar->addAction(QIcon(HostConstants::IconZoomIn), QString(), this,
                                        &ImageColorPicker::zoomIn);
    _zoomInAction->setToolTip("Zoom In");
    _zoomOutAction = _toolBar->addAction(QIcon(HostConstants::IconZoomOut), QString(), this,
                                         &ImageColorPicker::zoomOut);
    _zoomOutAction->setToolTip("Zoom Out");
    _zoomResetAction = _toolBar->addAction(QIcon(HostConstants::IconZoomReset), QString(), this,
                                           &ImageColorPicker::zoomReset);
    _zoomResetAction->setToolTip("Reset Zoom");
    connect(_picker, &ImagePicker::indexSelected, this, &ImageColorPicker::indexChanged);
}

ImageColorPicker::~ImageColorPicker() = default;

void ImageColorPicker::setImage(QImage const &image)
{
    _picker->setImage(image);
    update();
}

unsigned int ImageColorPicker::getIndex() const
{
    return _index;
}

void ImageColorPicker::setIndex(unsigned int index)
{
    _index = index;
    update();
}

void ImageColorPicker::zoomIn()
{
    _picker->zoomIn();
}

void ImageColorPicker::zoomOut()
{
    _picker->zoomOut();
}

void ImageColorPicker::zoomReset()
{
    _picker->resetZoom();
}

void ImageColorPicker::indexChanged(unsigned int index, QColor const &color)
{
    _index = index;
    emit indexSelected(index, color);
}

} // namespace TES
