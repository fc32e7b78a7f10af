// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <QHash>
#include <QList>
#include <QSharedPointer>
#include <QSize>
#include <QString>
#include <QUuid>
#include <QVector>
#include <QWeakPointer>

#include <map>
#include <set>

namespace TES {

class DataState;
class ProgressMonitor;
class SceneObject;
class SceneObjectFactory;
class Screen;
class ScreenFactory;

// The owner of all screens and all scene objects, by shared reference. Screens stand in one
// ordered list, with the active screen and the set of visible ones (those with a tab on the
// design surface); objects stand in one flat list, apart from the tree they form among
// themselves through ids. Both are made through the plug-in's factories, and everybody
// resolves ids through screen() and getObject() for the length of one call.
//
// Every screen event is raised at once (EventBus::raiseEventNow), so handlers run inside the
// calls below and may call back in; the order of the steps is part of the contract and is
// told with each operation. The manager is a persistent event handler itself: it turns a
// change of the screen size into a repaint request and, after a load, tells everybody which
// screen is active.
//
// Core creates the one instance at start-up and leaves it alive until the process ends; the
// plug-in installs its factories while it initialises. The destructor clears the instance
// before it drops the objects and screens, so their destructors find no manager. save and
// load run on the project job's thread while the interface waits, raising nothing.
class TES_EXPORT SceneManager : public IEventHandler, public Singleton<SceneManager>
{
public:
    SceneManager();
    ~SceneManager() override;

    SceneManager(SceneManager const &) = delete;
    SceneManager &operator=(SceneManager const &) = delete;

    // Screens.

    unsigned int screenCount() const;
    // The one size of all screens: the Project values SCREEN_WIDTH and SCREEN_HEIGHT of
    // GlobalState (480 by 272 without a GlobalState).
    QSize screenSize() const;
    // Ids in list order.
    QList<QUuid> screens() const;
    // Ids in QUuid order, not list order.
    QList<QUuid> visibleScreens() const;
    // Empty for an unknown id. Lock it for the length of a call, never longer.
    QWeakPointer<Screen> screen(QUuid const &id) const;
    // The null id out of range.
    QUuid screenAtIndex(unsigned int index) const;
    // The first screen in list order with the name, compared exactly or ignoring case.
    QUuid screenByName(QString const &name, bool ignoreCase) const;
    // -1 when unknown.
    int screenIndex(QUuid const &id) const;

    QUuid getActiveScreen() const;
    // Nothing when the id is already active. Otherwise EVT_SCREEN_ACTIVE_CHANGING naming the
    // screen left (null and -1 when none), deactivated() on it, the change, activated() on the
    // new screen, and EVT_SCREEN_ACTIVE_CHANGED naming it (null and -1 when none). An id that
    // names no screen becomes active without the changed event.
    void setActiveScreen(QUuid const &id);
    bool getScreenVisible(QUuid const &id) const;
    // Shows or hides a screen's tab: EVT_SCREEN_VISIBLE_CHANGING, the change,
    // EVT_SCREEN_VISIBLE_CHANGED. A first visible screen becomes active by itself; hiding the
    // active one leaves none active. True when something changed; false for a null id.
    bool setScreenVisible(QUuid const &id, bool visible);

    // A new screen from the factory, with an empty name: initializeNew() on request, then into
    // the list, which is sorted by name as a whole (all screens may change places), between
    // EVT_SCREEN_ABOUT_TO_ADD and EVT_SCREEN_ADDED; then shown and made active on request.
    // The int is not used. The null id without a factory or when the factory answers null.
    QUuid newScreen(bool activate, bool initialize, int, bool visible);
    // A copy of a screen right behind it in the list (no sorting), named after it with
    // "_Copy" appended until no screen has the name in any case, with every id of its content
    // new. The add events carry QUuid(name), as a rule the null id: do not rely on their id.
    // The copy is shown and made active. False when the screen is unknown or the factory
    // fails. The selection is emptied first, in every case.
    bool duplicateScreen(QUuid const &id);
    // EVT_SCREEN_ABOUT_TO_REMOVE; leaving it if active (the active pair); hiding it (the
    // visibility pair); then out of the list, which ends it unless someone holds a lock. No
    // event follows. Pass ids from the list: an unknown id still raises the first event.
    void removeScreen(QUuid const &id);
    // removeScreen for those ids that are in the list, in the order given.
    void removeScreens(QList<QUuid> const &ids);
    // removeScreen of the first screen until none is left.
    void removeAllScreens();
    // False for an unknown id, and when the screen's name validator refuses the name (another
    // screen has it in some case). A change of case only of the screen's own name answers true
    // and changes nothing. A rename raises EVT_SCREEN_RENAMED twice, both times with the old
    // name: once from the screen's property, once from here.
    bool setScreenName(QUuid const &id, QString const &name);
    // Plain store; the plug-in keeps ownership.
    void setScreenFactory(ScreenFactory *factory);

    // Removes all screens, forgets the active and visible ones, then deletes all objects.
    void reset();

    // The screens plus one, for the list file (which save does not count on the monitor).
    unsigned int getSaveStepCount() const;
    // The size of "screens/screens.json" read as a JSON array: 0 for every file that save
    // writes, whose top level is an object. Nothing in the host relies on it.
    unsigned int getLoadStepCount(DataState *state) const;
    // Writes "screens/screens.json" and one "screens/<uuid>/screen.json" per screen, one
    // monitor step each. Always true.
    bool save(DataState &state, ProgressMonitor &monitor);
    // Appends the screens of the files, made by the factory with empty names and loaded from
    // their own files, and restores the visible set and the active screen, all without any
    // event (EVT_PROJECT_LOADED makes up for it). Damaged files give empty values. Always
    // true.
    bool load(DataState &state, ProgressMonitor &monitor);

    // "SceneManager".
    QString getEventHandlerName() const override;
    // EVM_PROJECT and EVM_GLOBALSTATE.
    bool canHandleEvent(unsigned long long mask) const override;
    // A change of the Project value 8 or 9 (SCREEN_WIDTH, SCREEN_HEIGHT; the id is tested,
    // not the group) raises EVT_SCREEN_REPAINT_REQUEST. EVT_PROJECT_LOADED with an active
    // screen raises the active pair, from none to that screen.
    void handleEvent(QSharedPointer<Event> event) override;
    // True: the manager outlives every EventBus::reset.
    bool persistent() const override;

    // Objects.

    // False for a null factory or a type already known, which keeps its first factory.
    bool addObjectFactory(QString const &type, SceneObjectFactory *factory);
    // Null when the type is unknown.
    SceneObjectFactory *getObjectFactory(QString const &type) const;
    // A new object of the type, owned here, with the fresh id its constructor gave it. The
    // null id for an unknown type. Raises nothing: the object is in no tree yet.
    QUuid createObject(QString const &type);
    // As createObject, but the object takes the given id, silently: its model's events are
    // off during the write. For concrete classes that restore objects with saved ids.
    QUuid createObjectWithID(QString const &type, QUuid const &id);
    // Raises EVT_SCENE_CHILDABOUTTODELETE (a SceneObjectAboutToDeleteEvent) while the object
    // still resolves, then drops it, which ends it unless someone holds a lock. Nothing
    // follows, and neither its parent's list nor its subtree is touched: the concrete class
    // does that. False for an unknown id.
    bool deleteObject(QUuid const &id);
    // deleteObject for each id, in the order given.
    void deleteObjects(QList<QUuid> const &ids);
    // deleteObject of the first object until none is left.
    void deleteAllObjects();
    // Empty when no object has the id. Lock it for the length of a call, never longer.
    QWeakPointer<SceneObject> getObject(QUuid const &id) const;
    // The first object, in order of creation, whose name is exactly the text; empty otherwise.
    QWeakPointer<SceneObject> findObjectByName(QString const &name) const;
    // All objects in order of creation. Do not keep the references past the call.
    QList<QSharedPointer<SceneObject>> objectList() const;
    // The objects of which isType(type) holds, in order of creation.
    QList<QSharedPointer<SceneObject>> objectsByType(QString const &type) const;
    // The first screen, in list order, that owns the object as a root or below one; the null
    // id otherwise.
    QUuid getObjectScreen(QUuid const &id) const;
    // Whether some screen owns the object as one of its roots.
    bool isScreenRoot(QUuid const &id) const;

private:
    void _addVisibleScreen(QUuid const &id);
    void _removeVisibleScreen(QUuid const &id);
    void _saveScreenList(DataState &state);
    void _append(QSharedPointer<SceneObject> const &object);

    // All screens, in list order.
    QVector<QSharedPointer<Screen>> _screens;
    ScreenFactory *_screenFactory = nullptr;
    QUuid _activeScreen;
    std::set<QUuid> _visibleScreens;
    std::map<QString, SceneObjectFactory *> _objectFactories;
    // All objects in order of creation; the owner of them all.
    QList<QSharedPointer<SceneObject>> _objects;
    // Where getObject looks first. An id can change behind the manager's back (a plug-in may
    // write the "id" property), so an entry is only trusted after checking the object's id,
    // and a lookup it can't answer falls back to walking _objects and repairs it.
    mutable QHash<QUuid, QWeakPointer<SceneObject>> _index;
};

template<>
TES_EXPORT SceneManager *Singleton<SceneManager>::_instance;

} // namespace TES
