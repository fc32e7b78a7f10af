// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "properties/IPropertyModelListener.h"
#include "scene/Object.h"
#include "scene/ScreenNameValidator.h"
#include "scene/SiblingOrder.h"
#include "tessera_export.h"

#include <QIcon>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QUuid>

namespace TES {

class PropertyView;
class SceneManager;

// One page of a design: the top of a tree of scene objects, shown in a tab of the design
// surface. The host keeps the name and its uniqueness, the reordering logic and the events;
// the plug-in's concrete screen keeps the roots (an ordered list of scene object ids, each the
// top of a tree), picking and rendering. A screen is not a SceneObject: the object tree stops
// at the roots.
//
// A ScreenFactory makes screens and SceneManager owns them by shared reference, from the
// factory call to their removal from its list. While it exists a screen is a (non-persistent)
// event handler on EventBus and listens to its own property model.
//
// The concrete class raises the root events (ScreenRootEvent) around the changes it makes to
// its roots, and the scene events (SceneChangeEvent) around changes of the trees below.
class TES_EXPORT Screen : public Object, public IPropertyModelListener, public IEventHandler
{
public:
    Screen();
    // Sets the name with ReasonInternal, through the validator: a name that another screen
    // has already, in any case, is refused and the screen stays unnamed.
    explicit Screen(QString const &name);
    ~Screen() override;

    // "Screen", for both; the tags of Object::type are not what a screen answers.
    static QString Type();
    QString type() const;

    QString getName() const override;
    // Does not write: hands over to SceneManager::setScreenName, which owns the rules of
    // renaming. False without a SceneManager.
    bool setName(QString const &name) override;
    // ":/resources/screen_icon.png".
    QIcon icon() override;

    // Pure. The ids of the roots in order, index 0 first.
    virtual QList<QUuid> roots() const = 0;
    // Pure. The number of roots.
    virtual unsigned int rootCount() const = 0;
    // Pure. The place of a root; negative when the id is no root of this screen.
    virtual int indexOfRoot(QUuid const &id) const = 0;
    // Pure; the host never calls it. The root at a place; the null id out of range.
    virtual QUuid rootAt(unsigned int index) const = 0;
    // Pure; the host never calls it. Puts an existing object, one without a parent, among the
    // roots at `index` (0xFFFFFFFF and any place past the end meaning the end), raising
    // EVT_SCREEN_ROOTABOUTTOADD and EVT_SCREEN_ROOTADDED. True when it was done.
    virtual bool addRoot(QUuid const &id, unsigned int index) = 0;
    // Whether the id is among roots().
    virtual bool ownsRoot(QUuid const &id) const;
    // Whether the id is a root or lies under one. The screen's own id is not.
    virtual bool ownsObject(QUuid const &id) const;
    // Root by root in order, skipping ids that don't resolve: the root itself when its name
    // is exactly `name`, else the first match in its tree (SceneObject::childWithName). The
    // null id when nothing matches.
    virtual QUuid findObjectByName(QString const &name) const;
    // Pure; the host never calls it. Every object of the screen: each root followed by its
    // tree, depth first.
    virtual QList<QUuid> objects() const = 0;
    // Pure. Deletes a root and its tree, raising EVT_SCREEN_ROOTABOUTTOREMOVE and
    // EVT_SCREEN_ROOTREMOVED. The screen tree calls it in place of SceneManager's deletion
    // when a selected object is a root.
    virtual void removeRoot(QUuid const &id) = 0;
    // Pure; the host never calls it. removeRoot for every root.
    virtual void removeAllRoots() = 0;
    // Pure. Moves a root so that it stands at `index`, raising EVT_SCREEN_ROOTABOUTTOMOVE and
    // EVT_SCREEN_ROOTMOVED when it moves. Must survive 0xFFFFFFFF, which raiseRoot passes for
    // the first root.
    virtual void moveRoot(QUuid const &id, unsigned int index) = 0;

    // The reorderings below work through indexOfRoot, rootCount and moveRoot, as SceneObject's
    // do through the children; "raise" and "up" mean toward index 0.

    // One place up. The first root is not guarded: moveRoot gets 0xFFFFFFFF. A null id is
    // looked up like any other.
    virtual void raiseRoot(QUuid const &id);
    // One place up each, in list order; a block already packed at the top stays. Nothing for
    // an empty list.
    virtual void raiseRoots(QList<QUuid> const &ids);
    // To the top; a null id is ignored.
    virtual void raiseRootToTop(QUuid const &id);
    // To the top, keeping the order of the list. Nothing for an empty list.
    virtual void raiseRootsToTop(QList<QUuid> const &ids);
    // One place down unless already last; a null id is ignored.
    virtual void lowerRoot(QUuid const &id);
    // One place down each, walking the list backward. Only the very last place is tested, so
    // of two roots already at the bottom the upper changes places with the lower; guard with
    // rootsCanMoveDown. Nothing for an empty list.
    virtual void lowerRoots(QList<QUuid> const &ids);
    // To the bottom unless already last. A null id is looked up like any other.
    virtual void lowerRootToBottom(QUuid const &id);
    // To the bottom, keeping the order of the list.
    virtual void lowerRootsToBottom(QList<QUuid> const &ids);
    // Whether a raise of these roots would change anything: false as soon as an id is no root,
    // and for an empty list.
    virtual bool rootsCanMoveUp(QList<QUuid> const &ids);
    // Whether a lowering would change anything; false likewise.
    virtual bool rootsCanMoveDown(QList<QUuid> const &ids);

    // Called when the screen becomes the active one, and when it stops being it. Both may come
    // twice for one change (SceneManager and the design surface each tell): bear it. The
    // defaults do nothing.
    virtual void activated();
    virtual void deactivated();

    // Pure. Hit test of the whole screen by a point in screen coordinates, with the contract
    // of TransformSceneObject::pick: the deepest object wins, among siblings the later one;
    // with `clip`, nothing outside its parent is hit; ids in `exclude` are looked past.
    virtual QUuid pick(QPoint const &point, bool clip, QList<QUuid> exclude) = 0;
    // Pure. The same by rectangle, children before their parents.
    virtual QList<QUuid> pick(QRect const &rect, bool clip, QList<QUuid> exclude) = 0;
    // Pure. The image of the screen, drawn at (0, 0) of the design surface; the host passes
    // true.
    virtual QImage render(bool) = 0;
    // Pure; the host never calls it. A preview of the screen scaled to `size`, for lists.
    virtual QImage thumbnail(QSize const &size) = 0;
    // Called by SceneManager::newScreen on request, before the screen joins the list, to give
    // a new screen its initial content. The default does nothing.
    virtual void initializeNew();

    // Raises EVT_SCREEN_RENAMED (a ScreenRenamedEvent with the old name) when "name" changes,
    // however it was written.
    void propertyValueChanged(Property *property, QVariant const &oldValue,
                              QVariant const &newValue, PropertyChangeReason reason) override;
    // "Screen".
    QString getEventHandlerName() const override;
    // EVM_GLOBALSTATE only.
    bool canHandleEvent(unsigned long long mask) const override;
    // Does nothing; a concrete screen overrides it to follow global values.
    void handleEvent(QSharedPointer<Event> event) override;

    // The view over the screen's model for the object editor. The host builds no property
    // view for a screen: null.
    PropertyView *propertyView();

private:
    // The reorderings over this screen's roots.
    SiblingOrder _order();
    friend class SceneManager;

    void _init();
    // Writes "name" with ReasonInternal, through the validator; the write's result.
    bool _finalizeName(QString const &name);

    PropertyView *_propertyView = nullptr;
    ScreenNameValidator _nameValidator;
};

} // namespace TES
