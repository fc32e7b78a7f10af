#include "tools/IScreenOverlayOwner.h"

#include <QEvent>
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

} // namespace TES
