// SPDX-License-Identifier: MIT
#include "scene/SceneManager.h"

#include "data/DataState.h"
#include "events/EventBus.h"
#include "events/GlobalStateEvents.h"
#include "events/SceneObjectAboutToDeleteEvent.h"
#include "events/ScreenEvents.h"
#include "properties/Property.h"
#include "properties/PropertyModel.h"
#include "scene/SceneObject.h"
#include "scene/SceneObjectFactory.h"
#include "scene/SceneObjectInfo.h"
#include "scene/Screen.h"
#include "scene/ScreenFactory.h"
#include "scene/SelectionManager.h"
#include "services/GlobalState.h"
#include "services/ProgressMonitor.h"
#include "services/Utils.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace TES {

namespace {

QString const ScreenListFile = QStringLiteral("screens/screens.json");

QString screenFile(QString const &id)
{
    return "screens/" + id + "/screen.json";
}

} // namespace

template<>
SceneManager *Singleton<SceneManager>::_instance = nullptr;

SceneManager::SceneManager()
{
    _instance = this;
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

SceneManager::~SceneManager()
{
    _instance = nullptr;
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
    // Swapped out first, so that no destructor of an object or screen sees a half-emptied
    // list.
    QList<QSharedPointer<SceneObject>> objects;
    objects.swap(_objects);
    _index.clear();
    objects.clear();
    _objectFactories.clear();
    _visibleScreens.clear();
    QVector<QSharedPointer<Screen>> screens;
    screens.swap(_screens);
    screens.clear();
}

unsigned int SceneManager::screenCount() const
{
    return static_cast<unsigned int>(_screens.size());
}

QSize SceneManager::screenSize() const
{
    if (!GlobalState::ip())
        return QSize(480, 272);
    return QSize(GlobalState::ip()->getInt(GlobalPropertyType::Project, ProjectScreenWidth),
                 GlobalState::ip()->getInt(GlobalPropertyType::Project, ProjectScreenHeight));
}

QList<QUuid> SceneManager::screens() const
{
    QList<QUuid> ids;
    for (auto const &screen : _screens)
        ids.append(screen->id());
    return ids;
}

QList<QUuid> SceneManager::visibleScreens() const
{
    return QList<QUuid>(_visibleScreens.cbegin(), _visibleScreens.cend());
}

QWeakPointer<Screen> SceneManager::screen(QUuid const &id) const
{
    for (auto const &screen : _screens) {
        if (screen->id() == id)
            return screen;
    }
    return QWeakPointer<Screen>();
}

QUuid SceneManager::screenAtIndex(unsigned int index) const
{
    if (index >= screenCount())
        return QUuid();
    return _screens.at(static_cast<int>(index))->id();
}

QUuid SceneManager::screenByName(QString const &name, bool ignoreCase) const
{
    QString const wanted = ignoreCase ? name.toLower() : name;
    for (auto const &screen : _screens) {
        QString const own = ignoreCase ? screen->getName().toLower() : screen->getName();
        if (own == wanted)
            return screen->id();
    }
    return QUuid();
}

int SceneManager::screenIndex(QUuid const &id) const
{
    for (int index = 0; index < _screens.size(); ++index) {
        if (_screens.at(index)->id() == id)
            return index;
    }
    return -1;
}

QUuid SceneManager::getActiveScreen() const
{
    return _activeScreen;
}

void SceneManager::setActiveScreen(QUuid const &id)
{
    if (id == _activeScreen)
        return;
    // The changing event names the screen being left.
    if (_activeScreen.isNull())
        EventBus::RaiseNow(QSharedPointer<ScreenActiveChangingEvent>::create(QUuid(), -1));
    else
        EventBus::RaiseNow(QSharedPointer<ScreenActiveChangingEvent>::create(
            _activeScreen, screenIndex(_activeScreen)));
    if (!_activeScreen.isNull()) {
        if (auto old = screen(_activeScreen).toStrongRef())
            old->deactivated();
    }
    _activeScreen = id;
    if (_activeScreen.isNull()) {
        EventBus::RaiseNow(QSharedPointer<ScreenActiveChangedEvent>::create(QUuid(), -1));
    } else if (auto now = screen(_activeScreen).toStrongRef()) {
        now->activated();
        EventBus::RaiseNow(QSharedPointer<ScreenActiveChangedEvent>::create(id, screenIndex(id)));
    }
}

bool SceneManager::getScreenVisible(QUuid const &id) const
{
    return _visibleScreens.count(id) > 0;
}

bool SceneManager::setScreenVisible(QUuid const &id, bool visible)
{
    if (id.isNull() || getScreenVisible(id) == visible)
        return false;
    if (visible)
        _addVisibleScreen(id);
    else
        _removeVisibleScreen(id);
    return true;
}

QUuid SceneManager::newScreen(bool activate, bool initialize, int, bool visible)
{
    if (!_screenFactory)
        return QUuid();
    QSharedPointer<Screen> screen = _screenFactory->create(QString());
    if (!screen)
        return QUuid();
    if (initialize)
        screen->initializeNew();

    // The whole list is sorted, so every screen may change its place here, not only the new
    // one. Stable, so that screens of equal names keep their order.
    _screens.append(screen);
    std::stable_sort(_screens.begin(), _screens.end(),
                     [](QSharedPointer<Screen> const &a, QSharedPointer<Screen> const &b) {
                         return a->getName() < b->getName();
                     });
    int const index = _screens.indexOf(screen);
    _screens.remove(index);

    QUuid const id = screen->id();
    EventBus::RaiseNow(QSharedPointer<ScreenAboutToAddEvent>::create(id, index));
    // A handler may have changed the list meanwhile.
    _screens.insert(qMin(index, _screens.size()), screen);
    EventBus::RaiseNow(QSharedPointer<ScreenAddedEvent>::create(id, index));

    if (visible)
        _addVisibleScreen(id);
    if (activate)
        setActiveScreen(id);
    return id;
}

bool SceneManager::duplicateScreen(QUuid const &id)
{
    // Nothing stays selected across a duplication, which makes the copy the active screen.
    if (SelectionManager::ip())
        SelectionManager::ip()->deselectAll();
    QSharedPointer<Screen> source = screen(id).toStrongRef();
    if (!source)
        return false;
    int const index = screenIndex(id);
    QJsonObject json;
    source->save(json);

    QString name = source->getName();
    while (!screenByName(name, true).isNull())
        name += "_Copy";

    // QUuid(name) is the null id for any name that is no uuid text: listeners get no
    // usable id from the add events of a duplicate.
    EventBus::RaiseNow(QSharedPointer<ScreenAboutToAddEvent>::create(
        QUuid(name), static_cast<int>(screenCount())));
    QSharedPointer<Screen> copy = _screenFactory ? _screenFactory->create(name) : nullptr;
    if (!copy)
        return false;
    _screens.insert(qMin(index + 1, _screens.size()), copy);
    QUuid const copyId = copy->id();

    copy->load(Utils::DuplicateScreenData(json));
    // The loaded form carries an id of its own; the screen keeps the one it was made with.
    PropertyModel *model = copy->model();
    model->setValue("id", QVariant(copyId), PropertyChangeReason::ReasonInternal);
    model->setValue("name", QVariant(name), PropertyChangeReason::ReasonInternal);

    EventBus::RaiseNow(
        QSharedPointer<ScreenAddedEvent>::create(QUuid(copy->getName()), screenIndex(copyId)));
    _addVisibleScreen(copyId);
    setActiveScreen(copyId);
    return true;
}

void SceneManager::removeScreen(QUuid const &id)
{
    EventBus::RaiseNow(QSharedPointer<ScreenAboutToRemoveEvent>::create(id, screenIndex(id)));
    if (id == _activeScreen)
        setActiveScreen(QUuid());
    _removeVisibleScreen(id);
    // Looked up again, since handlers may have changed the list. The screen ends once the
    // list is whole again, so that its destructor may call back in.
    int const index = screenIndex(id);
    if (index < 0)
        return;
    QSharedPointer<Screen> removed = _screens.takeAt(index);
    removed.reset();
}

void SceneManager::removeScreens(QList<QUuid> const &ids)
{
    for (QUuid const &id : ids) {
        if (screenIndex(id) >= 0)
            removeScreen(id);
    }
}

void SceneManager::removeAllScreens()
{
    while (!_screens.isEmpty())
        removeScreen(_screens.first()->id());
}

bool SceneManager::setScreenName(QUuid const &id, QString const &name)
{
    QSharedPointer<Screen> target = screen(id).toStrongRef();
    if (!target)
        return false;
    // Only the screen's own name (in some case) is answered here; a clash with another
    // screen is left to the validator, the one place that guards uniqueness.
    if (screenByName(name, true) == id)
        return true;
    QString const oldName = target->getName();
    if (!target->_finalizeName(name))
        return false;
    EventBus::RaiseNow(QSharedPointer<ScreenRenamedEvent>::create(id, screenIndex(id), oldName));
    return true;
}

void SceneManager::setScreenFactory(ScreenFactory *factory)
{
    _screenFactory = factory;
}

void SceneManager::reset()
{
    removeAllScreens();
    _activeScreen = QUuid();
    _visibleScreens.clear();
    deleteAllObjects();
}

unsigned int SceneManager::getSaveStepCount() const
{
    return screenCount() + 1;
}

unsigned int SceneManager::getLoadStepCount(DataState *state) const
{
    if (!state)
        return 0;
    QJsonDocument const document = QJsonDocument::fromJson(state->getFileData(ScreenListFile));
    return static_cast<unsigned int>(document.array().size());
}

bool SceneManager::save(DataState &state, ProgressMonitor &monitor)
{
    _saveScreenList(state);
    for (auto const &screen : _screens) {
        QJsonObject json;
        screen->save(json);
        state.setFileData(screenFile(screen->id().toString()),
                          QJsonDocument(json).toJson(QJsonDocument::Indented));
        monitor.incrementValue();
    }
    return true;
}

bool SceneManager::load(DataState &state, ProgressMonitor &monitor)
{
    QJsonObject const list = QJsonDocument::fromJson(state.getFileData(ScreenListFile)).object();
    QJsonArray const entries = list.value("screens").toArray();
    QUuid const active(list.value("active").toString());
    QList<QUuid> visible;
    for (QJsonValue const entry : list.value("visible").toArray())
        visible.append(QUuid(entry.toString()));
    if (entries.isEmpty())
        return true;

    for (QJsonValue const entry : entries) {
        QSharedPointer<Screen> screen
            = _screenFactory ? _screenFactory->create(QString()) : nullptr;
        if (!screen)
            continue;
        _screens.append(screen);
        QByteArray const data = state.getFileData(screenFile(entry.toString()));
        // The id comes from the file, through the screen's own property.
        screen->load(QJsonDocument::fromJson(data).object());
        monitor.incrementValue();
    }
    for (auto const &screen : _screens) {
        QUuid const id = screen->id();
        if (visible.contains(id))
            _visibleScreens.insert(id);
        if (id == active)
            _activeScreen = id;
    }
    return true;
}

QString SceneManager::getEventHandlerName() const
{
    return QStringLiteral("SceneManager");
}

bool SceneManager::canHandleEvent(unsigned long long mask) const
{
    return (mask & (EVM_PROJECT | EVM_GLOBALSTATE)) != 0;
}

void SceneManager::handleEvent(QSharedPointer<Event> event)
{
    if (!event)
        return;
    if (event->type() == EVT_GLOBALSTATE_VALUE_CHANGED) {
        // Checked, since a plug-in may raise the number with another class.
        auto changed = event.dynamicCast<GlobalStateChangedEvent>();
        if (changed
            && (changed->id() == ProjectScreenWidth || changed->id() == ProjectScreenHeight))
            EventBus::RaiseNow(
                QSharedPointer<ScreenEvent>::create(EVT_SCREEN_REPAINT_REQUEST, EVM_SCREEN));
    } else if (event->type() == EVT_PROJECT_LOADED && !_activeScreen.isNull()) {
        // A load sets the active screen without events: everybody attaches to it now.
        EventBus::RaiseNow(QSharedPointer<ScreenActiveChangingEvent>::create(QUuid(), -1));
        EventBus::RaiseNow(QSharedPointer<ScreenActiveChangedEvent>::create(
            _activeScreen, screenIndex(_activeScreen)));
    }
}

bool SceneManager::persistent() const
{
    return true;
}

bool SceneManager::addObjectFactory(QString const &type, SceneObjectFactory *factory)
{
    if (!factory || _objectFactories.count(type) > 0)
        return false;
    _objectFactories[type] = factory;
    return true;
}

SceneObjectFactory *SceneManager::getObjectFactory(QString const &type) const
{
    auto const found = _objectFactories.find(type);
    return found == _objectFactories.end() ? nullptr : found->second;
}

QUuid SceneManager::createObject(QString const &type)
{
    SceneObjectFactory *factory = getObjectFactory(type);
    if (!factory)
        return QUuid();
    QSharedPointer<SceneObject> object = factory->create();
    // A factory answering null breaks its contract; it must not take the host down with it.
    if (!object)
        return QUuid();
    _append(object);
    return object->id();
}

QUuid SceneManager::createObjectWithID(QString const &type, QUuid const &id)
{
    SceneObjectFactory *factory = getObjectFactory(type);
    if (!factory)
        return QUuid();
    QSharedPointer<SceneObject> object = factory->create();
    if (!object)
        return QUuid();
    PropertyModel *model = object->model();
    model->setEventsEnabled(false);
    if (Property *property = model->property("id"))
        property->setValue(QVariant(id), PropertyChangeReason::ReasonInternal);
    _append(object);
    model->setEventsEnabled(true);
    return object->id();
}

bool SceneManager::deleteObject(QUuid const &id)
{
    if (getObject(id).isNull())
        return false;
    // While the object is still there, so that the info finds its place in the parent.
    EventBus::RaiseNow(QSharedPointer<SceneObjectAboutToDeleteEvent>::create(SceneObjectInfo(id)));
    // Looked up again after the handlers; the object ends once the list is whole again, so
    // that its destructor may call back in.
    for (int index = 0; index < _objects.size(); ++index) {
        if (_objects.at(index)->id() == id) {
            QSharedPointer<SceneObject> removed = _objects.takeAt(index);
            // A caller's lock may keep the object alive a little longer: it must not be
            // found any more all the same.
            if (_index.value(id).toStrongRef() == removed)
                _index.remove(id);
            removed.reset();
            break;
        }
    }
    return true;
}

void SceneManager::deleteObjects(QList<QUuid> const &ids)
{
    for (QUuid const &id : ids)
        deleteObject(id);
}

void SceneManager::deleteAllObjects()
{
    while (!_objects.isEmpty())
        deleteObject(_objects.first()->id());
}

void SceneManager::_append(QSharedPointer<SceneObject> const &object)
{
    _objects.append(object);
    // An earlier object that still holds the id keeps the entry: the first one wins.
    QUuid const id = object->id();
    QSharedPointer<SceneObject> const indexed = _index.value(id).toStrongRef();
    if (!indexed || indexed->id() != id)
        _index.insert(id, object);
}

QWeakPointer<SceneObject> SceneManager::getObject(QUuid const &id) const
{
    // Every object has an id of its own: the null id, asked for the parent of every root,
    // names none.
    if (id.isNull())
        return QWeakPointer<SceneObject>();
    auto const hit = _index.constFind(id);
    if (hit != _index.constEnd()) {
        QSharedPointer<SceneObject> const object = hit->toStrongRef();
        if (object && object->id() == id)
            return object;
    }
    // The first in creation order wins, as for a plain walk of the list.
    for (auto const &object : _objects) {
        if (object->id() == id) {
            _index.insert(id, object);
            return object;
        }
    }
    _index.remove(id);
    return QWeakPointer<SceneObject>();
}

QWeakPointer<SceneObject> SceneManager::findObjectByName(QString const &name) const
{
    for (auto const &object : _objects) {
        if (object->getName() == name)
            return object;
    }
    return QWeakPointer<SceneObject>();
}

QList<QSharedPointer<SceneObject>> SceneManager::objectList() const
{
    return _objects;
}

QList<QSharedPointer<SceneObject>> SceneManager::objectsByType(QString const &type) const
{
    QList<QSharedPointer<SceneObject>> found;
    for (auto const &object : _objects) {
        if (object->isType(type))
            found.append(object);
    }
    return found;
}

QUuid SceneManager::getObjectScreen(QUuid const &id) const
{
    for (auto const &screen : _screens) {
        if (screen->ownsObject(id))
            return screen->id();
    }
    return QUuid();
}

bool SceneManager::isScreenRoot(QUuid const &id) const
{
    for (auto const &screen : _screens) {
        if (screen->ownsObject(id) && screen->indexOfRoot(id) >= 0)
            return true;
    }
    return false;
}

void SceneManager::_addVisibleScreen(QUuid const &id)
{
    if (_visibleScreens.count(id) > 0)
        return;
    EventBus::RaiseNow(
        QSharedPointer<ScreenVisibilityChangingEvent>::create(id, screenIndex(id), true));
    _visibleScreens.insert(id);
    EventBus::RaiseNow(
        QSharedPointer<ScreenVisibilityChangedEvent>::create(id, screenIndex(id), true));
    // A first visible screen becomes active by itself.
    if (_activeScreen.isNull())
        setActiveScreen(id);
}

void SceneManager::_removeVisibleScreen(QUuid const &id)
{
    if (_visibleScreens.count(id) == 0)
        return;
    EventBus::RaiseNow(
        QSharedPointer<ScreenVisibilityChangingEvent>::create(id, screenIndex(id), false));
    _visibleScreens.erase(id);
    EventBus::RaiseNow(
        QSharedPointer<ScreenVisibilityChangedEvent>::create(id, screenIndex(id), false));
    if (id == _activeScreen)
        setActiveScreen(QUuid());
}

void SceneManager::_saveScreenList(DataState &state)
{
    QJsonArray visible;
    for (QUuid const &id : _visibleScreens)
        visible.append(id.toString());
    QJsonArray screens;
    for (auto const &screen : _screens)
        screens.append(screen->id().toString());
    QJsonObject const list{
        {"active", _activeScreen.isNull() ? QString() : _activeScreen.toString()},
        {"visible", visible},
        {"screens", screens},
    };
    state.setFileData(ScreenListFile, QJsonDocument(list).toJson(QJsonDocument::Indented));
}

} // namespace TES
