// SPDX-License-Identifier: MIT
// Event delivery: one million events through twenty handlers with mixed masks.
#include "BenchReport.h"

#include "events/EventBus.h"
#include "events/IEventHandler.h"

#include <QCoreApplication>

#include <memory>
#include <vector>

using namespace TES;

namespace {

class CountingHandler : public IEventHandler
{
public:
    explicit CountingHandler(unsigned long long mask) : _mask(mask)
    {
        EventBus::i().addHandler(this);
    }
    ~CountingHandler() override
    {
        if (EventBus::ip())
            EventBus::ip()->removeHandler(this);
    }
    QString getEventHandlerName() const override { return QStringLiteral("Counter"); }
    bool canHandleEvent(unsigned long long mask) const override { return (mask & _mask) != 0; }
    void handleEvent(QSharedPointer<Event> event) override { calls += event->type() != 0; }
    bool persistent() const override { return true; }

    unsigned long long calls = 0;

private:
    unsigned long long _mask;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    Bench::BenchReport const report(5);
    int const eventCount = 1000000;
    unsigned long long const masks[]
        = {EVM_PROJECT, EVM_SCREEN, EVM_SCENE, EVM_SELECT, EVM_GLOBALSTATE};

    new EventBus();
    EventBus::i().setEventsEnabled(true);
    std::vector<std::unique_ptr<CountingHandler>> handlers;
    for (int index = 0; index < 20; ++index) {
        // Mixed: most handlers take two categories, some one, two take everything.
        unsigned long long mask = masks[index % 5] | masks[(index * 3 + 1) % 5];
        if (index % 7 == 0)
            mask = masks[index % 5];
        if (index >= 18)
            mask = ~0ULL;
        handlers.push_back(std::make_unique<CountingHandler>(mask));
    }

    unsigned long long callsPerRun = 0;
    double const total = report.medianNanoseconds([&] {
        for (auto &handler : handlers)
            handler->calls = 0;
        for (int index = 0; index < eventCount; ++index) {
            unsigned long long const mask = masks[index % 5];
            EventBus::i().raiseEventNow(QSharedPointer<Event>::create(1 + index % 60, mask));
        }
        callsPerRun = 0;
        for (auto &handler : handlers)
            callsPerRun += handler->calls;
        return qint64(-1);
    });

    report.print("events.delivery.per_event", total / eventCount, "ns");
    report.print("events.delivery.per_handler_call", total / static_cast<double>(callsPerRun),
                 "ns");
    Bench::BenchReport::PrintValue("events.delivery.handler_calls_per_event",
                                   static_cast<double>(callsPerRun) / eventCount, "calls");

    handlers.clear();
    EventBus::destroy();
    return 0;
}
