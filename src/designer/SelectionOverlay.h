// SPDX-License-Identifier: MIT
#pragma once

#include "services/Singleton.h"
#include "tessera_export.h"
#include "tools/IScreenOverlayOwner.h"

#include <QRect>

class QMouseEvent;

namespace TES {

// The rubber band on overlay 4: a press and drag on the design surface that no tool took
// draws a dashed rectangle, and the release selects what it covers (Shift adds, Control
// removes, no modifier replaces); a release within 3 by 3 pixels is a click that picks one
// object. Input reaches it from ScreenDesignArea after the tool of slot 5 has left it.
//
// Core creates the one instance once the main window exists, parented to it; it attaches
// itself to slot 4 in its constructor and detaches in its destructor.
class TES_EXPORT SelectionOverlay : public IScreenOverlayOwner, public Singleton<SelectionOverlay>
{
    Q_OBJECT

public:
    explicit SelectionOverlay(QObject *parent = nullptr);
    ~SelectionOverlay() override;

    // Overlay widget 1, the screen overlay's, not its own widget 4.
    QWidget *overlayWidget() const;

    // Only while a screen is active and shown: left press, move and release draw and apply
    // the band; those are accepted, other events are not.
    void handleOverlayEvent(QEvent *event) override;

protected:
    void paintEvent(QWidget *overlay) override;

private:
    void _release(QMouseEvent *event);

    bool _dragging = false;
    QRect _rect;
};

template<>
TES_EXPORT SelectionOverlay *Singleton<SelectionOverlay>::_instance;

} // namespace TES
