// SPDX-License-Identifier: MIT
#include "data/DataState.h"
#include "events/EventBus.h"
#include "events/SceneObjectAboutToDeleteEvent.h"
#include "events/ScreenEvents.h"
#include "scene/SceneManager.h"
#include "scene/SceneObjectFactory.h"
#include "scene/SceneObjectInfo.h"
#include "services/GlobalState.h"
#include "services/ProgressMonitor.h"
#include "support/RecordingHandler.h"
#include "support/RecordingPropertyListener.h"
#include "support/SceneSnapshot.h"
#include "support/Services.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"
#include "support/TestScreen.h"
#include "support/TestScreenFactory.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

// Makes leaves that a listener follows from birth, to see what an id assignment tells.
class ListenedLeafFactory : public SceneObjectFactory
{
public:
    QString text() override { return "Listened"; }
    QString label() override { return "Listened"; }
    QIcon icon() override { return QIcon(); }
    QSharedPointer<SceneObject> create() override
    {
        auto leaf = QSharedPointer<TestLeaf>::create();
        leaf->model()->addListener(&listener);
        return leaf;
    }

    RecordingPropertyListener listener;
};

// Counts the progress steps a monitor posts to it.
class StepCounter : public QObject
{
public:
    bool event(QEvent *event) override
    {
        if (event->type() != ProgressMonitor::IncrementEventType)
            return QObject::event(event);
        ++steps;
        return true;
    }

    int steps = 0;
};

QList<QUuid> idsOf(QList<QSharedPointer<SceneObject>> const &objects)
{
    QList<QUuid> ids;
    for (auto const &object : objects)
        ids.append(object->id());
    return ids;
}

void raiseLoaded()
{
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_PROJECT_LOADED, EVM_PROJECT));
}

} // namespace

class tst_SceneManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void factoriesAndCreation();
    void lookupFollowsIdChanges();
    void deleteObjects();
    void objectQueries();

    void newScreenSortsTheWholeList();
    void firstVisibleScreenBecomesActive();
    void removingScreens();
    void renameRaisesTwice();
    void duplicateFollowsEveryReference();
    void duplicateNamesAndPlaces();
    void handlerAnswersScreenSizeAndLoads();
    void emptyScreenList();
    void saveAndLoadThroughAnArchive();
    void damagedFilesLoadAsEmptyValues_data();
    void damagedFilesLoadAsEmptyValues();

private:
    // Events as words: the type without its prefix, then for screen events the screen's label
    // and index (and the old name, or shown/hidden), for object events the object's label.
    QStringList _describe(QList<QSharedPointer<Event>> const &events) const;
    QString _label(QUuid const &id) const;
    // A named screen through the test factory, labelled by its name.
    QUuid _screen(QString const &name);

    QHash<QUuid, QString> _labels;
    std::optional<Services> _services;
};

void tst_SceneManager::init()
{
    _services.emplace(Services::Bus | Services::Scene);
}

void tst_SceneManager::cleanup()
{
    GlobalState::destroy();
    _services.reset();
    _labels.clear();
}

QStringList tst_SceneManager::_describe(QList<QSharedPointer<Event>> const &events) const
{
    QStringList words;
    for (auto const &event : events) {
        QString word = printEventType(event->type()).remove("EVT_SCREEN_").remove("EVT_SCENE_");
        if (auto screen = event.dynamicCast<ScreenGenericEvent>()) {
            word += QString(" %1 %2").arg(_label(screen->screen())).arg(screen->index());
            if (auto renamed = event.dynamicCast<ScreenRenamedEvent>())
                word += " '" + renamed->name() + "'";
            if (auto changing = event.dynamicCast<ScreenVisibilityChangingEvent>())
                word += changing->visible() ? " shown" : " hidden";
            if (auto changed = event.dynamicCast<ScreenVisibilityChangedEvent>())
                word += changed->visible() ? " shown" : " hidden";
        } else if (auto object = event.dynamicCast<SceneObjectEvent>()) {
            word += " " + _label(object->info().id());
        }
        words.append(word);
    }
    return words;
}

QString tst_SceneManager::_label(QUuid const &id) const
{
    return id.isNull() ? QString("null") : _labels.value(id, "?");
}

QUuid tst_SceneManager::_screen(QString const &name)
{
    QUuid const id = TestScene::addScreen(name);
    _labels.insert(id, name);
    return id;
}

void tst_SceneManager::factoriesAndCreation()
{
    SceneManager &manager = SceneManager::i();
    static ListenedLeafFactory first;
    QVERIFY(!manager.addObjectFactory("Listened", nullptr));
    QVERIFY(manager.addObjectFactory("Listened", &first));
    // The first factory of a type stays.
    QVERIFY(!manager.addObjectFactory("Listened", manager.getObjectFactory(TestLeaf::Type())));
    QCOMPARE(manager.getObjectFactory("Listened"), &first);
    QCOMPARE(manager.getObjectFactory("listened"), nullptr);
    QVERIFY(!TestScene::registerFactories());
    RecordingHandler recorder;

    QUuid const wanted = QUuid::createUuid();
    QCOMPARE(manager.createObject("Unknown"), QUuid());
    QCOMPARE(manager.createObjectWithID("Unknown", wanted), QUuid());
    QVERIFY(manager.objectList().isEmpty());
    // An object in no tree is of no concern to anyone.
    QUuid const plain = manager.createObject(TestContainer::Type());
    QVERIFY(manager.getObject(plain).toStrongRef()->isType(TestContainer::Type()));
    QVERIFY(recorder.events.isEmpty());

    // The id is set with the model's events off: listeners hear nothing of it, and hear again
    // afterwards.
    QCOMPARE(manager.createObjectWithID("Listened", wanted), wanted);
    auto object = manager.getObject(wanted).toStrongRef();
    QCOMPARE(object->id(), wanted);
    QVERIFY(first.listener.calls.isEmpty());
    object->setName("heard");
    QCOMPARE(first.listener.words(), QStringList({"value:name"}));
}

void tst_SceneManager::lookupFollowsIdChanges()
{
    SceneManager &manager = SceneManager::i();
    QUuid const first = TestScene::addLeaf(QUuid(), QRect(0, 0, 10, 10), "first");
    auto object = manager.getObject(first).toStrongRef();

    // An id written behind the manager's back, with the model silent: found under the new
    // id only.
    QUuid const renamed = QUuid::createUuid();
    object->model()->setEventsEnabled(false);
    object->model()->setValue("id", QVariant(renamed), PropertyChangeReason::ReasonInternal);
    object->model()->setEventsEnabled(true);
    QVERIFY(manager.getObject(first).isNull());
    QCOMPARE(manager.getObject(renamed).toStrongRef(), object);

    // Two objects with one id: the first created wins, and the second once the first is gone.
    QCOMPARE(manager.createObjectWithID(TestLeaf::Type(), renamed), renamed);
    QCOMPARE(manager.getObject(renamed).toStrongRef(), object);
    object.reset();
    QVERIFY(manager.deleteObject(renamed));
    auto second = manager.getObject(renamed).toStrongRef();
    QCOMPARE(second->getName(), QString());
    // Deleted while a caller still holds it: not found any more.
    QVERIFY(manager.deleteObject(renamed));
    QVERIFY(manager.getObject(renamed).isNull());

    // Without a manager nothing resolves, and nothing crashes.
    SceneManager::destroy();
    {
        TestLeaf leaf;
        QCOMPARE(SceneObjectInfo(leaf.id()).parentIndex(), 0);
        QCOMPARE(leaf.childPointer(leaf.id()), nullptr);
        QCOMPARE(leaf.rootRectangle(), leaf.getRectangle());
        QVERIFY(!leaf.isAncestorOf(leaf.id()));
    }
    new SceneManager();
}

void tst_SceneManager::deleteObjects()
{
    SceneManager &manager = SceneManager::i();
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    QUuid const first = TestScene::addLeaf(group, QRect());
    QUuid const second = TestScene::addLeaf(group, QRect());
    QUuid const third = TestScene::addLeaf(group, QRect());
    _labels.insert(group, "group");
    _labels.insert(first, "first");
    _labels.insert(third, "third");
    QCOMPARE(SceneObjectInfo(second).parentIndex(), 1);
    QCOMPARE(SceneObjectInfo(QUuid::createUuid()).parentIndex(), 0);

    // Told while the object is still there, at its place in the parent as it stands then.
    RecordingHandler recorder;
    QStringList told;
    recorder.onEvent = [&](QSharedPointer<Event> const &event) {
        SceneObjectInfo const info = event.staticCast<SceneObjectAboutToDeleteEvent>()->info();
        told.append(QString("%1@%2%3")
                        .arg(_label(info.id()))
                        .arg(info.parentIndex())
                        .arg(manager.getObject(info.id()).isNull() ? " gone" : ""));
    };
    QVERIFY(manager.deleteObject(third));
    QCOMPARE(_describe(recorder.events), QStringList({"CHILDABOUTTODELETE third"}));
    QVERIFY(manager.getObject(third).isNull());
    QVERIFY(!manager.deleteObject(third));
    // In list order; an unknown id is passed over.
    manager.deleteObjects({QUuid::createUuid(), first});
    QCOMPARE(told, QStringList({"third@2", "first@0"}));
    QCOMPARE(TestScene::container(group)->children(false), QList<QUuid>({second}));

    // The host deletes no subtree: the child outlives its parent.
    QVERIFY(manager.deleteObject(group));
    QCOMPARE(told.last(), QString("group@-1"));
    QVERIFY(!manager.getObject(second).isNull());
    manager.deleteAllObjects();
    QVERIFY(manager.objectList().isEmpty());
    QCOMPARE(recorder.events.size(), 4);
}

void tst_SceneManager::objectQueries()
{
    SceneManager &manager = SceneManager::i();
    QUuid const one = _screen("one");
    QUuid const two = _screen("two");
    QUuid const group = TestScene::addContainer(one, QRect(), "group");
    QUuid const inner = TestScene::addLeaf(group, QRect(), "shared");
    QUuid const root = TestScene::addLeaf(two, QRect(), "shared");
    QUuid const loose = TestScene::addLeaf(QUuid(), QRect(), "loose");

    QCOMPARE(idsOf(manager.objectList()), QList<QUuid>({group, inner, root, loose}));
    QCOMPARE(idsOf(manager.objectsByType(TestLeaf::Type())), QList<QUuid>({inner, root, loose}));
    // The first in order of creation, wherever it stands in a tree; names compare exactly.
    QCOMPARE(manager.findObjectByName("shared").toStrongRef()->id(), inner);
    QVERIFY(manager.findObjectByName("Shared").isNull());

    QCOMPARE(manager.getObjectScreen(inner), one);
    QCOMPARE(manager.getObjectScreen(root), two);
    QCOMPARE(manager.getObjectScreen(loose), QUuid());
    QCOMPARE(manager.getObjectScreen(one), QUuid());
    QVERIFY(manager.isScreenRoot(group));
    QVERIFY(!manager.isScreenRoot(inner));
    QVERIFY(!manager.isScreenRoot(loose));
    // An object that two screens take as a root belongs to the first of them in the list.
    QVERIFY(TestScene::screen(two)->addRoot(loose, 0xFFFFFFFF));
    QVERIFY(TestScene::screen(one)->addRoot(loose, 0xFFFFFFFF));
    QCOMPARE(manager.getObjectScreen(loose), one);
}

void tst_SceneManager::newScreenSortsTheWholeList()
{
    SceneManager &manager = SceneManager::i();
    RecordingHandler recorder(EVM_SCREEN);
    manager.setScreenFactory(nullptr);
    QCOMPARE(manager.newScreen(true, true, 0, true), QUuid());
    manager.setScreenFactory(&TestScene::screenFactory());
    TestScene::screenFactory().fail = true;
    QCOMPARE(manager.newScreen(true, true, 0, true), QUuid());
    // The factory is asked with an empty name.
    QCOMPARE(TestScene::screenFactory().names, QStringList({QString()}));
    TestScene::screenFactory().fail = false;
    QVERIFY(recorder.events.isEmpty());

    // Whether the new screen is in the list as each event is delivered.
    QList<bool> listed;
    recorder.onEvent = [&](QSharedPointer<Event> const &event) {
        listed.append(manager.screenIndex(event.staticCast<ScreenGenericEvent>()->screen()) >= 0);
    };
    QUuid const b = _screen("b");
    QUuid const a = _screen("a");
    QCOMPARE(manager.screens(), QList<QUuid>({a, b}));
    // The screen names itself as the factory makes it, before it is in the list.
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED b -1 ''", "ABOUT_TO_ADD b 0", "ADDED b 0", "RENAMED a -1 ''",
                          "ABOUT_TO_ADD a 0", "ADDED a 0"}));
    QCOMPARE(listed, QList<bool>({false, false, true, false, false, true}));
    recorder.onEvent = nullptr;

    // A rename does not sort; the next new screen sorts them all.
    QVERIFY(manager.setScreenName(a, "z"));
    QCOMPARE(manager.screens(), QList<QUuid>({a, b}));
    recorder.clear();
    TestScene::screenFactory().nextNames = QStringList({"c"});
    QUuid const c = manager.newScreen(false, true, 7, false);
    _labels.insert(c, "c");
    QCOMPARE(manager.screens(), QList<QUuid>({b, c, a}));
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED c -1 ''", "ABOUT_TO_ADD c 1", "ADDED c 1"}));
    QCOMPARE(TestScene::screen(c)->calls, QStringList({"initializeNew"}));
    QCOMPARE(manager.screenByName("Z", false), QUuid());
}

void tst_SceneManager::firstVisibleScreenBecomesActive()
{
    SceneManager &manager = SceneManager::i();
    RecordingHandler recorder(EVM_SCREEN);
    TestScene::screenFactory().nextNames = QStringList({"one", "two", "three"});

    QUuid const one = manager.newScreen(false, false, 0, true);
    _labels.insert(one, "one");
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED one -1 ''", "ABOUT_TO_ADD one 0", "ADDED one 0",
                          "VISIBLE_CHANGING one 0 shown", "VISIBLE_CHANGED one 0 shown",
                          "ACTIVE_CHANGING null -1", "ACTIVE_CHANGED one 0"}));
    QCOMPARE(TestScene::screen(one)->calls, QStringList({"activated"}));

    recorder.clear();
    QUuid const two = manager.newScreen(false, false, 0, true);
    _labels.insert(two, "two");
    QCOMPARE(_describe(recorder.events).mid(3),
             QStringList({"VISIBLE_CHANGING two 1 shown", "VISIBLE_CHANGED two 1 shown"}));

    recorder.clear();
    QUuid const three = manager.newScreen(true, false, 0, false);
    _labels.insert(three, "three");
    QCOMPARE(_describe(recorder.events).mid(3),
             QStringList({"ACTIVE_CHANGING one 0", "ACTIVE_CHANGED three 1"}));
    QCOMPARE(TestScene::screen(one)->calls, QStringList({"activated", "deactivated"}));

    // In set order, not list order.
    QList<QUuid> visible{one, two};
    std::sort(visible.begin(), visible.end());
    QCOMPARE(manager.visibleScreens(), visible);

    recorder.clear();
    manager.setActiveScreen(three);
    QVERIFY(recorder.events.isEmpty());
    // Hiding the active screen leaves none active: no other visible screen steps in.
    manager.setActiveScreen(one);
    recorder.clear();
    QVERIFY(manager.setScreenVisible(one, false));
    QVERIFY(!manager.setScreenVisible(one, false));
    QVERIFY(!manager.setScreenVisible(QUuid(), true));
    QCOMPARE(_describe(recorder.events),
             QStringList({"VISIBLE_CHANGING one 0 hidden", "VISIBLE_CHANGED one 0 hidden",
                          "ACTIVE_CHANGING one 0", "ACTIVE_CHANGED null -1"}));
    // An id that names no screen is taken, without the changed event.
    recorder.clear();
    QUuid const stranger = QUuid::createUuid();
    manager.setActiveScreen(stranger);
    QCOMPARE(_describe(recorder.events), QStringList({"ACTIVE_CHANGING null -1"}));
    QCOMPARE(manager.getActiveScreen(), stranger);
}

void tst_SceneManager::removingScreens()
{
    SceneManager &manager = SceneManager::i();
    QUuid const one = _screen("one");
    QUuid const two = _screen("two");
    QUuid const three = _screen("three");
    QUuid const leaf = TestScene::addLeaf(one, QRect());
    _labels.insert(leaf, "leaf");
    manager.setScreenVisible(one, true);
    manager.setScreenVisible(two, true);
    QWeakPointer<Screen> weak = manager.screen(one);
    RecordingHandler recorder(EVM_SCREEN | EVM_SCENE);

    manager.removeScreen(one);
    // The deletion at the end is the concrete screen's own, from its destructor: the manager
    // raises nothing after the removal.
    QCOMPARE(_describe(recorder.events),
             QStringList({"ABOUT_TO_REMOVE one 0", "ACTIVE_CHANGING one 0",
                          "ACTIVE_CHANGED null -1", "VISIBLE_CHANGING one 0 hidden",
                          "VISIBLE_CHANGED one 0 hidden", "CHILDABOUTTODELETE leaf"}));
    QVERIFY(weak.isNull());
    QCOMPARE(manager.screens(), QList<QUuid>({three, two}));
    QCOMPARE(manager.getActiveScreen(), QUuid());

    // A lock keeps a removed screen alive, out of the list.
    QSharedPointer<Screen> held = manager.screen(two).toStrongRef();
    recorder.clear();
    QUuid const stranger = QUuid::createUuid();
    manager.removeScreens({stranger, two});
    QCOMPARE(_describe(recorder.events),
             QStringList({"ABOUT_TO_REMOVE two 1", "VISIBLE_CHANGING two 1 hidden",
                          "VISIBLE_CHANGED two 1 hidden"}));
    QCOMPARE(held->id(), two);
    QCOMPARE(manager.screens(), QList<QUuid>({three}));

    // Callers pass ids from the list; an unknown one is told about, and nothing else happens.
    recorder.clear();
    manager.removeScreen(stranger);
    QCOMPARE(_describe(recorder.events), QStringList({"ABOUT_TO_REMOVE ? -1"}));
    QCOMPARE(manager.screenCount(), 1u);
}

void tst_SceneManager::renameRaisesTwice()
{
    SceneManager &manager = SceneManager::i();
    _screen("Alpha");
    QUuid const beta = _screen("beta");
    RecordingHandler recorder(EVM_SCREEN);

    // Once from the screen's property, once from the manager; both with the old name.
    QVERIFY(TestScene::screen(beta)->setName("gamma"));
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED beta 1 'beta'", "RENAMED beta 1 'beta'"}));

    // An unknown screen is refused in silence.
    recorder.clear();
    QVERIFY(!manager.setScreenName(QUuid::createUuid(), "delta"));
    QVERIFY(recorder.events.isEmpty());
}

void tst_SceneManager::duplicateFollowsEveryReference()
{
    SceneManager &manager = SceneManager::i();
    _screen("other");
    QUuid const page = _screen("page");
    QUuid const root = TestScene::addContainer(page, QRect(10, 10, 100, 100), "R");
    QUuid const one = TestScene::addLeaf(root, QRect(1, 2, 3, 4), "one");
    QUuid const two = TestScene::addLeaf(root, QRect(5, 6, 7, 8), "two");
    QUuid const solo = TestScene::addLeaf(page, QRect(), "solo");
    TestScene::object(one)->link = two;
    TestScene::object(two)->link = one;
    TestScene::object(solo)->link = root;
    TestScene::screen(page)->activeLayer = root;
    manager.setScreenVisible(page, true);
    QList<QUuid> const originals = TestScene::screen(page)->objects();
    RecordingHandler recorder(EVM_SCREEN | EVM_SCENE);

    QVERIFY(manager.duplicateScreen(page));
    QUuid const copy = manager.screenAtIndex(2);
    _labels.insert(copy, "copy");
    // The add events carry QUuid of the name, the null id; the copy named itself as it was
    // made, and its content was loaded without a sound.
    QCOMPARE(_describe(recorder.events),
             QStringList({"ABOUT_TO_ADD null 2", "RENAMED copy -1 ''", "ADDED null 2",
                          "VISIBLE_CHANGING copy 2 shown", "VISIBLE_CHANGED copy 2 shown",
                          "ACTIVE_CHANGING page 1", "ACTIVE_CHANGED copy 2"}));
    TestScreen *duplicate = TestScene::screen(copy);
    QCOMPARE(duplicate->getName(), QString("page_Copy"));

    // Every id is new, and every reference follows to the copy's own objects.
    QList<QUuid> const copies = duplicate->objects();
    QCOMPARE(copies.size(), originals.size());
    auto copyOf = [&](QUuid const &original) { return copies.value(originals.indexOf(original)); };
    QCOMPARE(TestScene::object(copyOf(two))->getRectangle(), QRect(5, 6, 7, 8));
    QCOMPARE(TestScene::object(copyOf(one))->link, copyOf(two));
    QCOMPARE(TestScene::object(copyOf(two))->link, copyOf(one));
    QCOMPARE(TestScene::object(copyOf(solo))->link, copyOf(root));
    QCOMPARE(TestScene::object(copyOf(one))->parent(), copyOf(root));
    QCOMPARE(duplicate->activeLayer, copyOf(root));
    QJsonObject saved;
    duplicate->save(saved);
    QByteArray const text = QJsonDocument(saved).toJson();
    for (QUuid const &old : originals + QList<QUuid>{page})
        QVERIFY2(!text.contains(old.toByteArray()), old.toByteArray().constData());
    // The source stays as it was.
    QCOMPARE(TestScene::screen(page)->objects(), originals);
    QCOMPARE(TestScene::object(one)->link, two);
}

void tst_SceneManager::duplicateNamesAndPlaces()
{
    SceneManager &manager = SceneManager::i();
    QUuid const a = _screen("a");
    QUuid const b = _screen("b");
    // The copy goes straight behind its source, unsorted; names clash regardless of case.
    _screen("zz_COPY_copy");
    manager.setScreenName(a, "zz");
    QVERIFY(manager.duplicateScreen(a));
    QUuid const first = manager.screenAtIndex(1);
    QVERIFY(manager.duplicateScreen(a));
    QUuid const second = manager.screenAtIndex(1);
    QCOMPARE(manager.screens().mid(0, 4), QList<QUuid>({a, second, first, b}));
    QCOMPARE(TestScene::screen(first)->getName(), QString("zz_Copy"));
    QCOMPARE(TestScene::screen(second)->getName(), QString("zz_Copy_Copy_Copy"));

    unsigned int const count = manager.screenCount();
    QVERIFY(!manager.duplicateScreen(QUuid::createUuid()));
    TestScene::screenFactory().fail = true;
    QVERIFY(!manager.duplicateScreen(b));
    QCOMPARE(manager.screenCount(), count);
}

void tst_SceneManager::handlerAnswersScreenSizeAndLoads()
{
    SceneManager &manager = SceneManager::i();
    QCOMPARE(manager.screenSize(), QSize(480, 272));
    using G = GlobalPropertyType;
    new GlobalState();
    RecordingHandler recorder(EVM_SCREEN);
    // Raised from inside a delivery, the request arrives with the next pump. The id counts,
    // not the group.
    GlobalState::i().setInt(G::Project, 2, 25);
    GlobalState::i().setString(G::Session, 9, "elsewhere");
    QTRY_COMPARE(recorder.types(), QList<unsigned long long>({EVT_SCREEN_REPAINT_REQUEST}));
    GlobalState::i().setInt(G::Project, 8, 800);
    GlobalState::i().setInt(G::Project, 9, 600);
    QTRY_COMPARE(recorder.events.size(), 3);
    QCOMPARE(manager.screenSize(), QSize(800, 600));

    // After a load, which set the active screen silently, everybody is told; without an
    // active screen there is nothing to tell. A later event pumps the queue, so what the
    // handler raised would come before it.
    _screen("one");
    QUuid const two = _screen("two");
    recorder.clear();
    raiseLoaded();
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_SCREEN_LIST_CHANGED, EVM_SCREEN));
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_SCREEN_LIST_CHANGED}));
    manager.setActiveScreen(two);
    recorder.clear();
    raiseLoaded();
    QTRY_COMPARE(_describe(recorder.events),
                 QStringList({"ACTIVE_CHANGING null -1", "ACTIVE_CHANGED two 1"}));
}

void tst_SceneManager::emptyScreenList()
{
    DataState state;
    StepCounter counter;
    ProgressMonitor monitor(&counter);
    QCOMPARE(SceneManager::i().getSaveStepCount(), 1u);
    QVERIFY(SceneManager::i().save(state, monitor));
    QCOMPARE(state.fileNames(), QStringList({"screens/screens.json"}));
    QByteArray const data = state.getFileData("screens/screens.json");
    QVERIFY(data.contains("\n    \"active\": \"\"")); // indented
    QCOMPARE(QJsonDocument::fromJson(data).object(),
             QJsonObject({{"active", ""}, {"visible", QJsonArray()}, {"screens", QJsonArray()}}));
    // The list file is a step of the count, not of the monitor.
    QCoreApplication::sendPostedEvents(&counter);
    QCOMPARE(counter.steps, 0);
    QVERIFY(SceneManager::i().load(state, monitor));
    QCOMPARE(SceneManager::i().screenCount(), 0u);

    // Only a list file that is an array counts.
    QCOMPARE(SceneManager::i().getLoadStepCount(&state), 0u);
    QCOMPARE(SceneManager::i().getLoadStepCount(nullptr), 0u);
    state.setFileData("screens/screens.json", "[1, 2, 3]");
    QCOMPARE(SceneManager::i().getLoadStepCount(&state), 3u);
}

void tst_SceneManager::saveAndLoadThroughAnArchive()
{
    QUuid const a = _screen("a");
    QUuid const b = _screen("b");
    QUuid const c = _screen("c");
    QUuid const group = TestScene::addContainer(a, QRect(10, 20, 30, 40), "group");
    QUuid const item = TestScene::addLeaf(group, QRect(1, 2, 3, 4), "item");
    TestScene::object(TestScene::addLeaf(b, QRect(5, 5, 5, 5), "single"))->link = item;
    TestScene::screen(a)->activeLayer = group;
    SceneManager::i().setScreenVisible(c, true);
    SceneManager::i().setScreenVisible(a, true);
    // Renamed out of order: the list order is what is kept, not the names' order.
    SceneManager::i().setScreenName(a, "zz");
    SceneSnapshot const before = SceneSnapshot::Take();

    DataState saved;
    StepCounter counter;
    ProgressMonitor monitor(&counter);
    QCOMPARE(SceneManager::i().getSaveStepCount(), 4u);
    QVERIFY(SceneManager::i().save(saved, monitor));
    QCoreApplication::sendPostedEvents(&counter);
    QCOMPARE(counter.steps, 3);
    QJsonObject const list
        = QJsonDocument::fromJson(saved.getFileData("screens/screens.json")).object();
    QCOMPARE(list.value("active").toString(), c.toString());
    QCOMPARE(list.value("screens").toArray(),
             QJsonArray({a.toString(), b.toString(), c.toString()}));
    QVERIFY(saved.hasFileData("screens/" + b.toString() + "/screen.json"));
    QVERIFY(saved.writeZip("screens.zip"));

    // Into a fresh manager, from the archive, without a sound.
    SceneManager::destroy();
    new SceneManager();
    TestScene::registerFactories();
    RecordingHandler recorder(EVM_SCREEN | EVM_SCENE);
    DataState read;
    QVERIFY(read.read("screens.zip"));
    QVERIFY(SceneManager::i().load(read, monitor));
    QCoreApplication::sendPostedEvents(&counter);
    QCOMPARE(counter.steps, 6);
    QVERIFY(recorder.events.isEmpty());
    QVERIFY(SceneSnapshot::Take() == before);
    QCOMPARE(TestScene::object(item)->parent(), group);
}

void tst_SceneManager::damagedFilesLoadAsEmptyValues_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("screen");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("visible");

    // U stands for one screen's id; the screen file is written under it when given.
    QByteArray const named = R"({"properties": {"name": {"type": "text", "value": "kept"},
                                                 "id": {"type": "uuid", "value": "U"}}})";
    QByteArray const full = R"({"screens": ["U"], "active": "U", "visible": ["U"]})";
    QByteArray const none;
    QTest::newRow("no list file") << none << none << 0 << "" << false << false;
    QTest::newRow("list no JSON") << QByteArray(R"({"screens": [)") << named << 0 << "" << false
                                  << false;
    QTest::newRow("list an array") << QByteArray(R"(["U"])") << named << 0 << "" << false << false;
    QTest::newRow("screens no array")
        << QByteArray(R"({"screens": "U", "active": "U"})") << named << 0 << "" << false << false;
    QTest::newRow("intact") << full << named << 1 << "kept" << true << true;
    // An entry that names no file gives a screen of empty values, with an id of its own.
    QTest::newRow("entry no text")
        << QByteArray(R"({"screens": [5], "active": "U"})") << named << 1 << "" << false << false;
    QTest::newRow("screen file missing") << full << none << 1 << "" << false << false;
    QTest::newRow("screen file no JSON") << full << QByteArray("}{") << 1 << "" << false << false;
    QTest::newRow("screen file of wrong types")
        << full << QByteArray(R"({"properties": 7, "roots": "x", "activeLayer": 3})") << 1 << ""
        << false << false;
    QTest::newRow("active not among the screens")
        << QByteArray(R"({"screens": ["U"], "active": "{0b7c5e4a-9f8d-4c1b-a2e3-d4f5a6b7c8d9}",
                          "visible": [1, "junk", "U"]})")
        << named << 1 << "kept" << false << true;
}

void tst_SceneManager::damagedFilesLoadAsEmptyValues()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, screen);
    QFETCH(int, count);
    QFETCH(QString, name);
    QFETCH(bool, active);
    QFETCH(bool, visible);

    QByteArray const id = QUuid::createUuid().toByteArray();
    DataState state;
    if (!list.isNull())
        state.setFileData("screens/screens.json", list.replace("\"U\"", "\"" + id + "\""));
    if (!screen.isNull())
        state.setFileData("screens/" + id + "/screen.json",
                          screen.replace("\"U\"", "\"" + id + "\""));
    StepCounter counter;
    ProgressMonitor monitor(&counter);
    RecordingHandler recorder;

    QVERIFY(SceneManager::i().load(state, monitor));
    QCOMPARE(SceneManager::i().screenCount(), static_cast<unsigned int>(count));
    QVERIFY(recorder.events.isEmpty());
    if (count == 0)
        return;
    QUuid const loaded = SceneManager::i().screenAtIndex(0);
    QCOMPARE(TestScene::screen(loaded)->getName(), name);
    QCOMPARE(TestScene::screen(loaded)->roots(), QList<QUuid>());
    QCOMPARE(SceneManager::i().getActiveScreen(), active ? loaded : QUuid());
    QCOMPARE(SceneManager::i().getScreenVisible(loaded), visible);
}

QTEST_MAIN(tst_SceneManager)
#include "tst_SceneManager.moc"
