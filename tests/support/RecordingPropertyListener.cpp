// SPDX-License-Identifier: MIT
#include "support/RecordingPropertyListener.h"

#include "properties/Property.h"

namespace TES::Test {

void RecordingPropertyListener::propertyValueChanged(Property *property, QVariant const &oldValue,
                                                     QVariant const &newValue,
                                                     PropertyChangeReason reason)
{
    _record({{}, nullptr, oldValue, newValue, property->getValue(), reason}, "value:", property);
}

void RecordingPropertyListener::propertyEventRaised(Property *property, unsigned int event,
                                                    std::map<QString, QVariant> const &)
{
    Call call;
    call.event = event;
    _record(call, "event:", property);
}

QStringList RecordingPropertyListener::words() const
{
    QStringList result;
    for (Call const &call : calls)
        result << call.word;
    return result;
}

void RecordingPropertyListener::_record(Call call, QString const &word, Property *property)
{
    call.word = property ? word + property->id() : word;
    call.property = property;
    calls.append(call);
    if (onCall)
        onCall(call);
}

} // namespace TES::Test
