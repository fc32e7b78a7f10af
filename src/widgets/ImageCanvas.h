// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QImage>
#include <QWidget>

namespace TES {

// The zoom and drawing shared by ImagePainter and ImagePicker: a widget of fixed size that
// draws an image scaled to fill it, the size being the image's times the zoom. Zoom steps
// are 0.2, with no upper limit and a floor that each canvas sets. The wrapper that scrolls
// the canvas owns it.
class TES_EXPORT ImageCanvas : public QWidget
{
    Q_OBJECT

public:
    static constexpr float ZoomStep = 0.2f;

    ~ImageCanvas() override;

    float zoom() const;

public slots:
    void zoomIn();
    // Not below the canvas's floor.
    void zoomOut();
    void resetZoom();

protected:
    explicit ImageCanvas(float lowestZoom);

    // The image's size times the zoom, truncated.
    void _applyZoom();
    // The whole image onto the whole widget, unsmoothed; nothing for a null image.
    void _drawImage(QPainter &painter) const;

    QImage _image;
    float _zoom = 1.0f;

private:
    float _lowestZoom;
};

} // namespace TES
