// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "events/EventLock.h"
#include "support/RecordingHandler.h"

#include <QtTest>

#include <memory>

using namespace TES;
using TES::Test::RecordingHandler;
using Types = QList<unsigned long long>;

namespace {

QSharedPointer<Event> makeEvent(unsigned long long type, unsigned long long mask = EVM_PROJECT)
{
    return QSharedPointer<Event>::create(type, mask);
}

void raiseNow(unsigned long long type)
{
    EventBus::i().raiseEventNow(makeEvent(type));
}

} // namespace

class tst_EventBus : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eventsAndPrinters();
    void deliveryFollowsMaskAndSwitches();
    void raiseEventNowDeliversQueueInOrder();
    void raiseInsideDeliveryWaitsForNextPump();
    void removeDuringDelivery();
    void subscriptionTiming();
    void resetKeepsOnlyPersistent();
    void callsWithoutAnInstance();
    void eventLockWritesTheFlag();
};

void tst_EventBus::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
}

void tst_EventBus::cleanup()
{
    EventBus::destroy();
    setUserEventTypePrinter(nullptr);
}

void tst_EventBus::eventsAndPrinters()
{
    // The host's own names are read wherever tests describe events.
    QCOMPARE(Event(64, 0).toString(), QString("EVT_USER"));
    // A user printer names every number from 64 up, and only those.
    QVERIFY(setUserEventTypePrinter(
        [](unsigned long long type) { return QString("MY_%1").arg(type); }));
    QCOMPARE(printEventType(64), QString("MY_64"));
    QCOMPARE(printEventType(1000), QString("MY_1000"));
    QCOMPARE(printEventType(63), QString("EVT_SELECT_REFRESH"));
    QVERIFY(setUserEventTypePrinter(nullptr));
    QCOMPARE(printEventType(1000), QString("EVT_USER"));
}

void tst_EventBus::deliveryFollowsMaskAndSwitches()
{
    RecordingHandler globalState(EVM_GLOBALSTATE);
    RecordingHandler project(EVM_PROJECT);
    RecordingHandler switchedOff(~0ULL);
    switchedOff.setEventHandlerEnabled(false);

    // The mask, not the type, decides who hears an event.
    EventBus::i().raiseEventNow(makeEvent(5, EVM_GLOBALSTATE));
    QCOMPARE(globalState.types(), Types({5}));
    QVERIFY(project.events.isEmpty());
    QVERIFY(switchedOff.events.isEmpty());

    switchedOff.setEventHandlerEnabled(true);
    EventBus::i().raiseEventNow(makeEvent(1, EVM_PROJECT | EVM_GLOBALSTATE));
    QCOMPARE(globalState.types(), Types({5, 1}));
    QCOMPARE(project.types(), Types({1}));
    QCOMPARE(switchedOff.types(), Types({1}));

    // Raised while the bus is off: lost, not deferred. A cleared queue delivers nothing either.
    EventBus::i().setEventsEnabled(false);
    QVERIFY(!EventBus::i().getEventsEnabled());
    EventBus::i().raiseEvent(makeEvent(2));
    raiseNow(3);
    EventBus::i().setEventsEnabled(true);
    EventBus::i().raiseEvent(makeEvent(4));
    EventBus::i().clearEvents();
    raiseNow(6);
    QCOMPARE(project.types(), Types({1, 6}));
}

void tst_EventBus::raiseEventNowDeliversQueueInOrder()
{
    RecordingHandler first;
    RecordingHandler second;
    // Every handler sees one event before any sees the next.
    QList<QPair<RecordingHandler *, unsigned long long>> order;
    first.onEvent = [&](QSharedPointer<Event> const &e) { order.append({&first, e->type()}); };
    second.onEvent = [&](QSharedPointer<Event> const &e) { order.append({&second, e->type()}); };

    EventBus::i().raiseEvent(makeEvent(1));
    EventBus::i().raiseEvent(makeEvent(2));
    EventBus::i().raiseEvent(makeEvent(3));
    QVERIFY(first.events.isEmpty());

    raiseNow(4);
    QCOMPARE(first.types(), Types({1, 2, 3, 4}));
    QCOMPARE(second.types(), Types({1, 2, 3, 4}));
    QCOMPARE(order.size(), 8);
    for (int index = 0; index < 8; index += 2) {
        QCOMPARE(order.at(index).second, order.at(index + 1).second);
        QVERIFY(order.at(index).first != order.at(index + 1).first);
    }
}

void tst_EventBus::raiseInsideDeliveryWaitsForNextPump()
{
    RecordingHandler handler;
    bool returnedBeforeDelivery = false;
    handler.onEvent = [&](QSharedPointer<Event> const &e) {
        if (e->type() == 1) {
            raiseNow(2);
            returnedBeforeDelivery = handler.types() == Types({1});
        }
    };
    raiseNow(1);
    QVERIFY(returnedBeforeDelivery);
    QCOMPARE(handler.types(), Types({1}));
    // The nested event arrives with the 100 ms shot.
    QTRY_COMPARE(handler.types(), Types({1, 2}));
}

void tst_EventBus::removeDuringDelivery()
{
    RecordingHandler a;
    RecordingHandler b;
    // Whichever of the two comes first removes the other: the removed one must get nothing
    // more, not even the event under delivery.
    auto removeOther = [&](RecordingHandler &self, RecordingHandler &other) {
        self.onEvent = [&](QSharedPointer<Event> const &) {
            EventBus::i().removeHandler(&other);
            self.onEvent = nullptr;
            other.onEvent = nullptr;
        };
    };
    removeOther(a, b);
    removeOther(b, a);
    raiseNow(1);
    raiseNow(2);
    QCOMPARE(a.events.size() + b.events.size(), 2);
    QVERIFY(a.events.isEmpty() || b.events.isEmpty());

    // A handler that deletes itself inside its delivery: the others go on being served.
    auto self = std::make_unique<RecordingHandler>();
    RecordingHandler other;
    self->onEvent = [&](QSharedPointer<Event> const &) { self.reset(); };
    raiseNow(3);
    QVERIFY(!self);
    raiseNow(4);
    QCOMPARE(other.types(), Types({3, 4}));
}

void tst_EventBus::subscriptionTiming()
{
    RecordingHandler handler;
    // Added and removed before any pump: never active.
    EventBus::i().removeHandler(&handler);
    raiseNow(1);
    QVERIFY(handler.events.isEmpty());

    // A duplicate add gives one descriptor: one delivery per event.
    EventBus::i().addHandler(&handler);
    EventBus::i().addHandler(&handler);
    raiseNow(2);
    QCOMPARE(handler.types(), Types({2}));

    // Adding an active handler and removing it before a flush only undoes the pending add.
    EventBus::i().addHandler(&handler);
    EventBus::i().removeHandler(&handler);
    raiseNow(3);
    QCOMPARE(handler.types(), Types({2, 3}));

    // Remove, then add again before the next flush: the flush creates a new descriptor and
    // then erases it, so the handler ends up unsubscribed. A second add after that pump
    // subscribes it.
    EventBus::i().removeHandler(&handler);
    EventBus::i().addHandler(&handler);
    raiseNow(4);
    EventBus::i().addHandler(&handler);
    raiseNow(5);
    QCOMPARE(handler.types(), Types({2, 3, 5}));

    // Removed, pumped, added again: one live descriptor, so the event arrives once.
    EventBus::i().removeHandler(&handler);
    raiseNow(6);
    EventBus::i().addHandler(&handler);
    raiseNow(7);
    QCOMPARE(handler.types(), Types({2, 3, 5, 7}));

    // A handler added inside a delivery sees nothing of that pump.
    RecordingHandler late(~0ULL, true, "late");
    EventBus::i().removeHandler(&late);
    handler.onEvent = [&](QSharedPointer<Event> const &) { EventBus::i().addHandler(&late); };
    EventBus::i().raiseEvent(makeEvent(8));
    raiseNow(9);
    QVERIFY(late.events.isEmpty());
    handler.onEvent = nullptr;
    raiseNow(10);
    QCOMPARE(late.types(), Types({10}));
}

void tst_EventBus::resetKeepsOnlyPersistent()
{
    RecordingHandler persistent(~0ULL, true);
    RecordingHandler active(~0ULL, false, "active");
    raiseNow(1);
    // Still pending when the reset comes: flushed first and erased in the same call.
    RecordingHandler pending(~0ULL, false, "pending");

    EventBus::i().setEventsEnabled(false);
    EventBus::i().reset();
    EventBus::i().setEventsEnabled(true);
    raiseNow(2);

    QCOMPARE(persistent.types(), Types({1, 2}));
    QCOMPARE(active.types(), Types({1}));
    QVERIFY(pending.events.isEmpty());

    // A reset empties the queue too.
    EventBus::i().raiseEvent(makeEvent(3));
    EventBus::i().reset();
    raiseNow(4);
    QCOMPARE(persistent.types(), Types({1, 2, 4}));
}

void tst_EventBus::callsWithoutAnInstance()
{
    // What a destructor meets after destroy(): a bus object with no instance behind it.
    EventBus *stale = EventBus::ip();
    new EventBus();
    EventBus::destroy();
    QVERIFY(!EventBus::ip());
    RecordingHandler handler; // finds no bus, and leaves none behind when it goes
    stale->addHandler(&handler);
    stale->raiseEvent(makeEvent(1));
    stale->raiseEventNow(makeEvent(2));
    stale->removeHandler(&handler);
    QVERIFY(!stale->getEventsEnabled());
    QVERIFY(handler.events.isEmpty());
    delete stale;
}

void tst_EventBus::eventLockWritesTheFlag()
{
    bool flag = true;
    {
        EventLock lock(&flag);
        QVERIFY(!flag);
        QVERIFY(!lock.isLocked());
        lock.unlock();
        QVERIFY(flag);
        QVERIFY(lock.isLocked()); // reads the flag as it stands
        lock.lock();
        QVERIFY(!flag);
    }
    QVERIFY(flag);
}

QTEST_GUILESS_MAIN(tst_EventBus)
#include "tst_EventBus.moc"
