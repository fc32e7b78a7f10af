// SPDX-License-Identifier: MIT
#include "widgets/ExpandButtonWidget.h"

#include <QPainter>
#include <QStyleOption>

namespace TES {

ExpandButtonWidget::ExpandButtonWidget(QWidget *parent) : QPushButton(parent) {}

bool ExpandButtonWidget::getExpanded() const
{
    return _expanded;
}

void ExpandButtonWidget::setExpanded(bool expanded)
{
    if (_expanded == expanded)
        return;
    _expanded = expanded;
    update();
    emit expandStateChanged(_expanded);
}

void ExpandButtonWidget::paintEvent(QPaintEvent *)
{
    QStyleOption option;
    option.rect = QRect(0, 0, 20, 20);
    option.state = QStyle::State_Children;
    if (_expanded)
        option.state |= QStyle::State_Open;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter, this);
}

void ExpandButtonWidget::mouseReleaseEvent(QMouseEvent *)
{
    // Any button, and no click bookkeeping of QPushButton: the release alone toggles.
    setExpanded(!_expanded);
}

} // namespace TES
