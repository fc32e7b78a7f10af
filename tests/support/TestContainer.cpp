// SPDX-License-Identifier: MIT
#include "support/TestContainer.h"

#include "events/SceneChangeEvent.h"
#include "scene/SceneManager.h"
#include "scene/SceneObjectInfo.h"

#include <QJsonArray>
#include <QJsonObject>

namespace TES::Test {

namespace {

template<typename T>
QSharedPointer<T> resolve(QUuid const &id)
{
    if (!SceneManager::ip())
        return {};
    return SceneManager::ip()->getObject(id).toStrongRef().template dynamicCast<T>();
}

void raise(unsigned long long type, QList<SceneObjectInfo> const &infos)
{
    TestSceneObject::Raise(QSharedPointer<SceneChangeEvent>::create(type, infos));
}

} // namespace

TestContainer::TestContainer()
{
    _types.insert(Type());
}

TestContainer::~TestContainer() = default;

QString TestContainer::Type()
{
    return QStringLiteral("TestContainer");
}

QString TestContainer::factoryType() const
{
    return Type();
}

QList<QUuid> TestContainer::children(bool) const
{
    return _children;
}

bool TestContainer::addChild(QUuid const &id, unsigned int index)
{
    QUuid const own = this->id();
    if (id.isNull() || id == own || _children.contains(id))
        return false;
    auto child = resolve<TestSceneObject>(id);
    if (!child || child->isAncestorOf(own))
        return false;

    int const place = index > static_cast<unsigned int>(_children.size()) ? _children.size()
                                                                          : static_cast<int>(index);
    QUuid const oldParentId = child->parent();
    if (auto oldParent = resolve<TestContainer>(oldParentId)) {
        raise(EVT_SCENE_CHILDABOUTTOREPARENT,
              {SceneObjectInfo(oldParentId), SceneObjectInfo(id), SceneObjectInfo(own)});
        oldParent->_children.removeAll(id);
        _children.insert(place, id);
        child->_parent = own;
        raise(EVT_SCENE_CHILDREPARENTED,
              {SceneObjectInfo(oldParentId), SceneObjectInfo(id), SceneObjectInfo(own)});
        return true;
    }

    raise(EVT_SCENE_CHILDABOUTTOADD, {SceneObjectInfo(own), SceneObjectInfo(id, place)});
    _children.insert(place, id);
    child->_parent = own;
    raise(EVT_SCENE_CHILDADDED, {SceneObjectInfo(own), SceneObjectInfo(id, place)});
    return true;
}

void TestContainer::removeChild(QUuid const &id)
{
    int const place = _children.indexOf(id);
    if (place < 0)
        return;
    QUuid const own = this->id();
    raise(EVT_SCENE_CHILDABOUTTOREMOVE, {SceneObjectInfo(own), SceneObjectInfo(id, place)});
    _children.removeAt(place);
    if (auto child = resolve<TestSceneObject>(id))
        child->_parent = QUuid();
    raise(EVT_SCENE_CHILDREMOVED, {SceneObjectInfo(own), SceneObjectInfo(id, place)});
}

void TestContainer::moveChild(QUuid const &id, unsigned int index)
{
    moveLog.append(qMakePair(id, index));
    int const from = _children.indexOf(id);
    if (from < 0 || index >= static_cast<unsigned int>(_children.size())
        || static_cast<int>(index) == from)
        return;
    int const to = static_cast<int>(index);
    QUuid const own = this->id();
    raise(EVT_SCENE_CHILDABOUTTOMOVE, {SceneObjectInfo(own), SceneObjectInfo(id, from)});
    _children.move(from, to);
    raise(EVT_SCENE_CHILDMOVED, {SceneObjectInfo(own), SceneObjectInfo(id, to)});
}

void TestContainer::save(QJsonObject &json)
{
    TestSceneObject::save(json);
    QJsonArray entries;
    for (QUuid const &childId : _children) {
        if (auto child = resolve<TestSceneObject>(childId)) {
            QJsonObject object;
            child->save(object);
            entries.append(QJsonObject{{"type", child->factoryType()}, {"object", object}});
        }
    }
    json.insert("children", entries);
}

bool TestContainer::load(QJsonObject const &json)
{
    TestSceneObject::load(json);
    if (!SceneManager::ip())
        return true;
    // Restored silently, as a plug-in restores a saved tree: nobody follows it yet.
    for (QJsonValue const entry : json.value("children").toArray()) {
        QJsonObject const saved = entry.toObject();
        QUuid const made = SceneManager::ip()->createObject(saved.value("type").toString());
        auto child = resolve<TestSceneObject>(made);
        if (!child)
            continue;
        child->load(saved.value("object").toObject());
        child->_parent = id();
        _children.append(child->id());
    }
    return true;
}

} // namespace TES::Test
