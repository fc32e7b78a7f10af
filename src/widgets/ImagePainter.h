// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/ImageCanvas.h"

namespace TES {

// Shows an image zoomed, from 0.2 upward, over a checkerboard that shows through its
// transparent parts. ImageViewer scrolls it and owns it; plug-ins may use it bare.
class TES_EXPORT ImagePainter : public ImageCanvas
{
    Q_OBJECT

public:
    ImagePainter();
    ~ImagePainter() override;

    // Sizes the canvas by the zoom, which resetZoom first brings back to 1.
    void setImage(QImage const &image, bool resetZoom);
    void setPaintChecker(bool paintChecker);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool _paintChecker = true;
};

} // namespace TES
