// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QWidget>

class QHBoxLayout;
class QScrollArea;

namespace TES {

class ImageCanvas;

// What ImageViewer and ImageColorPicker share: an image canvas centred in a scroll area, in
// which the mouse wheel zooms (up in, anything else out) and never scrolls. The frame owns
// the scroll area and through it the canvas; it filters the wheel events of the scroll area
// and of its viewport, where those over the canvas arrive.
class TES_EXPORT ImageScrollFrame : public QWidget
{
    Q_OBJECT

public:
    ~ImageScrollFrame() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    // Takes ownership of the canvas.
    ImageScrollFrame(QWidget *parent, ImageCanvas *canvas);
    ImageCanvas *canvas() const;

    QHBoxLayout *_layout;
    QScrollArea *_scrollArea;

private:
    ImageCanvas *_canvas;
};

} // namespace TES
