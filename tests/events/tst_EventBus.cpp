#include "events/EventBus.h"
#include "events/EventLock.h"
#include "support/RecordingHandler.h"

#include <QtTest>

#include <memory>

using namespace TES;
using TES::Test::RecordingHandler;

namespace {

QSharedPointer<Event> makeEvent(unsigned long long type, unsigned long long mask = EVM_PROJECT)
{
    return QSharedPointer<Event>::create(type, mask);
}

QString namePrinter(unsigned long long type)
{
    return QStringLiteral("MY_%1").arg(type);
}

} // namespace

class tst_EventBus : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eventTypeNames_data();
    void eventTypeNames();
    void eventBasics();
    void deliveryFollowsMaskAndSwitches();
    void raiseEventNowDeliversQueueInOrder();
    void raiseInsideDeliveryWaitsForNextPump();
    void disabledBusDropsEvents();
    void removeDuringDelivery();
    void removeSelfDuringDelivery();
    void pendingAddAndRemove();
    void removeThenAddBeforeFlush();
    void removeThenAddAcrossPumps();
    void resetKeepsOnlyPersistent();
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

void tst_EventBus::eventTypeNames_data()
{
    QTest::addColumn<unsigned long long>("type");
    QTest::addColumn<QString>("name");
    QTest::newRow("first") << 0ULL << "EVT_TYPE_ERROR";
    QTest::newRow("project new") << 9ULL << "EVT_PROJECT_NEW";
    QTest::newRow("root moved") << 37ULL << "EVT_SCREEN_ROOTMOVED";
    QTest::newRow("request clean") << 40ULL << "EVT_GLOBALSTATE_REQUEST_CLEAN";
    QTest::newRow("tool deactivated") << 49ULL << "EVT_TOOL_DEACTIVATED";
    QTest::newRow("scene repaint") << 61ULL << "EVT_SCENE_REPAINT";
    QTest::newRow("last named") << 63ULL << "EVT_SELECT_REFRESH";
    QTest::newRow("user") << 64ULL << "EVT_USER";
    QTest::newRow("far user") << 1000ULL << "EVT_USER";
}

void tst_EventBus::eventTypeNames()
{
    QFETCH(unsigned long long, type);
    QFETCH(QString, name);
    QCOMPARE(printEventType(type), name);
}

void tst_EventBus::eventBasics()
{
    Event event(40, 64);
    QCOMPARE(event.toString(), QString("EVT_GLOBALSTATE_REQUEST_CLEAN"));
    QCOMPARE(event.type(), 40ULL);
    QCOMPARE(event.mask(), 64ULL);
    QVERIFY(!event.isVetoed());
    event.veto();
    QVERIFY(event.isVetoed());

    // A user printer names every number from 64 up, and only those.
    QVERIFY(setUserEventTypePrinter(&namePrinter));
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
    QCOMPARE(globalState.types(), QList<unsigned long long>({5}));
    QVERIFY(project.events.isEmpty());
    QVERIFY(switchedOff.events.isEmpty());

    switchedOff.setEventHandlerEnabled(true);
    EventBus::i().raiseEventNow(makeEvent(1, EVM_PROJECT | EVM_GLOBALSTATE));
    QCOMPARE(globalState.types(), QList<unsigned long long>({5, 1}));
    QCOMPARE(project.types(), QList<unsigned long long>({1}));
    QCOMPARE(switchedOff.types(), QList<unsigned long long>({1}));
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

    EventBus::i().raiseEventNow(makeEvent(4));
    QCOMPARE(first.types(), QList<unsigned long long>({1, 2, 3, 4}));
    QCOMPARE(second.types(), QList<unsigned long long>({1, 2, 3, 4}));
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
            EventBus::i().raiseEventNow(makeEvent(2));
            returnedBeforeDelivery = handler.types() == QList<unsigned long long>({1});
        }
    };
    EventBus::i().raiseEventNow(makeEvent(1));
    QVERIFY(returnedBeforeDelivery);
    QCOMPARE(handler.types(), QList<unsigned long long>({1}));
    // The nested event arrives with the 100 ms shot.
    QTRY_COMPARE(handler.types(), QList<unsigned long long>({1, 2}));
}

void tst_EventBus::disabledBusDropsEvents()
{
    RecordingHandler handler;
    EventBus::i().setEventsEnabled(false);
    QVERIFY(!EventBus::i().getEventsEnabled());
    EventBus::i().raiseEvent(makeEvent(1));
    EventBus::i().raiseEventNow(makeEvent(2));
    EventBus::i().setEventsEnabled(true);
    EventBus::i().raiseEventNow(makeEvent(3));
    // Lost, not deferred.
    QCOMPARE(handler.types(), QList<unsigned long long>({3}));

    EventBus::i().raiseEvent(makeEvent(4));
    EventBus::i().clearEvents();
    EventBus::i().raiseEventNow(makeEvent(5));
    QCOMPARE(handler.types(), QList<unsigned long long>({3, 5}));
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
    EventBus::i().raiseEventNow(makeEvent(1));
    EventBus::i().raiseEventNow(makeEvent(2));
    QCOMPARE(a.events.size() + b.events.size(), 2);
    QVERIFY(a.events.isEmpty() || b.events.isEmpty());
}

void tst_EventBus::removeSelfDuringDelivery()
{
    auto self = std::make_unique<RecordingHandler>();
    RecordingHandler other;
    RecordingHandler *raw = self.get();
    raw->onEvent = [&](QSharedPointer<Event> const &) { self.reset(); };
    EventBus::i().raiseEventNow(makeEvent(1));
    QVERIFY(!self);
    QCOMPARE(other.types(), QList<unsigned long long>({1}));
    EventBus::i().raiseEventNow(makeEvent(2));
    QCOMPARE(other.types(), QList<unsigned long long>({1, 2}));
}

void tst_EventBus::pendingAddAndRemove()
{
    RecordingHandler handler;
    // Added and removed before any pump: never active.
    EventBus::i().removeHandler(&handler);
    EventBus::i().raiseEventNow(makeEvent(1));
    QVERIFY(handler.events.isEmpty());

    // A duplicate add gives one descriptor: one delivery per event.
    EventBus::i().addHandler(&handler);
    EventBus::i().addHandler(&handler);
    EventBus::i().raiseEventNow(makeEvent(2));
    QCOMPARE(handler.types(), QList<unsigned long long>({2}));

    // Adding an active handler and removing it before a flush only undoes the pending add.
    EventBus::i().addHandler(&handler);
    EventBus::i().removeHandler(&handler);
    EventBus::i().raiseEventNow(makeEvent(3));
    QCOMPARE(handler.types(), QList<unsigned long long>({2, 3}));

    // A handler added inside a delivery sees nothing of that pump.
    RecordingHandler late(~0ULL, true, "late");
    EventBus::i().removeHandler(&late);
    handler.onEvent = [&](QSharedPointer<Event> const &) { EventBus::i().addHandler(&late); };
    EventBus::i().raiseEvent(makeEvent(4));
    EventBus::i().raiseEventNow(makeEvent(5));
    QVERIFY(late.events.isEmpty());
    handler.onEvent = nullptr;
    EventBus::i().raiseEventNow(makeEvent(6));
    QCOMPARE(late.types(), QList<unsigned long long>({6}));
}

void tst_EventBus::removeThenAddBeforeFlush()
{
    RecordingHandler handler;
    EventBus::i().raiseEventNow(makeEvent(1));
    // Remove, then add again before the next flush: the flush creates a new descriptor and
    // then erases it, so the handler ends up unsubscribed.
    EventBus::i().removeHandler(&handler);
    EventBus::i().addHandler(&handler);
    EventBus::i().raiseEventNow(makeEvent(2));
    QCOMPARE(handler.types(), QList<unsigned long long>({1}));
    // A second add after that pump subscribes it.
    EventBus::i().addHandler(&handler);
    EventBus::i().raiseEventNow(makeEvent(3));
    QCOMPARE(handler.types(), QList<unsigned long long>({1, 3}));
}

void tst_EventBus::removeThenAddAcrossPumps()
{
    RecordingHandler handler;
    EventBus::i().raiseEventNow(makeEvent(1));
    EventBus::i().removeHandler(&handler);
    EventBus::i().raiseEventNow(makeEvent(2));
    EventBus::i().addHandler(&handler);
    EventBus::i().raiseEventNow(makeEvent(3));
    // One live descriptor: the event arrives once.
    QCOMPARE(handler.types(), QList<unsigned long long>({1, 3}));
}

void tst_EventBus::resetKeepsOnlyPersistent()
{
    RecordingHandler persistent(~0ULL, true);
    RecordingHandler active(~0ULL, false, "active");
    EventBus::i().raiseEventNow(makeEvent(1));
    // Still pending when the reset comes: flushed first and erased in the same call.
    RecordingHandler pending(~0ULL, false, "pending");

    EventBus::i().setEventsEnabled(false);
    EventBus::i().reset();
    EventBus::i().setEventsEnabled(true);
    EventBus::i().raiseEventNow(makeEvent(2));

    QCOMPARE(persistent.types(), QList<unsigned long long>({1, 2}));
    QCOMPARE(active.types(), QList<unsigned long long>({1}));
    QVERIFY(pending.events.isEmpty());

    // A reset empties the queue too.
    EventBus::i().raiseEvent(makeEvent(3));
    EventBus::i().reset();
    EventBus::i().raiseEventNow(makeEvent(4));
    QCOMPARE(persistent.types(), QList<unsigned long long>({1, 2, 4}));
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
