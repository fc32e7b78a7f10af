// SPDX-License-Identifier: MIT
#include "support/TestSceneObject.h"

#include "events/EventBus.h"
#include "events/SceneChangeEvent.h"
#include "properties/Property.h"
#include "scene/SceneManager.h"
#include "scene/SceneObjectInfo.h"
#include "support/TestContainer.h"

#include <QJsonObject>
#include <QPainter>
#include <QPixmap>

namespace TES::Test {

TestSceneObject::TestSceneObject()
{
    model()->addListener(this);
}

TestSceneObject::~TestSceneObject()
{
    // Deleted through SceneManager: leave the parent's list, silently, since the manager has
    // raised the one event of a deletion already. The subtree stays where it is.
    if (!SceneManager::ip() || _parent.isNull())
        return;
    auto parent = SceneManager::ip()->getObject(_parent).toStrongRef().dynamicCast<TestContainer>();
    if (parent)
        parent->_children.removeAll(id());
}

QIcon TestSceneObject::icon()
{
    bool const container = factoryType() == TestContainer::Type();
    static QIcon swatches[2];
    QIcon &icon = swatches[container ? 0 : 1];
    if (icon.isNull()) {
        QPixmap pixmap(26, 26);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 1.5));
        painter.setBrush(container ? QColor(90, 140, 220) : QColor(110, 190, 90));
        if (container)
            painter.drawRect(QRectF(2.5, 5.5, 21, 15));
        else
            painter.drawEllipse(QRectF(4.5, 4.5, 17, 17));
        painter.end();
        icon = QIcon(pixmap);
    }
    return icon;
}

QUuid TestSceneObject::parent() const
{
    return _parent;
}

QRect TestSceneObject::getRectangle()
{
    return _rectangle;
}

void TestSceneObject::setRectangle(QRect const &rect)
{
    rectangleLog.append(rect);
    if (rect == _rectangle)
        return;
    _rectangle = rect;
    Raise(QSharedPointer<SceneChangeEvent>::create(EVT_SCENE_SCENEOBJECTSTATECHANGED,
                                                   QList<SceneObjectInfo>{SceneObjectInfo(id())}));
}

bool TestSceneObject::shouldRejectPick() const
{
    return rejectPick;
}

void TestSceneObject::save(QJsonObject &json)
{
    TransformSceneObject::save(json);
    json.insert("rectangle", QJsonObject{{"x", _rectangle.x()},
                                         {"y", _rectangle.y()},
                                         {"width", _rectangle.width()},
                                         {"height", _rectangle.height()}});
    if (!link.isNull())
        json.insert("link", link.toString());
}

bool TestSceneObject::load(QJsonObject const &json)
{
    TransformSceneObject::load(json);
    QJsonObject const rect = json.value("rectangle").toObject();
    if (!rect.isEmpty()) {
        _rectangle = QRect(rect.value("x").toInt(), rect.value("y").toInt(),
                           rect.value("width").toInt(), rect.value("height").toInt());
    }
    link = QUuid(json.value("link").toString());
    return true;
}

void TestSceneObject::propertyValueChanged(Property *property, QVariant const &,
                                           QVariant const &newValue, PropertyChangeReason)
{
    QString const name = property->id();
    if (name == "name") {
        Raise(QSharedPointer<SceneChangeEvent>::create(
            EVT_SCENE_SCENEOBJECTRENAMED, QList<SceneObjectInfo>{SceneObjectInfo(id())},
            newValue.toString()));
    } else if (name == "editorLocked" || name == "editorHidden" || name == "editorExpanded") {
        Raise(QSharedPointer<SceneChangeEvent>::create(
            EVT_SCENE_SCENEOBJECTSTATECHANGED, QList<SceneObjectInfo>{SceneObjectInfo(id())}));
    }
}

void TestSceneObject::Raise(QSharedPointer<Event> const &event)
{
    if (EventBus::ip())
        EventBus::ip()->raiseEventNow(event);
}

} // namespace TES::Test
