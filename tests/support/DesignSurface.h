// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QUuid>

#include <Qt>

class QWidget;

namespace TES {
class ScreenDesignArea;
class ScreenDesignerWindow;
} // namespace TES

namespace TES::Test {

// The design surface as the application runs it, for tool, designer and benchmark code: an
// enabled EventBus, GlobalState, SceneManager with the test scene's factories,
// SelectionManager, ToolManager, a shown ScreenDesignerWindow with ScreenOverlay and
// SelectionOverlay, all torn down again in reverse order. The overlay container is sized as a
// plug-in sizes it, from the screen size and the designer paddings (here 37 and 23, so that
// the design is not at the overlay's origin).
//
// The mouse helpers send real events through the window, so that QGuiApplication knows the
// buttons and modifiers; positions are in overlay pixels.
class DesignSurface
{
public:
    DesignSurface(int widthPadding = 37, int heightPadding = 23);
    ~DesignSurface();

    DesignSurface(DesignSurface const &) = delete;
    DesignSurface &operator=(DesignSurface const &) = delete;

    // A new screen of the test scene, shown (so active when it is the first shown).
    QUuid addScreen(QString const &name);
    // Sizes the container from the screen size and the paddings, as a plug-in does.
    void sizeContainer();

    ScreenDesignerWindow &window() const;
    ScreenDesignArea &area() const;
    QWidget *input() const;

    // An object's root rectangle in overlay pixels.
    static QRect onSurface(QUuid const &id);

    void press(QPoint const &p, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void move(QPoint const &p, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void release(QPoint const &p, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    // Press, a move half way, a move to the end, release: the modifiers held all along.
    void drag(QPoint const &from, QPoint const &to,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

private:
    QPoint _inWindow(QPoint const &p) const;

    int _widthPadding;
    int _heightPadding;
    ScreenDesignerWindow *_window = nullptr;
};

} // namespace TES::Test
