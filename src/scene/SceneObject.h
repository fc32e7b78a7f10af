// SPDX-License-Identifier: MIT
#pragma once

#include "scene/Object.h"
#include "scene/SiblingOrder.h"
#include "tessera_export.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>

namespace TES {

// An Object in a tree of objects. The host holds no parent or child links: a concrete class
// supplies the shape through four pure operations (children, addChild, removeChild,
// moveChild) and, where it has a parent, parent(). On those the host builds every walk,
// search and reordering below, and it turns ids into objects through SceneManager::getObject
// at each step, caching nothing.
//
// SceneManager owns all scene objects by shared reference; everybody else keeps ids. A
// concrete class raises the scene events around the changes it makes to its tree (add,
// remove, move, reparent, state change, rename); the operations here raise none themselves,
// though the reorderings reach moveChild, which does.
//
// Some answers are fixed whatever the tree holds: plug-ins know them as they stand and must
// keep getting them. They are marked where they occur.
class TES_EXPORT SceneObject : public Object
{
public:
    SceneObject();
    ~SceneObject() override;

    // Asks validateName before writing; false when it refuses.
    bool setName(QString const &name) override;

    // Whether the object accepts `proposed` in place of `current`. Default: true.
    virtual bool validateName(QString const &current, QString const &proposed) const;
    // The parent's id. Default: the null id, so an object is a root unless the concrete class
    // keeps a parent.
    virtual QUuid parent() const;
    // Default: the object's own id.
    virtual QUuid root() const;
    // Direct children first; with `recursive`, then each child's subtree in turn, so the tree
    // is searched a level at a time per object.
    virtual bool hasChild(QUuid const &id, bool recursive) const;
    // As hasChild, comparing names exactly.
    virtual bool hasChildNamed(QString const &name, bool recursive) const;
    // As hasChildNamed, answering the id found or the null id.
    virtual QUuid childWithName(QString const &name, bool recursive) const;
    // Pure. The direct children in order, index 0 first. The host always passes false.
    virtual QList<QUuid> children(bool recursive) const = 0;
    // The direct children of the type first; with `recursive`, then each child's matches.
    virtual QList<QUuid> childrenOfType(QString const &type, bool recursive) const;
    // The child at `index`; with `recursive`, counted depth first over the subtree, the first
    // child being 0 and this object not counted. The null id out of range.
    virtual QUuid childAt(unsigned int index, bool recursive) const;
    // The number of direct children. With `recursive`: walks the subtree and answers 0.
    virtual unsigned int childCount(bool recursive) const;
    // Walks the children (and, with `recursive`, the subtree) and answers 0 in both modes.
    virtual unsigned int childCountOfType(QString const &type, bool recursive) const;
    // The place among the direct children, or -1. With `recursive`: searches the subtree and
    // answers -1.
    virtual int indexOfChild(QUuid const &id, bool recursive) const;
    // Each child's name followed, with `recursive`, by its subtree's: depth-first order.
    virtual QStringList childrenNames(bool recursive) const;
    // Climbs from the parent while ids resolve and the type is not met; answers the null id
    // whether an ancestor of the type exists or not. A concrete class may override it.
    virtual QUuid firstAncestorOfType(QString const &type) const;
    // Pure. Puts an existing object among the children at `index`; 0xFFFFFFFF means the end.
    // True when it was done. Raises EVT_SCENE_CHILDABOUTTOADD and EVT_SCENE_CHILDADDED, or the
    // reparent pair when the object had another parent.
    virtual bool addChild(QUuid const &id, unsigned int index) = 0;
    // addChild(id, i) for the ids in order, i counting from 0: `index` is not used, so the ids
    // always land at the front.
    virtual void addChildren(QList<QUuid> const &ids, unsigned int index);
    // Pure. Takes a child out of the children; raises EVT_SCENE_CHILDABOUTTOREMOVE and
    // EVT_SCENE_CHILDREMOVED. Only plug-in code calls it.
    virtual void removeChild(QUuid const &id) = 0;
    // Does nothing, unlike addChildren.
    virtual void removeChildren(QList<QUuid> const &ids);
    // One place toward index 0. The first child is not guarded: moveChild gets 0xFFFFFFFF.
    virtual void raiseChild(QUuid const &id);
    // One place up each; a block already packed at the top stays.
    virtual void raiseChildren(QList<QUuid> const &ids);
    virtual void raiseChildToTop(QUuid const &id);
    // To the top, keeping the order of the list.
    virtual void raiseChildrenToTop(QList<QUuid> const &ids);
    // One place toward the end, unless already last.
    virtual void lowerChild(QUuid const &id);
    // One place down each, walking the list backward. Only the very last place is tested, so
    // of two ids already at the bottom the upper changes places with the lower.
    virtual void lowerChildren(QList<QUuid> const &ids);
    virtual void lowerChildToBottom(QUuid const &id);
    // To the bottom, keeping the order of the list.
    virtual void lowerChildrenToBottom(QList<QUuid> const &ids);
    // Pure. Moves a present child so that it stands at `index`. Must survive 0xFFFFFFFF;
    // raises EVT_SCENE_CHILDABOUTTOMOVE and EVT_SCENE_CHILDMOVED when it moves.
    virtual void moveChild(QUuid const &id, unsigned int index) = 0;
    // Whether a raise of these children would change anything; false if one isn't a child.
    virtual bool childrenCanMoveUp(QList<QUuid> const &ids);
    // Whether a lowering would change anything; false if one isn't a child.
    virtual bool childrenCanMoveDown(QList<QUuid> const &ids);
    // Climbs from the other object.
    virtual bool isAncestorOf(QUuid const &id);
    // All must hold; false for an empty list or one holding this object's id.
    virtual bool isAncestorOf(QList<QUuid> const &ids);
    // Searches the subtree of the other object.
    virtual bool isDescendantOf(QUuid const &id);
    // All must hold; false for an empty list or one holding this object's id.
    virtual bool isDescendantOf(QList<QUuid> const &ids);

    // The object for an id, through SceneManager; null when unknown or gone. Valid for as long
    // as SceneManager keeps the object, so do not keep it past the call.
    SceneObject *childPointer(QUuid const &id) const;

private:
    QUuid _depthFirstIndexSearch(QUuid const &parent, unsigned int index,
                                 unsigned int &counter) const;
    bool _depthFirstTargetSearch(QUuid const &parent, QUuid const &target,
                                 unsigned int &counter) const;
    // The ids that are children now, in input order.
    // The reorderings over this object's children.
    SiblingOrder _order();
};

} // namespace TES
