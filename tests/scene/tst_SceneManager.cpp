#include "events/EventBus.h"
#include "scene/SceneManager.h"
#include "scene/SceneObjectFactory.h"
#include "scene/SceneObjectInfo.h"
#include "support/RecordingHandler.h"
#include "support/RecordingPropertyListener.h"
#include "support/TestContainer.h"
#include "support/TestContainerFactory.h"
#include "support/TestLeaf.h"
#include "support/TestLeafFactory.h"
#include "support/TestScene.h"

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
    EventBus::destroy();
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

QTEST_MAIN(tst_SceneManager)
#include "tst_SceneManager.moc"
