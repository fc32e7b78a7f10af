#include "support/RecordingPropertyListener.h"

#include "properties/Property.h"

namespace TES::Test {

void RecordingPropertyListener::propertyValueChanged(Property *property, QVariant const &oldValue,
                                                     QVariant const &newValue,
                                                     PropertyChangeReason reason)
{
    Call call;
    call.word = "value:" + property->id();
    call.property = property;
    call.oldValue = oldValue;
    call.newValue = newValue;
    call.valueSeen = property->getValue();
    call.reason = reason;
    _record(call);
}

void RecordingPropertyListener::propertyStateChanged(Property *property)
{
    Call call;
    call.word = "state:" + property->id();
    call.property = property;
    _record(call);
}

void RecordingPropertyListener::categoryExpandStateChanged(QString const &id)
{
    _recordWord("categoryExpand:" + id);
}

void RecordingPropertyListener::categoryVisibleStateChanged(QString const &id)
{
    _recordWord("categoryVisible:" + id);
}

void RecordingPropertyListener::groupExpandStateChanged(QString const &id)
{
    _recordWord("groupExpand:" + id);
}

void RecordingPropertyListener::groupVisibleStateChanged(QString const &id)
{
    _recordWord("groupVisible:" + id);
}

void RecordingPropertyListener::propertyEventRaised(Property *property, unsigned int event,
                                                    std::map<QString, QVariant> const &)
{
    Call call;
    call.word = "event:" + property->id();
    call.property = property;
    call.event = event;
    _record(call);
}

void RecordingPropertyListener::modelLoaded()
{
    _recordWord("loaded");
}

QStringList RecordingPropertyListener::words() const
{
    QStringList result;
    for (Call const &call : calls)
        result << call.word;
    return result;
}

void RecordingPropertyListener::clear()
{
    calls.clear();
}

void RecordingPropertyListener::_recordWord(QString const &word)
{
    Call call;
    call.word = word;
    _record(call);
}

void RecordingPropertyListener::_record(Call const &call)
{
    calls.append(call);
    if (onCall)
        onCall(call);
}

} // namespace TES::Test
