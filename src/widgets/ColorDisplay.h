// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QColor>
#include <QWidget>

namespace TES {

// Shows one colour over a checkerboard, so that its transparency can be seen. The colour
// editor's "Result"; owned by its parent widget, told its colour by setColor().
class TES_EXPORT ColorDisplay : public QWidget
{
    Q_OBJECT

public:
    ColorDisplay() = default;

    QColor getColor() const;
    void setColor(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor _color;
};

} // namespace TES
