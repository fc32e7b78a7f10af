// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "events/SceneChangeEvent.h"
#include "events/SceneObjectEvent.h"
#include "events/SelectionChangedEvent.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/Log.h"
#include "support/LogRecorder.h"
#include "support/RecordingHandler.h"
#include "support/Services.h"
#include "support/TestContainer.h"
#include "support/TestScene.h"

#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

void raise(unsigned long long type)
{
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(type, EVM_PROJECT));
}

} // namespace

class tst_SelectionManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void handlerAndDestruction();
    void operations_data();
    void operations();
    void queriesAndRefresh();
    void changeInsideAHandlerIsToldAgain();
    void blankEmptiesSilently();
    void screenChangeDeselects();
    void childRemovalDeselects();

private:
    // The id for a label, made on first use; "0" is the null id.
    QUuid _id(QString const &label);
    // The ids for labels separated by spaces.
    QList<QUuid> _ids(QString const &labels);
    QString _labels(QList<QUuid> const &ids) const;
    // Calls the operation of that name, in its list form or with the first id.
    void _apply(QString const &operation, QList<QUuid> const &ids, bool list);
    // "+added -removed" by label.
    QString _change(QList<QUuid> const &added, QList<QUuid> const &removed) const;
    // A selection change as _change gives it, a refresh as "refresh", other events
    // by their type name without "EVT_".
    QStringList _describe(QList<QSharedPointer<Event>> const &events) const;

    QHash<QString, QUuid> _byLabel;
    QHash<QUuid, QString> _byId;
    std::optional<Services> _services;
};

void tst_SelectionManager::init()
{
    _services.emplace(Services::Bus | Services::Scene | Services::Selection);
}

void tst_SelectionManager::cleanup()
{
    _services.reset();
    _byLabel.clear();
    _byId.clear();
}

QUuid tst_SelectionManager::_id(QString const &label)
{
    if (label == "0")
        return QUuid();
    QUuid &id = _byLabel[label];
    if (id.isNull())
        _byId.insert(id = QUuid::createUuid(), label);
    return id;
}

QList<QUuid> tst_SelectionManager::_ids(QString const &labels)
{
    QList<QUuid> ids;
    for (QString const &label : labels.split(' ', Qt::SkipEmptyParts))
        ids.append(_id(label));
    return ids;
}

QString tst_SelectionManager::_labels(QList<QUuid> const &ids) const
{
    QStringList labels;
    for (QUuid const &id : ids)
        labels.append(_byId.value(id, "?"));
    return labels.join(' ');
}

void tst_SelectionManager::_apply(QString const &operation, QList<QUuid> const &ids, bool list)
{
    SelectionManager &selection = SelectionManager::i();
    QUuid const one = ids.value(0);
    if (operation == "select")
        list ? selection.select(ids) : selection.select(one);
    else if (operation == "additiveSelect")
        list ? selection.additiveSelect(ids) : selection.additiveSelect(one);
    else if (operation == "toggle")
        list ? selection.toggle(ids) : selection.toggle(one);
    else if (operation == "deselect")
        list ? selection.deselect(ids) : selection.deselect(one);
    else
        selection.deselectAll();
}

QString tst_SelectionManager::_change(QList<QUuid> const &added, QList<QUuid> const &removed) const
{
    QStringList parts;
    for (QUuid const &id : added)
        parts.append("+" + _byId.value(id, "?"));
    for (QUuid const &id : removed)
        parts.append("-" + _byId.value(id, "?"));
    return parts.join(' ');
}

QStringList tst_SelectionManager::_describe(QList<QSharedPointer<Event>> const &events) const
{
    QStringList words;
    for (auto const &event : events) {
        if (event->type() == EVT_SELECT_CHANGED) {
            auto changed = event.staticCast<SelectionChangedEvent>();
            words.append(_change(changed->added(), changed->removed()));
        } else if (event->type() == EVT_SELECT_REFRESH) {
            words.append("refresh");
        } else {
            words.append(printEventType(event->type()).remove("EVT_"));
        }
    }
    return words;
}

void tst_SelectionManager::handlerAndDestruction()
{
    SelectionManager *selection = SelectionManager::ip();
    QCOMPARE(selection->getEventHandlerName(), QString("SelectionManager"));
    QVERIFY(selection->persistent());
    for (unsigned long long mask : {EVM_PROJECT, EVM_SCREEN, EVM_SCENE})
        QVERIFY(selection->canHandleEvent(mask));
    QVERIFY(!selection->canHandleEvent(EVM_COMMAND | EVM_TOOL | EVM_SELECT | EVM_GLOBALSTATE));

    new Log("test.log", false);
    Log::i().setLevel(LogLevel::Debug);
    LogRecorder log;
    log.attach();
    SelectionManager::destroy();
    QCOMPARE(SelectionManager::ip(), nullptr);
    QCOMPARE(log.lines(), QStringList({"Selection|Destroying Selection Manager"}));
    QCOMPARE(log.messages.first().severity, LogSeverity::Info);
    QCOMPARE(log.messages.first().level, LogLevel::Debug);
    Log::destroy();
    // It has left the bus: nothing reaches the deleted instance.
    raise(EVT_PROJECT_REQUEST_BLANK);
    SelectionManager::destroy();
    new SelectionManager();
}

void tst_SelectionManager::operations_data()
{
    QTest::addColumn<QString>("before");
    // The operation, then one id or several in brackets; "0" is the null id.
    QTest::addColumn<QString>("call");
    // The one change told, empty when none.
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("after");

    auto row = [](char const *name, QString before, QString call, QString told, QString after) {
        QTest::newRow(name) << before << call << told << after;
    };
    row("select replaces", "a b", "select c", "+c -a -b", "c");
    // Clicking one member of a multiple selection keeps the others.
    row("select a member", "a b", "select b", "", "a b");
    row("select null", "a b", "select 0", "-a -b", "");
    // The list form always drops what was selected, so the ids kept are named both ways.
    row("select the same list", "a b", "select [a b]", "+a +b -a -b", "a b");
    row("select list skips null and repeats", "a", "select [b 0 c b]", "+b +c -a", "b c");
    row("select empty list", "a b", "select []", "-a -b", "");
    row("additive", "a b", "additiveSelect c", "+c", "a b c");
    row("additive list", "a b", "additiveSelect [b c 0 d c]", "+c +d", "a b c d");
    row("toggle off", "a b", "toggle a", "-a", "b");
    row("toggle list is one change", "a b", "toggle [a c b]", "+c -a -b", "c");
    // Not netted: on and off again in one change is told as both.
    row("toggle twice", "", "toggle [a a]", "+a -a", "");
    row("deselect", "a b", "deselect a", "-a", "b");
    row("deselect unselected", "a b", "deselect c", "", "a b");
    row("deselect list", "a b c", "deselect [c d a]", "-c -a", "b");
    row("deselect all", "c a b", "deselectAll", "-c -a -b", "");
}

void tst_SelectionManager::operations()
{
    QFETCH(QString, before);
    QFETCH(QString, call);
    QFETCH(QString, told);
    QFETCH(QString, after);

    SelectionManager &selection = SelectionManager::i();
    selection.additiveSelect(_ids(before));
    RecordingHandler recorder(EVM_SELECT);

    QString const argument = call.section(' ', 1);
    _apply(call.section(' ', 0, 0), _ids(QString(argument).remove('[').remove(']')),
           argument.startsWith('['));
    QCOMPARE(_describe(recorder.events), told.isEmpty() ? QStringList() : QStringList(told));
    QCOMPARE(_labels(selection.selected()), after);
}

void tst_SelectionManager::queriesAndRefresh()
{
    SelectionManager &selection = SelectionManager::i();
    QCOMPARE(selection.current(), QUuid());
    selection.select(_id("a"));
    selection.additiveSelect(_id("b"));
    // The oldest is the current one.
    QCOMPARE(selection.current(), _id("a"));
    QCOMPARE(selection.selectedCount(), 2u);
    QVERIFY(selection.isSelected(_id("b")));
    QVERIFY(!selection.isSelected(QUuid()));
    selection.toggle(_id("a"));
    QCOMPARE(selection.current(), _id("b"));

    RecordingHandler recorder(EVM_SELECT);
    selection.refresh();
    QCOMPARE(_describe(recorder.events), QStringList({"refresh"}));
    QCOMPARE(_labels(selection.selected()), QString("b"));
}

void tst_SelectionManager::changeInsideAHandlerIsToldAgain()
{
    // A change made by a handler of the change event runs while the ended change is still on
    // record, so it is told together with it, by the next pump of the bus.
    SelectionManager &selection = SelectionManager::i();
    RecordingHandler recorder(EVM_SELECT);
    bool first = true;
    recorder.onEvent = [&](QSharedPointer<Event> const &) {
        if (first) {
            first = false;
            selection.additiveSelect(_id("b"));
        }
    };
    selection.select(_id("a"));
    QCOMPARE(_describe(recorder.events), QStringList({"+a"}));
    QTRY_COMPARE(_describe(recorder.events), QStringList({"+a", "+a +b"}));
    QCOMPARE(_labels(selection.selected()), QString("a b"));

    // The record is clean again afterwards.
    recorder.onEvent = nullptr;
    selection.deselect(_id("a"));
    QCOMPARE(_describe(recorder.events).last(), QString("-a"));
}

void tst_SelectionManager::blankEmptiesSilently()
{
    SelectionManager &selection = SelectionManager::i();
    selection.select(_ids("a b"));
    RecordingHandler recorder(EVM_SELECT);

    raise(EVT_PROJECT_PREBLANK);
    QCOMPARE(selection.selectedCount(), 2u);
    raise(EVT_PROJECT_REQUEST_BLANK);
    QCOMPARE(selection.selectedCount(), 0u);
    QVERIFY(recorder.events.isEmpty());
    // A new change starts afresh.
    selection.select(_id("a"));
    QCOMPARE(_describe(recorder.events), QStringList({"+a"}));

    selection.setEventsEnabled(false);
    QVERIFY(!selection.getsEventsEnabled());
    raise(EVT_PROJECT_REQUEST_BLANK);
    QCOMPARE(selection.selectedCount(), 1u);
}

void tst_SelectionManager::screenChangeDeselects()
{
    SceneManager &scene = SceneManager::i();
    SelectionManager &selection = SelectionManager::i();
    QUuid const one = TestScene::addScreen("one");
    QUuid const two = TestScene::addScreen("two");
    QUuid const a = TestScene::addLeaf(one, QRect(0, 0, 10, 10));
    QUuid const b = TestScene::addLeaf(one, QRect(20, 0, 10, 10));
    _byId.insert(a, "a");
    _byId.insert(b, "b");
    RecordingHandler recorder(EVM_SCREEN | EVM_SELECT);

    // Coming from no screen deselects nothing.
    selection.select(QList<QUuid>{a, b});
    recorder.clear();
    scene.setActiveScreen(one);
    QCOMPARE(selection.selectedCount(), 2u);

    // Leaving a screen deselects all in one change, before the new screen is active.
    recorder.clear();
    scene.setActiveScreen(two);
    QCOMPARE(_describe(recorder.events),
             QStringList({"SCREEN_ACTIVE_CHANGING", "-a -b", "SCREEN_ACTIVE_CHANGED"}));
    // Leaving for no screen at all deselects as well.
    selection.select(a);
    scene.setActiveScreen(QUuid());
    QCOMPARE(selection.selectedCount(), 0u);

    // Held back, the change of screen keeps the selection; calls still tell their changes.
    scene.setActiveScreen(one);
    selection.setEventsEnabled(false);
    recorder.clear();
    selection.select(a);
    scene.setActiveScreen(two);
    QCOMPARE(_describe(recorder.events),
             QStringList({"+a", "SCREEN_ACTIVE_CHANGING", "SCREEN_ACTIVE_CHANGED"}));
    QVERIFY(selection.isSelected(a));

    // A duplicate never shares the selection: it is dropped before anything else happens.
    selection.setEventsEnabled(true);
    recorder.clear();
    QVERIFY(scene.duplicateScreen(two));
    QCOMPARE(_describe(recorder.events).mid(0, 2), QStringList({"-a", "SCREEN_ABOUT_TO_ADD"}));
    // Also when the screen turns out to be unknown.
    selection.select(a);
    QVERIFY(!scene.duplicateScreen(QUuid::createUuid()));
    QCOMPARE(selection.selectedCount(), 0u);
}

void tst_SelectionManager::childRemovalDeselects()
{
    SelectionManager &selection = SelectionManager::i();
    QUuid const group = TestScene::addContainer(TestScene::addScreen("page"), QRect());
    QUuid const x = TestScene::addLeaf(group, QRect());
    QUuid const y = TestScene::addLeaf(group, QRect());
    QUuid const z = TestScene::addLeaf(group, QRect());
    _byId.insert(x, "x");
    _byId.insert(y, "y");
    TestContainer *container = TestScene::container(group);
    selection.select(QList<QUuid>{x, y});
    RecordingHandler recorder(EVM_SCENE | EVM_SELECT);

    // Deselected while it still stands in its parent.
    container->removeChild(x);
    QCOMPARE(_describe(recorder.events),
             QStringList({"SCENE_CHILDABOUTTOREMOVE", "-x", "SCENE_CHILDREMOVED"}));
    QCOMPARE(_labels(selection.selected()), QString("y"));

    // A deletion is left to whoever deletes: the selection keeps the id.
    recorder.clear();
    QVERIFY(SceneManager::i().deleteObject(y));
    QCOMPARE(_describe(recorder.events), QStringList({"SCENE_CHILDABOUTTODELETE"}));
    QVERIFY(selection.isSelected(y));

    // An event of another class, or one that names no child, is not read.
    selection.select(z);
    EventBus::i().raiseEventNow(
        QSharedPointer<SceneObjectEvent>::create(EVT_SCENE_CHILDABOUTTOREMOVE, SceneObjectInfo(z)));
    EventBus::i().raiseEventNow(QSharedPointer<SceneChangeEvent>::create(
        EVT_SCENE_CHILDABOUTTOREMOVE, QList<SceneObjectInfo>{SceneObjectInfo(group)}));
    QVERIFY(selection.isSelected(z));

    selection.setEventsEnabled(false);
    container->removeChild(z);
    QVERIFY(selection.isSelected(z));
}

QTEST_MAIN(tst_SelectionManager)
#include "tst_SelectionManager.moc"
