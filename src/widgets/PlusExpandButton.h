// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QPixmap>
#include <QWidget>

namespace TES {

// A 14 by 14 toggle drawn as a plus (closed) or a minus (open), used by the category and group
// bands of the property view. A left press flips it and emits expanded(); it keeps no link to
// what it opens. Owned by the widget that lays it out.
class TES_EXPORT PlusExpandButton : public QWidget
{
    Q_OBJECT

public:
    PlusExpandButton();

    bool getExpanded() const;
    // On a change: stores, emits expanded() and repaints.
    void setExpanded(bool expanded);

signals:
    void expanded(bool expanded);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool _expanded = false;
    QPixmap _plusPixmap;
    QPixmap _minusPixmap;
};

} // namespace TES
