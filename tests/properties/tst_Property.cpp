#include "properties/IntegerProperty.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "properties/PropertyValidator.h"
#include "support/RecordingPropertyListener.h"

#include <QtTest>

using namespace TES;
using TES::Test::RecordingPropertyListener;

namespace {

// The smallest concrete property: a string with no limits, no default and no JSON value, and
// a store that refuses the text "refused", so that the last test of the sequence can fail.
class PlainProperty : public Property
{
public:
    using Property::Property;

    bool isCompatible(QVariant const &value) const override
    {
        return value.userType() == QMetaType::QString;
    }
    QVariant getValue() const override { return _value; }
    QString type() const override { return "plain"; }
    QString toolTip() const override { return getText(); }
    PropertyViewNameCell *view() override { return nullptr; }

protected:
    bool _setValue(QVariant const &value) override
    {
        if (value.toString() == "refused")
            return false;
        _value = value.toString();
        return true;
    }

private:
    QString _value;
};

class EvenValidator : public PropertyValidator
{
public:
    bool validate(QVariant const &value) const override
    {
        ++calls;
        return value.toInt() % 2 == 0;
    }
    mutable int calls = 0;
};

constexpr auto Internal = PropertyChangeReason::ReasonInternal;
constexpr auto View = PropertyChangeReason::ReasonView;

} // namespace

class tst_Property : public QObject
{
    Q_OBJECT

private slots:
    void changeSequenceRefusals();
    void changeIsAnnounced();
    void validatorAndHelper();
    void listenerWritingBackIsRefused();
    void silentProperty();
    void withoutModel();
    void baseDefaults();
    void flags();
    void visibleAndEnabledAnnouncements();
    void jsonForm();
    void loadOfForeignOrPartialJson();
    void categoryAndGroupNodes();
};

void tst_Property::changeSequenceRefusals()
{
    PropertyModel model;
    PlainProperty plain(&model, "p");
    PlainProperty *property = &plain;
    RecordingPropertyListener listener;
    model.addListener(&listener);

    QVERIFY(property->setValue(QString("a"), Internal));
    listener.clear();

    // Wrong type, current value, store refusal: each false, each silent.
    QVERIFY(!property->setValue(42, Internal));
    QVERIFY(!property->setValue(QByteArray("b"), Internal));
    QVERIFY(!property->setValue(QString("a"), Internal));
    QVERIFY(!property->setValue(QString("refused"), Internal));
    QCOMPARE(property->getValue(), QVariant(QString("a")));
    QVERIFY(listener.calls.isEmpty());
}

void tst_Property::changeIsAnnounced()
{
    PropertyModel model;
    auto *property = static_cast<IntegerProperty *>(model.addProperty("integer", "n", {}));
    RecordingPropertyListener listener;
    model.addListener(&listener);

    QVERIFY(property->setValue(7, View));
    QCOMPARE(listener.words(), QStringList({"value:n"}));
    RecordingPropertyListener::Call const call = listener.calls.first();
    QCOMPARE(call.property, property);
    QCOMPARE(call.oldValue, QVariant(0));
    QCOMPARE(call.newValue, QVariant(7));
    QCOMPARE(call.reason, View);
    // Listeners run after the store: they read the new value.
    QCOMPARE(call.valueSeen, QVariant(7));
}

void tst_Property::validatorAndHelper()
{
    PropertyModel model;
    auto *property = model.addProperty("integer", "n", {});
    EvenValidator validator;
    QVERIFY(property->_validate(3));
    property->setValidator(&validator);
    QCOMPARE(property->getValidator(), &validator);

    QVERIFY(!property->setValue(3, Internal));
    QVERIFY(property->setValue(4, Internal));
    QVERIFY(!property->_validate(5));
    QVERIFY(property->_validate(6));

    // The validator is only asked about compatible values that differ from the current one.
    int const asked = validator.calls;
    QVERIFY(!property->setValue(4, Internal));
    QVERIFY(!property->setValue(5u, Internal));
    QCOMPARE(validator.calls, asked);

    validator.setEnabled(false);
    QVERIFY(property->_validate(5));
    QVERIFY(property->setValue(5, Internal));
    QCOMPARE(validator.calls, asked);
}

void tst_Property::listenerWritingBackIsRefused()
{
    PropertyModel model;
    Property *first = model.addProperty("integer", "first", {});
    Property *second = model.addProperty("integer", "second", {});
    RecordingPropertyListener listener;
    model.addListener(&listener);

    QList<bool> writeBackResults;
    listener.onCall = [&](RecordingPropertyListener::Call const &call) {
        if (call.property == first) {
            writeBackResults << first->setValue(call.newValue.toInt() + 1, Internal);
            // Another property may be written from inside the notification.
            writeBackResults << second->setValue(call.newValue.toInt() * 10, Internal);
        }
    };

    QVERIFY(first->setValue(1, Internal));
    QCOMPARE(writeBackResults, QList<bool>({false, true}));
    QCOMPARE(first->getValue(), QVariant(1));
    QCOMPARE(second->getValue(), QVariant(10));
    QCOMPARE(listener.words(), QStringList({"value:first", "value:second"}));

    // The guard is lifted once the announcement is over.
    listener.onCall = nullptr;
    QVERIFY(first->setValue(2, Internal));
}

void tst_Property::silentProperty()
{
    PropertyModel model;
    Property *property = model.addProperty("integer", "n", {});
    RecordingPropertyListener listener;
    model.addListener(&listener);

    property->setEventsEnabled(false);
    QVERIFY(!property->getEventsEnabled());
    QVERIFY(property->setValue(3, Internal));
    QCOMPARE(property->getValue(), QVariant(3));
    // Its state changes and button events stay silent too.
    property->setEnabled(false);
    model.raisePropertyEvent(property, 0, {});
    QVERIFY(listener.calls.isEmpty());

    property->setEventsEnabled(true);
    QVERIFY(property->setValue(4, Internal));
    QCOMPARE(listener.words(), QStringList({"value:n"}));
}

void tst_Property::withoutModel()
{
    IntegerProperty property(nullptr, "alone");
    QCOMPARE(property.model(), static_cast<PropertyModel *>(nullptr));
    QVERIFY(!property.getEnabled());
    QVERIFY(!property.getTracked());
    QVERIFY(!property.getVisible());
    QVERIFY(property.getPersistent());
    QCOMPARE(property.owner().type, PropertyOwnerType::OwnerNone);
    QVERIFY(property.owner().id.isEmpty());

    // Changes work and are stored, there is just nobody to tell.
    QVERIFY(property.setValue(5, Internal));
    property.setEnabled(false);
    property.setVisible(false);
    property.setDefault(1);
    QVERIFY(!property.isDefault());
    // reset() needs a model.
    property.reset();
    QCOMPARE(property.getValue(), QVariant(5));
    QCOMPARE(property.save().value("enabled"), QJsonValue(false));
    QCOMPARE(property.save().value("visible"), QJsonValue(false));
}

void tst_Property::baseDefaults()
{
    PropertyModel model;
    PlainProperty property(&model, "p");
    QVERIFY(property.setValue(QString("x"), Internal));
    QVERIFY(property.isDefault());
    QVERIFY(!property.getDefault().isValid());
    property.setDefault(QString("y"));
    QVERIFY(!property.getDefault().isValid());
    // An invalid default is incompatible: reset leaves the value alone.
    property.reset();
    QCOMPARE(property.getValue(), QVariant(QString("x")));
    QCOMPARE(property.stringValue(), QString("x"));

    property.setText("Label");
    property.setHelpText("Help");
    QCOMPARE(property.getText(), QString("Label"));
    QCOMPARE(property.getHelpText(), QString("Help"));
    QVERIFY(!property.supportsMulti());
    property.setMultiEnabled(true);
    QVERIFY(property.supportsMulti());
    QVERIFY(property.getTracked());
    property.setTracked(false);
    QVERIFY(!property.getTracked());
}

void tst_Property::flags()
{
    PlainProperty property(nullptr, "p");
    QCOMPARE(property.getFlags(), 0u);
    QVERIFY(!property.testFlag(0xFFFFFFFFu));
    property.setFlags(0x5);
    QCOMPARE(property.getFlags(), 0x5u);
    // Any one bit of the argument is enough.
    QVERIFY(property.testFlag(0x6));
    QVERIFY(property.testFlag(0x4));
    QVERIFY(!property.testFlag(0x2));
    QVERIFY(!property.testFlag(0));
}

void tst_Property::visibleAndEnabledAnnouncements()
{
    PropertyModel model;
    PropertyCategory *category = model.addCategory("c");
    PropertyGroup *group = model.addGroup("g");
    category->addChild("g");
    category->addChild("inCategory");
    group->addChild("inGroup");
    Property *inCategory = model.addProperty("integer", "inCategory", {});
    Property *inGroup = model.addProperty("integer", "inGroup", {});
    RecordingPropertyListener listener;
    model.addListener(&listener);

    QVERIFY(inCategory->getVisible());
    inCategory->setVisible(true);
    QVERIFY(listener.calls.isEmpty());
    inCategory->setVisible(false);
    QVERIFY(!inCategory->getVisible());
    inCategory->setVisible(true);
    QCOMPARE(listener.words(), QStringList({"state:inCategory", "state:inCategory"}));

    // The group is collapsed, so the property shows neither way: hiding it goes unannounced,
    // showing it again is announced.
    listener.clear();
    QVERIFY(!inGroup->getVisible());
    inGroup->setVisible(false);
    QVERIFY(listener.calls.isEmpty());
    inGroup->setVisible(true);
    QCOMPARE(listener.words(), QStringList({"state:inGroup"}));

    listener.clear();
    inCategory->setEnabled(true);
    QVERIFY(listener.calls.isEmpty());
    inCategory->setEnabled(false);
    QVERIFY(!inCategory->getEnabled());
    QCOMPARE(listener.words(), QStringList({"state:inCategory"}));

    // Texts and flags without a view of their own are not announced.
    listener.clear();
    inCategory->setText("Shown");
    inCategory->setHelpText("Help");
    inCategory->setTracked(false);
    inCategory->setPersistent(false);
    QVERIFY(listener.calls.isEmpty());
}

void tst_Property::jsonForm()
{
    PropertyModel model;
    Property *property = model.addProperty("integer", "n", {});
    property->setText("Text");
    property->setHelpText("Help");
    property->setFlags(3);
    QVERIFY(property->setValue(12, Internal));
    property->setVisible(false);
    property->setEnabled(false);

    // Only the type, the raw flags and the value: no texts, flags or limits.
    QJsonObject const json = property->save();
    QCOMPARE(
        json,
        QJsonObject({{"type", "integer"}, {"visible", false}, {"enabled", false}, {"value", 12}}));

    PropertyModel other;
    Property *copy = other.addProperty("integer", "n", {});
    QVERIFY(copy->load(json));
    QCOMPARE(copy->getValue(), QVariant(12));
    QCOMPARE(copy->save(), json);
}

void tst_Property::loadOfForeignOrPartialJson()
{
    PropertyModel model;
    auto *property = static_cast<IntegerProperty *>(model.addProperty("integer", "n", {}));
    QVERIFY(property->setValue(3, Internal));
    property->setVisible(false);
    property->setEnabled(false);
    QJsonObject const before = property->save();

    // Another type, or no type: nothing changes.
    QVERIFY(!property->load(QJsonObject({{"type", "boolean"}, {"value", 9}})));
    QVERIFY(!property->load(QJsonObject({{"visible", true}, {"value", 9}})));
    QVERIFY(!property->load(QJsonObject({{"type", 5}, {"value", 9}})));
    QCOMPARE(property->save(), before);

    // Missing flags mean true, not unchanged; a value the limits refuse is dropped, and the
    // load still counts as done.
    property->setMax(100);
    QVERIFY(property->load(QJsonObject({{"type", "integer"}, {"value", 500}})));
    QCOMPARE(property->getValue(), QVariant(3));
    QCOMPARE(property->save().value("visible"), QJsonValue(true));
    QCOMPARE(property->save().value("enabled"), QJsonValue(true));

    // Flags of the wrong JSON type count as missing; a missing value reads as 0.
    property->setEnabled(false);
    QVERIFY(property->load(QJsonObject({{"type", "integer"}, {"enabled", "no"}})));
    QVERIFY(property->getEnabled());
    QCOMPARE(property->getValue(), QVariant(0));
}

void tst_Property::categoryAndGroupNodes()
{
    PropertyModel model;
    PropertyCategory *category = model.addCategory("cat");
    PropertyGroup *group = model.addGroup("grp");
    Property *property = model.addProperty("integer", "prop", {});

    // Nodes show their id while they have no text; a property shows its text only.
    QCOMPARE(category->getText(), QString("cat"));
    QCOMPARE(group->getText(), QString("grp"));
    QCOMPARE(property->getText(), QString());
    category->setText("Category");
    QCOMPARE(category->getText(), QString("Category"));
    QCOMPARE(group->model(), &model);
    QCOMPARE(group->getSummary(), QString());

    QVERIFY(category->getExpanded());
    QVERIFY(!group->getExpanded());

    QVERIFY(category->addChild("grp"));
    QVERIFY(category->addChild("other"));
    QVERIFY(!category->addChild("grp"));
    QCOMPARE(category->children(), std::list<QString>({"grp", "other"}));
    QCOMPARE(category->childCount(), 2);
    QVERIFY(!category->removeChild("missing"));
    QVERIFY(category->removeChild("other"));
    QVERIFY(!category->hasChild("other"));
    QCOMPARE(category->childCount(), 1);

    QVERIFY(group->addChild("prop"));
    QCOMPARE(property->owner().type, PropertyOwnerType::OwnerGroup);
    QCOMPARE(property->owner().id, QString("grp"));

    RecordingPropertyListener listener;
    model.addListener(&listener);
    category->setExpanded(true);
    category->setVisible(true);
    group->setVisible(true);
    group->setExpanded(false);
    QVERIFY(listener.calls.isEmpty());
    group->setExpanded(true);
    group->setVisible(false);
    category->setExpanded(false);
    category->setVisible(false);
    QCOMPARE(listener.words(), QStringList({"groupExpand:grp", "groupVisible:grp",
                                            "categoryExpand:cat", "categoryVisible:cat"}));

    // A category's visibility is its own flag; a group's follows its category.
    group->setVisible(true);
    category->setVisible(true);
    category->setExpanded(true);
    QVERIFY(group->getVisible());
    category->setExpanded(false);
    QVERIFY(category->getVisible());
    QVERIFY(!group->getVisible());
}

QTEST_GUILESS_MAIN(tst_Property)
#include "tst_Property.moc"
