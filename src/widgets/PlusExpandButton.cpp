// SPDX-License-Identifier: MIT
#include "widgets/PlusExpandButton.h"

#include "services/HostConstants.h"

#include <QMouseEvent>
#include <QPainter>

namespace TES {

PlusExpandButton::PlusExpandButton()
    : _plusPixmap(HostConstants::IconPlusButton), _minusPixmap(HostConstants::IconMinusButton)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedSize(14, 14);
}

bool PlusExpandButton::getExpanded() const
{
    return _expanded;
}

void PlusExpandButton::setExpanded(bool expanded)
{
    if (_expanded == expanded)
        return;
    _expanded = expanded;
    emit this->expanded(expanded);
    update();
}

void PlusExpandButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setExpanded(!_expanded);
}

void PlusExpandButton::paintEvent(QPaintEvent *)
{
    QPixmap const &pixmap = _expanded ? _minusPixmap : _plusPixmap;
    QPainter painter(this);
    int const x = (width() - 1) / 2 - pixmap.width() / 2;
    int const y = (height() - 1) / 2 - pixmap.height() / 2 + 1;
    painter.drawPixmap(x, y, pixmap);
}

} // namespace TES
