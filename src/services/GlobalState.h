// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "properties/PropertyModel.h"
#include "services/GlobalPropertyType.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <QString>

#include <map>
#include <set>

namespace TES {

class DataState;

// The ids of the values the host creates, one enumeration per group. The bare numbers name
// the same values and keep working.
enum SessionValueId : int {
    SessionDirtyDisabled = 0,
    SessionSnapEnabled = 1,
    SessionGridEnabled = 2,
    SessionCutEnabled = 3,
    SessionCopyEnabled = 4,
    SessionPasteEnabled = 5,
    SessionUndoEnabled = 6,
    SessionRedoEnabled = 7,
    SessionLastProjectDir = 9,
};

enum ProjectValueId : int {
    ProjectSnapToggled = 0,
    ProjectGridToggled = 1,
    ProjectGridX = 2,
    ProjectGridY = 3,
    ProjectCanvasWidth = 4,
    ProjectCanvasHeight = 5,
    ProjectZoomLevel = 6,
    ProjectScreenWidth = 8,
    ProjectScreenHeight = 9,
    ProjectScreenDesignerWidthPadding = 10,
    ProjectScreenDesignerHeightPadding = 11,
};

enum UserValueId : int {
    UserLogLevel = 0,
    UserGridColor = 1,
};

// The application's table of small named values and the project's dirty flag. A value is
// addressed by its group and a small integer id; behind the id stands a property, keyed by
// the value's key string, in one PropertyModel per group, so that values share defaults,
// persistence and JSON with the properties of objects. Project values travel in the project
// archive as "state.json", User values in "user_config.json" in the plug-in's data
// directory, Session values live for one run.
//
// Changing a value raises EVT_GLOBALSTATE_VALUE_CHANGED. The dirty flag follows the event
// stream: the class subscribes to every event on the bus (persistently) and turns a fixed set
// of types into setDirty(true); tracked properties anywhere set it too, from
// Property::setValue. Core creates the instance right after the EventBus and destroys it
// right after the bus.
class TES_EXPORT GlobalState : public IEventHandler, public Singleton<GlobalState>
{
public:
    GlobalState();
    ~GlobalState() override;

    GlobalState(GlobalState const &) = delete;
    GlobalState &operator=(GlobalState const &) = delete;

    // Create a value of the group. False, with nothing changed, when the id exists in the
    // group (or the key in its model). A plug-in adds its own values this way; a tracked value
    // marks the project dirty whenever it changes.
    bool createBooleanProperty(GlobalPropertyType type, int id, QString const &key, bool value,
                               bool tracked);
    bool createIntegerProperty(GlobalPropertyType type, int id, QString const &key, int value,
                               bool tracked);
    // The default is the empty string.
    bool createStringProperty(GlobalPropertyType type, int id, QString const &key, bool tracked);

    // False, 0 or an empty string for an id that the group doesn't have.
    bool getBool(GlobalPropertyType type, int id) const;
    int getInt(GlobalPropertyType type, int id) const;
    QString getString(GlobalPropertyType type, int id) const;
    // True when the value was taken; then EVT_GLOBALSTATE_VALUE_CHANGED is raised. False,
    // raising nothing, for an unknown id, a value of the wrong kind, or the value it holds.
    bool setBool(GlobalPropertyType type, int id, bool value);
    bool setInt(GlobalPropertyType type, int id, int value);
    bool setString(GlobalPropertyType type, int id, QString const &value);

    // The id that the key has in the group, or -1.
    int getProjectKey(QString const &key) const;
    int getSessionKey(QString const &key) const;
    int getUserKey(QString const &key) const;

    bool getDirty() const;
    // Raises EVT_GLOBALSTATE_DIRTY_CHANGED when the flag really changes.
    void setDirty(bool dirty);
    // Makes an event type count as a change of the project, for a plug-in's own events.
    // Always true.
    bool addDirtyEvent(unsigned long long type);

    // The models behind the groups, for views and plug-ins.
    PropertyModel *projectModel() const;
    PropertyModel *sessionModel() const;
    PropertyModel *userModel() const;

    // Resets the Project and the User values to their defaults (Session values stay), raising
    // no value events. Also done on EVT_PROJECT_REQUEST_BLANK.
    void reset();

    // The User values to and from "user_config.json" in Core::pluginDataDirectory(). A file
    // that is missing or doesn't parse leaves the values as they are; loading raises nothing.
    void saveUserState() const;
    void loadUserState();

    // The Project values to and from "state.json" of the project data. Loading a state
    // without that file changes nothing; keys missing from the file keep their values.
    void save(DataState &state);
    void load(DataState &state);

    QString getEventHandlerName() const override;
    // Every event: the dirty rule looks at types of all categories.
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;
    bool persistent() const override;

private:
    using KeyMap = std::map<int, QString>;

    // Null for a number that names no group.
    KeyMap *_keys(GlobalPropertyType type);
    KeyMap const *_keys(GlobalPropertyType type) const;
    PropertyModel *_model(GlobalPropertyType type) const;
    // The property behind the id, or null.
    Property *_property(GlobalPropertyType type, int id) const;
    // Registers the key and creates the property with its default (also assigned when asked)
    // and tracking; false when the id or the key is taken.
    bool _create(GlobalPropertyType type, int id, QString const &key, QString const &propertyType,
                 QVariant const &value, bool assign, bool tracked);
    bool _set(GlobalPropertyType type, int id, QVariant const &value);
    static int _findKey(KeyMap const &keys, QString const &key);
    static QString _userStatePath();

    KeyMap _projectKeys;
    KeyMap _sessionKeys;
    KeyMap _userKeys;
    // Handed out from const accessors: the models are the values' storage, not this object's.
    mutable PropertyModel _projectModel;
    mutable PropertyModel _sessionModel;
    mutable PropertyModel _userModel;
    std::set<quint32> _dirtyEvents;
    bool _dirty = false;
};

template<>
TES_EXPORT GlobalState *Singleton<GlobalState>::_instance;

} // namespace TES
