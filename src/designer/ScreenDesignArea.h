// SPDX-License-Identifier: MIT
#pragma once

#include "designer/ScreenOverlayType.h"
#include "tessera_export.h"

#include <QWidget>

#include <array>

class QScrollArea;

namespace TES {

class IScreenOverlayOwner;

// The design surface below the tabs: a scroll area whose widget, the overlay container,
// stacks eight transparent overlay widgets (slot 0 at the bottom) and one input widget on
// top. Each overlay widget may have an owner (IScreenOverlayOwner), installed as its event
// filter, that paints on it. All input lands on the input widget, whose events the area
// filters and offers to the owners from slot 7 down until one accepts.
//
// Owned by ScreenDesignerWindow. The owners are not owned here. The host never sizes the
// container: a plug-in does, through overlayContainer(), from the screen size and the
// designer paddings.
class TES_EXPORT ScreenDesignArea : public QWidget
{
    Q_OBJECT

public:
    explicit ScreenDesignArea(QWidget *parent = nullptr);
    ~ScreenDesignArea() override;

    QWidget *overlayContainer() const;
    // Detaches the slot's owner (deactivateOverlay), then attaches the new one
    // (activateOverlay) unless it is null. False above 7 and when the owner has the slot
    // already.
    bool attachOverlay(ScreenOverlayType type, IScreenOverlayOwner *owner);
    // False above 7 or for an empty slot.
    bool detachOverlay(ScreenOverlayType type);
    // detachOverlay when the slot is the owner's; false above 7, for a null owner and for
    // another owner's slot.
    bool detatchIfOwned(ScreenOverlayType type, IScreenOverlayOwner *owner);
    bool isOverlayOwned(ScreenOverlayType type) const;
    // By index, without a range test: pass 0 to 7.
    IScreenOverlayOwner *getOverlayOwner(ScreenOverlayType type) const;
    QWidget *getOverlayWidget(ScreenOverlayType type) const;
    // The input widget, which takes all input and carries the cursor.
    QWidget *inputWidget() const;
    Qt::CursorShape getCursor() const;
    void setCursor(Qt::CursorShape shape);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void _detach(ScreenOverlayType type);
    bool _forwardEvent(QEvent *event);
    void _paintContainer();

    QScrollArea *_scrollArea = nullptr;
    QWidget *_overlayContainer = nullptr;
    std::array<QWidget *, OverlayCount> _overlayWidgets{};
    std::array<IScreenOverlayOwner *, OverlayCount> _overlayOwners{};
    QWidget *_inputWidget = nullptr;
};

} // namespace TES
