#include "properties/IPropertyFactory.h"
#include "properties/IntegerProperty.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "properties/TextProperty.h"
#include "support/RecordingPropertyListener.h"

#include <QtTest>

#include <cstdio>
#include <unistd.h>

using namespace TES;
using TES::Test::RecordingPropertyListener;

namespace {

constexpr auto Internal = PropertyChangeReason::ReasonInternal;

// A plug-in's own type: a text property under another name.
class NoteFactory : public IPropertyFactory
{
public:
    QString type() const override { return "note"; }
    Property *createProperty(PropertyModel *model, QString const &id,
                             std::map<QString, QVariant>) const override
    {
        if (id == "refused")
            return nullptr;
        return new TextProperty(model, id);
    }
    PropertyViewNameCell *createView(Property *) const override { return nullptr; }
};

// The shape every persistence test uses: category "c" listing "a" and group "g", group "g"
// listing "b", and "orphan" listed nowhere.
struct SampleModel
{
    SampleModel()
    {
        PropertyCategory *c = model.addCategory("c");
        PropertyGroup *g = model.addGroup("g");
        c->addChild("a");
        c->addChild("g");
        g->addChild("b");
        model.addProperty("integer", "a", {});
        model.addProperty("boolean", "b", {});
        model.addProperty("text", "orphan", {});
        model.addProperty("button", "button", {});
    }
    PropertyModel model;
};

} // namespace

class tst_PropertyModel : public QObject
{
    Q_OBJECT

private slots:
    void factories_data();
    void factories();
    void pluginFactory();
    void addAndRemove();
    void itemVisible_data();
    void itemVisible();
    void unlistedItemsAreHidden();
    void listeners();
    void listenerChangesDuringFanOut();
    void eventsOff();
    void resetAndClear();
    void saveForm();
    void saveThenLoad();
    void loadRestoresNodesByName();
    void loadOfDamagedJson_data();
    void loadOfDamagedJson();
    void print();
};

void tst_PropertyModel::factories_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("registered");
    QTest::newRow("boolean") << "boolean" << true;
    QTest::newRow("button") << "button" << true;
    QTest::newRow("combo") << "combo" << true;
    QTest::newRow("hex") << "hex" << true;
    QTest::newRow("integer") << "integer" << true;
    QTest::newRow("text") << "text" << true;
    QTest::newRow("uuid") << "uuid" << true;
    // No concrete float ships with the host.
    QTest::newRow("float") << "float" << false;
    QTest::newRow("case matters") << "Integer" << false;
    QTest::newRow("empty") << "" << false;
}

void tst_PropertyModel::factories()
{
    QFETCH(QString, type);
    QFETCH(bool, registered);

    PropertyModel model;
    IPropertyFactory *factory = PropertyModel::Factory(type);
    QCOMPARE(factory != nullptr, registered);
    Property *property = model.addProperty(type, "p", {{"ignored", 1}});
    QCOMPARE(property != nullptr, registered);
    if (!registered)
        return;
    QCOMPARE(factory->type(), type);
    QCOMPARE(property->type(), type);
    QCOMPARE(property->id(), QString("p"));
    QCOMPARE(property->model(), &model);
    QCOMPARE(model.property("p"), property);
    QCOMPARE(factory->createView(property), static_cast<PropertyViewNameCell *>(nullptr));
    // A type is registered once.
    QVERIFY(!PropertyModel::AddFactory(factory));
}

void tst_PropertyModel::pluginFactory()
{
    NoteFactory factory;
    QVERIFY(!PropertyModel::AddFactory(nullptr));
    QVERIFY(PropertyModel::AddFactory(&factory));
    QCOMPARE(PropertyModel::Factory("note"), &factory);

    PropertyModel model;
    Property *note = model.addProperty("note", "n", {});
    QVERIFY(note);
    QCOMPARE(note->type(), QString("text"));
    // A factory may refuse; nothing is stored then.
    QVERIFY(!model.addProperty("note", "refused", {}));
    QVERIFY(!model.property("refused"));

    QVERIFY(PropertyModel::RemoveFactory("note"));
    QVERIFY(!PropertyModel::RemoveFactory("note"));
    QVERIFY(!PropertyModel::Factory("note"));
    QVERIFY(!model.addProperty("note", "m", {}));
    QVERIFY(PropertyModel::Factory("integer"));
}

void tst_PropertyModel::addAndRemove()
{
    PropertyModel model;
    QVERIFY(!model.hasContent());
    Property *b = model.addProperty("integer", "b", {});
    QVERIFY(b->setValue(4, Internal));
    QVERIFY(!model.hasContent());

    // An existing id refuses, and the old property stays.
    QVERIFY(!model.addProperty("text", "b", {}));
    QCOMPARE(model.property("b"), b);
    QCOMPARE(model.getValue("b"), QVariant(4));

    model.addProperty("integer", "a", {});
    model.addProperty("integer", "c", {});
    QCOMPARE(model.propertyNames(), std::list<QString>({"a", "b", "c"}));
    QCOMPARE(model.propertyCount(false), 3);
    QCOMPARE(model.propertyCount(true), 3);
    QVERIFY(!model.getValue("missing").isValid());
    QVERIFY(!model.setValue("missing", 1, Internal));

    PropertyCategory *first = model.addCategory("first");
    QVERIFY(!model.addCategory("first"));
    PropertyCategory *second = model.addCategory("second");
    QVERIFY(model.hasContent());
    QCOMPARE(model.categories(), std::list<PropertyCategory *>({first, second}));
    QCOMPARE(model.category("second"), second);
    QVERIFY(!model.category("third"));
    PropertyGroup *group = model.addGroup("group");
    QVERIFY(!model.addGroup("group"));
    QCOMPARE(model.groups(), std::list<PropertyGroup *>({group}));
    QCOMPARE(model.group("group"), group);

    // The first category that lists an id owns it, ahead of any group.
    second->addChild("a");
    first->addChild("a");
    group->addChild("a");
    group->addChild("b");
    first->addChild("group");
    QCOMPARE(model.findOwner("a").id, QString("first"));
    QCOMPARE(model.findOwner("a").type, PropertyOwnerType::OwnerCategory);
    QCOMPARE(model.findOwner("b").type, PropertyOwnerType::OwnerGroup);
    QCOMPARE(model.findOwner("c").type, PropertyOwnerType::OwnerNone);

    // Removing a property unlists it from its owner only.
    QVERIFY(model.removeProperty("a"));
    QVERIFY(!model.removeProperty("a"));
    QVERIFY(!first->hasChild("a"));
    QVERIFY(second->hasChild("a"));
    QVERIFY(group->hasChild("a"));

    // Removing a group unlists it and leaves its properties, now unowned and hidden.
    QVERIFY(model.removeGroup("group"));
    QVERIFY(!model.removeGroup("group"));
    QVERIFY(!first->hasChild("group"));
    QCOMPARE(model.property("b"), b);
    QCOMPARE(b->owner().type, PropertyOwnerType::OwnerNone);
    QVERIFY(!model.itemVisible("b"));

    first->addChild("b");
    QVERIFY(model.removeCategory("first"));
    QVERIFY(!model.removeCategory("first"));
    QCOMPARE(model.property("b"), b);
    QVERIFY(!model.itemVisible("b"));

    model.setData("key", 5);
    QCOMPARE(model.getData("key"), QVariant(5));
    QVERIFY(!model.getData("other").isValid());
}

void tst_PropertyModel::itemVisible_data()
{
    QTest::addColumn<bool>("categoryVisible");
    QTest::addColumn<bool>("categoryExpanded");
    QTest::addColumn<bool>("groupVisible");
    QTest::addColumn<bool>("groupExpanded");
    QTest::addColumn<bool>("propertiesVisible");
    // Expected for the category, the group, "a" in the category, "b" in the group.
    QTest::addColumn<QList<bool>>("expected");

    QTest::newRow("all open") << true << true << true << true << true
                              << QList<bool>{true, true, true, true};
    QTest::newRow("group closed") << true << true << true << false << true
                                  << QList<bool>{true, true, true, false};
    QTest::newRow("group hidden") << true << true << false << true << true
                                  << QList<bool>{true, false, true, false};
    // A closed category still shows itself, and nothing in it.
    QTest::newRow("category closed")
        << true << false << true << true << true << QList<bool>{true, false, false, false};
    QTest::newRow("category hidden")
        << false << true << true << true << true << QList<bool>{false, false, false, false};
    QTest::newRow("properties hidden")
        << true << true << true << true << false << QList<bool>{true, true, false, false};
}

void tst_PropertyModel::itemVisible()
{
    QFETCH(bool, categoryVisible);
    QFETCH(bool, categoryExpanded);
    QFETCH(bool, groupVisible);
    QFETCH(bool, groupExpanded);
    QFETCH(bool, propertiesVisible);
    QFETCH(QList<bool>, expected);

    SampleModel sample;
    PropertyModel &model = sample.model;
    model.category("c")->setVisible(categoryVisible);
    model.category("c")->setExpanded(categoryExpanded);
    model.group("g")->setVisible(groupVisible);
    model.group("g")->setExpanded(groupExpanded);
    model.property("a")->setVisible(propertiesVisible);
    model.property("b")->setVisible(propertiesVisible);

    QList<bool> const actual{model.itemVisible("c"), model.itemVisible("g"), model.itemVisible("a"),
                             model.itemVisible("b")};
    QCOMPARE(actual, expected);
    QCOMPARE(model.property("a")->getVisible(), expected.at(2));
    QCOMPARE(model.property("b")->getVisible(), expected.at(3));
    QCOMPARE(model.group("g")->getVisible(), expected.at(1));
}

void tst_PropertyModel::unlistedItemsAreHidden()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    QVERIFY(!model.itemVisible("orphan"));
    QVERIFY(!model.itemVisible("nothing"));

    // A group in no category is hidden whatever its flags, and so is all it lists.
    PropertyGroup *loose = model.addGroup("loose");
    loose->setExpanded(true);
    loose->addChild("orphan");
    QVERIFY(!model.itemVisible("loose"));
    QVERIFY(!model.itemVisible("orphan"));
}

void tst_PropertyModel::listeners()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    RecordingPropertyListener first;
    RecordingPropertyListener second;
    model.addListener(nullptr);
    model.addListener(&first);
    model.addListener(&second);
    model.addListener(&first);

    Property *a = model.property("a");
    QVERIFY(a->setValue(1, Internal));
    model.raisePropertyEvent(a, 7, {});
    QCOMPARE(first.words(), QStringList({"value:a", "event:a"}));
    QCOMPARE(first.calls.at(1).event, 7u);
    QCOMPARE(second.words(), first.words());

    // A listener destroyed without leaving is dropped quietly.
    {
        RecordingPropertyListener shortLived;
        model.addListener(&shortLived);
        QVERIFY(a->setValue(2, Internal));
        QCOMPARE(shortLived.words(), QStringList({"value:a"}));
    }
    QVERIFY(a->setValue(3, Internal));

    model.removeListener(&first);
    model.removeListener(&first);
    first.clear();
    second.clear();
    QVERIFY(a->setValue(4, Internal));
    QVERIFY(first.calls.isEmpty());
    QCOMPARE(second.words(), QStringList({"value:a"}));

    // A copied listener is a new one, not a second entry of the original.
    RecordingPropertyListener copy(second);
    model.addListener(&copy);
    copy.clear();
    second.clear();
    QVERIFY(a->setValue(5, Internal));
    QCOMPARE(copy.words(), QStringList({"value:a"}));
    QCOMPARE(second.words(), QStringList({"value:a"}));
}

void tst_PropertyModel::listenerChangesDuringFanOut()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    Property *a = model.property("a");
    RecordingPropertyListener first;
    RecordingPropertyListener second;
    RecordingPropertyListener late;
    auto *doomed = new RecordingPropertyListener;
    model.addListener(&first);
    model.addListener(doomed);
    model.addListener(&second);

    // The first listener deletes the second one and adds another; the deleted one is not
    // called, the added one only from the next change on.
    first.onCall = [&](RecordingPropertyListener::Call const &) {
        delete doomed;
        doomed = nullptr;
        model.addListener(&late);
        first.onCall = nullptr;
    };
    QVERIFY(a->setValue(1, Internal));
    QCOMPARE(first.words(), QStringList({"value:a"}));
    QCOMPARE(second.words(), QStringList({"value:a"}));
    QVERIFY(late.calls.isEmpty());

    QVERIFY(a->setValue(2, Internal));
    QCOMPARE(late.words(), QStringList({"value:a"}));

    // A listener may leave while it is told.
    second.onCall = [&](RecordingPropertyListener::Call const &) { model.removeListener(&second); };
    QVERIFY(a->setValue(3, Internal));
    QVERIFY(a->setValue(4, Internal));
    QCOMPARE(second.words(), QStringList({"value:a", "value:a", "value:a"}));
}

void tst_PropertyModel::eventsOff()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    RecordingPropertyListener listener;
    model.addListener(&listener);
    Property *a = model.property("a");

    model.setEventsEnabled(false);
    QVERIFY(!model.getEventsEnabled());
    QVERIFY(model.setValue("a", 5, Internal));
    QVERIFY(a->setValue(6, Internal));
    QVERIFY(AbstractIntegerProperty::Set(&model, "a", 7, Internal));
    a->setEnabled(false);
    model.category("c")->setExpanded(false);
    model.group("g")->setVisible(false);
    model.raisePropertyEvent(a, 0, {});
    QVERIFY(listener.calls.isEmpty());
    QCOMPARE(a->getValue(), QVariant(7));
    // The model switched the property's own events off for the call only.
    QVERIFY(a->getEventsEnabled());

    model.setEventsEnabled(true);
    QVERIFY(model.setValue("a", 8, Internal));
    QCOMPARE(listener.words(), QStringList({"value:a"}));
}

void tst_PropertyModel::resetAndClear()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    auto *a = static_cast<IntegerProperty *>(model.property("a"));
    a->setDefault(10);
    QVERIFY(model.setValue("b", true, Internal));
    QVERIFY(model.setValue("orphan", QString("text"), Internal));
    QVERIFY(model.setValue("button", QString("Press"), Internal));
    RecordingPropertyListener listener;
    model.addListener(&listener);

    // Every property goes back to its default in id order; a property without a default set
    // goes back to its type's zero, and a button has no default at all.
    model.reset();
    QCOMPARE(listener.words(), QStringList({"value:a", "value:b", "value:orphan"}));
    QCOMPARE(model.getValue("a"), QVariant(10));
    QCOMPARE(model.getValue("b"), QVariant(false));
    QCOMPARE(model.getValue("orphan"), QVariant(QString()));
    QCOMPARE(model.getValue("button"), QVariant(QString("Press")));

    model.setData("kept", 1);
    listener.clear();
    model.clear();
    QVERIFY(listener.calls.isEmpty());
    QVERIFY(model.propertyNames().empty());
    QVERIFY(model.categories().empty());
    QVERIFY(model.groups().empty());
    QCOMPARE(model.getData("kept"), QVariant(1));
    // The listener stays.
    model.addProperty("integer", "new", {});
    QVERIFY(model.setValue("new", 1, Internal));
    QCOMPARE(listener.words(), QStringList({"value:new"}));
}

void tst_PropertyModel::saveForm()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    model.category("c")->setText("Not written");
    model.category("c")->setExpanded(false);
    model.group("g")->setExpanded(true);
    model.property("orphan")->setPersistent(false);
    QVERIFY(model.setValue("a", 5, Internal));

    // The group's raw flag is written, though it does not show in the closed category.
    QJsonObject const json = model.save();
    QCOMPARE(
        json.value("__categories"),
        QJsonValue(QJsonArray{QJsonObject{{"id", "c"}, {"visible", true}, {"expanded", false}}}));
    QCOMPARE(
        json.value("__groups"),
        QJsonValue(QJsonArray{QJsonObject{{"id", "g"}, {"visible", true}, {"expanded", true}}}));
    QCOMPARE(json.keys(), QStringList({"__categories", "__groups", "a", "b"}));
    QCOMPARE(json.value("a").toObject().value("value"), QJsonValue(5));
}

void tst_PropertyModel::saveThenLoad()
{
    SampleModel source;
    PropertyModel &model = source.model;
    QVERIFY(model.setValue("a", 42, Internal));
    QVERIFY(model.setValue("b", true, Internal));
    QVERIFY(model.setValue("orphan", QString("kept unlisted"), Internal));
    QVERIFY(model.setValue("button", QString("Caption"), Internal));
    model.property("a")->setEnabled(false);
    model.property("b")->setVisible(false);
    model.category("c")->setExpanded(false);
    model.group("g")->setVisible(false);
    model.group("g")->setExpanded(true);

    // Through the text form, as a project file goes.
    QByteArray const text = QJsonDocument(model.save()).toJson(QJsonDocument::Indented);

    SampleModel target;
    RecordingPropertyListener listener;
    target.model.addListener(&listener);
    target.model.setEventsEnabled(false);
    QVERIFY(target.model.load(QJsonDocument::fromJson(text).object()));

    QCOMPARE(target.model.getValue("a"), QVariant(42));
    QCOMPARE(target.model.getValue("b"), QVariant(true));
    QCOMPARE(target.model.getValue("orphan"), QVariant(QString("kept unlisted")));
    QVERIFY(!target.model.property("a")->getEnabled());
    QVERIFY(target.model.property("b")->getEnabled());
    QCOMPARE(target.model.property("b")->save().value("visible"), QJsonValue(false));
    // Buttons are not saved.
    QCOMPARE(target.model.getValue("button"), QVariant(QString()));
    // Category and group states do not come back from a saved file.
    QVERIFY(target.model.category("c")->getExpanded());
    QVERIFY(!target.model.group("g")->getExpanded());
    QVERIFY(target.model.itemVisible("g"));

    // The load ran silent and ends with events on, whatever they were before.
    QCOMPARE(listener.words(), QStringList({"loaded"}));
    QVERIFY(target.model.getEventsEnabled());

    // The properties' entries come back as they were written.
    QJsonObject const written = QJsonDocument::fromJson(text).object();
    QJsonObject const reloaded = target.model.save();
    for (char const *id : {"a", "b", "orphan"})
        QCOMPARE(reloaded.value(id), written.value(id));

    // Loading the same file again changes nothing.
    listener.clear();
    QVERIFY(target.model.load(written));
    QCOMPARE(listener.words(), QStringList({"loaded"}));
    QCOMPARE(target.model.save(), reloaded);
}

void tst_PropertyModel::loadRestoresNodesByName()
{
    // Node state is read under "name", a key that save() never writes.
    SampleModel sample;
    PropertyModel &model = sample.model;
    RecordingPropertyListener listener;
    model.addListener(&listener);
    QJsonObject const json{
        {"__categories",
         QJsonArray{QJsonObject{{"name", "c"}, {"visible", false}, {"expanded", false}},
                    QJsonObject{{"name", "unknown"}, {"visible", false}}}},
        {"__groups", QJsonArray{QJsonObject{{"name", "g"}}}},
    };
    model.group("g")->setVisible(false);
    listener.clear();
    QVERIFY(model.load(json));
    QVERIFY(!model.category("c")->getVisible());
    QVERIFY(!model.category("c")->getExpanded());
    // Missing keys mean true.
    QVERIFY(model.group("g")->getExpanded());
    QCOMPARE(model.save().value("__groups").toArray().at(0).toObject().value("visible"),
             QJsonValue(true));
    QCOMPARE(listener.words(), QStringList({"loaded"}));
}

void tst_PropertyModel::loadOfDamagedJson_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("a");
    QTest::addColumn<bool>("b");
    QTest::addColumn<bool>("aEnabled");

    // Before each load: a = 7, b = true, a disabled.
    QTest::newRow("not JSON") << QByteArray("{\"a\": [1, 2") << 7 << true << false;
    QTest::newRow("binary garbage") << QByteArray("\x00\xff\xfe garbage", 12) << 7 << true << false;
    QTest::newRow("array document") << QByteArray("[1, 2, 3]") << 7 << true << false;
    QTest::newRow("empty object") << QByteArray("{}") << 7 << true << false;
    QTest::newRow("wrong type") << QByteArray(R"({"a": {"type": "text", "value": 9}})") << 7 << true
                                << false;
    QTest::newRow("entry not an object")
        << QByteArray(R"({"a": 9, "b": "true", "__categories": 3, "__groups": {}})") << 7 << true
        << false;
    QTest::newRow("nodes of wrong kinds")
        << QByteArray(R"({"__categories": [1, "c", null, {"name": 5}], "__groups": [[]]})") << 7
        << true << false;
    // The type alone: flags come back true and missing values read as the type's zero.
    QTest::newRow("missing keys") << QByteArray(
        R"({"a": {"type": "integer"}, "b": {"type": "boolean"}})")
                                  << 0 << false << true;
    QTest::newRow("wrong value types") << QByteArray(
        R"({"a": {"type": "integer", "value": "12", "enabled": 1}, "b": {"type": "boolean", "value": 1}})")
                                       << 0 << false << true;
    QTest::newRow("fraction for an integer")
        << QByteArray(R"({"a": {"type": "integer", "value": 2.5, "enabled": false}})") << 0 << true
        << false;
    QTest::newRow("huge number") << QByteArray(
        R"({"a": {"type": "integer", "value": 1e300, "enabled": false}})")
                                 << 0 << true << false;
    QTest::newRow("foreign keys only")
        << QByteArray(R"({"x": {"type": "integer", "value": 1}, "": null})") << 7 << true << false;
    QTest::newRow("good values") << QByteArray(R"({"a": {"type": "integer", "value": -3},
                                                  "b": {"type": "boolean", "value": false}})")
                                 << -3 << false << true;
}

void tst_PropertyModel::loadOfDamagedJson()
{
    QFETCH(QByteArray, text);
    QFETCH(int, a);
    QFETCH(bool, b);
    QFETCH(bool, aEnabled);

    SampleModel sample;
    PropertyModel &model = sample.model;
    QVERIFY(model.setValue("a", 7, Internal));
    QVERIFY(model.setValue("b", true, Internal));
    model.property("a")->setEnabled(false);
    RecordingPropertyListener listener;
    model.addListener(&listener);

    QVERIFY(model.load(QJsonDocument::fromJson(text).object()));
    QCOMPARE(model.getValue("a"), QVariant(a));
    QCOMPARE(model.getValue("b"), QVariant(b));
    QCOMPARE(model.property("a")->getEnabled(), aEnabled);
    QCOMPARE(listener.words(), QStringList({"loaded"}));
    QVERIFY(model.category("c")->getVisible());
}

void tst_PropertyModel::print()
{
    SampleModel sample;
    QTemporaryFile file;
    QVERIFY(file.open());

    // Standard output goes to the file for the length of the call.
    std::fflush(stdout);
    int const saved = dup(fileno(stdout));
    QVERIFY(dup2(file.handle(), fileno(stdout)) >= 0);
    sample.model.print();
    std::fflush(stdout);
    dup2(saved, fileno(stdout));
    close(saved);

    file.seek(0);
    QCOMPARE(QString::fromUtf8(file.readAll()),
             QString("properties:\n    a\n    b\n    button\n    orphan\n"
                     "categories:\n    c\n        a\n        g\n"
                     "groups:\n    g\n        b\n"));
}

QTEST_GUILESS_MAIN(tst_PropertyModel)
#include "tst_PropertyModel.moc"
