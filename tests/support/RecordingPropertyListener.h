// SPDX-License-Identifier: MIT
#pragma once

#include "properties/IPropertyModelListener.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace TES::Test {

// Records every notification of the models it is added to, in order, as "what:id" words
// ("value:x", "state:x", "categoryExpand:c", "categoryVisible:c", "groupExpand:g",
// "groupVisible:g", "event:x", "loaded"), with the values of value changes. An optional hook
// runs inside each notification, for tests of what listeners may do there.
class RecordingPropertyListener : public IPropertyModelListener
{
public:
    struct Call
    {
        QString word;
        Property *property = nullptr;
        QVariant oldValue;
        QVariant newValue;
        // The property's value as read inside the notification.
        QVariant valueSeen;
        PropertyChangeReason reason = PropertyChangeReason::ReasonInternal;
        unsigned int event = 0;
    };

    void propertyValueChanged(Property *property, QVariant const &oldValue,
                              QVariant const &newValue, PropertyChangeReason reason) override;
    void propertyStateChanged(Property *property) override { _record({}, "state:", property); }
    void categoryExpandStateChanged(QString const &id) override
    {
        _record({}, "categoryExpand:" + id);
    }
    void categoryVisibleStateChanged(QString const &id) override
    {
        _record({}, "categoryVisible:" + id);
    }
    void groupExpandStateChanged(QString const &id) override { _record({}, "groupExpand:" + id); }
    void groupVisibleStateChanged(QString const &id) override { _record({}, "groupVisible:" + id); }
    void propertyEventRaised(Property *property, unsigned int event,
                             std::map<QString, QVariant> const &params) override;
    void modelLoaded() override { _record({}, "loaded"); }

    QStringList words() const;
    void clear() { calls.clear(); }

    QList<Call> calls;
    std::function<void(Call const &)> onCall;

private:
    void _record(Call call, QString const &word, Property *property = nullptr);
};

} // namespace TES::Test
