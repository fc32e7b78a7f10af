// SPDX-License-Identifier: MIT
#include "tools/IScreenOverlayOwner.h"

#include <QEvent>
#include <QPainter>
#include <QWidget>

namespace TES {

IScreenOverlayOwner::IScreenOverlayOwner(QObject *parent) : QObject(parent) {}

IScreenOverlayOwner::~IScreenOverlayOwner() = default;

void IScreenOverlayOwner::activateOverlay() {}

void IScreenOverlayOwner::deactivateOverlay() {}

bool IScreenOverlayOwner::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && watched->isWidgetType())
        paintEvent(static_cast<QWidget *>(watched));
    return false;
}

void IScreenOverlayOwner::paintEvent(QWidget *) {}

void IScreenOverlayOwner::PaintOutline(QWidget *overlay, QRect const &rect)
{
    QPainter painter(overlay);
    painter.setBackgroundMode(Qt::TransparentMode);
    painter.setPen(Qt::white);
    painter.drawRect(rect);
    QPen dashed;
    dashed.setDashPattern({3, 3});
    painter.setPen(dashed);
    painter.drawRect(rect);
}

} // namespace TES
