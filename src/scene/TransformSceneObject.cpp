// SPDX-License-Identifier: MIT
#include "scene/TransformSceneObject.h"

#include "properties/AbstractBooleanProperty.h"
#include "scene/SceneManager.h"
#include "services/Utils.h"

namespace TES {

namespace {

// The object for an id when it is a transform object; null otherwise. Held for one step of a
// climb or a pick.
QSharedPointer<TransformSceneObject> resolveTransform(QUuid const &id)
{
    if (id.isNull() || !SceneManager::ip())
        return {};
    QSharedPointer<SceneObject> object = SceneManager::ip()->getObject(id).toStrongRef();
    if (!object || !object->isType(TransformSceneObject::Type()))
        return {};
    return object.dynamicCast<TransformSceneObject>();
}

bool isLeftGrip(RectanglePoint grip)
{
    return grip == RectanglePoint::TopLeft || grip == RectanglePoint::MiddleLeft
           || grip == RectanglePoint::BottomLeft;
}

bool isRightGrip(RectanglePoint grip)
{
    return grip == RectanglePoint::TopRight || grip == RectanglePoint::MiddleRight
           || grip == RectanglePoint::BottomRight;
}

bool isTopGrip(RectanglePoint grip)
{
    return grip == RectanglePoint::TopLeft || grip == RectanglePoint::TopMiddle
           || grip == RectanglePoint::TopRight;
}

bool isBottomGrip(RectanglePoint grip)
{
    return grip == RectanglePoint::BottomLeft || grip == RectanglePoint::BottomMiddle
           || grip == RectanglePoint::BottomRight;
}

// The edge that a grip drags toward lower coordinates: it moves, and the far edge stays. A
// drag past the far edge stops one pixel before it.
void scaleNearEdge(int &start, int &length, int delta)
{
    if (length > delta) {
        start += delta;
        length -= delta;
    } else {
        start += length - 1;
        length = 1;
    }
}

// The edge toward higher coordinates. A growing drag is taken as it is, even from a stored
// length of -1.
void scaleFarEdge(int &length, int delta)
{
    int const result = length + delta;
    length = (delta < 0 && result <= 0) ? 1 : result;
}

} // namespace

TransformSceneObject::TransformSceneObject()
{
    _types.insert(Type());
}

TransformSceneObject::~TransformSceneObject() = default;

QString TransformSceneObject::Type()
{
    return QStringLiteral("TransformSceneObject");
}

QUuid TransformSceneObject::pick(QPoint const &point, bool clip, QList<QUuid> exclude)
{
    QRect const rootRect = rectToRoot(getRectangle());
    if (AbstractBooleanProperty::Get(model(), "editorLocked")
        || AbstractBooleanProperty::Get(model(), "editorHidden") || shouldRejectPick())
        return QUuid();
    bool const inside = rootRect.contains(point, false);
    if (!inside && clip)
        return QUuid();

    QList<QUuid> const ids = children(false);
    for (int i = ids.size() - 1; i >= 0; --i) {
        auto child = resolveTransform(ids.at(i));
        if (!child || child->shouldRejectPick())
            continue;
        QUuid const hit = child->pick(point, clip, exclude);
        if (!hit.isNull() && !Utils::ObjectInList(hit, exclude))
            return hit;
    }
    if (inside && !Utils::ObjectInList(id(), exclude))
        return id();
    return QUuid();
}

QList<QUuid> TransformSceneObject::pick(QRect const &rect, bool clip, QList<QUuid> exclude)
{
    QList<QUuid> result;
    QRect const rootRect = rectToRoot(getRectangle());
    if (AbstractBooleanProperty::Get(model(), "editorLocked")
        || AbstractBooleanProperty::Get(model(), "editorHidden") || shouldRejectPick())
        return result;
    bool const inside = rootRect.intersects(rect);
    if (!inside && clip)
        return result;

    QList<QUuid> const ids = children(false);
    for (int i = ids.size() - 1; i >= 0; --i) {
        auto child = resolveTransform(ids.at(i));
        if (!child || child->shouldRejectPick())
            continue;
        QList<QUuid> const hits = child->pick(rect, clip, exclude);
        // The whole answer once per id that isn't excluded: the duplicates are expected.
        for (QUuid const &hit : hits) {
            if (!Utils::ObjectInList(hit, exclude))
                result.append(hits);
        }
    }
    if (inside && !Utils::ObjectInList(id(), exclude))
        result.append(id());
    return result;
}

void TransformSceneObject::startTransform(bool)
{
    _storedPosition = getPosition();
    _storedSize = getSize();
}

void TransformSceneObject::acceptTransform()
{
    // An unchanged object keeps its record on purpose; the tools read the delta afterwards.
    if (getPosition() == _storedPosition && getSize() == _storedSize)
        return;
    _storedPosition = QPoint(0, 0);
    _storedSize = QSize(-1, -1);
}

void TransformSceneObject::rejectTransform()
{
    setRectangle(QRect(_storedPosition, getSize()));
    setRectangle(QRect(getPosition(), _storedSize));
}

bool TransformSceneObject::shouldRejectPick() const
{
    return false;
}

int TransformSceneObject::getX()
{
    return getRectangle().left();
}

int TransformSceneObject::getY()
{
    return getRectangle().top();
}

void TransformSceneObject::setX(int x)
{
    QRect rect = getRectangle();
    rect.setLeft(x);
    setRectangle(rect);
}

void TransformSceneObject::setY(int y)
{
    QRect rect = getRectangle();
    rect.setTop(y);
    setRectangle(rect);
}

int TransformSceneObject::getWidth()
{
    QRect const rect = getRectangle();
    return rect.right() - rect.left() + 1;
}

int TransformSceneObject::getHeight()
{
    QRect const rect = getRectangle();
    return rect.bottom() - rect.top() + 1;
}

void TransformSceneObject::setWidth(int width)
{
    QRect rect = getRectangle();
    rect.setWidth(width);
    setRectangle(rect);
}

void TransformSceneObject::setHeight(int height)
{
    QRect rect = getRectangle();
    rect.setHeight(height);
    setRectangle(rect);
}

QPoint TransformSceneObject::getPosition()
{
    return getRectangle().topLeft();
}

void TransformSceneObject::setPosition(QPoint const &position)
{
    QRect rect = getRectangle();
    rect.moveTopLeft(position);
    setRectangle(rect);
}

QSize TransformSceneObject::getSize()
{
    return QSize(getWidth(), getHeight());
}

void TransformSceneObject::setSize(QSize const &size)
{
    QRect rect = getRectangle();
    rect.setSize(size);
    setRectangle(rect);
}

void TransformSceneObject::modifyGeometry(int left, int top, int right, int bottom)
{
    setRectangle(getRectangle().adjusted(left, top, right, bottom));
}

QRect TransformSceneObject::parentRectangle()
{
    return getRectangle();
}

QRect TransformSceneObject::rootRectangle()
{
    return rectToRoot(getRectangle());
}

QRect TransformSceneObject::rectToRoot(QRect const &rect)
{
    QRect result = rect;
    // The own position is not added: the rectangle is in the parent's coordinates already.
    for (auto ancestor = resolveTransform(parent()); ancestor;
         ancestor = resolveTransform(ancestor->parent()))
        result.translate(ancestor->getPosition());
    return result;
}

QRect TransformSceneObject::rectFromRoot(QRect const &rect)
{
    auto ancestor = resolveTransform(parent());
    if (!ancestor)
        return rect;
    QRect result = rect.translated(getPosition());
    for (; ancestor; ancestor = resolveTransform(ancestor->parent()))
        result.translate(-ancestor->getPosition());
    return result;
}

QPoint TransformSceneObject::pointToRoot(QPoint const &point)
{
    auto ancestor = resolveTransform(parent());
    if (!ancestor)
        return point;
    QPoint result = point + getPosition();
    for (; ancestor; ancestor = resolveTransform(ancestor->parent()))
        result += ancestor->getPosition();
    return result;
}

QPoint TransformSceneObject::pointFromRoot(QPoint const &point)
{
    auto ancestor = resolveTransform(parent());
    if (!ancestor)
        return point;
    // The own position is added, not subtracted; see the header.
    QPoint result = point + getPosition();
    for (; ancestor; ancestor = resolveTransform(ancestor->parent()))
        result -= ancestor->getPosition();
    return result;
}

QRect TransformSceneObject::visibleRectangle()
{
    if (parent().isNull())
        return getRectangle();
    QRect result = getRectangle();
    for (auto ancestor = resolveTransform(parent()); ancestor;
         ancestor = resolveTransform(ancestor->parent())) {
        QRect const ancestorRect = ancestor->getRectangle();
        result.translate(ancestorRect.topLeft());
        QRect const bounds(QPoint(0, 0), QPoint(ancestorRect.right() - ancestorRect.left(),
                                                ancestorRect.bottom() - ancestorRect.top()));
        if (!bounds.intersects(result))
            return QRect();
        result = bounds & result;
    }
    return result;
}

void TransformSceneObject::translate(int dx, int dy, bool fromCurrent)
{
    QPoint const start = fromCurrent ? getPosition() : _storedPosition;
    setRectangle(QRect(start + QPoint(dx, dy), getSize()));
}

bool TransformSceneObject::scale(QPoint const &, RectanglePoint grip, int dx, int dy)
{
    int x = _storedPosition.x();
    int y = _storedPosition.y();
    int width = _storedSize.width();
    int height = _storedSize.height();
    if (isLeftGrip(grip))
        scaleNearEdge(x, width, dx);
    if (isRightGrip(grip))
        scaleFarEdge(width, dx);
    if (isTopGrip(grip))
        scaleNearEdge(y, height, dy);
    if (isBottomGrip(grip))
        scaleFarEdge(height, dy);
    setRectangle(QRect(x, y, width, height));
    return true;
}

QPoint TransformSceneObject::getStoredPosition() const
{
    return _storedPosition;
}

QPoint TransformSceneObject::getTransformDelta()
{
    return getPosition() - _storedPosition;
}

Tool *TransformSceneObject::getTransformer() const
{
    return nullptr;
}

} // namespace TES
