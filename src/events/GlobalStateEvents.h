// SPDX-License-Identifier: MIT
#pragma once

#include "events/Event.h"
#include "services/GlobalPropertyType.h"
#include "tessera_export.h"

#include <QVariant>

namespace TES {

// The global state events, all of mask EVM_GLOBALSTATE. GlobalState raises the first two at
// once, with EventBus::RaiseNow; handlers select them by the mask and static_cast by the type
// number.

// A GlobalState value changed. type() hides Event::type(): on this class it answers the
// value's group, through a pointer to Event it answers EVT_GLOBALSTATE_VALUE_CHANGED.
class TES_EXPORT GlobalStateChangedEvent : public Event
{
public:
    GlobalStateChangedEvent(GlobalPropertyType type, unsigned int id, QVariant const &oldValue,
                            QVariant const &newValue);
    ~GlobalStateChangedEvent() override;
    GlobalPropertyType type() const;
    unsigned int id() const;
    QVariant oldValue() const;
    QVariant newValue() const;

private:
    GlobalPropertyType _type;
    unsigned int _id;
    QVariant _oldValue;
    QVariant _newValue;
};

// The project's dirty flag changed to dirty().
class TES_EXPORT GlobalStateDirtyChangedEvent : public Event
{
public:
    explicit GlobalStateDirtyChangedEvent(bool dirty);
    ~GlobalStateDirtyChangedEvent() override;
    bool dirty() const;

private:
    bool _dirty;
};

// Global state was loaded. The host never raises it; it is there for plug-ins.
class TES_EXPORT GlobalStateLoadedEvent : public Event
{
public:
    GlobalStateLoadedEvent();
    ~GlobalStateLoadedEvent() override;
};

} // namespace TES
