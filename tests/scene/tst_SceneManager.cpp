#include "data/DataState.h"
#include "events/EventBus.h"
#include "events/SceneObjectAboutToDeleteEvent.h"
#include "events/ScreenRenamedEvent.h"
#include "events/ScreenVisibilityChangedEvent.h"
#include "events/ScreenVisibilityChangingEvent.h"
#include "scene/SceneManager.h"
#include "scene/SceneObjectFactory.h"
#include "scene/SceneObjectInfo.h"
#include "scene/TransformSceneObject.h"
#include "services/GlobalState.h"
#include "services/ProgressMonitor.h"
#include "support/RecordingHandler.h"
#include "support/RecordingPropertyListener.h"
#include "support/TestContainer.h"
#include "support/TestContainerFactory.h"
#include "support/TestLeaf.h"
#include "support/TestLeafFactory.h"
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
        made = leaf;
        return leaf;
    }

    RecordingPropertyListener listener;
    QWeakPointer<SceneObject> made;
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

} // namespace

class tst_SceneManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void singleton();
    void factories();
    void createObject();
    void createObjectWithID();
    void objectsEndWithTheManager();
    void sceneObjectInfoFromTheTree();
    void deleteObject();
    void deleteObjects();
    void objectQueries();
    void screenOfAnObject();

    void screenQueries();
    void newScreenSortsTheWholeList();
    void firstVisibleScreenBecomesActive();
    void hidingTheActiveScreen();
    void removingTheActiveScreen();
    void removeScreens();
    void renameRaisesTwice();
    void duplicateFollowsEveryReference();
    void duplicateNamesAndPlaces();
    void reset();
    void handlerAnswersScreenSizeAndLoads();
    void emptyScreenList();
    void saveAndLoadThroughAnArchive();
    void damagedFilesLoadAsEmptyValues_data();
    void damagedFilesLoadAsEmptyValues();
    void loadStepCount();

private:
    // Events as words: the type without its prefix, then for screen events the screen's label
    // and index (and the old name, or shown/hidden), for object events the object's label.
    QStringList _describe(QList<QSharedPointer<Event>> const &events) const;
    QString _label(QUuid const &id) const;
    // A named screen through the test factory, labelled by its name.
    QUuid _screen(QString const &name);

    QHash<QUuid, QString> _labels;
};

void tst_SceneManager::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
}

void tst_SceneManager::cleanup()
{
    SceneManager::destroy();
    GlobalState::destroy();
    EventBus::destroy();
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

void tst_SceneManager::singleton()
{
    QVERIFY(SceneManager::ip());
    QCOMPARE(&SceneManager::i(), SceneManager::ip());
    SceneManager::destroy();
    QCOMPARE(SceneManager::ip(), nullptr);
    // Without a manager nothing resolves, and nothing crashes.
    QCOMPARE(SceneObjectInfo(QUuid::createUuid()).parentIndex(), 0);
    TestLeaf leaf;
    QCOMPARE(leaf.childPointer(leaf.id()), nullptr);
    QCOMPARE(leaf.rootRectangle(), leaf.getRectangle());
    QVERIFY(!leaf.isAncestorOf(leaf.id()));
    new SceneManager();
}

void tst_SceneManager::factories()
{
    static TestLeafFactory first;
    static TestContainerFactory second;
    QCOMPARE(SceneManager::i().getObjectFactory("Leaf"), nullptr);
    QVERIFY(!SceneManager::i().addObjectFactory("Leaf", nullptr));
    QVERIFY(SceneManager::i().addObjectFactory("Leaf", &first));
    // The first factory of a type stays.
    QVERIFY(!SceneManager::i().addObjectFactory("Leaf", &second));
    QCOMPARE(SceneManager::i().getObjectFactory("Leaf"), &first);
    QVERIFY(SceneManager::i().addObjectFactory("Group", &second));
    QCOMPARE(SceneManager::i().getObjectFactory("Group"), &second);
    QCOMPARE(SceneManager::i().getObjectFactory("leaf"), nullptr);

    QVERIFY(TestScene::registerFactories());
    QVERIFY(!TestScene::registerFactories());
}

void tst_SceneManager::createObject()
{
    TestScene::registerFactories();
    RecordingHandler recorder;
    QCOMPARE(SceneManager::i().createObject("Unknown"), QUuid());

    QUuid const first = SceneManager::i().createObject(TestLeaf::Type());
    QUuid const second = SceneManager::i().createObject(TestContainer::Type());
    QVERIFY(!first.isNull());
    QVERIFY(first != second);
    auto object = SceneManager::i().getObject(first).toStrongRef();
    QVERIFY(object);
    QCOMPARE(object->id(), first);
    QVERIFY(object->isType(TestLeaf::Type()));
    QVERIFY(SceneManager::i().getObject(second).toStrongRef()->isType(TestContainer::Type()));
    QVERIFY(SceneManager::i().getObject(QUuid::createUuid()).isNull());
    QVERIFY(SceneManager::i().getObject(QUuid()).isNull());
    // An object in no tree is of no concern to anyone.
    QVERIFY(recorder.events.isEmpty());
}

void tst_SceneManager::createObjectWithID()
{
    static ListenedLeafFactory factory;
    SceneManager::i().addObjectFactory("Listened", &factory);
    TestScene::registerFactories();
    RecordingHandler recorder;

    QUuid const wanted = QUuid::createUuid();
    QCOMPARE(SceneManager::i().createObjectWithID("Unknown", wanted), QUuid());
    QVERIFY(SceneManager::i().getObject(wanted).isNull());

    QCOMPARE(SceneManager::i().createObjectWithID("Listened", wanted), wanted);
    auto object = SceneManager::i().getObject(wanted).toStrongRef();
    QVERIFY(object);
    QCOMPARE(object.data(), factory.made.toStrongRef().data());
    // The id changed with the model's events off: listeners heard nothing, and they hear
    // again afterwards.
    QVERIFY(factory.listener.calls.isEmpty());
    QVERIFY(object->model()->getEventsEnabled());
    object->setName("heard");
    QCOMPARE(factory.listener.words(), QStringList({"value:name"}));
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_SCENE_SCENEOBJECTRENAMED}));
}

void tst_SceneManager::objectsEndWithTheManager()
{
    TestScene::registerFactories();
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    QUuid const item = TestScene::addLeaf(group, QRect());
    QWeakPointer<SceneObject> weakGroup = SceneManager::i().getObject(group);
    QWeakPointer<SceneObject> weakItem = SceneManager::i().getObject(item);
    {
        // A lock outlives the manager's reference, for as long as it is held.
        QSharedPointer<SceneObject> held = weakItem.toStrongRef();
        SceneManager::destroy();
        QVERIFY(weakGroup.isNull());
        QVERIFY(!weakItem.isNull());
        QCOMPARE(held->parent(), group);
    }
    QVERIFY(weakItem.isNull());
    new SceneManager();
}

void tst_SceneManager::sceneObjectInfoFromTheTree()
{
    TestScene::registerFactories();
    QUuid const root = TestScene::addContainer(QUuid(), QRect());
    QUuid const first = TestScene::addLeaf(root, QRect());
    QUuid const second = TestScene::addLeaf(root, QRect());

    QCOMPARE(SceneObjectInfo(second).id(), second);
    QCOMPARE(SceneObjectInfo(second).parentIndex(), 1);
    QCOMPARE(SceneObjectInfo(first).parentIndex(), 0);
    // No parent: -1. Unknown object: 0.
    QCOMPARE(SceneObjectInfo(root).parentIndex(), -1);
    QCOMPARE(SceneObjectInfo(QUuid::createUuid()).parentIndex(), 0);
    QCOMPARE(SceneObjectInfo(QUuid()).parentIndex(), 0);
    QCOMPARE(SceneObjectInfo(first, 7).parentIndex(), 7);

    TestScene::container(root)->moveChild(second, 0);
    QCOMPARE(SceneObjectInfo(second).parentIndex(), 0);
}

void tst_SceneManager::deleteObject()
{
    TestScene::registerFactories();
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    QUuid const first = TestScene::addLeaf(group, QRect());
    QUuid const second = TestScene::addLeaf(group, QRect());
    RecordingHandler recorder;
    QList<int> indices;
    QList<bool> resolved;
    recorder.onEvent = [&](QSharedPointer<Event> const &event) {
        SceneObjectInfo const info = event.staticCast<SceneObjectAboutToDeleteEvent>()->info();
        indices.append(info.parentIndex());
        resolved.append(!SceneManager::i().getObject(info.id()).isNull());
    };

    QVERIFY(SceneManager::i().deleteObject(second));
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_SCENE_CHILDABOUTTODELETE}));
    // Told while the object is still there, with its place in the parent.
    QCOMPARE(indices, QList<int>({1}));
    QCOMPARE(resolved, QList<bool>({true}));
    QVERIFY(SceneManager::i().getObject(second).isNull());
    QCOMPARE(TestScene::container(group)->children(false), QList<QUuid>({first}));
    QVERIFY(!SceneManager::i().deleteObject(second));
    QCOMPARE(recorder.events.size(), 1);

    // The host deletes no subtree: the child outlives its parent.
    QVERIFY(SceneManager::i().deleteObject(group));
    QCOMPARE(indices.last(), -1);
    QVERIFY(!SceneManager::i().getObject(first).isNull());
    SceneManager::i().deleteAllObjects();
    QVERIFY(SceneManager::i().getObject(first).isNull());
    QCOMPARE(recorder.events.size(), 3);
}

void tst_SceneManager::deleteObjects()
{
    TestScene::registerFactories();
    QUuid const group = TestScene::addContainer(QUuid(), QRect());
    QUuid const first = TestScene::addLeaf(group, QRect());
    QUuid const second = TestScene::addLeaf(group, QRect());
    QUuid const third = TestScene::addLeaf(group, QRect());
    RecordingHandler recorder;
    QStringList told;
    recorder.onEvent = [&](QSharedPointer<Event> const &event) {
        SceneObjectInfo const info = event.staticCast<SceneObjectAboutToDeleteEvent>()->info();
        told.append(QString("%1@%2")
                        .arg(info.id() == first   ? "first"
                             : info.id() == third ? "third"
                                                  : "?")
                        .arg(info.parentIndex()));
    };

    // In list order, each told at its place as it stands then; an unknown id is passed over.
    SceneManager::i().deleteObjects({third, QUuid::createUuid(), first});
    QCOMPARE(told, QStringList({"third@2", "first@0"}));
    QCOMPARE(TestScene::container(group)->children(false), QList<QUuid>({second}));
    SceneManager::i().deleteObjects({});
    QCOMPARE(recorder.events.size(), 2);
}

void tst_SceneManager::objectQueries()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const group = TestScene::addContainer(QUuid(), QRect(), "group");
    QUuid const inner = TestScene::addLeaf(group, QRect(), "shared");
    QUuid const other = TestScene::addLeaf(QUuid(), QRect(), "shared");
    QUuid const free = TestScene::addLeaf(QUuid(), QRect(), "free");

    auto ids = [](QList<QSharedPointer<SceneObject>> const &objects) {
        QList<QUuid> result;
        for (auto const &object : objects)
            result.append(object->id());
        return result;
    };
    QCOMPARE(ids(manager.objectList()), QList<QUuid>({group, inner, other, free}));
    QCOMPARE(ids(manager.objectsByType(TestLeaf::Type())), QList<QUuid>({inner, other, free}));
    QCOMPARE(ids(manager.objectsByType(TestContainer::Type())), QList<QUuid>({group}));
    QCOMPARE(ids(manager.objectsByType(TransformSceneObject::Type())),
             QList<QUuid>({group, inner, other, free}));
    QVERIFY(manager.objectsByType("Nothing").isEmpty());

    // The first in order of creation, wherever it stands in a tree; names compare exactly.
    QCOMPARE(manager.findObjectByName("shared").toStrongRef()->id(), inner);
    QCOMPARE(manager.findObjectByName("free").toStrongRef()->id(), free);
    QVERIFY(manager.findObjectByName("Shared").isNull());
    QVERIFY(manager.findObjectByName("nowhere").isNull());
    manager.deleteObject(inner);
    QCOMPARE(manager.findObjectByName("shared").toStrongRef()->id(), other);
    QCOMPARE(ids(manager.objectList()), QList<QUuid>({group, other, free}));
}

void tst_SceneManager::screenOfAnObject()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const one = _screen("one");
    QUuid const two = _screen("two");
    QUuid const group = TestScene::addContainer(one, QRect());
    QUuid const below = TestScene::addLeaf(group, QRect());
    QUuid const root = TestScene::addLeaf(two, QRect());
    QUuid const loose = TestScene::addLeaf(QUuid(), QRect());

    QCOMPARE(manager.getObjectScreen(group), one);
    QCOMPARE(manager.getObjectScreen(below), one);
    QCOMPARE(manager.getObjectScreen(root), two);
    QCOMPARE(manager.getObjectScreen(loose), QUuid());
    QCOMPARE(manager.getObjectScreen(one), QUuid());
    QCOMPARE(manager.getObjectScreen(QUuid::createUuid()), QUuid());

    QVERIFY(manager.isScreenRoot(group));
    QVERIFY(manager.isScreenRoot(root));
    QVERIFY(!manager.isScreenRoot(below));
    QVERIFY(!manager.isScreenRoot(loose));
    QVERIFY(!manager.isScreenRoot(QUuid()));

    // An object that two screens take as a root belongs to the first of them in the list.
    QVERIFY(TestScene::screen(two)->addRoot(loose, 0xFFFFFFFF));
    QVERIFY(TestScene::screen(one)->addRoot(loose, 0xFFFFFFFF));
    QCOMPARE(manager.getObjectScreen(loose), one);
    QVERIFY(manager.isScreenRoot(loose));
}

void tst_SceneManager::screenQueries()
{
    TestScene::registerFactories();
    QUuid const beta = _screen("beta");
    QUuid const alpha = _screen("Alpha");
    SceneManager &manager = SceneManager::i();

    QCOMPARE(manager.screens(), QList<QUuid>({alpha, beta}));
    QCOMPARE(manager.screenCount(), 2u);
    QCOMPARE(manager.screenAtIndex(1), beta);
    QCOMPARE(manager.screenAtIndex(2), QUuid());
    QCOMPARE(manager.screenIndex(beta), 1);
    QCOMPARE(manager.screenIndex(QUuid::createUuid()), -1);
    QCOMPARE(manager.screenByName("alpha", false), QUuid());
    QCOMPARE(manager.screenByName("alpha", true), alpha);
    QCOMPARE(manager.screenByName("Alpha", false), alpha);
    QCOMPARE(manager.screenByName("BETA", true), beta);
    QCOMPARE(manager.screenByName("gamma", true), QUuid());
    QCOMPARE(manager.screen(alpha).toStrongRef()->id(), alpha);
    QVERIFY(manager.screen(QUuid::createUuid()).isNull());
    QVERIFY(manager.visibleScreens().isEmpty());
    QCOMPARE(manager.getActiveScreen(), QUuid());
}

void tst_SceneManager::newScreenSortsTheWholeList()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    RecordingHandler recorder(EVM_SCREEN);

    manager.setScreenFactory(nullptr);
    QCOMPARE(manager.newScreen(true, true, 0, true), QUuid());
    manager.setScreenFactory(&TestScene::screenFactory());
    TestScene::screenFactory().fail = true;
    QCOMPARE(manager.newScreen(true, true, 0, true), QUuid());
    QCOMPARE(TestScene::screenFactory().names, QStringList({QString()}));
    TestScene::screenFactory().fail = false;
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(manager.screenCount(), 0u);

    // Whether the new screen is in the list as each event is delivered.
    QList<bool> listed;
    recorder.onEvent = [&](QSharedPointer<Event> const &event) {
        auto screen = event.staticCast<ScreenGenericEvent>()->screen();
        listed.append(manager.screenIndex(screen) >= 0);
    };
    TestScene::screenFactory().nextNames = QStringList({"b", "a"});
    QUuid const b = manager.newScreen(false, false, 0, false);
    _labels.insert(b, "b");
    QUuid const a = manager.newScreen(false, false, 0, false);
    _labels.insert(a, "a");
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
    QVERIFY(TestScene::screen(b)->calls.isEmpty());
}

void tst_SceneManager::firstVisibleScreenBecomesActive()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    RecordingHandler recorder(EVM_SCREEN);
    TestScene::screenFactory().nextNames = QStringList({"one", "two", "three"});

    QUuid const one = manager.newScreen(false, false, 0, true);
    _labels.insert(one, "one");
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED one -1 ''", "ABOUT_TO_ADD one 0", "ADDED one 0",
                          "VISIBLE_CHANGING one 0 shown", "VISIBLE_CHANGED one 0 shown",
                          "ACTIVE_CHANGING null -1", "ACTIVE_CHANGED one 0"}));
    QCOMPARE(manager.getActiveScreen(), one);
    QCOMPARE(TestScene::screen(one)->calls, QStringList({"activated"}));

    recorder.clear();
    QUuid const two = manager.newScreen(false, false, 0, true);
    _labels.insert(two, "two");
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED two -1 ''", "ABOUT_TO_ADD two 1", "ADDED two 1",
                          "VISIBLE_CHANGING two 1 shown", "VISIBLE_CHANGED two 1 shown"}));

    recorder.clear();
    QUuid const three = manager.newScreen(true, false, 0, false);
    _labels.insert(three, "three");
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED three -1 ''", "ABOUT_TO_ADD three 1", "ADDED three 1",
                          "ACTIVE_CHANGING one 0", "ACTIVE_CHANGED three 1"}));
    QCOMPARE(TestScene::screen(one)->calls, QStringList({"activated", "deactivated"}));
    QCOMPARE(TestScene::screen(three)->calls, QStringList({"activated"}));

    // In set order, not list order.
    QList<QUuid> visible{one, two};
    std::sort(visible.begin(), visible.end());
    QCOMPARE(manager.visibleScreens(), visible);
    QVERIFY(manager.getScreenVisible(two));
    QVERIFY(!manager.getScreenVisible(three));

    recorder.clear();
    manager.setActiveScreen(three);
    QVERIFY(recorder.events.isEmpty());
    manager.setActiveScreen(QUuid());
    QCOMPARE(_describe(recorder.events),
             QStringList({"ACTIVE_CHANGING three 1", "ACTIVE_CHANGED null -1"}));
    // An id that names no screen is taken, without the changed event.
    recorder.clear();
    QUuid const stranger = QUuid::createUuid();
    manager.setActiveScreen(stranger);
    QCOMPARE(_describe(recorder.events), QStringList({"ACTIVE_CHANGING null -1"}));
    QCOMPARE(manager.getActiveScreen(), stranger);
}

void tst_SceneManager::hidingTheActiveScreen()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const one = _screen("one");
    QUuid const two = _screen("two");
    QVERIFY(manager.setScreenVisible(one, true));
    QVERIFY(manager.setScreenVisible(two, true));
    RecordingHandler recorder(EVM_SCREEN);

    QVERIFY(!manager.setScreenVisible(QUuid(), true));
    QVERIFY(!manager.setScreenVisible(two, true));
    QVERIFY(recorder.events.isEmpty());

    // No other visible screen steps in.
    QVERIFY(manager.setScreenVisible(one, false));
    QCOMPARE(_describe(recorder.events),
             QStringList({"VISIBLE_CHANGING one 0 hidden", "VISIBLE_CHANGED one 0 hidden",
                          "ACTIVE_CHANGING one 0", "ACTIVE_CHANGED null -1"}));
    QCOMPARE(manager.getActiveScreen(), QUuid());
    QCOMPARE(manager.visibleScreens(), QList<QUuid>({two}));

    recorder.clear();
    QVERIFY(manager.setScreenVisible(one, true));
    QCOMPARE(_describe(recorder.events),
             QStringList({"VISIBLE_CHANGING one 0 shown", "VISIBLE_CHANGED one 0 shown",
                          "ACTIVE_CHANGING null -1", "ACTIVE_CHANGED one 0"}));
}

void tst_SceneManager::removingTheActiveScreen()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const one = _screen("one");
    QUuid const two = _screen("two");
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
    QCOMPARE(manager.screens(), QList<QUuid>({two}));
    QCOMPARE(manager.getActiveScreen(), QUuid());
    QCOMPARE(manager.visibleScreens(), QList<QUuid>({two}));
    QVERIFY(manager.getObject(leaf).isNull());

    // A lock keeps a removed screen alive, out of the list.
    recorder.clear();
    QSharedPointer<Screen> held = manager.screen(two).toStrongRef();
    manager.removeScreen(two);
    QCOMPARE(held->id(), two);
    QCOMPARE(manager.screenIndex(two), -1);
    QCOMPARE(_describe(recorder.events),
             QStringList({"ABOUT_TO_REMOVE two 0", "VISIBLE_CHANGING two 0 hidden",
                          "VISIBLE_CHANGED two 0 hidden"}));
}

void tst_SceneManager::removeScreens()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const a = _screen("a");
    QUuid const b = _screen("b");
    QUuid const c = _screen("c");
    RecordingHandler recorder(EVM_SCREEN);

    QUuid const stranger = QUuid::createUuid();
    manager.removeScreens({stranger, c, a});
    QCOMPARE(_describe(recorder.events),
             QStringList({"ABOUT_TO_REMOVE c 2", "ABOUT_TO_REMOVE a 0"}));
    QCOMPARE(manager.screens(), QList<QUuid>({b}));

    // Callers pass ids from the list; an unknown one is told about, and nothing else happens.
    recorder.clear();
    manager.removeScreen(stranger);
    QCOMPARE(_describe(recorder.events), QStringList({"ABOUT_TO_REMOVE ? -1"}));
    QCOMPARE(manager.screenCount(), 1u);

    _screen("d");
    manager.removeAllScreens();
    QCOMPARE(manager.screenCount(), 0u);
}

void tst_SceneManager::renameRaisesTwice()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const alpha = _screen("Alpha");
    QUuid const beta = _screen("beta");
    RecordingHandler recorder(EVM_SCREEN);

    // Once from the screen's property, once from the manager; both with the old name.
    QVERIFY(manager.setScreenName(beta, "gamma"));
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED beta 1 'beta'", "RENAMED beta 1 'beta'"}));
    QCOMPARE(TestScene::screen(beta)->getName(), QString("gamma"));

    recorder.clear();
    QVERIFY(!manager.setScreenName(beta, "ALPHA"));
    QVERIFY(manager.setScreenName(alpha, "alpha"));
    QVERIFY(!manager.setScreenName(QUuid::createUuid(), "delta"));
    QVERIFY(recorder.events.isEmpty());
    QCOMPARE(TestScene::screen(beta)->getName(), QString("gamma"));
    QCOMPARE(TestScene::screen(alpha)->getName(), QString("Alpha"));

    QVERIFY(TestScene::screen(alpha)->setName("delta"));
    QCOMPARE(_describe(recorder.events),
             QStringList({"RENAMED Alpha 0 'Alpha'", "RENAMED Alpha 0 'Alpha'"}));
}

void tst_SceneManager::duplicateFollowsEveryReference()
{
    TestScene::registerFactories();
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
    QVERIFY(copy != page);

    // Every id is new, and every reference follows to the copy's own objects.
    QList<QUuid> const copies = duplicate->objects();
    QCOMPARE(copies.size(), originals.size());
    auto copyOf = [&](QUuid const &original) { return copies.value(originals.indexOf(original)); };
    for (int i = 0; i < copies.size(); ++i) {
        QVERIFY(!originals.contains(copies.at(i)));
        QCOMPARE(TestScene::object(copies.at(i))->getName(),
                 TestScene::object(originals.at(i))->getName());
        QCOMPARE(TestScene::object(copies.at(i))->getRectangle(),
                 TestScene::object(originals.at(i))->getRectangle());
    }
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
    QCOMPARE(TestScene::screen(page)->activeLayer, root);
}

void tst_SceneManager::duplicateNamesAndPlaces()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const a = _screen("a");
    QUuid const b = _screen("b");
    // The copy goes straight behind its source, unsorted.
    manager.setScreenName(a, "zz");
    QVERIFY(manager.duplicateScreen(a));
    QUuid const first = manager.screenAtIndex(1);
    QVERIFY(manager.duplicateScreen(a));
    QUuid const second = manager.screenAtIndex(1);
    QCOMPARE(manager.screens(), QList<QUuid>({a, second, first, b}));
    QCOMPARE(TestScene::screen(first)->getName(), QString("zz_Copy"));
    QCOMPARE(TestScene::screen(second)->getName(), QString("zz_Copy_Copy"));

    // Names clash regardless of case.
    QUuid const upper = _screen("X");
    _screen("x_COPY");
    QVERIFY(manager.duplicateScreen(upper));
    QCOMPARE(TestScene::screen(manager.screenAtIndex(manager.screenIndex(upper) + 1))->getName(),
             QString("X_Copy_Copy"));

    RecordingHandler recorder(EVM_SCREEN);
    QVERIFY(!manager.duplicateScreen(QUuid::createUuid()));
    QVERIFY(recorder.events.isEmpty());
    unsigned int const count = manager.screenCount();
    TestScene::screenFactory().fail = true;
    QVERIFY(!manager.duplicateScreen(b));
    QCOMPARE(manager.screenCount(), count);
}

void tst_SceneManager::reset()
{
    TestScene::registerFactories();
    SceneManager &manager = SceneManager::i();
    QUuid const one = _screen("one");
    QUuid const two = _screen("two");
    QUuid const group = TestScene::addContainer(one, QRect());
    QUuid const item = TestScene::addLeaf(group, QRect());
    QUuid const loose = TestScene::addLeaf(QUuid(), QRect());
    manager.setScreenVisible(one, true);
    manager.setScreenVisible(two, true);

    manager.reset();
    QCOMPARE(manager.screenCount(), 0u);
    QCOMPARE(manager.getActiveScreen(), QUuid());
    QVERIFY(manager.visibleScreens().isEmpty());
    for (QUuid const &id : {group, item, loose})
        QVERIFY(manager.getObject(id).isNull());
}

void tst_SceneManager::handlerAnswersScreenSizeAndLoads()
{
    SceneManager &manager = SceneManager::i();
    QCOMPARE(manager.getEventHandlerName(), QString("SceneManager"));
    QVERIFY(manager.canHandleEvent(EVM_PROJECT));
    QVERIFY(manager.canHandleEvent(EVM_GLOBALSTATE));
    QVERIFY(!manager.canHandleEvent(EVM_COMMAND | EVM_SCREEN | EVM_TOOL | EVM_SCENE | EVM_SELECT));
    QVERIFY(manager.persistent());
    QCOMPARE(manager.screenSize(), QSize(480, 272));

    using G = GlobalPropertyType;
    new GlobalState();
    QCOMPARE(manager.screenSize(), QSize(480, 272));
    RecordingHandler recorder(EVM_SCREEN);
    // Raised from inside a delivery, the request arrives with the next pump. The id counts,
    // not the group.
    GlobalState::i().setInt(G::Project, 2, 25);
    GlobalState::i().setString(G::Session, 9, "elsewhere");
    QTRY_COMPARE(recorder.types(), QList<unsigned long long>({EVT_SCREEN_REPAINT_REQUEST}));
    GlobalState::i().setInt(G::Project, 8, 800);
    GlobalState::i().setInt(G::Project, 9, 600);
    QTRY_COMPARE(recorder.events.size(), 3);
    QCOMPARE(recorder.events.last()->mask(), EVM_SCREEN);
    QCOMPARE(manager.screenSize(), QSize(800, 600));

    // After a load, which set the active screen silently, everybody is told.
    TestScene::registerFactories();
    _screen("one");
    QUuid const two = _screen("two");
    recorder.clear();
    // Without an active screen there is nothing to tell. A later event pumps the queue, so
    // what the handler raised would come before it.
    auto const marker = QSharedPointer<Event>::create(EVT_SCREEN_LIST_CHANGED, EVM_SCREEN);
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_PROJECT_LOADED, EVM_PROJECT));
    EventBus::i().raiseEventNow(marker);
    QCOMPARE(recorder.types(), QList<unsigned long long>({EVT_SCREEN_LIST_CHANGED}));
    manager.setActiveScreen(two);
    recorder.clear();
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_PROJECT_LOADED, EVM_PROJECT));
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
    QJsonObject const list = QJsonDocument::fromJson(data).object();
    QCOMPARE(list,
             QJsonObject({{"active", ""}, {"visible", QJsonArray()}, {"screens", QJsonArray()}}));
    // The list file is a step of the count, not of the monitor.
    QCoreApplication::sendPostedEvents(&counter);
    QCOMPARE(counter.steps, 0);

    QVERIFY(SceneManager::i().load(state, monitor));
    QCOMPARE(SceneManager::i().screenCount(), 0u);
}

void tst_SceneManager::saveAndLoadThroughAnArchive()
{
    TestScene::registerFactories();
    QUuid const a = _screen("a");
    QUuid const b = _screen("b");
    QUuid const c = _screen("c");
    QUuid const group = TestScene::addContainer(a, QRect(10, 20, 30, 40), "group");
    QUuid const item = TestScene::addLeaf(group, QRect(1, 2, 3, 4), "item");
    QUuid const single = TestScene::addLeaf(b, QRect(5, 5, 5, 5), "single");
    TestScene::object(single)->link = item;
    TestScene::screen(a)->activeLayer = group;
    SceneManager::i().setScreenVisible(c, true);
    SceneManager::i().setScreenVisible(a, true);
    // Renamed out of order: the list order is what is kept, not the names' order.
    SceneManager::i().setScreenName(a, "zz");
    QList<QUuid> const order = SceneManager::i().screens();
    QList<QUuid> const visible = SceneManager::i().visibleScreens();
    QHash<QUuid, QList<QUuid>> objects;
    for (QUuid const &id : order)
        objects.insert(id, TestScene::screen(id)->objects());

    DataState saved;
    StepCounter counter;
    ProgressMonitor monitor(&counter);
    QCOMPARE(SceneManager::i().getSaveStepCount(), 4u);
    QVERIFY(SceneManager::i().save(saved, monitor));
    QCoreApplication::sendPostedEvents(&counter);
    QCOMPARE(counter.steps, 3);
    QCOMPARE(SceneManager::i().getLoadStepCount(&saved), 0u);
    QJsonObject const list
        = QJsonDocument::fromJson(saved.getFileData("screens/screens.json")).object();
    QCOMPARE(list.value("active").toString(), c.toString());
    QCOMPARE(list.value("screens").toArray(),
             QJsonArray({a.toString(), b.toString(), c.toString()}));
    QCOMPARE(list.value("visible").toArray(),
             QJsonArray({visible.at(0).toString(), visible.at(1).toString()}));
    for (QUuid const &id : order)
        QVERIFY(saved.hasFileData("screens/" + id.toString() + "/screen.json"));
    QVERIFY(saved.writeZip("screens.zip"));

    // Into a fresh manager, from the archive.
    SceneManager::destroy();
    new SceneManager();
    TestScene::registerFactories();
    RecordingHandler recorder(EVM_SCREEN | EVM_SCENE);
    DataState read;
    QVERIFY(read.read("screens.zip"));
    StepCounter loadCounter;
    ProgressMonitor loadMonitor(&loadCounter);
    QVERIFY(SceneManager::i().load(read, loadMonitor));
    QCoreApplication::sendPostedEvents(&loadCounter);
    QCOMPARE(loadCounter.steps, 3);
    QVERIFY(recorder.events.isEmpty());

    QCOMPARE(SceneManager::i().screens(), order);
    QCOMPARE(SceneManager::i().visibleScreens(), visible);
    QCOMPARE(SceneManager::i().getActiveScreen(), c);
    QCOMPARE(TestScene::screen(a)->getName(), QString("zz"));
    for (QUuid const &id : order)
        QCOMPARE(TestScene::screen(id)->objects(), objects.value(id));
    QCOMPARE(TestScene::object(item)->parent(), group);
    QCOMPARE(TestScene::object(item)->getRectangle(), QRect(1, 2, 3, 4));
    QCOMPARE(TestScene::object(single)->link, item);
    QCOMPARE(TestScene::screen(a)->activeLayer, group);

    // Saved again, the project is the same, byte for byte.
    DataState again;
    SceneManager::i().save(again, loadMonitor);
    QCOMPARE(again.fileNames(), saved.fileNames());
    for (QString const &name : saved.fileNames())
        QCOMPARE(again.getFileData(name), saved.getFileData(name));

    // The load raised nothing; the project's loaded event makes up for it.
    EventBus::i().raiseEventNow(QSharedPointer<Event>::create(EVT_PROJECT_LOADED, EVM_PROJECT));
    _labels.insert(c, "c");
    QTRY_COMPARE(_describe(recorder.events),
                 QStringList({"ACTIVE_CHANGING null -1", "ACTIVE_CHANGED c 2"}));
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
    QTest::newRow("no list file") << QByteArray() << QByteArray() << 0 << "" << false << false;
    QTest::newRow("list no JSON") << QByteArray(R"({"screens": [)") << named << 0 << "" << false
                                  << false;
    QTest::newRow("list an array") << QByteArray(R"(["U"])") << named << 0 << "" << false << false;
    QTest::newRow("screens no array")
        << QByteArray(R"({"screens": "U", "active": "U"})") << named << 0 << "" << false << false;
    QTest::newRow("intact") << full << named << 1 << "kept" << true << true;
    // An entry that names no file gives a screen of empty values, with an id of its own.
    QTest::newRow("entry no text")
        << QByteArray(R"({"screens": [5], "active": "U"})") << named << 1 << "" << false << false;
    QTest::newRow("screen file missing") << full << QByteArray() << 1 << "" << false << false;
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

    TestScene::registerFactories();
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

void tst_SceneManager::loadStepCount()
{
    DataState state;
    QCOMPARE(SceneManager::i().getLoadStepCount(nullptr), 0u);
    QCOMPARE(SceneManager::i().getLoadStepCount(&state), 0u);
    // Only a list file that is an array counts.
    state.setFileData("screens/screens.json", "[1, 2, 3]");
    QCOMPARE(SceneManager::i().getLoadStepCount(&state), 3u);
}

QTEST_MAIN(tst_SceneManager)
#include "tst_SceneManager.moc"
