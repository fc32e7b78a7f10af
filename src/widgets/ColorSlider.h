// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QColor>
#include <QPixmap>
#include <QWidget>

namespace TES {

// A gradient bar from a start to an end colour with a value from 0 to 1, marked by two
// arrows. A left press or a drag sets the value from the mouse and emits valueChanged(); the
// colour editor uses it for the brightness. Owned by its parent widget.
class TES_EXPORT ColorSlider : public QWidget
{
    Q_OBJECT

public:
    ColorSlider();

    float getValue() const;
    // Nothing happens for the present value, whatever emitSignal says.
    void setValue(float value, bool emitSignal);
    // The colour setters do not repaint.
    QColor getStartColor() const;
    void setStartColor(const QColor &color);
    QColor getEndColor() const;
    void setEndColor(const QColor &color);

    QSize sizeHint() const override;

signals:
    void valueChanged(float value);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QRect _gradientRect() const;
    void _setFromMouse(int x);

    float _value = 1.0f;
    QColor _startColor = Qt::black;
    QColor _endColor = Qt::white;
    QPixmap _topArrow;
    QPixmap _bottomArrow;
    bool _dragging = false;
};

} // namespace TES
