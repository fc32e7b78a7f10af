// SPDX-License-Identifier: MIT
#include "scene/SceneObject.h"

#include "properties/AbstractBooleanProperty.h"
#include "scene/SceneManager.h"
#include "services/Utils.h"

namespace TES {

namespace {

// Held for the length of one step of a walk, so that a handler deleting the object while the
// step runs cannot pull it away underneath.
QSharedPointer<SceneObject> resolve(QUuid const &id)
{
    if (!SceneManager::ip())
        return {};
    return SceneManager::ip()->getObject(id).toStrongRef();
}

} // namespace

SceneObject::SceneObject()
{
    _model.addProperty(AbstractBooleanProperty::Type(), "editorLocked", {});
    _model.addProperty(AbstractBooleanProperty::Type(), "editorHidden", {});
    _model.addProperty(AbstractBooleanProperty::Type(), "editorExpanded", {});
    AbstractBooleanProperty::Set(&_model, "editorExpanded", true,
                                 PropertyChangeReason::ReasonInternal);
}

SceneObject::~SceneObject() = default;

bool SceneObject::setName(QString const &name)
{
    if (!validateName(getName(), name))
        return false;
    return Object::setName(name);
}

bool SceneObject::validateName(QString const &, QString const &) const
{
    return true;
}

QUuid SceneObject::parent() const
{
    return QUuid();
}

QUuid SceneObject::root() const
{
    return id();
}

bool SceneObject::hasChild(QUuid const &id, bool recursive) const
{
    QList<QUuid> const ids = children(false);
    if (Utils::ObjectInList(id, ids))
        return true;
    if (!recursive)
        return false;
    for (QUuid const &childId : ids) {
        if (auto child = resolve(childId)) {
            if (child->hasChild(id, recursive))
                return true;
        }
    }
    return false;
}

bool SceneObject::hasChildNamed(QString const &name, bool recursive) const
{
    // The same walk as childWithName: direct children first, then each child's subtree.
    return !childWithName(name, recursive).isNull();
}

QUuid SceneObject::childWithName(QString const &name, bool recursive) const
{
    QList<QUuid> const ids = children(false);
    for (QUuid const &childId : ids) {
        auto child = resolve(childId);
        if (child && child->getName() == name)
            return childId;
    }
    if (!recursive)
        return QUuid();
    for (QUuid const &childId : ids) {
        if (auto child = resolve(childId)) {
            QUuid const found = child->childWithName(name, recursive);
            if (!found.isNull())
                return found;
        }
    }
    return QUuid();
}

QList<QUuid> SceneObject::childrenOfType(QString const &type, bool recursive) const
{
    QList<QUuid> result;
    QList<QUuid> const ids = children(false);
    for (QUuid const &childId : ids) {
        auto child = resolve(childId);
        if (child && child->isType(type))
            result.append(childId);
    }
    if (recursive) {
        for (QUuid const &childId : ids) {
            if (auto child = resolve(childId))
                result.append(child->childrenOfType(type, true));
        }
    }
    return result;
}

QUuid SceneObject::childAt(unsigned int index, bool recursive) const
{
    if (recursive) {
        unsigned int counter = 0;
        return _depthFirstIndexSearch(id(), index, counter);
    }
    if (index >= childCount(false))
        return QUuid();
    return children(false).value(static_cast<int>(index));
}

unsigned int SceneObject::childCount(bool recursive) const
{
    QList<QUuid> const ids = children(false);
    if (!recursive)
        return static_cast<unsigned int>(ids.size());
    // Plug-ins have always been given 0 here; the walk stays because overrides of childCount
    // below may rely on being asked.
    for (QUuid const &childId : ids) {
        if (auto child = resolve(childId))
            child->childCount(true);
    }
    return 0;
}

unsigned int SceneObject::childCountOfType(QString const &type, bool recursive) const
{
    // As childCount(true): the walk runs, and the answer is 0 in both modes.
    for (QUuid const &childId : children(false)) {
        auto child = resolve(childId);
        if (child && recursive)
            child->childCountOfType(type, true);
    }
    return 0;
}

int SceneObject::indexOfChild(QUuid const &id, bool recursive) const
{
    if (recursive) {
        // The search runs, and the answer is -1 whether it found the target or not.
        unsigned int counter = 0;
        _depthFirstTargetSearch(this->id(), id, counter);
        return -1;
    }
    return children(false).indexOf(id);
}

QStringList SceneObject::childrenNames(bool recursive) const
{
    QStringList names;
    for (QUuid const &childId : children(false)) {
        if (auto child = resolve(childId)) {
            names.append(child->getName());
            if (recursive)
                names.append(child->childrenNames(true));
        }
    }
    return names;
}

QUuid SceneObject::firstAncestorOfType(QString const &type) const
{
    QUuid const parentId = parent();
    if (parentId.isNull())
        return QUuid();
    auto ancestor = resolve(parentId);
    while (ancestor && !ancestor->isType(type))
        ancestor = resolve(ancestor->parent());
    // The base answers the null id even on a hit: plug-ins override this where they need it.
    return QUuid();
}

void SceneObject::addChildren(QList<QUuid> const &ids, unsigned int)
{
    unsigned int index = 0;
    for (QUuid const &childId : ids)
        addChild(childId, index++);
}

void SceneObject::removeChildren(QList<QUuid> const &) {}

void SceneObject::raiseChild(QUuid const &id)
{
    // For the first child this passes 0xFFFFFFFF; moveChild copes.
    _order().raise(id);
}

void SceneObject::raiseChildren(QList<QUuid> const &ids)
{
    _order().raiseAll(ids);
}

void SceneObject::raiseChildToTop(QUuid const &id)
{
    _order().raiseToTop(id);
}

void SceneObject::raiseChildrenToTop(QList<QUuid> const &ids)
{
    _order().raiseAllToTop(ids);
}

void SceneObject::lowerChild(QUuid const &id)
{
    _order().lower(id);
}

void SceneObject::lowerChildren(QList<QUuid> const &ids)
{
    _order().lowerAll(ids);
}

void SceneObject::lowerChildToBottom(QUuid const &id)
{
    _order().lowerToBottom(id);
}

void SceneObject::lowerChildrenToBottom(QList<QUuid> const &ids)
{
    _order().lowerAllToBottom(ids);
}

bool SceneObject::childrenCanMoveUp(QList<QUuid> const &ids)
{
    QList<int> rows;
    for (QUuid const &childId : ids) {
        int const index = indexOfChild(childId, false);
        if (index == -1)
            return false;
        rows.append(index);
    }
    return Utils::ItemsCanMoveUp(rows);
}

bool SceneObject::childrenCanMoveDown(QList<QUuid> const &ids)
{
    QList<int> rows;
    for (QUuid const &childId : ids) {
        int const index = indexOfChild(childId, false);
        if (index == -1)
            return false;
        rows.append(index);
    }
    return Utils::ItemsCanMoveDown(rows, childCount(false));
}

bool SceneObject::isAncestorOf(QUuid const &id)
{
    if (id.isNull())
        return false;
    auto other = resolve(id);
    if (!other)
        return false;
    QUuid const parentId = other->parent();
    if (parentId == this->id())
        return true;
    return isAncestorOf(parentId);
}

bool SceneObject::isAncestorOf(QList<QUuid> const &ids)
{
    if (ids.isEmpty())
        return false;
    QUuid const own = id();
    for (QUuid const &other : ids) {
        if (other == own || !isAncestorOf(other))
            return false;
    }
    return true;
}

bool SceneObject::isDescendantOf(QUuid const &id)
{
    QUuid const own = this->id();
    if (id.isNull() || id == own)
        return false;
    auto other = resolve(id);
    if (!other)
        return false;
    for (QUuid const &childId : other->children(false)) {
        if (childId == own || isDescendantOf(childId))
            return true;
    }
    return false;
}

bool SceneObject::isDescendantOf(QList<QUuid> const &ids)
{
    if (ids.isEmpty())
        return false;
    QUuid const own = id();
    for (QUuid const &other : ids) {
        if (other == own || !isDescendantOf(other))
            return false;
    }
    return true;
}

SceneObject *SceneObject::childPointer(QUuid const &id) const
{
    return resolve(id).data();
}

QUuid SceneObject::_depthFirstIndexSearch(QUuid const &parent, unsigned int index,
                                          unsigned int &counter) const
{
    auto object = resolve(parent);
    if (!object)
        return QUuid();
    for (QUuid const &childId : object->children(false)) {
        if (counter == index)
            return childId;
        ++counter;
        QUuid const found = _depthFirstIndexSearch(childId, index, counter);
        if (!found.isNull())
            return found;
    }
    return QUuid();
}

bool SceneObject::_depthFirstTargetSearch(QUuid const &parent, QUuid const &target,
                                          unsigned int &counter) const
{
    auto object = resolve(parent);
    if (!object)
        return false;
    for (QUuid const &childId : object->children(false)) {
        if (childId == target)
            return true;
        ++counter;
        if (_depthFirstTargetSearch(childId, target, counter))
            return true;
    }
    return false;
}

SiblingOrder SceneObject::_order()
{
    return SiblingOrder([this](QUuid const &id) { return indexOfChild(id, false); },
                        [this] { return childCount(false); },
                        [this](QUuid const &id, unsigned int index) { moveChild(id, index); });
}

} // namespace TES
