// SPDX-License-Identifier: MIT
#include "widgets/ImageScrollFrame.h"

#include "widgets/ImageCanvas.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QWheelEvent>

namespace TES {

ImageScrollFrame::ImageScrollFrame(QWidget *parent, ImageCanvas *canvas)
    : QWidget(parent), _layout(new QHBoxLayout(this)), _scrollArea(new QScrollArea), _canvas(canvas)
{
    _layout->setContentsMargins(0, 0, 0, 0);
    _layout->setSpacing(0);
    _scrollArea->setWidget(_canvas);
    _scrollArea->setAlignment(Qt::AlignCenter);
    _layout->addWidget(_scrollArea);
    _scrollArea->installEventFilter(this);
    // The viewport hands its wheel events to the scroll area without passing the area's
    // filters, so it is filtered too.
    _scrollArea->viewport()->installEventFilter(this);
}

ImageScrollFrame::~ImageScrollFrame() = default;

ImageCanvas *ImageScrollFrame::canvas() const
{
    return _canvas;
}

bool ImageScrollFrame::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return false;
    if (static_cast<QWheelEvent *>(event)->angleDelta().y() > 0)
        _canvas->zoomIn();
    else
        _canvas->zoomOut();
    // Accepted, or it would travel on from the viewport to the area and zoom twice.
    event->accept();
    return true;
}

} // namespace TES
