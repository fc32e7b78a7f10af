// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/ImageCanvas.h"

#include <QCursor>
#include <QPixmap>

#include <cstdint>

namespace TES {

// Shows an image zoomed, from 1 upward, under an eyedropper cursor; a press or a drag
// reports the pixel under the pointer by its linear index (row times width plus column) and
// its colour. ImageColorPicker scrolls it and owns it.
class TES_EXPORT ImagePicker : public ImageCanvas
{
    Q_OBJECT

public:
    ImagePicker();
    ~ImagePicker() override;

    // The canvas takes the image's own size, whatever the zoom, until the next zoom step.
    void setImage(QImage const &image);

signals:
    void indexSelected(uint32_t index, QColor const &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    // Any button.
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void _pick(QMouseEvent *event);

    QPixmap _cursorPixmap;
    QCursor _cursor;
};

} // namespace TES
