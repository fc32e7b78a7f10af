// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "tessera_export.h"
#include "tools/Tool.h"

#include <QList>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QUuid>

#include <array>
#include <functional>

class QKeyEvent;
class QMouseEvent;

namespace TES {

class TransformSceneObject;

// The tool "transform": a dashed box with eight grips around the top-most selected objects,
// with their coordinates and size in labels. Dragging the box moves them by exact pixels,
// dragging a grip scales each of them by the same pixels (never below one), the arrow keys
// nudge them (10 pixels, 1 with Control), Delete and Backspace delete them on release, and
// Control held during a move offers the object under the cursor to the
// TransformToolExtender's delegate as their new parent. All hit tests are in overlay pixels,
// all changes go through TransformSceneObject's transform operations.
//
// Made and owned by ToolManager while active, on the tool overlay (slot 5). Input comes from
// ScreenDesignArea through handleOverlayEvent; a press outside the box is left to the rubber
// band below. The tool does not watch the selection: it rebuilds on update(), on a resize, on
// a change of a selected object (EVT_SCENE_SCENEOBJECTSTATECHANGED) and on a change of the
// screen size or the designer paddings, as a handler on the bus.
class TES_EXPORT TransformTool : public Tool, public IEventHandler
{
    Q_OBJECT

public:
    TransformTool();
    ~TransformTool() override;

    // "transform".
    static QString Type();
    QString type() const override;

    bool containsObject(QUuid const &id) const;
    bool isTopMostObject(QUuid const &id) const;
    // The box in overlay pixels; kept after the selection is emptied.
    QRect boundingBox() const;

    void activateOverlay() override;
    void deactivateOverlay() override;
    void update() override;
    void handleOverlayEvent(QEvent *event) override;

    // "transform".
    QString getEventHandlerName() const override;
    // EVM_SCENE and EVM_GLOBALSTATE.
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;

protected:
    void paintEvent(QWidget *overlay) override;

private:
    void _rebuild();
    void _rebuildCurrent();
    void _rebuildBox();
    int _getGrip(QPoint const &p) const;
    void _updateCursor(QPoint const &p);
    void _buttonPressed(QMouseEvent *e);
    void _buttonReleased(QMouseEvent *e);
    void _mouseMoved(QMouseEvent *e);
    void _dragged(QMouseEvent *e);
    void _keyPressed(QKeyEvent *e);
    void _keyReleased(QKeyEvent *e);
    void _startTransform(QPoint const &p);
    void _endTransform();
    void _handleBoxDrag(QMouseEvent *e);
    // One handler for the eight grips: each scales by the drag, along the axes it moves.
    void _handleGripDrag(QMouseEvent *e);
    QUuid _dragPickWidget(QPoint const &p) const;
    // Runs the operation on each id that names a transform object, skipping the others.
    void _forEachObject(QList<QUuid> const &ids,
                        std::function<void(TransformSceneObject &)> const &op);

    void _paintBox(QWidget *overlay);
    void _paintReparentHighlight(QWidget *overlay);
    void _paintGrips(QWidget *overlay);
    void _paintTopLeftCoords(QWidget *overlay);
    void _paintBottomRightCoords(QWidget *overlay);
    void _paintWidthIndicator(QWidget *overlay);
    void _paintHeightIndicator(QWidget *overlay);

    QRect _box = QRect(QPoint(0, 0), QPoint(-1, -1));
    int _mode = 0; // 0 idle, 1 translating, 2 scaling
    int _grip = -1;
    QPoint _startPosition = QPoint(0, 0);
    QSize _startSize = QSize(-1, -1);
    bool _moved = false;
    QPoint _lastPoint = QPoint(0, 0);
    std::array<QRect, 8> _grips;
    QPixmap _gripPixmap;
    bool _showGrips = true;
    QList<QUuid> _selected;
    QList<QUuid> _topMost;
    QUuid _reparentTarget;
    bool _hasBox = false;
    // Set while the tool changes the objects itself.
    bool _changing = false;
};

} // namespace TES
