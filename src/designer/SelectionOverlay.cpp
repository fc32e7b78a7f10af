// SPDX-License-Identifier: MIT
#include "designer/SelectionOverlay.h"

#include "designer/ScreenDesignArea.h"
#include "designer/ScreenDesignerWindow.h"
#include "designer/ScreenOverlay.h"
#include "scene/SceneManager.h"
#include "scene/Screen.h"
#include "scene/SelectionManager.h"
#include "services/GlobalState.h"

#include <QMouseEvent>

namespace TES {

template<>
SelectionOverlay *Singleton<SelectionOverlay>::_instance = nullptr;

namespace {

QSharedPointer<Screen> heldScreen()
{
    if (!SceneManager::ip() || SceneManager::ip()->getActiveScreen().isNull()
        || !ScreenOverlay::ip())
        return {};
    return ScreenOverlay::ip()->getScreen().toStrongRef();
}

// Shift adds, else Control removes, else the ids become the selection. Shift with Control
// counts as Shift.
template<typename Ids>
void applySelection(Ids const &ids, Qt::KeyboardModifiers modifiers)
{
    SelectionManager &selection = SelectionManager::i();
    if (modifiers & Qt::ShiftModifier)
        selection.additiveSelect(ids);
    else if (modifiers & Qt::ControlModifier)
        selection.deselect(ids);
    else
        selection.select(ids);
}

} // namespace

SelectionOverlay::SelectionOverlay(QObject *parent) : IScreenOverlayOwner(parent)
{
    _instance = this;
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->attachOverlay(OverlaySelection, this);
}

SelectionOverlay::~SelectionOverlay()
{
    if (ScreenDesignArea *area = ScreenDesignerWindow::DesignArea())
        area->detatchIfOwned(OverlaySelection, this);
    _instance = nullptr;
}

QWidget *SelectionOverlay::overlayWidget() const
{
    ScreenDesignArea *area = ScreenDesignerWindow::DesignArea();
    return area ? area->getOverlayWidget(OverlayScreen) : nullptr;
}

void SelectionOverlay::handleOverlayEvent(QEvent *event)
{
    if (!heldScreen())
        return;
    QEvent::Type const type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove
        && type != QEvent::MouseButtonRelease)
        return;
    auto *mouse = static_cast<QMouseEvent *>(event);
    if (type == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        _dragging = true;
        _rect = QRect(mouse->pos(), mouse->pos());
    } else if (type == QEvent::MouseMove && _dragging) {
        _rect.setBottomRight(mouse->pos());
    } else if (type == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton
               && _dragging) {
        _release(mouse);
    } else {
        return;
    }
    event->accept();
    if (ScreenDesignerWindow::ip())
        ScreenDesignerWindow::ip()->update();
}

void SelectionOverlay::_release(QMouseEvent *event)
{
    _dragging = false;
    QSharedPointer<Screen> const screen = heldScreen();
    QRect const band = _rect;
    _rect = QRect(0, 0, 0, 0);
    bool const clip
        = GlobalState::ip() && GlobalState::ip()->getBool(GlobalPropertyType::Project, 7);
    Qt::KeyboardModifiers const modifiers = event->modifiers();
    if (!SelectionManager::ip())
        return;
    // Unnormalised on purpose: a band dragged up and to the left counts as a click at its start.
    if (band.width() > 3 || band.height() > 3) {
        QList<QUuid> const hits = screen->pick(ScreenOverlay::toWidgetCoords(band), clip, {});
        if (hits.isEmpty()) {
            if (modifiers == Qt::NoModifier)
                SelectionManager::i().deselectAll();
        } else {
            applySelection(hits, modifiers);
        }
        return;
    }
    QUuid const hit = screen->pick(ScreenOverlay::toWidgetCoords(band.topLeft()), clip, {});
    if (hit.isNull() && modifiers == Qt::NoModifier)
        SelectionManager::i().deselectAll();
    else
        applySelection(hit, modifiers);
}

void SelectionOverlay::paintEvent(QWidget *overlay)
{
    if (!_dragging || !heldScreen())
        return;
    PaintOutline(overlay, _rect);
}

} // namespace TES
