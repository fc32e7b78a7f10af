// SPDX-License-Identifier: MIT
#include "designer/ScreenOverlay.h"

#include "designer/ScreenDesignArea.h"
#include "designer/ScreenDesignerWindow.h"
#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/Screen.h"

#include <QPainter>

namespace TES {

template<>
ScreenOverlay *Singleton<ScreenOverlay>::_instance = nullptr;

namespace {

QSize overlaySize()
{
    ScreenDesignArea *area = ScreenDesignerWindow::DesignArea();
    return area ? area->getOverlayWidget(OverlayScreen)->size() : QSize(0, 0);
}

QSize designSize()
{
    return SceneManager::ip() ? SceneManager::ip()->screenSize() : QSize(480, 272);
}

} // namespace

ScreenOverlay::ScreenOverlay(QObject *parent) : IScreenOverlayOwner(parent)
{
    _instance = this;
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

ScreenOverlay::~ScreenOverlay()
{
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->detatchIfOwned(OverlayScreen, this);
    _instance = nullptr;
}

QWeakPointer<Screen> ScreenOverlay::getScreen() const
{
    return _screen;
}

QWidget *ScreenOverlay::overlayWidget() const
{
    ScreenDesignArea *area = ScreenDesignerWindow::DesignArea();
    return area ? area->getOverlayWidget(OverlayScreen) : nullptr;
}

QRect ScreenOverlay::screenRect() const
{
    QPoint const topLeft = _offset();
    return QRect(topLeft, designSize());
}

QPoint ScreenOverlay::_offset()
{
    QSize const overlay = overlaySize();
    QSize const design = designSize();
    // Integer division toward zero, as C++ does it.
    return QPoint((overlay.width() - 1) / 2 - (design.width() - 1) / 2,
                  (overlay.height() - 1) / 2 - (design.height() - 1) / 2);
}

QPoint ScreenOverlay::toScreenCoords(QPoint const &point)
{
    return point + _offset();
}

QRect ScreenOverlay::toScreenCoords(QRect const &rect)
{
    return rect.translated(_offset());
}

QPoint ScreenOverlay::toWidgetCoords(QPoint const &point)
{
    return point - _offset();
}

QRect ScreenOverlay::toWidgetCoords(QRect const &rect)
{
    return rect.translated(-_offset());
}

void ScreenOverlay::handleOverlayEvent(QEvent *) {}

QString ScreenOverlay::getEventHandlerName() const
{
    return "ScreenOverlay";
}

bool ScreenOverlay::canHandleEvent(unsigned long long mask) const
{
    return mask & (EVM_PROJECT | EVM_SCREEN);
}

void ScreenOverlay::handleEvent(QSharedPointer<Event> event)
{
    unsigned long long const type = event->type();
    if (type != EVT_PROJECT_LOADED && type != EVT_SCREEN_ACTIVE_CHANGED)
        return;
    if (type == EVT_SCREEN_ACTIVE_CHANGED) {
        if (QSharedPointer<Screen> held = _screen.toStrongRef())
            held->deactivated();
    }
    _screen.clear();
    ScreenDesignArea *area = ScreenDesignerWindow::DesignArea();
    QSharedPointer<Screen> active;
    if (SceneManager::ip())
        active = SceneManager::ip()->screen(SceneManager::ip()->getActiveScreen()).toStrongRef();
    if (!active) {
        if (area)
            area->detachOverlay(OverlayScreen);
        return;
    }
    _screen = active;
    if (area) {
        area->attachOverlay(OverlayScreen, this);
        area->getOverlayWidget(OverlayScreen)->update();
    }
    active->activated();
}

bool ScreenOverlay::persistent() const
{
    return true;
}

void ScreenOverlay::paintEvent(QWidget *overlay)
{
    QSharedPointer<Screen> const screen = _screen.toStrongRef();
    if (!screen)
        return;
    QPainter painter(overlay);
    painter.drawImage(QPoint(0, 0), screen->render(true));
}

} // namespace TES
