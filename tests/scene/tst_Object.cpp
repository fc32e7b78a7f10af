#include "events/EventBus.h"
#include "properties/AbstractBooleanProperty.h"
#include "properties/Property.h"
#include "scene/Object.h"
#include "scene/SceneManager.h"
#include "scene/TransformSceneObject.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"

#include <QJsonDocument>
#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

// A transform object that adds no tag of its own, to see the host's tags alone.
class BareTransform : public TransformSceneObject
{
public:
    QList<QUuid> children(bool) const override { return {}; }
    bool addChild(QUuid const &, unsigned int) override { return false; }
    void removeChild(QUuid const &) override {}
    void moveChild(QUuid const &, unsigned int) override {}
    QRect getRectangle() override { return _rect; }
    void setRectangle(QRect const &rect) override { _rect = rect; }

    bool validateName(QString const &current, QString const &proposed) const override
    {
        asked.append(current + ">" + proposed);
        return proposed != "refused";
    }

    mutable QStringList asked;

private:
    QRect _rect;
};

} // namespace

class tst_Object : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void freshObject();
    void typeTags();
    void nameThroughValidator();
    void editorProperties();
    void saveAndLoad();
    void loadWithoutProperties();
};

void tst_Object::init()
{
    new EventBus();
    EventBus::i().setEventsEnabled(true);
    new SceneManager();
    TestScene::registerFactories();
}

void tst_Object::cleanup()
{
    SceneManager::destroy();
    EventBus::destroy();
}

void tst_Object::freshObject()
{
    Object first;
    Object second;
    QVERIFY(!first.id().isNull());
    QVERIFY(first.id() != second.id());
    QCOMPARE(first.getName(), QString());
    QCOMPARE(first.type(), QString("Object"));
    QCOMPARE(Object::Type(), QString("Object"));
    QVERIFY(first.icon().isNull());
    // Name and id are properties of the model, so they travel with it.
    QCOMPARE(first.model()->getValue("id").toUuid(), first.id());
    QVERIFY(first.model()->property("name"));
    QCOMPARE(first.model()->propertyNames().size(), std::size_t(2));

    QVERIFY(first.setName("panel"));
    QCOMPARE(first.getName(), QString("panel"));
    QCOMPARE(first.model()->getValue("name").toString(), QString("panel"));
    // Writing the same value again is a refusal of the property system.
    QVERIFY(!first.setName("panel"));
}

void tst_Object::typeTags()
{
    BareTransform bare;
    // Sorted, not in order of construction.
    QCOMPARE(bare.type(), QString("Object:TransformSceneObject"));
    QCOMPARE(TransformSceneObject::Type(), QString("TransformSceneObject"));
    QVERIFY(bare.isType("Object"));
    QVERIFY(bare.isType("TransformSceneObject"));
    QVERIFY(!bare.isType("Screen"));
    QVERIFY(!bare.isType("object"));
    QVERIFY(!bare.isType(""));

    TestLeaf leaf;
    QCOMPARE(leaf.type(), QString("Object:TestLeaf:TransformSceneObject"));
    QVERIFY(!leaf.isType(TestContainer::Type()));
    TestContainer container;
    QCOMPARE(container.type(), QString("Object:TestContainer:TransformSceneObject"));
}

void tst_Object::nameThroughValidator()
{
    BareTransform bare;
    QVERIFY(bare.setName("first"));
    QVERIFY(bare.setName("second"));
    QVERIFY(!bare.setName("refused"));
    QCOMPARE(bare.getName(), QString("second"));
    QCOMPARE(bare.asked, QStringList({">first", "first>second", "second>refused"}));

    // The default validator takes anything, the empty text too.
    TestLeaf leaf;
    QVERIFY(leaf.setName("x"));
    QVERIFY(leaf.setName(""));
}

void tst_Object::editorProperties()
{
    TestLeaf leaf;
    PropertyModel *model = leaf.model();
    for (QString const id : {"editorLocked", "editorHidden", "editorExpanded"}) {
        Property *property = model->property(id);
        QVERIFY2(property, qPrintable(id));
        QCOMPARE(property->type(), AbstractBooleanProperty::Type());
        // Straight on the model, in no category.
        QCOMPARE(model->findOwner(id).type, PropertyOwnerType::OwnerNone);
    }
    QCOMPARE(model->getValue("editorLocked"), QVariant(false));
    QCOMPARE(model->getValue("editorHidden"), QVariant(false));
    QCOMPARE(model->getValue("editorExpanded"), QVariant(true));
}

void tst_Object::saveAndLoad()
{
    Object source;
    source.setName("header");
    QJsonObject json;
    source.save(json);
    QCOMPARE(json.keys(), QStringList({"properties"}));
    QJsonObject const properties = json.value("properties").toObject();
    QVERIFY(properties.contains("name"));
    QVERIFY(properties.contains("id"));

    // Through text, as in a project file.
    QJsonObject const reread = QJsonDocument::fromJson(QJsonDocument(json).toJson()).object();
    Object copy;
    QVERIFY(copy.load(reread));
    QCOMPARE(copy.id(), source.id());
    QCOMPARE(copy.getName(), QString("header"));

    // A concrete class adds its own keys beside the host's.
    QUuid const id = TestScene::addLeaf(QUuid(), QRect(1, 2, 3, 4), "leaf");
    QJsonObject leafJson;
    TestScene::object(id)->save(leafJson);
    QVERIFY(leafJson.contains("properties"));
    TestLeaf other;
    QVERIFY(other.load(leafJson));
    QCOMPARE(other.id(), id);
    QCOMPARE(other.getName(), QString("leaf"));
    QCOMPARE(other.getRectangle(), QRect(1, 2, 3, 4));
    QCOMPARE(other.model()->getValue("editorExpanded"), QVariant(true));
}

void tst_Object::loadWithoutProperties()
{
    Object object;
    object.setName("kept");
    QUuid const id = object.id();
    QVERIFY(object.load(QJsonObject()));
    QVERIFY(object.load(QJsonObject{{"properties", "not an object"}}));
    QVERIFY(object.load(QJsonObject{{"other", 1}}));
    QCOMPARE(object.id(), id);
    QCOMPARE(object.getName(), QString("kept"));
}

QTEST_MAIN(tst_Object)
#include "tst_Object.moc"
