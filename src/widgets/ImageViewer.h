// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/ImageScrollFrame.h"

namespace TES {

class ImagePainter;

// An ImagePainter in a scroll area: shows an image zoomed from 0.2 upward, over a
// checkerboard, with the wheel zooming. The viewer owns its painter.
class TES_EXPORT ImageViewer : public ImageScrollFrame
{
    Q_OBJECT

public:
    explicit ImageViewer(QWidget *parent = nullptr);
    ~ImageViewer() override;

    void setImage(QImage const &image, bool resetZoom);
    void zoomIn();
    void zoomOut();
    void resetZoom();
    void setPaintChecker(bool paintChecker);

private:
    ImagePainter *_painter;
};

} // namespace TES
