// SPDX-License-Identifier: MIT
#pragma once

#include "scene/RectanglePoint.h"
#include "scene/SceneObject.h"
#include "tessera_export.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QUuid>

namespace TES {

class Tool;

// A scene object with a rectangle on the design surface, in its parent's coordinates. The
// host never learns how a concrete class keeps its geometry: it reads and writes one QRect
// through getRectangle and setRectangle, and builds on them the arithmetic the tools need:
// moves and scales measured from a remembered start, conversions to and from the root's
// coordinates, clipping to ancestors, and hit tests of the tree by point and by rectangle.
//
// The tools drive a transform as startTransform, any number of translate or scale calls,
// then acceptTransform or rejectTransform. Nothing enforces that order. The concrete class
// announces its own changes (EVT_SCENE_SCENEOBJECTSTATECHANGED) from setRectangle.
//
// Climbing the tree for coordinates stops at the first ancestor that does not resolve or is
// not a TransformSceneObject.
class TES_EXPORT TransformSceneObject : public SceneObject
{
public:
    TransformSceneObject();
    ~TransformSceneObject() override;

    static QString Type();

    // Pure. The current rectangle in parent coordinates. Called many times per operation, up
    // to four times in one translate: keep it cheap and free of side effects.
    virtual QRect getRectangle() = 0;
    // Pure. Replaces the rectangle; trusted as given, even when it is empty.
    virtual void setRectangle(QRect const &rect) = 0;
    // The deepest object at the point, given in root coordinates; among siblings the later
    // one. A locked or hidden object, or one that rejects picks, answers the null id and so
    // shields its children. With `clip`, children outside their parent cannot be hit. An id
    // in `exclude` is never answered, but the search goes on past it.
    virtual QUuid pick(QPoint const &point, bool clip, QList<QUuid> exclude);
    // Every object meeting the rectangle, children before their parents. For each id of a
    // child's answer that isn't excluded, that whole answer is appended again, so the list
    // holds duplicates; callers drop them.
    virtual QList<QUuid> pick(QRect const &rect, bool clip, QList<QUuid> exclude);
    // Remembers position and size. The argument is ignored here; the transform tool passes
    // true when it starts a move and false when it starts a scale.
    virtual void startTransform(bool translating);
    // Ends a transform. When position and size are unchanged, the record is kept; otherwise it
    // goes back to (0, 0) and (-1, -1).
    virtual void acceptTransform();
    // Moves back to the remembered position, then applies the remembered size: two
    // setRectangle calls. The record is kept.
    virtual void rejectTransform();
    // A concrete class answers true to refuse hit tests, for itself and its subtree.
    virtual bool shouldRejectPick() const;

    int getX();
    int getY();
    // Moves only the left edge: the right edge stays, the width changes.
    void setX(int x);
    // Moves only the top edge: the bottom edge stays, the height changes.
    void setY(int y);
    int getWidth();
    int getHeight();
    // Keep the left (top) edge.
    void setWidth(int width);
    void setHeight(int height);
    QPoint getPosition();
    // A move: the size stays.
    void setPosition(QPoint const &position);
    QSize getSize();
    void setSize(QSize const &size);
    // Adds the four numbers to the four edges.
    void modifyGeometry(int left, int top, int right, int bottom);
    QRect parentRectangle();
    QRect rootRectangle();
    // Shifts by the position of the parent and each transform ancestor above it.
    QRect rectToRoot(QRect const &rect);
    // Adds the own position, subtracts each transform ancestor's. Not the inverse of
    // rectToRoot; the tools depend on it as it is.
    QRect rectFromRoot(QRect const &rect);
    // From own coordinates: adds the own position and each transform ancestor's. An object
    // whose parent is missing or not a transform object gets no offset at all.
    QPoint pointToRoot(QPoint const &point);
    // Adds the own position and subtracts each transform ancestor's: not the inverse of
    // pointToRoot, and kept so.
    QPoint pointFromRoot(QPoint const &point);
    // The rectangle clipped by each transform ancestor in turn; an empty QRect when an
    // ancestor doesn't meet it at all.
    QRect visibleRectangle();
    // One setRectangle at the current position (fromCurrent) or the remembered one, moved by
    // (dx, dy), keeping the current size.
    void translate(int dx, int dy, bool fromCurrent);
    // Scales the remembered rectangle by the grip moved by (dx, dy) since the start; never
    // below one pixel, the opposite edge staying fixed. The anchor is not used. True.
    bool scale(QPoint const &anchor, RectanglePoint grip, int dx, int dy);
    QPoint getStoredPosition() const;
    // Current position minus the remembered one.
    QPoint getTransformDelta();
    // Null: no object brings a tool of its own to transform it.
    Tool *getTransformer() const;

private:
    QPoint _storedPosition = QPoint(0, 0);
    QSize _storedSize = QSize(-1, -1);
};

} // namespace TES
