// SPDX-License-Identifier: MIT
#include "services/GlobalState.h"

#include "app/Core.h"
#include "data/DataState.h"
#include "data/ProjectArchive_p.h"
#include "events/EventBus.h"
#include "events/GlobalStateEvents.h"
#include "properties/BooleanProperty.h"
#include "properties/IntegerProperty.h"
#include "properties/Property.h"
#include "properties/TextProperty.h"
#include "services/Log.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace TES {

template<>
GlobalState *Singleton<GlobalState>::_instance = nullptr;

namespace {

QString const UserStateFileName = QStringLiteral("user_config.json");

} // namespace

GlobalState::GlobalState()
{
    _instance = this;

    // The properties start out tracked, and setting a default that differs from the type's
    // own initial value counts as a change: a new GlobalState is dirty. Start-up, blank and
    // load all end with EVT_GLOBALSTATE_REQUEST_CLEAN, which lowers the flag again.
    using G = GlobalPropertyType;
    createBooleanProperty(G::Session, SessionDirtyDisabled, "DIRTY_DISABLED", false, false);
    createBooleanProperty(G::Session, SessionSnapEnabled, "SNAP_ENABLED", true, false);
    createBooleanProperty(G::Session, SessionGridEnabled, "GRID_ENABLED", true, false);
    createBooleanProperty(G::Session, SessionCutEnabled, "CUT_ENABLED", false, false);
    createBooleanProperty(G::Session, SessionCopyEnabled, "COPY_ENABLED", false, false);
    createBooleanProperty(G::Session, SessionPasteEnabled, "PASTE_ENABLED", false, false);
    createBooleanProperty(G::Session, SessionUndoEnabled, "UNDO_ENABLED", false, false);
    createBooleanProperty(G::Session, SessionRedoEnabled, "REDO_ENABLED", false, false);
    // Session 8 and Project 7 are left free: callers read Project 7 and expect false unless
    // a plug-in creates it.
    createStringProperty(G::Session, SessionLastProjectDir, "LAST_PROJECT_DIR", false);

    createBooleanProperty(G::Project, ProjectSnapToggled, "SNAP_TOGGLED", false, true);
    createBooleanProperty(G::Project, ProjectGridToggled, "GRID_TOGGLED", true, true);
    createIntegerProperty(G::Project, ProjectGridX, "GRID_X", 10, true);
    createIntegerProperty(G::Project, ProjectGridY, "GRID_Y", 10, true);
    createIntegerProperty(G::Project, ProjectCanvasWidth, "CANVAS_WIDTH", 400, true);
    createIntegerProperty(G::Project, ProjectCanvasHeight, "CANVAS_HEIGHT", 400, true);
    createIntegerProperty(G::Project, ProjectZoomLevel, "ZOOM_LEVEL", 1, true);
    createIntegerProperty(G::Project, ProjectScreenWidth, "SCREEN_WIDTH", 480, true);
    createIntegerProperty(G::Project, ProjectScreenHeight, "SCREEN_HEIGHT", 272, true);
    createIntegerProperty(G::Project, ProjectScreenDesignerWidthPadding,
                          "SCREEN_DESIGNER_WIDTH_PADDING", 100, true);
    createIntegerProperty(G::Project, ProjectScreenDesignerHeightPadding,
                          "SCREEN_DESIGNER_HEIGHT_PADDING", 100, true);

    createIntegerProperty(G::User, UserLogLevel, "LOG_LEVEL", 0, true);
    createIntegerProperty(G::User, UserGridColor, "GRID_COLOR", 0x86B898, true);

    // A value change counts whatever its group: with the bus on, even a Session value makes
    // the project dirty.
    for (unsigned long long type :
         {EVT_SCREEN_ADDED, EVT_SCREEN_REMOVED, EVT_SCREEN_RENAMED, EVT_SCREEN_ACTIVE_CHANGED,
          EVT_SCREEN_VISIBLE_CHANGED, EVT_SCREEN_RESOLUTION_CHANGED, EVT_SCREEN_LIST_CHANGED,
          EVT_SCREEN_MOVED, EVT_SCREEN_LIST_REORDERED, EVT_GLOBALSTATE_VALUE_CHANGED,
          EVT_SCENE_CHILDADDED, EVT_SCENE_CHILDREMOVED, EVT_SCENE_CHILDMOVED,
          EVT_SCENE_CHILDREPARENTED, EVT_SCENE_SCENEOBJECTRENAMED})
        addDirtyEvent(type);

    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

GlobalState::~GlobalState()
{
    _instance = nullptr;
    if (Log::ip())
        Log::ip()->writeMessage("Destroying Global State", "Global State", LogSeverity::Info,
                                LogLevel::Debug);
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
}

bool GlobalState::createBooleanProperty(GlobalPropertyType type, int id, QString const &key,
                                        bool value, bool tracked)
{
    return _create(type, id, key, BooleanProperty::Type(), value, true, tracked);
}

bool GlobalState::createIntegerProperty(GlobalPropertyType type, int id, QString const &key,
                                        int value, bool tracked)
{
    return _create(type, id, key, IntegerProperty::Type(), value, true, tracked);
}

bool GlobalState::createStringProperty(GlobalPropertyType type, int id, QString const &key,
                                       bool tracked)
{
    // A string value gets its empty default only.
    return _create(type, id, key, TextProperty::Type(), QString(), false, tracked);
}

bool GlobalState::getBool(GlobalPropertyType type, int id) const
{
    Property const *property = _property(type, id);
    return property ? property->getValue().toBool() : false;
}

int GlobalState::getInt(GlobalPropertyType type, int id) const
{
    Property const *property = _property(type, id);
    return property ? property->getValue().toInt() : 0;
}

QString GlobalState::getString(GlobalPropertyType type, int id) const
{
    Property const *property = _property(type, id);
    return property ? property->getValue().toString() : QString();
}

bool GlobalState::setBool(GlobalPropertyType type, int id, bool value)
{
    return _set(type, id, QVariant(value));
}

bool GlobalState::setInt(GlobalPropertyType type, int id, int value)
{
    return _set(type, id, QVariant(value));
}

bool GlobalState::setString(GlobalPropertyType type, int id, QString const &value)
{
    return _set(type, id, QVariant(value));
}

int GlobalState::getProjectKey(QString const &key) const
{
    return _findKey(_projectKeys, key);
}

int GlobalState::getSessionKey(QString const &key) const
{
    return _findKey(_sessionKeys, key);
}

int GlobalState::getUserKey(QString const &key) const
{
    return _findKey(_userKeys, key);
}

bool GlobalState::getDirty() const
{
    return _dirty;
}

void GlobalState::setDirty(bool dirty)
{
    if (_dirty == dirty)
        return;
    _dirty = dirty;
    EventBus::RaiseNow(QSharedPointer<GlobalStateDirtyChangedEvent>::create(dirty));
}

bool GlobalState::addDirtyEvent(unsigned long long type)
{
    // The set keeps 32-bit numbers; handleEvent only looks up types that fit.
    _dirtyEvents.insert(static_cast<quint32>(type));
    return true;
}

PropertyModel *GlobalState::projectModel() const
{
    return &_projectModel;
}

PropertyModel *GlobalState::sessionModel() const
{
    return &_sessionModel;
}

PropertyModel *GlobalState::userModel() const
{
    return &_userModel;
}

void GlobalState::reset()
{
    // Project and User, not Session: the preferences go back to their defaults on a blank,
    // while LAST_PROJECT_DIR and the other run-time values survive it.
    _projectModel.reset();
    _userModel.reset();
}

void GlobalState::saveUserState() const
{
    QString const path = _userStatePath();
    if (path.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(QJsonDocument(_userModel.save()).toJson(QJsonDocument::Indented));
    file.close();
}

void GlobalState::loadUserState()
{
    QString const path = _userStatePath();
    if (path.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    // A file that doesn't parse gives an empty object, which loads nothing.
    _userModel.load(QJsonDocument::fromJson(file.readAll()).object());
    file.close();
}

void GlobalState::save(DataState &state)
{
    state.setFileData(ProjectArchive::StateFileName(),
                      QJsonDocument(_projectModel.save()).toJson(QJsonDocument::Indented));
}

void GlobalState::load(DataState &state)
{
    if (!state.hasFileData(ProjectArchive::StateFileName()))
        return;
    _projectModel.load(
        QJsonDocument::fromJson(state.getFileData(ProjectArchive::StateFileName())).object());
}

QString GlobalState::getEventHandlerName() const
{
    return QStringLiteral("GlobalState");
}

bool GlobalState::canHandleEvent(unsigned long long) const
{
    return true;
}

void GlobalState::handleEvent(QSharedPointer<Event> event)
{
    unsigned long long const type = event->type();
    if (type <= std::numeric_limits<quint32>::max()
        && _dirtyEvents.count(static_cast<quint32>(type)) > 0) {
        setDirty(true);
        return;
    }
    if (type == EVT_PROJECT_REQUEST_BLANK) {
        reset();
        return;
    }
    if (type == EVT_GLOBALSTATE_REQUEST_CLEAN)
        setDirty(false);
}

bool GlobalState::persistent() const
{
    return true;
}

GlobalState::KeyMap *GlobalState::_keys(GlobalPropertyType type)
{
    switch (type) {
    case GlobalPropertyType::Project:
        return &_projectKeys;
    case GlobalPropertyType::Session:
        return &_sessionKeys;
    case GlobalPropertyType::User:
        return &_userKeys;
    }
    return nullptr; // a number that names no group
}

GlobalState::KeyMap const *GlobalState::_keys(GlobalPropertyType type) const
{
    return const_cast<GlobalState *>(this)->_keys(type);
}

PropertyModel *GlobalState::_model(GlobalPropertyType type) const
{
    switch (type) {
    case GlobalPropertyType::Project:
        return &_projectModel;
    case GlobalPropertyType::Session:
        return &_sessionModel;
    case GlobalPropertyType::User:
        return &_userModel;
    }
    return nullptr;
}

Property *GlobalState::_property(GlobalPropertyType type, int id) const
{
    KeyMap const *keys = _keys(type);
    if (!keys)
        return nullptr;
    auto const found = keys->find(id);
    if (found == keys->end())
        return nullptr;
    return _model(type)->property(found->second);
}

bool GlobalState::_create(GlobalPropertyType type, int id, QString const &key,
                          QString const &propertyType, QVariant const &value, bool assign,
                          bool tracked)
{
    KeyMap *keys = _keys(type);
    if (!keys || keys->count(id) > 0)
        return false;
    Property *property = _model(type)->addProperty(propertyType, key, {});
    // A key that the model holds already under another id: refused like a taken id.
    if (!property)
        return false;
    keys->emplace(id, key);
    property->setDefault(value);
    if (assign)
        property->setValue(value, PropertyChangeReason::ReasonInternal);
    property->setTracked(tracked);
    return true;
}

bool GlobalState::_set(GlobalPropertyType type, int id, QVariant const &value)
{
    Property *property = _property(type, id);
    if (!property)
        return false;
    QVariant const oldValue = property->getValue();
    if (!property->setValue(value, PropertyChangeReason::ReasonInternal))
        return false;
    EventBus::RaiseNow(QSharedPointer<GlobalStateChangedEvent>::create(
        type, static_cast<unsigned int>(id), oldValue, value));
    return true;
}

int GlobalState::_findKey(KeyMap const &keys, QString const &key)
{
    for (auto const &entry : keys) {
        if (entry.second == key)
            return entry.first;
    }
    return -1;
}

QString GlobalState::_userStatePath()
{
    // Without the per-user directory there is no place for the file.
    QString const directory = Core::pluginDataDirectory();
    if (directory.isEmpty())
        return QString();
    return directory + QDir::separator() + UserStateFileName;
}

} // namespace TES
