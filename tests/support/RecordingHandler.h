// SPDX-License-Identifier: MIT
#pragma once

#include "events/EventBus.h"
#include "events/IEventHandler.h"

#include <QList>
#include <QSharedPointer>

#include <functional>

namespace TES::Test {

// Subscribes itself to the bus and records every event it is given, in order. An optional
// hook runs inside each delivery, for tests of what handlers may do there.
class RecordingHandler : public IEventHandler
{
public:
    explicit RecordingHandler(unsigned long long mask = ~0ULL, bool persistent = true,
                              QString name = QStringLiteral("Recorder"));
    ~RecordingHandler() override;

    QString getEventHandlerName() const override;
    bool canHandleEvent(unsigned long long mask) const override;
    void handleEvent(QSharedPointer<Event> event) override;
    bool persistent() const override;

    // The type numbers received, in order.
    QList<unsigned long long> types() const;
    void clear();

    QList<QSharedPointer<Event>> events;
    std::function<void(QSharedPointer<Event> const &)> onEvent;

private:
    unsigned long long _mask;
    bool _persistent;
    QString _name;
};

} // namespace TES::Test
