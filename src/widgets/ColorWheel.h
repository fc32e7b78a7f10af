// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"
#include "widgets/ColorWheelColor.h"

#include <QColor>
#include <QImage>
#include <QWidget>

namespace TES {

// A disc of hue (by bearing) and saturation (white at the centre, pure at the rim), at full
// brightness, limited to the colours its pixel format can show. The disc is computed pixel
// by pixel into a cached image on each resize and blitted on paint. A left press or a drag
// moves the cursor and emits valueChanged(); setters called with emitSignal false do not.
// The colour editor's "Hue"; owned by its parent widget.
class TES_EXPORT ColorWheel : public QWidget
{
    Q_OBJECT

public:
    ColorWheel();

    // A plain store: the disc shows the mode from its next rebuild on.
    void setColorMode(ColorWheelMode mode);
    // p is relative to the disc's centre. Outside the disc: transparent black, or with
    // clampToEdge the colour on the rim at that bearing.
    QColor colorAtPoint(const QPoint &p, bool clampToEdge) const;
    QPoint getCursorPosition() const;
    // The cursor lands where the colour under p puts it: outside the disc, on the rim.
    void setCursorPosition(const QPoint &p, bool emitSignal);
    void setValue(const QColor &color, bool emitSignal);
    // The colour under the cursor, at full brightness.
    QColor getValue() const;

signals:
    void valueChanged(const QColor &color);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void _rebuildCache();
    void _recalculateCursor();
    void _emitValue(bool emitSignal);
    QPoint _cacheOrigin() const;
    QPoint _toCircleSpace(const QPoint &p) const;
    QPoint _toWidgetSpace(const QPoint &p) const;
    static QColor _getHue(float angle);
    static unsigned int _sliceColor(float angle);
    static QColor _applySaturation(const QColor &color, unsigned int slice, float saturation);

    ColorWheelMode _mode = ColorWheelMode::RGB888;
    QColor _color = QColor(Qt::white).toHsv();
    int _size = 0;
    int _radius = 0;
    QPoint _cursor;
    QImage _cache;
    bool _cacheDirty = true;
};

} // namespace TES
