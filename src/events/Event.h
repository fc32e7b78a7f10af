// SPDX-License-Identifier: MIT
#pragma once

#include "events/EventTypes.h"
#include "tessera_export.h"

#include <QSharedPointer>
#include <QString>

namespace TES {

// The base of every message on the EventBus: a type number and a category mask.
// Events travel as QSharedPointer<Event>; a handler downcasts by the type number with a
// plain static_cast. A plain Event carries no payload and serves most project and
// global-state types.
class TES_EXPORT Event
{
public:
    Event(unsigned long long type, unsigned long long mask);
    virtual ~Event();

    unsigned long long mask() const;
    unsigned long long type() const;
    QString toString() const;

    // The bus never looks at the veto flag; it is there for plug-ins that want it.
    bool isVetoed() const;
    void veto();

private:
    unsigned long long _type;
    unsigned long long _mask;
    bool _vetoed = false;
};

} // namespace TES
