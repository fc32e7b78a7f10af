// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QObject>

class QEvent;
class QRect;
class QWidget;

namespace TES {

// What owns one slot of the design surface's stack of overlays: the screen's picture, the
// rubber band, the active tool, or whatever a plug-in attaches. ScreenDesignArea installs the
// owner as the event filter of its overlay widget, so the owner paints there, and offers it
// the input events of the surface, topmost slot first. The owner is not owned by the area.
class TES_EXPORT IScreenOverlayOwner : public QObject
{
    Q_OBJECT

public:
    explicit IScreenOverlayOwner(QObject *parent = nullptr);
    ~IScreenOverlayOwner() override;

    // Called when the owner is attached to a slot. The default does nothing.
    virtual void activateOverlay();
    // Called when it is detached. The default does nothing.
    virtual void deactivateOverlay();
    // Pure. An input event of the surface (mouse press, release and move, key press and
    // release, resize, drag enter, move, leave and drop). Accept it to keep it from the
    // slots below; it arrives with its accepted flag cleared.
    virtual void handleOverlayEvent(QEvent *event) = 0;

    // A paint event of the overlay widget goes to paintEvent; never stops an event.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    // Paints on the overlay widget, from inside its paint event. The default does nothing.
    virtual void paintEvent(QWidget *overlay);
    // The outline style of the surface (the rubber band, a tool's box): a white rectangle,
    // then a black one dashed 3 on 3 over it, with a transparent background.
    static void PaintOutline(QWidget *overlay, QRect const &rect);
};

} // namespace TES
