// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QColor>
#include <QWidget>

namespace TES {

// A flat swatch to click: fills itself with its colour, shows a bevel while the mouse is
// over it, and emits selected() on a release of any button. The colour editor's palette is
// made of them. Owned by its parent widget.
class TES_EXPORT ColorButton : public QWidget
{
    Q_OBJECT

public:
    explicit ColorButton(const QColor &color);

    QColor getColor() const;
    void setColor(const QColor &color);
    void setSizeHint(const QSize &size);
    // -1 by -1 until set.
    QSize sizeHint() const override;

signals:
    void selected(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QColor _color;
    QSize _sizeHint{-1, -1};
    bool _hovered = false;
};

} // namespace TES
