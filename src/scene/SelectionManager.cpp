// SPDX-License-Identifier: MIT
#include "scene/SelectionManager.h"

#include "events/EventBus.h"
#include "events/SceneChangeEvent.h"
#include "events/SelectRefreshEvent.h"
#include "events/SelectionChangedEvent.h"
#include "scene/SceneManager.h"
#include "services/Log.h"

namespace TES {

template<>
SelectionManager *Singleton<SelectionManager>::_instance = nullptr;

SelectionManager::SelectionManager()
{
    _instance = this;
    if (EventBus::ip())
        EventBus::ip()->addHandler(this);
}

SelectionManager::~SelectionManager()
{
    if (Log::ip())
        Log::ip()->writeMessage("Destroying Selection Manager", "Selection", LogSeverity::Info,
                                LogLevel::Debug);
    if (EventBus::ip())
        EventBus::ip()->removeHandler(this);
    _instance = nullptr;
}

QUuid SelectionManager::current() const
{
    return _selected.isEmpty() ? QUuid() : _selected.first();
}

bool SelectionManager::isSelected(QUuid const &id) const
{
    return _index.contains(id);
}

QList<QUuid> SelectionManager::selected() const
{
    return _selected;
}

unsigned int SelectionManager::selectedCount() const
{
    return static_cast<unsigned int>(_selected.size());
}

void SelectionManager::select(QUuid const &id)
{
    if (id.isNull()) {
        deselectAll();
        return;
    }
    // Clicking one member of a multiple selection keeps the others.
    if (isSelected(id))
        return;
    _operationStart();
    _clear();
    _selectObject(id);
    _operationEnd();
}

void SelectionManager::select(QList<QUuid> ids)
{
    _operationStart();
    // Dropped even when they come again, so that ids staying selected are named both ways.
    _clear();
    for (QUuid const &id : ids) {
        if (!id.isNull() && !isSelected(id))
            _selectObject(id);
    }
    _operationEnd();
}

void SelectionManager::additiveSelect(QUuid const &id)
{
    if (id.isNull() || isSelected(id))
        return;
    _operationStart();
    _selectObject(id);
    _operationEnd();
}

void SelectionManager::additiveSelect(QList<QUuid> ids)
{
    _operationStart();
    for (QUuid const &id : ids) {
        if (!id.isNull() && !isSelected(id))
            _selectObject(id);
    }
    _operationEnd();
}

void SelectionManager::toggle(QUuid const &id)
{
    if (id.isNull())
        return;
    _operationStart();
    if (isSelected(id))
        _deselectObject(id);
    else
        _selectObject(id);
    _operationEnd();
}

void SelectionManager::toggle(QList<QUuid> ids)
{
    _operationStart();
    for (QUuid const &id : ids)
        toggle(id);
    _operationEnd();
}

void SelectionManager::deselect(QUuid const &id)
{
    if (id.isNull() || !isSelected(id))
        return;
    _operationStart();
    _deselectObject(id);
    _operationEnd();
}

void SelectionManager::deselect(QList<QUuid> ids)
{
    _operationStart();
    for (QUuid const &id : ids)
        deselect(id);
    _operationEnd();
}

void SelectionManager::deselectAll()
{
    if (_selected.isEmpty())
        return;
    _clear();
}

void SelectionManager::refresh()
{
    EventBus::RaiseNow(QSharedPointer<SelectRefreshEvent>::create());
}

bool SelectionManager::getsEventsEnabled() const
{
    return _eventsEnabled;
}

void SelectionManager::setEventsEnabled(bool enabled)
{
    _eventsEnabled = enabled;
}

QString SelectionManager::getEventHandlerName() const
{
    return QStringLiteral("SelectionManager");
}

bool SelectionManager::canHandleEvent(unsigned long long mask) const
{
    return (mask & (EVM_PROJECT | EVM_SCREEN | EVM_SCENE)) != 0;
}

void SelectionManager::handleEvent(QSharedPointer<Event> event)
{
    if (!_eventsEnabled || !event)
        return;
    switch (event->type()) {
    case EVT_PROJECT_REQUEST_BLANK:
        // The objects are gone already; nobody is told of their leaving the selection.
        _selected.clear();
        _index.clear();
        break;
    case EVT_SCREEN_ACTIVE_CHANGING:
        // Objects are never selected across a change of screen.
        if (SceneManager::ip() && !SceneManager::ip()->getActiveScreen().isNull())
            deselectAll();
        break;
    case EVT_SCENE_CHILDABOUTTOREMOVE:
        // Checked, since a plug-in may raise the number with another class.
        if (auto removing = event.dynamicCast<SceneChangeEvent>())
            deselect(removing->childInfo().id());
        break;
    default:
        break;
    }
}

bool SelectionManager::persistent() const
{
    return true;
}

void SelectionManager::_operationStart()
{
    ++_operationCount;
}

void SelectionManager::_operationEnd()
{
    --_operationCount;
    if (_operationCount > 0 || (_added.isEmpty() && _removed.isEmpty()))
        return;
    // Cleared only after the handlers have run: a change made inside one re-raises these.
    EventBus::RaiseNow(QSharedPointer<SelectionChangedEvent>::create(_added, _removed));
    _added.clear();
    _removed.clear();
}

void SelectionManager::_selectObject(QUuid const &id)
{
    _selected.append(id);
    _index.insert(id);
    _added.append(id);
}

void SelectionManager::_deselectObject(QUuid id)
{
    _selected.removeOne(id);
    _index.remove(id);
    _removed.append(id);
}

void SelectionManager::_clear()
{
    _operationStart();
    while (!_selected.isEmpty())
        _deselectObject(_selected.first());
    _operationEnd();
}

} // namespace TES
