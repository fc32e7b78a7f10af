// SPDX-License-Identifier: MIT
#include "properties/IntegerProperty.h"
#include "properties/PropertyCategory.h"
#include "properties/PropertyGroup.h"
#include "properties/PropertyModel.h"
#include "properties/PropertyValidator.h"
#include "properties/TextProperty.h"
#include "support/RecordingPropertyListener.h"

#include <QtTest>

using namespace TES;
using TES::Test::RecordingPropertyListener;

namespace {

// A text whose store refuses "refused", so that the last step of the change sequence can fail.
class PickyText : public TextProperty
{
public:
    using TextProperty::TextProperty;

protected:
    bool _setValue(QVariant const &value) override
    {
        return value.toString() != "refused" && TextProperty::_setValue(value);
    }
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
    void changeSequence();
    void listenerWritingBackIsRefused();
    void withoutModel();
    void visibleAndEnabledAnnouncements();
    void jsonForm();
    void categoryAndGroupNodes();
};

void tst_Property::changeSequence()
{
    PropertyModel model;
    PickyText picky(&model, "p");
    Property *n = model.addProperty("integer", "n", {});
    RecordingPropertyListener listener;
    model.addListener(&listener);

    // Wrong type, current value, store refusal: each false, each silent.
    QVERIFY(picky.setValue(QString("a"), Internal));
    listener.clear();
    QVERIFY(!picky.setValue(42, Internal));
    QVERIFY(!picky.setValue(QByteArray("b"), Internal));
    QVERIFY(!picky.setValue(QString("a"), Internal));
    QVERIFY(!picky.setValue(QString("refused"), Internal));
    QCOMPARE(picky.getValue(), QVariant(QString("a")));
    QVERIFY(listener.calls.isEmpty());

    QVERIFY(n->setValue(7, View));
    QCOMPARE(listener.words(), QStringList({"value:n"}));
    RecordingPropertyListener::Call const call = listener.calls.first();
    QCOMPARE(call.property, n);
    QCOMPARE(call.reason, View);
    // Old and new value, then the value read inside: listeners run after the store.
    QCOMPARE(QVariantList({call.oldValue, call.newValue, call.valueSeen}), QVariantList({0, 7, 7}));

    // The validator is only asked about compatible values that differ from the current one.
    EvenValidator validator;
    n->setValidator(&validator);
    QVERIFY(!n->setValue(3, Internal));
    QVERIFY(n->setValue(4, Internal));
    QVERIFY(!n->setValue(4, Internal));
    QVERIFY(!n->setValue(5u, Internal));
    QVERIFY(!n->_validate(5));
    QCOMPARE(validator.calls, 3);
    validator.setEnabled(false);
    QVERIFY(n->_validate(5));
    QVERIFY(n->setValue(5, Internal));
    QCOMPARE(validator.calls, 3);

    // A silent property changes without a word, and so do its state and button events.
    listener.clear();
    n->setEventsEnabled(false);
    QVERIFY(n->setValue(6, Internal));
    n->setEnabled(false);
    model.raisePropertyEvent(n, 0, {});
    QVERIFY(listener.calls.isEmpty());
    n->setEventsEnabled(true);
    QVERIFY(n->setValue(8, Internal));
    QCOMPARE(listener.words(), QStringList({"value:n"}));
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

void tst_Property::withoutModel()
{
    IntegerProperty alone(nullptr, "alone");
    QVERIFY(!alone.getEnabled());
    QVERIFY(!alone.getTracked());
    QVERIFY(!alone.getVisible());
    QVERIFY(alone.getPersistent());
    QCOMPARE(alone.owner().type, PropertyOwnerType::OwnerNone);

    // Changes are stored, there is just nobody to tell; reset() needs a model.
    QVERIFY(alone.setValue(5, Internal));
    alone.setEnabled(false);
    alone.setDefault(1);
    QVERIFY(!alone.isDefault());
    alone.reset();
    QCOMPARE(alone.getValue(), QVariant(5));
    QCOMPARE(alone.save().value("enabled"), QJsonValue(false));

    // Any one bit of the argument is enough.
    alone.setFlags(0x5);
    QVERIFY(alone.testFlag(0x6));
    QVERIFY(!alone.testFlag(0x2));
    QVERIFY(!alone.testFlag(0));
}

void tst_Property::visibleAndEnabledAnnouncements()
{
    PropertyModel model;
    model.addCategory("c")->addChild("g");
    model.category("c")->addChild("inCategory");
    model.addGroup("g")->addChild("inGroup");
    Property *inCategory = model.addProperty("integer", "inCategory", {});
    Property *inGroup = model.addProperty("integer", "inGroup", {});
    RecordingPropertyListener listener;
    model.addListener(&listener);

    // Unchanged flags, texts and flags without a view of their own are not announced.
    inCategory->setVisible(true);
    inCategory->setEnabled(true);
    inCategory->setText("Shown");
    inCategory->setHelpText("Help");
    inCategory->setTracked(false);
    inCategory->setPersistent(false);
    QVERIFY(listener.calls.isEmpty());
    inCategory->setVisible(false);
    QVERIFY(!inCategory->getVisible());
    inCategory->setVisible(true);
    inCategory->setEnabled(false);
    QVERIFY(!inCategory->getEnabled());
    QCOMPARE(listener.words(),
             QStringList({"state:inCategory", "state:inCategory", "state:inCategory"}));

    // The group is collapsed, so the property shows neither way: hiding it goes unannounced,
    // showing it again is announced.
    listener.clear();
    QVERIFY(!inGroup->getVisible());
    inGroup->setVisible(false);
    QVERIFY(listener.calls.isEmpty());
    inGroup->setVisible(true);
    QCOMPARE(listener.words(), QStringList({"state:inGroup"}));
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
    QCOMPARE(
        property->save(),
        QJsonObject({{"type", "integer"}, {"visible", false}, {"enabled", false}, {"value", 12}}));
}

void tst_Property::categoryAndGroupNodes()
{
    PropertyModel model;
    PropertyCategory *category = model.addCategory("cat");
    PropertyGroup *group = model.addGroup("grp");

    // Nodes show their id while they have no text; a property shows its text only.
    QCOMPARE(category->getText(), QString("cat"));
    QCOMPARE(group->getText(), QString("grp"));
    QCOMPARE(model.addProperty("integer", "prop", {})->getText(), QString());
    QCOMPARE(group->getSummary(), QString());
    // A new category is open, a new group closed.
    QVERIFY(category->getExpanded());
    QVERIFY(!group->getExpanded());

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
}

QTEST_GUILESS_MAIN(tst_Property)
#include "tst_Property.moc"
