#pragma once

#include "events/Event.h"
#include "services/GlobalPropertyType.h"
#include "tessera_export.h"
#include <QVariant>

namespace TES {

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

} // namespace TES
