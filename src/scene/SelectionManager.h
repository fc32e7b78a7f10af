// SPDX-License-Identifier: MIT
#pragma once

#include "events/IEventHandler.h"
#include "services/Singleton.h"
#include "tessera_export.h"

#include <QList>
#include <QSet>
#include <QSharedPointer>
#include <QString>
#include <QUuid>

namespace TES {

// Knows which objects are selected, oldest first. Every change runs inside an operation, and
// operations nest: when the outermost one ends, one SelectionChangedEvent goes out at once
// (EventBus::raiseEventNow) with every id selected and every id deselected during it, in
// order and not netted, so an id selected and deselected in one operation is named in both
// lists. An operation that changed nothing raises nothing. Deselecting a thousand objects
// therefore tells the views once.
//
// The ids are taken as given: the selection never asks SceneManager whether they name
// objects. Whoever deletes a selected object deselects it first.
//
// Core creates the one instance after SceneManager and leaves it alive until the process
// ends. It is a persistent handler on EventBus: a blank project empties the selection
// silently, a change of active screen deselects all, and a child about to leave its parent is
// deselected, unless setEventsEnabled(false) holds those reactions back.
//
// Main thread only. Handlers of SelectionChangedEvent must not change the selection: the
// lists of the operation just ended are cleared only after they return, so a change made
// there raises the old entries again.
class TES_EXPORT SelectionManager : public IEventHandler, public Singleton<SelectionManager>
{
public:
    SelectionManager();
    ~SelectionManager() override;

    SelectionManager(SelectionManager const &) = delete;
    SelectionManager &operator=(SelectionManager const &) = delete;

    // The oldest selected id; the null id when nothing is selected.
    QUuid current() const;
    bool isSelected(QUuid const &id) const;
    // The selection, oldest first.
    QList<QUuid> selected() const;
    unsigned int selectedCount() const;

    // Makes the id the whole selection. Nothing when it is selected already, so clicking one
    // member of a multiple selection keeps the others. A null id deselects all.
    void select(QUuid const &id);
    // Makes the ids the whole selection, skipping null ids and repeats. Unlike the single
    // form the present selection is always dropped first and the ids selected anew, so ids
    // that stay selected are named as both added and removed. An empty list deselects all.
    void select(QList<QUuid> ids);
    // Adds the id to the selection; nothing for a null id or one already selected.
    void additiveSelect(QUuid const &id);
    // Adds the ids, skipping null ids and those already selected, in one change.
    void additiveSelect(QList<QUuid> ids);
    // Selects the id when it isn't selected, deselects it when it is; nothing for a null id.
    void toggle(QUuid const &id);
    // Toggles each id in order, in one change.
    void toggle(QList<QUuid> ids);
    // Nothing for a null id or one that isn't selected.
    void deselect(QUuid const &id);
    // Deselects each id in order, in one change.
    void deselect(QList<QUuid> ids);
    // Nothing when nothing is selected.
    void deselectAll();
    // Raises SelectRefreshEvent at once, for views to show the selection again; no change.
    void refresh();

    // Whether handleEvent reacts; selection changes made by calls raise their event anyway.
    bool getsEventsEnabled() const;
    void setEventsEnabled(bool enabled);

    // "SelectionManager".
    QString getEventHandlerName() const override;
    // EVM_PROJECT, EVM_SCREEN and EVM_SCENE.
    bool canHandleEvent(unsigned long long mask) const override;
    // EVT_PROJECT_REQUEST_BLANK empties the selection without an event. EVT_SCREEN_ACTIVE_CHANGING
    // deselects all when a screen is active. EVT_SCENE_CHILDABOUTTOREMOVE deselects the child
    // (the second info of its SceneChangeEvent). Nothing while events are disabled.
    void handleEvent(QSharedPointer<Event> event) override;
    // True: the selection outlives every EventBus::reset.
    bool persistent() const override;

private:
    void _operationStart();
    // Ends an operation; the outermost end raises what was added and removed, if anything.
    void _operationEnd();
    void _selectObject(QUuid const &id);
    // The id must be selected. Taken by value: callers pass entries of _selected itself.
    void _deselectObject(QUuid id);
    // Deselects from the front until the selection is empty, in a nested operation.
    void _clear();

    // The selection, oldest first.
    QList<QUuid> _selected;
    // Selected and deselected since the outermost operation began.
    QList<QUuid> _added;
    QList<QUuid> _removed;
    bool _eventsEnabled = true;
    int _operationCount = 0;
    // The members of _selected, so that tests of membership stay cheap on large selections.
    QSet<QUuid> _index;
};

template<>
TES_EXPORT SelectionManager *Singleton<SelectionManager>::_instance;

} // namespace TES
