// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "services/Singleton.h"
#include "tessera_export.h"
#include "tools/IScreenOverlayOwner.h"

#include <QPoint>
#include <QRect>
#include <QSharedPointer>
#include <QWeakPointer>

namespace TES {

class Screen;

// Shows the active screen on overlay 1 of the design surface, by painting its render(true)
// at (0, 0), and fixes how points move between overlay pixels ("screen" coordinates) and the
// design's own ("widget" coordinates): the design is centred in the overlay, without zoom.
//
// TesseraWindow creates the one instance right after the design surface and parents it to
// itself. A persistent handler on the bus: it follows the active screen, attaching itself to
// slot 1 while there is one.
class TES_EXPORT ScreenOverlay : public IScreenOverlayOwner,
                                 public IEventHandler,
                                 public Singleton<ScreenOverlay>
{
    Q_OBJECT

public:
    explicit ScreenOverlay(QObject *parent = nullptr);
    ~ScreenOverlay() override;

    QWeakPointer<Screen> getScreen() const;
    // Overlay widget 1 of the design surface; null without one.
    QWidget *overlayWidget() const;
    // Where the design lies in the overlay.
    QRect screenRect() const;

    // Design coordinates to overlay pixels.
    static QPoint toScreenCoords(QPoint const &point);
    static QRect toScreenCoords(QRect const &rect);
    // Overlay pixels to design coordinates: every mouse position goes through it before a pick.
    static QPoint toWidgetCoords(QPoint const &point);
    static QRect toWidgetCoords(QRect const &rect);

    // Does nothing: the screen's picture takes no input.
    void handleOverlayEvent(QEvent *event) override;

    // "ScreenOverlay".
    QString getEventHandlerName() const override;
    // EVM_PROJECT and EVM_SCREEN.
    bool canHandleEvent(unsigned long long mask) const override;
    // EVT_PROJECT_LOADED and EVT_SCREEN_ACTIVE_CHANGED: holds the active screen and attaches
    // to slot 1, or detaches when none is active.
    void handleEvent(QSharedPointer<Event> event) override;
    bool persistent() const override;

protected:
    void paintEvent(QWidget *overlay) override;

private:
    // The offset that toScreenCoords adds: overlay centre minus design centre.
    static QPoint _offset();

    // Weak, so that a removed screen is not kept alive by its picture; locked to paint.
    QWeakPointer<Screen> _screen;
};

template<>
TES_EXPORT ScreenOverlay *Singleton<ScreenOverlay>::_instance;

} // namespace TES
