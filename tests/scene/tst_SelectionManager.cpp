#include "events/EventBus.h"
#include "events/SceneChangeEvent.h"
#include "events/SceneObjectEvent.h"
#include "events/SelectionChangedEvent.h"
#include "scene/SceneManager.h"
#include "scene/SelectionManager.h"
#include "services/Log.h"
#include "support/LogRecorder.h"
#include "support/RecordingHandler.h"
#include "support/TestContainer.h"
#include "support/TestScene.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

// The rules of the selection as plainly as they can be put: every public call is one change,
// which is told once, with everything selected and deselected in it, in order, when anything
// was.
struct SelectionModel
{
    QList<QUuid> selected;
    QList<QUuid> added;
    QList<QUuid> removed;

    void add(QUuid const &id)
    {
        selected.append(id);
        added.append(id);
    }
    void drop(QUuid id)
    {
        selected.removeOne(id);
        removed.append(id);
    }
    void clear()
    {
        while (!selected.isEmpty())
            drop(selected.first());
    }
    bool fresh(QUuid const &id) const { return !id.isNull() && !selected.contains(id); }

    void select(QUuid const &id)
    {
        if (id.isNull())
            clear();
        else if (fresh(id)) {
            clear();
            add(id);
        }
    }
    void select(QList<QUuid> const &ids)
    {
        clear();
        additiveSelect(ids);
    }
    void additiveSelect(QUuid const &id)
    {
        if (fresh(id))
            add(id);
    }
    void additiveSelect(QList<QUuid> const &ids)
    {
        for (QUuid const &id : ids)
            additiveSelect(id);
    }
    void toggle(QUuid const &id)
    {
        if (id.isNull())
            return;
        if (selected.contains(id))
            drop(id);
        else
            add(id);
    }
    void toggle(QList<QUuid> const &ids)
    {
        for (QUuid const &id : ids)
            toggle(id);
    }
    void deselect(QUuid const &id)
    {
        if (selected.contains(id))
            drop(id);
    }
    void deselect(QList<QUuid> const &ids)
    {
        for (QUuid const &id : ids)
            deselect(id);
    }
};

} // namespace

class tst_SelectionManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void singleton();
    void operations_data();
    void operations();
    void queries();
    void refreshChangesNothing();
    void changeInsideAHandlerIsToldAgain();
    void blankEmptiesSilently();
    void screenChangeDeselects();
    void childRemovalDeselects();
    void duplicateScreenDeselects();
    void randomSequence();

private:
    // The id for a label, made on first use; "0" is the null id.
    QUuid _id(QString const &label);
    // The ids for labels separated by spaces.
    QList<QUuid> _ids(QString const &labels);
    QString _labels(QList<QUuid> const &ids) const;
    // A selection change as "+added -removed" by label, a refresh as "refresh", other events
    // by their type name without "EVT_".
    QStringList _describe(QList<QSharedPointer<Event>> const &events) const;

    QHash<QString, QUuid> _byLabel;
    QHash<QUuid, QString> _byId;
};

void tst_SelectionManager::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
    TestScene::registerFactories();
    new SelectionManager();
}

void tst_SelectionManager::cleanup()
{
    SelectionManager::destroy();
    SceneManager::destroy();
    EventBus::destroy();
    _byLabel.clear();
    _byId.clear();
}

QUuid tst_SelectionManager::_id(QString const &label)
{
    if (label == "0")
        return QUuid();
    if (!_byLabel.contains(label)) {
        QUuid const id = QUuid::createUuid();
        _byLabel.insert(label, id);
        _byId.insert(id, label);
    }
    return _byLabel.value(label);
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

QStringList tst_SelectionManager::_describe(QList<QSharedPointer<Event>> const &events) const
{
    QStringList words;
    for (auto const &event : events) {
        if (event->type() == EVT_SELECT_CHANGED) {
            auto changed = event.staticCast<SelectionChangedEvent>();
            QStringList parts;
            for (QUuid const &id : changed->added())
                parts.append("+" + _byId.value(id, "?"));
            for (QUuid const &id : changed->removed())
                parts.append("-" + _byId.value(id, "?"));
            words.append(parts.join(' '));
        } else if (event->type() == EVT_SELECT_REFRESH) {
            words.append("refresh");
        } else {
            words.append(printEventType(event->type()).remove("EVT_"));
        }
    }
    return words;
}

void tst_SelectionManager::singleton()
{
    SelectionManager *selection = SelectionManager::ip();
    QVERIFY(selection);
    QCOMPARE(&SelectionManager::i(), selection);
    QCOMPARE(selection->getEventHandlerName(), QString("SelectionManager"));
    QVERIFY(selection->persistent());
    QVERIFY(selection->getsEventsEnabled());
    for (unsigned long long mask : {EVM_PROJECT, EVM_SCREEN, EVM_SCENE})
        QVERIFY(selection->canHandleEvent(mask));
    for (unsigned long long mask : {0ULL, EVM_COMMAND, EVM_TOOL, EVM_SELECT, EVM_GLOBALSTATE})
        QVERIFY(!selection->canHandleEvent(mask));

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
    EventBus::i().raiseEventNow(
        QSharedPointer<Event>::create(EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT));
    SelectionManager::destroy();
    new SelectionManager();
}

void tst_SelectionManager::operations_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("operation");
    // One id, or several in brackets; "0" is the null id.
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<QString>("after");

    QStringList const none;
    QTest::newRow("select on nothing") << ""
                                       << "select"
                                       << "a" << QStringList{"+a"} << "a";
    QTest::newRow("select replaces") << "a b"
                                     << "select"
                                     << "c" << QStringList{"+c -a -b"} << "c";
    // Clicking one member of a multiple selection keeps the others.
    QTest::newRow("select a member") << "a b"
                                     << "select"
                                     << "b" << none << "a b";
    QTest::newRow("select null") << "a b"
                                 << "select"
                                 << "0" << QStringList{"-a -b"} << "";
    QTest::newRow("select null on nothing") << ""
                                            << "select"
                                            << "0" << none << "";
    // The list form always drops what was selected, so the ids kept are named both ways.
    QTest::newRow("select the same list") << "a b"
                                          << "select"
                                          << "[a b]" << QStringList{"+a +b -a -b"} << "a b";
    QTest::newRow("select list skips null and repeats")
        << "a"
        << "select"
        << "[b 0 c b]" << QStringList{"+b +c -a"} << "b c";
    QTest::newRow("select empty list") << "a b"
                                       << "select"
                                       << "[]" << QStringList{"-a -b"} << "";
    QTest::newRow("select empty list on nothing") << ""
                                                  << "select"
                                                  << "[]" << none << "";
    QTest::newRow("additive") << "a b"
                              << "additiveSelect"
                              << "c" << QStringList{"+c"} << "a b c";
    QTest::newRow("additive selected") << "a"
                                       << "additiveSelect"
                                       << "a" << none << "a";
    QTest::newRow("additive null") << "a"
                                   << "additiveSelect"
                                   << "0" << none << "a";
    QTest::newRow("additive list") << "a b"
                                   << "additiveSelect"
                                   << "[b c 0 d c]" << QStringList{"+c +d"} << "a b c d";
    QTest::newRow("additive list of selected") << "a b"
                                               << "additiveSelect"
                                               << "[b a]" << none << "a b";
    QTest::newRow("toggle off") << "a b"
                                << "toggle"
                                << "a" << QStringList{"-a"} << "b";
    QTest::newRow("toggle on") << "a"
                               << "toggle"
                               << "c" << QStringList{"+c"} << "a c";
    QTest::newRow("toggle null") << "a"
                                 << "toggle"
                                 << "0" << none << "a";
    QTest::newRow("toggle list is one change") << "a b"
                                               << "toggle"
                                               << "[a c b]" << QStringList{"+c -a -b"} << "c";
    // Not netted: on and off again in one change is told as both.
    QTest::newRow("toggle twice") << ""
                                  << "toggle"
                                  << "[a a]" << QStringList{"+a -a"} << "";
    QTest::newRow("deselect") << "a b"
                              << "deselect"
                              << "a" << QStringList{"-a"} << "b";
    QTest::newRow("deselect unselected") << "a b"
                                         << "deselect"
                                         << "c" << none << "a b";
    QTest::newRow("deselect null") << "a"
                                   << "deselect"
                                   << "0" << none << "a";
    QTest::newRow("deselect on nothing") << ""
                                         << "deselect"
                                         << "a" << none << "";
    QTest::newRow("deselect list") << "a b c"
                                   << "deselect"
                                   << "[c d a]" << QStringList{"-c -a"} << "b";
    QTest::newRow("deselect list of unselected") << "a"
                                                 << "deselect"
                                                 << "[b 0]" << none << "a";
    QTest::newRow("deselect all") << "c a b"
                                  << "deselectAll"
                                  << "" << QStringList{"-c -a -b"} << "";
    QTest::newRow("deselect all on nothing") << ""
                                             << "deselectAll"
                                             << "" << none << "";
}

void tst_SelectionManager::operations()
{
    QFETCH(QString, before);
    QFETCH(QString, operation);
    QFETCH(QString, argument);
    QFETCH(QStringList, told);
    QFETCH(QString, after);

    SelectionManager &selection = SelectionManager::i();
    selection.additiveSelect(_ids(before));
    RecordingHandler recorder(EVM_SELECT);

    bool const list = argument.startsWith('[');
    QList<QUuid> const ids = _ids(QString(argument).remove('[').remove(']'));
    QUuid const one = ids.value(0);
    if (operation == "select")
        list ? selection.select(ids) : selection.select(one);
    else if (operation == "additiveSelect")
        list ? selection.additiveSelect(ids) : selection.additiveSelect(one);
    else if (operation == "toggle")
        list ? selection.toggle(ids) : selection.toggle(one);
    else if (operation == "deselect")
        list ? selection.deselect(ids) : selection.deselect(one);
    else if (operation == "deselectAll")
        selection.deselectAll();
    else
        QFAIL("unknown operation");

    QCOMPARE(_describe(recorder.events), told);
    QCOMPARE(_labels(selection.selected()), after);
}

void tst_SelectionManager::queries()
{
    SelectionManager &selection = SelectionManager::i();
    QCOMPARE(selection.current(), QUuid());
    QCOMPARE(selection.selectedCount(), 0u);

    selection.select(_id("a"));
    selection.additiveSelect(_id("b"));
    // The oldest is the current one.
    QCOMPARE(selection.current(), _id("a"));
    QCOMPARE(selection.selectedCount(), 2u);
    QVERIFY(selection.isSelected(_id("b")));
    QVERIFY(!selection.isSelected(_id("c")));
    QVERIFY(!selection.isSelected(QUuid()));

    QList<QUuid> copy = selection.selected();
    copy.clear();
    QCOMPARE(selection.selectedCount(), 2u);

    selection.toggle(_id("a"));
    QCOMPARE(selection.current(), _id("b"));
    selection.toggle(_id("a"));
    QCOMPARE(_labels(selection.selected()), QString("b a"));
}

void tst_SelectionManager::refreshChangesNothing()
{
    SelectionManager &selection = SelectionManager::i();
    selection.select(_ids("a b"));
    RecordingHandler recorder(EVM_SELECT);
    selection.refresh();
    QCOMPARE(_describe(recorder.events), QStringList({"refresh"}));
    QCOMPARE(_labels(selection.selected()), QString("a b"));
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
    auto raise = [](unsigned long long type) {
        EventBus::i().raiseEventNow(QSharedPointer<Event>::create(type, EVM_PROJECT));
    };

    raise(EVT_PROJECT_PREBLANK);
    QCOMPARE(selection.selectedCount(), 2u);
    raise(EVT_PROJECT_REQUEST_BLANK);
    QCOMPARE(selection.selectedCount(), 0u);
    QCOMPARE(selection.current(), QUuid());
    QVERIFY(recorder.events.isEmpty());
    QVERIFY(!selection.isSelected(_id("a")));
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

    // Nothing is left when no screen was active.
    selection.select(QList<QUuid>{a, b});
    recorder.clear();
    scene.setActiveScreen(one);
    QCOMPARE(selection.selectedCount(), 2u);
    QCOMPARE(_describe(recorder.events),
             QStringList({"SCREEN_ACTIVE_CHANGING", "SCREEN_ACTIVE_CHANGED"}));

    // Leaving a screen deselects all in one change, before the new screen is active.
    recorder.clear();
    scene.setActiveScreen(two);
    QCOMPARE(_describe(recorder.events),
             QStringList({"SCREEN_ACTIVE_CHANGING", "-a -b", "SCREEN_ACTIVE_CHANGED"}));
    QCOMPARE(selection.selectedCount(), 0u);

    // An empty selection tells nothing; leaving for no screen at all deselects as well.
    recorder.clear();
    scene.setActiveScreen(one);
    QCOMPARE(recorder.events.size(), 2);
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
}

void tst_SelectionManager::childRemovalDeselects()
{
    SelectionManager &selection = SelectionManager::i();
    QUuid const page = TestScene::addScreen("page");
    QUuid const group = TestScene::addContainer(page, QRect(0, 0, 100, 100));
    QUuid const x = TestScene::addLeaf(group, QRect(0, 0, 10, 10));
    QUuid const y = TestScene::addLeaf(group, QRect(10, 0, 10, 10));
    QUuid const z = TestScene::addLeaf(group, QRect(20, 0, 10, 10));
    QUuid const w = TestScene::addLeaf(group, QRect(30, 0, 10, 10));
    _byId.insert(x, "x");
    _byId.insert(y, "y");
    _byId.insert(w, "w");
    TestContainer *container = TestScene::container(group);
    selection.select(QList<QUuid>{x, y});
    RecordingHandler recorder(EVM_SCENE | EVM_SELECT);

    // Deselected while it still stands in its parent.
    container->removeChild(x);
    QCOMPARE(_describe(recorder.events),
             QStringList({"SCENE_CHILDABOUTTOREMOVE", "-x", "SCENE_CHILDREMOVED"}));
    QCOMPARE(_labels(selection.selected()), QString("y"));

    recorder.clear();
    container->removeChild(z);
    QCOMPARE(_describe(recorder.events),
             QStringList({"SCENE_CHILDABOUTTOREMOVE", "SCENE_CHILDREMOVED"}));

    // A deletion is left to whoever deletes: the selection keeps the id.
    recorder.clear();
    QVERIFY(SceneManager::i().deleteObject(y));
    QCOMPARE(_describe(recorder.events), QStringList({"SCENE_CHILDABOUTTODELETE"}));
    QVERIFY(selection.isSelected(y));

    // An event of another class, or one that names no child, is not read.
    selection.select(w);
    EventBus::i().raiseEventNow(
        QSharedPointer<SceneObjectEvent>::create(EVT_SCENE_CHILDABOUTTOREMOVE, SceneObjectInfo(w)));
    EventBus::i().raiseEventNow(QSharedPointer<SceneChangeEvent>::create(
        EVT_SCENE_CHILDABOUTTOREMOVE, QList<SceneObjectInfo>{SceneObjectInfo(group)}));
    QVERIFY(selection.isSelected(w));

    selection.setEventsEnabled(false);
    container->removeChild(w);
    QVERIFY(selection.isSelected(w));
}

void tst_SelectionManager::duplicateScreenDeselects()
{
    SelectionManager &selection = SelectionManager::i();
    QUuid const page = TestScene::addScreen("page");
    QUuid const a = TestScene::addLeaf(page, QRect(0, 0, 10, 10));
    _byId.insert(a, "a");
    selection.select(a);
    RecordingHandler recorder(EVM_SCREEN | EVM_SELECT);

    // Before anything else: the copy never shares the selection.
    QVERIFY(SceneManager::i().duplicateScreen(page));
    QCOMPARE(_describe(recorder.events).mid(0, 2), QStringList({"-a", "SCREEN_ABOUT_TO_ADD"}));
    QCOMPARE(selection.selectedCount(), 0u);

    // Also when the screen turns out to be unknown.
    selection.select(a);
    QVERIFY(!SceneManager::i().duplicateScreen(QUuid::createUuid()));
    QCOMPARE(selection.selectedCount(), 0u);
}

void tst_SelectionManager::randomSequence()
{
    SelectionManager &selection = SelectionManager::i();
    QList<QUuid> const pool = _ids("a b c d e f 0");
    QRandomGenerator random(42);
    SelectionModel model;
    RecordingHandler recorder(EVM_SELECT);

    for (int step = 0; step < 4000; ++step) {
        QUuid const one = pool.at(random.bounded(pool.size()));
        QList<QUuid> many;
        for (int n = random.bounded(5); n > 0; --n)
            many.append(pool.at(random.bounded(pool.size())));
        int const operation = random.bounded(12);

        recorder.clear();
        switch (operation) {
        case 0:
            selection.select(one);
            model.select(one);
            break;
        case 1:
            selection.select(many);
            model.select(many);
            break;
        case 2:
            selection.additiveSelect(one);
            model.additiveSelect(one);
            break;
        case 3:
            selection.additiveSelect(many);
            model.additiveSelect(many);
            break;
        case 4:
        case 5:
            selection.toggle(one);
            model.toggle(one);
            break;
        case 6:
            selection.toggle(many);
            model.toggle(many);
            break;
        case 7:
        case 8:
            selection.deselect(one);
            model.deselect(one);
            break;
        case 9:
            selection.deselect(many);
            model.deselect(many);
            break;
        case 10:
            selection.deselectAll();
            model.clear();
            break;
        case 11:
            // A blank project empties the selection and tells nobody.
            EventBus::i().raiseEventNow(
                QSharedPointer<Event>::create(EVT_PROJECT_REQUEST_BLANK, EVM_PROJECT));
            model.selected.clear();
            break;
        }

        QStringList expected;
        if (!model.added.isEmpty() || !model.removed.isEmpty()) {
            QStringList parts;
            for (QUuid const &id : model.added)
                parts.append("+" + _byId.value(id));
            for (QUuid const &id : model.removed)
                parts.append("-" + _byId.value(id));
            expected.append(parts.join(' '));
        }
        model.added.clear();
        model.removed.clear();

        QStringList const told = _describe(recorder.events);
        QVERIFY2(told == expected,
                 qPrintable(QString("step %1, operation %2: told [%3], expected [%4]")
                                .arg(step)
                                .arg(operation)
                                .arg(told.join(", "), expected.join(", "))));
        QVERIFY2(selection.selected() == model.selected,
                 qPrintable(QString("step %1: selected %2, expected %3")
                                .arg(step)
                                .arg(_labels(selection.selected()), _labels(model.selected))));
        QCOMPARE(selection.current(), model.selected.value(0));
        QCOMPARE(selection.selectedCount(), static_cast<unsigned int>(model.selected.size()));
    }
}

QTEST_MAIN(tst_SelectionManager)
#include "tst_SelectionManager.moc"
