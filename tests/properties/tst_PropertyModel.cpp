// SPDX-License-Identifier: MIT
#include "properties/IPropertyFactory.h"
#include "properties/IntegerProperty.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "properties/TextProperty.h"
#include "support/RecordingPropertyListener.h"

#include <QtTest>

using namespace TES;
using TES::Test::RecordingPropertyListener;

namespace {

constexpr auto Internal = PropertyChangeReason::ReasonInternal;

// A plug-in's own type: a text property under another name, refusing the id "refused".
class NoteFactory : public IPropertyFactory
{
public:
    QString type() const override { return "note"; }
    Property *createProperty(PropertyModel *model, QString const &id,
                             std::map<QString, QVariant>) const override
    {
        return id == "refused" ? nullptr : new TextProperty(model, id);
    }
    PropertyViewNameCell *createView(Property *) const override { return nullptr; }
};

// Category "c" listing "a" and group "g", group "g" listing "b", "orphan" listed nowhere,
// and a button, which is never saved.
struct SampleModel
{
    SampleModel()
    {
        model.addCategory("c")->addChild("a");
        model.category("c")->addChild("g");
        model.addGroup("g")->addChild("b");
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
    void factories();
    void addAndRemove();
    void itemVisible_data();
    void itemVisible();
    void listeners();
    void eventsOff();
    void resetAndClear();
    void saveThenLoad();
    void loadRestoresNodesByName();
    void loadOfDamagedJson_data();
    void loadOfDamagedJson();
};

void tst_PropertyModel::factories()
{
    PropertyModel model;
    // A type is registered once; unknown options are ignored.
    QVERIFY(!PropertyModel::AddFactory(PropertyModel::Factory("button")));
    QCOMPARE(model.addProperty("button", "b", {{"ignored", 1}})->type(), QString("button"));
    // No concrete float ships with the host, and type names are case-sensitive.
    QVERIFY(!model.addProperty("float", "f", {}));
    QVERIFY(!model.addProperty("Integer", "i", {}));

    NoteFactory factory;
    QVERIFY(!PropertyModel::AddFactory(nullptr));
    QVERIFY(PropertyModel::AddFactory(&factory));
    QCOMPARE(model.addProperty("note", "n", {})->type(), QString("text"));
    // A factory may refuse; nothing is stored then.
    QVERIFY(!model.addProperty("note", "refused", {}));
    QVERIFY(!model.property("refused"));
    QVERIFY(PropertyModel::RemoveFactory("note"));
    QVERIFY(!PropertyModel::RemoveFactory("note"));
    QVERIFY(!model.addProperty("note", "m", {}));
}

void tst_PropertyModel::addAndRemove()
{
    PropertyModel model;
    Property *b = model.addProperty("integer", "b", {});
    QVERIFY(b->setValue(4, Internal));
    // An existing id refuses, and the old property stays.
    QVERIFY(!model.addProperty("text", "b", {}));
    QCOMPARE(model.getValue("b"), QVariant(4));
    model.addProperty("integer", "a", {});
    model.addProperty("integer", "c", {});
    QCOMPARE(model.propertyNames(), std::list<QString>({"a", "b", "c"}));
    QCOMPARE(model.propertyCount(true), 3);
    QVERIFY(!model.setValue("missing", 1, Internal));
    QVERIFY(!model.hasContent());

    PropertyCategory *first = model.addCategory("first");
    PropertyCategory *second = model.addCategory("second");
    QVERIFY(!model.addCategory("first"));
    QVERIFY(model.hasContent());
    PropertyGroup *group = model.addGroup("group");
    QVERIFY(!model.addGroup("group"));

    // A group in no category is hidden whatever its flags, and so is all it lists; so is a
    // property listed nowhere.
    group->setExpanded(true);
    group->addChild("a");
    group->addChild("b");
    QVERIFY(!model.itemVisible("group"));
    QVERIFY(!model.itemVisible("b"));
    QVERIFY(!model.itemVisible("c"));

    // The first category that lists an id owns it, ahead of any group.
    second->addChild("a");
    first->addChild("a");
    first->addChild("group");
    QCOMPARE(model.findOwner("a").id, QString("first"));
    QCOMPARE(model.findOwner("b").type, PropertyOwnerType::OwnerGroup);
    QCOMPARE(model.findOwner("c").type, PropertyOwnerType::OwnerNone);
    QVERIFY(model.itemVisible("b"));

    // Removing a property unlists it from its owner only.
    QVERIFY(model.removeProperty("a"));
    QVERIFY(!model.removeProperty("a"));
    QVERIFY(!first->hasChild("a"));
    QVERIFY(second->hasChild("a") && group->hasChild("a"));

    // Removing a group or a category leaves its properties, now unowned and hidden.
    QVERIFY(model.removeGroup("group"));
    QVERIFY(!model.removeGroup("group"));
    QVERIFY(!first->hasChild("group"));
    QCOMPARE(b->owner().type, PropertyOwnerType::OwnerNone);
    QVERIFY(!model.itemVisible("b"));
    first->addChild("b");
    QVERIFY(model.removeCategory("first"));
    QVERIFY(!model.removeCategory("first"));
    QCOMPARE(model.property("b"), b);
}

void tst_PropertyModel::itemVisible_data()
{
    // Flags as "1" or "0": category visible and expanded, group visible and expanded, both
    // properties visible. Expected: the category, the group, "a" in the category, "b" in the
    // group.
    QTest::addColumn<QString>("flags");
    QTest::addColumn<QString>("expected");
    auto row = [](char const *name, char const *flags, char const *expected) {
        QTest::newRow(name) << QString(flags) << QString(expected);
    };
    row("all open", "11111", "1111");
    row("group closed", "11101", "1110");
    row("group hidden", "11011", "1010");
    // A closed category still shows itself, and nothing in it.
    row("category closed", "10111", "1000");
    row("category hidden", "01111", "0000");
    row("properties hidden", "11110", "1100");
}

void tst_PropertyModel::itemVisible()
{
    QFETCH(QString, flags);
    QFETCH(QString, expected);
    auto flag = [&](int i) { return flags.at(i) == '1'; };

    SampleModel sample;
    PropertyModel &model = sample.model;
    model.category("c")->setVisible(flag(0));
    model.category("c")->setExpanded(flag(1));
    model.group("g")->setVisible(flag(2));
    model.group("g")->setExpanded(flag(3));
    model.property("a")->setVisible(flag(4));
    model.property("b")->setVisible(flag(4));

    QString actual;
    for (char const *id : {"c", "g", "a", "b"})
        actual += model.itemVisible(id) ? '1' : '0';
    QCOMPARE(actual, expected);
    // A category's visibility is its own flag; a group's and a property's are the effective one.
    QCOMPARE(model.category("c")->getVisible(), flag(0));
    QCOMPARE(model.group("g")->getVisible(), expected.at(1) == '1');
    QCOMPARE(model.property("a")->getVisible(), expected.at(2) == '1');
    QCOMPARE(model.property("b")->getVisible(), expected.at(3) == '1');
}

void tst_PropertyModel::listeners()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    Property *a = model.property("a");
    RecordingPropertyListener first;
    RecordingPropertyListener second;
    model.addListener(nullptr);
    model.addListener(&first);
    model.addListener(&second);
    model.addListener(&first);
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
    // A copied listener is a new one, not a second entry of the original.
    RecordingPropertyListener copy(second);
    model.addListener(&copy);
    model.removeListener(&first);
    first.clear();
    second.clear();
    copy.clear();
    QVERIFY(a->setValue(3, Internal));
    QVERIFY(first.calls.isEmpty());
    QCOMPARE(second.words(), QStringList({"value:a"}));
    QCOMPARE(copy.words(), QStringList({"value:a"}));

    // During a fan-out a listener deletes the next one and adds another: the deleted one is
    // not called, the added one only from the next change on.
    auto *doomed = new RecordingPropertyListener;
    RecordingPropertyListener late;
    model.removeListener(&copy);
    model.addListener(doomed);
    model.addListener(&copy);
    second.onCall = [&](RecordingPropertyListener::Call const &) {
        delete doomed;
        model.addListener(&late);
        second.onCall = nullptr;
    };
    copy.clear();
    QVERIFY(a->setValue(4, Internal));
    QCOMPARE(copy.words(), QStringList({"value:a"}));
    QVERIFY(late.calls.isEmpty());
    QVERIFY(a->setValue(5, Internal));
    QCOMPARE(late.words(), QStringList({"value:a"}));

    // A listener may leave while it is told.
    copy.onCall = [&](RecordingPropertyListener::Call const &) { model.removeListener(&copy); };
    QVERIFY(a->setValue(6, Internal));
    QVERIFY(a->setValue(7, Internal));
    QCOMPARE(copy.words(), QStringList({"value:a", "value:a", "value:a"}));
}

void tst_PropertyModel::eventsOff()
{
    SampleModel sample;
    PropertyModel &model = sample.model;
    RecordingPropertyListener listener;
    model.addListener(&listener);
    Property *a = model.property("a");

    model.setEventsEnabled(false);
    QVERIFY(model.setValue("a", 5, Internal));
    QVERIFY(a->setValue(6, Internal));
    a->setEnabled(false);
    model.category("c")->setExpanded(false);
    model.raisePropertyEvent(a, 0, {});
    QVERIFY(listener.calls.isEmpty());
    QCOMPARE(a->getValue(), QVariant(6));
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
    static_cast<IntegerProperty *>(model.property("a"))->setDefault(10);
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
    QCOMPARE(model.getValue("orphan"), QVariant(QString()));
    QCOMPARE(model.getValue("button"), QVariant(QString("Press")));

    // Clearing tells nobody and keeps the listeners and the owner's data.
    model.setData("kept", 1);
    listener.clear();
    model.clear();
    QVERIFY(listener.calls.isEmpty());
    QVERIFY(model.propertyNames().empty());
    QVERIFY(model.categories().empty());
    QVERIFY(model.groups().empty());
    QCOMPARE(model.getData("kept"), QVariant(1));
    model.addProperty("integer", "new", {});
    QVERIFY(model.setValue("new", 1, Internal));
    QCOMPARE(listener.words(), QStringList({"value:new"}));
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
    model.category("c")->setText("Not written");
    model.category("c")->setExpanded(false);
    model.group("g")->setExpanded(true);

    // Raw node flags (the group does not show in the closed category), and the persistent
    // properties only.
    QJsonObject const json = model.save();
    QCOMPARE(
        json.value("__categories"),
        QJsonValue(QJsonArray{QJsonObject{{"id", "c"}, {"visible", true}, {"expanded", false}}}));
    QCOMPARE(
        json.value("__groups"),
        QJsonValue(QJsonArray{QJsonObject{{"id", "g"}, {"visible", true}, {"expanded", true}}}));
    QCOMPARE(json.keys(), QStringList({"__categories", "__groups", "a", "b", "orphan"}));

    // Through the text form, as a project file goes.
    SampleModel target;
    RecordingPropertyListener listener;
    target.model.addListener(&listener);
    target.model.setEventsEnabled(false);
    QVERIFY(target.model.load(QJsonDocument::fromJson(QJsonDocument(json).toJson()).object()));
    // The load ran silent and ends with events on, whatever they were before.
    QCOMPARE(listener.words(), QStringList({"loaded"}));
    QVERIFY(target.model.getEventsEnabled());

    // Values, visible and enabled flags come back; category and group states do not.
    QJsonObject const reloaded = target.model.save();
    for (char const *id : {"a", "b", "orphan"})
        QCOMPARE(reloaded.value(id), json.value(id));
    QCOMPARE(target.model.getValue("button"), QVariant(QString()));
    QVERIFY(target.model.category("c")->getExpanded());
    QVERIFY(!target.model.group("g")->getExpanded());
}

void tst_PropertyModel::loadRestoresNodesByName()
{
    // Node state is read under "name", a key that save() never writes.
    SampleModel sample;
    PropertyModel &model = sample.model;
    model.group("g")->setVisible(false);
    RecordingPropertyListener listener;
    model.addListener(&listener);
    QJsonObject const json{
        {"__categories",
         QJsonArray{QJsonObject{{"name", "c"}, {"visible", false}, {"expanded", false}},
                    QJsonObject{{"name", "unknown"}, {"visible", false}}}},
        {"__groups", QJsonArray{QJsonObject{{"name", "g"}}}},
    };
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
    // Before each load a = 7 with a maximum of 100, b = true, and a is disabled.
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");
    auto row = [](char const *name, QByteArray const &text, char const *expected) {
        QTest::newRow(name) << text << QString(expected);
    };
    // Text that is no JSON object parses to the empty object, as "{}" does.
    row("empty object", "{}", "7 true disabled");
    row("wrong type", R"({"a": {"type": "text", "value": 9}})", "7 true disabled");
    row("no type", R"({"a": {"visible": true, "value": 9}})", "7 true disabled");
    row("entry not an object", R"({"a": 9, "b": "true", "__categories": 3, "__groups": {}})",
        "7 true disabled");
    row("nodes of wrong kinds",
        R"({"__categories": [1, "c", null, {"name": 5}], "__groups": [[]]})", "7 true disabled");
    row("foreign keys only", R"({"x": {"type": "integer", "value": 1}, "": null})",
        "7 true disabled");
    // The type alone: flags come back true and missing values read as the type's zero.
    row("missing keys", R"({"a": {"type": "integer"}, "b": {"type": "boolean"}})",
        "0 false enabled");
    row("wrong value types",
        R"({"a": {"type": "integer", "value": "12", "enabled": 1},
            "b": {"type": "boolean", "value": 1}})",
        "0 false enabled");
    row("huge number", R"({"a": {"type": "integer", "value": 1e300, "enabled": false}})",
        "0 true disabled");
    // Beyond the maximum of 100: the value is dropped, the flags still load.
    row("value beyond the limits", R"({"a": {"type": "integer", "value": 500}})", "7 true enabled");
    row("good values",
        R"({"a": {"type": "integer", "value": -3}, "b": {"type": "boolean", "value": false}})",
        "-3 false enabled");
}

void tst_PropertyModel::loadOfDamagedJson()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);

    SampleModel sample;
    PropertyModel &model = sample.model;
    QVERIFY(model.setValue("a", 7, Internal));
    QVERIFY(model.setValue("b", true, Internal));
    model.property("a")->setEnabled(false);
    static_cast<IntegerProperty *>(model.property("a"))->setMax(100);
    RecordingPropertyListener listener;
    model.addListener(&listener);

    QVERIFY(model.load(QJsonDocument::fromJson(text).object()));
    QCOMPARE(QString("%1 %2 %3")
                 .arg(model.getValue("a").toString(), model.getValue("b").toString(),
                      model.property("a")->getEnabled() ? "enabled" : "disabled"),
             expected);
    QCOMPARE(listener.words(), QStringList({"loaded"}));
    QVERIFY(model.category("c")->getVisible());
}

QTEST_GUILESS_MAIN(tst_PropertyModel)
#include "tst_PropertyModel.moc"
