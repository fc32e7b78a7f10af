#include "properties/AbstractFloatProperty.h"
#include "properties/BooleanProperty.h"
#include "properties/ButtonProperty.h"
#include "properties/ComboProperty.h"
#include "properties/HexProperty.h"
#include "properties/IntegerProperty.h"
#include "properties/PropertyModel.h"
#include "properties/TextProperty.h"
#include "properties/UuidProperty.h"
#include "support/RecordingPropertyListener.h"

#include <QtTest>

#include <limits>

using namespace TES;
using TES::Test::RecordingPropertyListener;

namespace {

constexpr auto Internal = PropertyChangeReason::ReasonInternal;

// What a plug-in writes to get a float: the storage and nothing else.
class FloatProperty : public AbstractFloatProperty
{
public:
    using AbstractFloatProperty::AbstractFloatProperty;
    QVariant getValue() const override { return QVariant(_value); }

protected:
    bool _setValue(QVariant const &value) override
    {
        _value = value.toFloat();
        return true;
    }

private:
    float _value = 0.0f;
};

template<typename T>
T *add(PropertyModel &model, QString const &id)
{
    return static_cast<T *>(model.addProperty(T::Type(), id, {}));
}

} // namespace

Q_DECLARE_METATYPE(std::function<Property *(PropertyModel &)>)

class tst_TypedProperties : public QObject
{
    Q_OBJECT

private slots:
    void compatibility_data();
    void compatibility();
    void toolTips_data();
    void toolTips();
    void jsonValues_data();
    void jsonValues();
    void defaults();
    void integerLimits();
    void hexLimits();
    void floatLimits();
    void combo();
    void comboStatics();
    void buttonAndUuid();
    void staticAccessors();
};

using Maker = std::function<Property *(PropertyModel &)>;

void tst_TypedProperties::compatibility_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("accepted");

    // No conversions: only the exact QVariant type is taken.
    QTest::newRow("integer int") << "integer" << QVariant(5) << true;
    QTest::newRow("integer uint") << "integer" << QVariant(5u) << false;
    QTest::newRow("integer double") << "integer" << QVariant(5.0) << false;
    QTest::newRow("integer long long") << "integer" << QVariant(5LL) << false;
    QTest::newRow("integer string") << "integer" << QVariant("5") << false;
    QTest::newRow("integer invalid") << "integer" << QVariant() << false;
    QTest::newRow("hex uint") << "hex" << QVariant(0xFFFFFFFFu) << true;
    QTest::newRow("hex int") << "hex" << QVariant(5) << false;
    QTest::newRow("boolean bool") << "boolean" << QVariant(true) << true;
    QTest::newRow("boolean int") << "boolean" << QVariant(1) << false;
    QTest::newRow("text string") << "text" << QVariant(QString("x")) << true;
    QTest::newRow("text bytes") << "text" << QVariant(QByteArray("x")) << false;
    QTest::newRow("button string") << "button" << QVariant(QString("x")) << true;
    QTest::newRow("button bool") << "button" << QVariant(true) << false;
    QTest::newRow("uuid uuid") << "uuid" << QVariant(QUuid::createUuid()) << true;
    QTest::newRow("uuid string") << "uuid" << QVariant(QUuid::createUuid().toString()) << false;
    // Combo indexes must hit the list of two.
    QTest::newRow("combo 1") << "combo" << QVariant(1) << true;
    QTest::newRow("combo 2") << "combo" << QVariant(2) << false;
    QTest::newRow("combo -1") << "combo" << QVariant(-1) << false;
    QTest::newRow("combo uint") << "combo" << QVariant(1u) << false;
}

void tst_TypedProperties::compatibility()
{
    QFETCH(QString, type);
    QFETCH(QVariant, value);
    QFETCH(bool, accepted);

    PropertyModel model;
    Property *property = model.addProperty(type, "p", {});
    QVERIFY(property);
    if (auto *combo = dynamic_cast<ComboProperty *>(property))
        combo->setComboValues({"zero", "one"});
    QVariant const before = property->getValue();
    QCOMPARE(property->isCompatible(value), accepted);
    QCOMPARE(property->setValue(value, Internal), accepted);
    QCOMPARE(property->getValue(), accepted ? value : before);
}

void tst_TypedProperties::toolTips_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<QString>("tipWithHelp");

    QTest::newRow("boolean") << Maker([](PropertyModel &m) { return add<BooleanProperty>(m, "b"); })
                             << "Label <i>(b)</i><br><b>Boolean</b>"
                             << "Label <i>(b)</i><br><b>Boolean</b><br><br>Help";
    QTest::newRow("button") << Maker([](PropertyModel &m) { return add<ButtonProperty>(m, "u"); })
                            << "Label (u)<br>Button"
                            << "Label (u)<br>Button<br><br>Help";
    QTest::newRow("combo") << Maker([](PropertyModel &m) { return add<ComboProperty>(m, "c"); })
                           << "Label (c)<br>Combo"
                           << "Label (c)<br>Combo<br><br>Help";
    QTest::newRow("integer") << Maker([](PropertyModel &m) {
        auto *p = add<IntegerProperty>(m, "i");
        p->setMin(-5);
        return p;
    }) << "Label (i)<br>Integer<br>[-5,2147483647]"
                             << "Label (i)<br>Integer<br>[-5,2147483647]<br><br>Help";
    // The upper end stays at 0xFFFFFFFF whatever the maximum.
    QTest::newRow("hex") << Maker([](PropertyModel &m) {
        auto *p = add<HexProperty>(m, "h");
        p->setMax(255);
        p->setMin(16);
        return p;
    }) << "Label (h)<br>Hex<br>[16,0xFFFFFFFF]"
                         << "Label (h)<br>Hex<br>[16,0xFFFFFFFF]<br><br>Help";
    // The help text never shows on a float; its separator does.
    QTest::newRow("float") << Maker([](PropertyModel &) { return new FloatProperty(nullptr, "f"); })
                           << "Label (f)<br>Float<br>[1.17549e-38,3.40282e+38]"
                           << "Label (f)<br>Float<br>[1.17549e-38,3.40282e+38]<br><br>";
    QTest::newRow("text") << Maker([](PropertyModel &m) { return add<TextProperty>(m, "t"); })
                          << "Label (t)<br>Text"
                          << "Label (t)<br>Text<br><br>Help";
    QTest::newRow("uuid") << Maker([](PropertyModel &m) { return add<UuidProperty>(m, "d"); })
                          << "Label (d)<br>Uuid"
                          << "Label (d)<br>Uuid<br><br>Help";
}

void tst_TypedProperties::toolTips()
{
    QFETCH(Maker, make);
    QFETCH(QString, tip);
    QFETCH(QString, tipWithHelp);

    PropertyModel model;
    Property *property = make(model);
    property->setText("Label");
    QCOMPARE(property->toolTip(), tip);
    property->setHelpText("Help");
    QCOMPARE(property->toolTip(), tipWithHelp);
    if (!property->model())
        delete property;
}

void tst_TypedProperties::jsonValues_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QJsonValue>("json");

    QUuid const uuid("{0f3a6b1e-2c4d-4e5f-8a9b-0c1d2e3f4a5b}");
    QTest::newRow("boolean") << "boolean" << QVariant(true) << QJsonValue(true);
    QTest::newRow("integer") << "integer" << QVariant(-42) << QJsonValue(-42);
    QTest::newRow("text") << "text" << QVariant(QString("é\n\"")) << QJsonValue("é\n\"");
    // The index, not the string.
    QTest::newRow("combo") << "combo" << QVariant(2) << QJsonValue(2);
    // Hex is written signed: the top of the range is -1.
    QTest::newRow("hex max") << "hex" << QVariant(0xFFFFFFFFu) << QJsonValue(-1);
    QTest::newRow("hex high bit") << "hex" << QVariant(0x80000000u)
                                  << QJsonValue(std::numeric_limits<int>::min());
    QTest::newRow("hex small") << "hex" << QVariant(0x86B898u) << QJsonValue(8829080);
    QTest::newRow("uuid") << "uuid" << QVariant(uuid)
                          << QJsonValue("{0f3a6b1e-2c4d-4e5f-8a9b-0c1d2e3f4a5b}");
}

void tst_TypedProperties::jsonValues()
{
    QFETCH(QString, type);
    QFETCH(QVariant, value);
    QFETCH(QJsonValue, json);

    PropertyModel model;
    Property *property = model.addProperty(type, "p", {});
    if (auto *combo = dynamic_cast<ComboProperty *>(property))
        combo->setComboValues({"a", "b", "c"});
    QVERIFY(property->setValue(value, Internal));
    QJsonObject const saved = property->save();
    QCOMPARE(saved.value("value"), json);

    PropertyModel other;
    Property *copy = other.addProperty(type, "p", {});
    if (auto *combo = dynamic_cast<ComboProperty *>(copy))
        combo->setComboValues({"a", "b", "c"});
    // Through the text form, as a project file goes.
    QJsonObject const reread = QJsonDocument::fromJson(QJsonDocument(saved).toJson()).object();
    QVERIFY(copy->load(reread));
    QCOMPARE(copy->getValue(), value);
}

void tst_TypedProperties::defaults()
{
    PropertyModel model;
    RecordingPropertyListener listener;
    model.addListener(&listener);
    auto *integer = add<IntegerProperty>(model, "i");
    integer->setMax(100);
    listener.clear();

    // Without a default a property counts as default, yet reset writes the type's zero.
    QVERIFY(integer->setValue(5, Internal));
    QVERIFY(integer->isDefault());
    QCOMPARE(integer->getDefault(), QVariant(0));
    integer->reset();
    QCOMPARE(integer->getValue(), QVariant(0));

    // A default outside the limits, or of another type, is dropped.
    listener.clear();
    integer->setDefault(500);
    integer->setDefault(7u);
    QVERIFY(listener.calls.isEmpty());
    QVERIFY(integer->setValue(5, Internal));
    QVERIFY(integer->isDefault());

    // A default is announced as a state change and leaves the value alone.
    listener.clear();
    integer->setDefault(7);
    QCOMPARE(listener.words(), QStringList({"state:i"}));
    QCOMPARE(integer->getValue(), QVariant(5));
    QVERIFY(!integer->isDefault());
    integer->reset();
    QCOMPARE(integer->getValue(), QVariant(7));
    QVERIFY(integer->isDefault());

    auto *boolean = add<BooleanProperty>(model, "b");
    boolean->setDefault(true);
    QVERIFY(!boolean->isDefault());
    boolean->reset();
    QVERIFY(boolean->getBool());

    auto *text = add<TextProperty>(model, "t");
    text->setDefault(QString("fallback"));
    model.reset();
    QCOMPARE(text->getString(), QString("fallback"));
    QVERIFY(text->isDefault());

    auto *hex = add<HexProperty>(model, "h");
    hex->setDefault(0x10u);
    hex->reset();
    QCOMPARE(hex->getHex(), 0x10u);
}

void tst_TypedProperties::integerLimits()
{
    PropertyModel model;
    auto *integer = add<IntegerProperty>(model, "i");
    QCOMPARE(integer->getMin(), std::numeric_limits<int>::min());
    QCOMPARE(integer->getMax(), std::numeric_limits<int>::max());
    QVERIFY(integer->setValue(std::numeric_limits<int>::min(), Internal));
    QVERIFY(integer->setValue(50, Internal));
    RecordingPropertyListener listener;
    model.addListener(&listener);

    // A new maximum pulls the value down, then is announced.
    integer->setMax(20);
    QCOMPARE(integer->getInteger(), 20);
    QCOMPARE(listener.words(), QStringList({"value:i", "state:i"}));
    QVERIFY(!integer->setValue(21, Internal));
    QVERIFY(integer->setValue(-20, Internal));

    listener.clear();
    integer->setMin(-10);
    QCOMPARE(integer->getInteger(), -10);
    QCOMPARE(listener.words(), QStringList({"value:i", "state:i"}));
    QVERIFY(!integer->setValue(-11, Internal));

    // The old limits still apply to the pull: a minimum above the old maximum is not
    // reached, and the value stays below its new minimum.
    integer->setMin(30);
    QCOMPARE(integer->getInteger(), -10);
    QCOMPARE(integer->getMin(), 30);

    // Unchanged limits and steps are not announced; the edit flag never is.
    listener.clear();
    integer->setMin(30);
    integer->setMax(20);
    integer->setStep(1);
    integer->setShowButton(false);
    integer->setUpdateOnEdit(false);
    QVERIFY(!integer->getUpdateOnEdit());
    QVERIFY(listener.calls.isEmpty());
    integer->setStep(5);
    integer->setShowButton(true);
    QCOMPARE(integer->getStep(), 5);
    QVERIFY(integer->getShowButton());
    QCOMPARE(listener.words(), QStringList({"state:i", "state:i"}));

    // Limits are checked on writes only: a new property holds 0 outside its limits.
    auto *fresh = add<IntegerProperty>(model, "fresh");
    fresh->setMin(10);
    QCOMPARE(fresh->getInteger(), 10);
    IntegerProperty detached(nullptr, "detached");
    QCOMPARE(detached.getInteger(), 0);
}

void tst_TypedProperties::hexLimits()
{
    PropertyModel model;
    auto *hex = add<HexProperty>(model, "h");
    QCOMPARE(hex->getMin(), 0u);
    QCOMPARE(hex->getMax(), 0xFFFFFFFFu);
    QVERIFY(!hex->getShowButton());

    // Lowering the maximum raises a smaller value to it.
    hex->setMax(255);
    QCOMPARE(hex->getHex(), 255u);
    QVERIFY(!hex->setValue(256u, Internal));
    QVERIFY(hex->setValue(100u, Internal));
    // Raising the maximum tries the same, but through the old limits, so the value stays.
    hex->setMax(1000);
    QCOMPARE(hex->getHex(), 100u);
    QVERIFY(hex->setValue(1000u, Internal));

    // A value above the new maximum stays where it is.
    auto *other = add<HexProperty>(model, "o");
    QVERIFY(other->setValue(0x90u, Internal));
    other->setMax(0x10);
    QCOMPARE(other->getHex(), 0x90u);

    // The minimum behaves as usual.
    auto *third = add<HexProperty>(model, "t");
    third->setMin(8);
    QCOMPARE(third->getHex(), 8u);
    QVERIFY(!third->setValue(7u, Internal));
    third->setShowButton(true);
    QVERIFY(third->getShowButton());
}

void tst_TypedProperties::floatLimits()
{
    PropertyModel model;
    auto *real = new FloatProperty(&model, "f");
    QCOMPARE(real->type(), QString("float"));
    QCOMPARE(real->getMin(), std::numeric_limits<float>::min());
    QCOMPARE(real->getMax(), std::numeric_limits<float>::max());
    QCOMPARE(real->getStep(), 1.0f);

    // Zero and negative numbers are refused until the minimum allows them.
    QVERIFY(!real->setValue(0.0f, Internal));
    QVERIFY(!real->setValue(-1.0f, Internal));
    QVERIFY(!real->setValue(1.5, Internal));
    QVERIFY(!real->setValue(std::numeric_limits<float>::quiet_NaN(), Internal));
    QVERIFY(real->setValue(1.5f, Internal));
    QVERIFY(real->load(QJsonObject{{"type", "float"}, {"value", 0.0}}));
    QCOMPARE(real->getFloat(), 1.5f);
    // Too large for a float: refused, not converted.
    QVERIFY(real->load(QJsonObject{{"type", "float"}, {"value", 1e300}}));
    QCOMPARE(real->getFloat(), 1.5f);
    real->setDefault(0.0f);
    real->reset();
    QCOMPARE(real->getFloat(), 1.5f);

    real->setMin(-1.0f);
    QVERIFY(real->setValue(0.0f, Internal));
    QVERIFY(real->load(QJsonObject{{"type", "float"}, {"value", -0.25}}));
    QCOMPARE(real->getFloat(), -0.25f);
    QCOMPARE(real->save().value("value"), QJsonValue(-0.25));

    real->setMax(-0.5f);
    QCOMPARE(real->getFloat(), -0.5f);
    real->setStep(0.5f);
    QCOMPARE(real->getStep(), 0.5f);
    QCOMPARE(AbstractFloatProperty::Get(&model, "f"), 0.0f);
    delete real;
}

void tst_TypedProperties::combo()
{
    PropertyModel model;
    auto *combo = add<ComboProperty>(model, "c");
    QCOMPARE(combo->getCurrentIndex(), -1);
    QVERIFY(combo->isDefault());
    QCOMPARE(combo->getCurrentString(), QString());
    QCOMPARE(combo->stringValue(), QString());
    QVERIFY(combo->getComboValues().empty());

    // An empty list takes no index, and -1 survives a new list.
    QVERIFY(!combo->setValue(0, Internal));
    RecordingPropertyListener listener;
    model.addListener(&listener);
    combo->setComboValues({"red", "green", "blue"});
    QCOMPARE(combo->getCurrentIndex(), -1);
    QCOMPARE(listener.words(), QStringList({"state:c"}));
    QCOMPARE(combo->getString(), QString());

    QVERIFY(combo->setCurrentString("blue", Internal));
    QCOMPARE(combo->getCurrentIndex(), 2);
    QCOMPARE(combo->getCurrentString(), QString("blue"));
    QCOMPARE(combo->stringValue(), QString("blue"));
    QVERIFY(!combo->setCurrentString("purple", Internal));
    QVERIFY(!combo->setCurrentIndex(3, Internal));
    QVERIFY(!combo->setCurrentIndex(-1, Internal));
    QVERIFY(combo->setCurrentIndex(1, Internal));
    QCOMPARE(combo->getString(), QString("green"));
    QCOMPARE(combo->indexForValue("red"), 0);
    QCOMPARE(combo->indexForValue("Red"), -1);

    // A shorter list moves an index past its end to 0: value change first, then state.
    QVERIFY(combo->setCurrentIndex(2, Internal));
    listener.clear();
    combo->setComboValues({"one", "two"});
    QCOMPARE(combo->getCurrentIndex(), 0);
    QCOMPARE(listener.words(), QStringList({"value:c", "state:c"}));
    QCOMPARE(listener.calls.first().oldValue, QVariant(2));

    // An empty list cannot take index 0: the old index stays.
    listener.clear();
    combo->setComboValues({});
    QCOMPARE(combo->getCurrentIndex(), 0);
    QCOMPARE(combo->getCurrentString(), QString());
    QCOMPARE(listener.words(), QStringList({"state:c"}));

    combo->setComboValues({"x", "y"});
    combo->setDefault(1);
    QVERIFY(!combo->isDefault());
    combo->setDefault(5);
    QCOMPARE(combo->getDefault(), QVariant(1));
    combo->reset();
    QCOMPARE(combo->getCurrentString(), QString("y"));
}

void tst_TypedProperties::comboStatics()
{
    PropertyModel model;
    auto *combo = add<ComboProperty>(model, "c");
    add<IntegerProperty>(model, "i");
    combo->setComboValues({"a", "b"});

    QCOMPARE(AbstractComboProperty::GetIndex(&model, "missing"), -1);
    QCOMPARE(AbstractComboProperty::GetString(&model, "missing"), QString());
    QVERIFY(!AbstractComboProperty::SetString(&model, "missing", "a", Internal));
    QVERIFY(!AbstractComboProperty::SetIndex(&model, "missing", 0, Internal));

    QVERIFY(AbstractComboProperty::SetString(&model, "c", "b", Internal));
    QCOMPARE(AbstractComboProperty::GetIndex(&model, "c"), 1);
    QVERIFY(AbstractComboProperty::SetIndex(&model, "c", 0, Internal));
    QCOMPARE(AbstractComboProperty::GetString(&model, "c"), QString("a"));
    QVERIFY(!AbstractComboProperty::SetIndex(&model, "c", 2, Internal));

    // SetIndex goes to the property itself, which is silent only while the model is.
    RecordingPropertyListener listener;
    model.addListener(&listener);
    model.setEventsEnabled(false);
    QVERIFY(AbstractComboProperty::SetIndex(&model, "c", 1, Internal));
    QVERIFY(listener.calls.isEmpty());
}

void tst_TypedProperties::buttonAndUuid()
{
    PropertyModel model;
    auto *button = add<ButtonProperty>(model, "b");
    QVERIFY(!button->getPersistent());
    QVERIFY(button->setValue(QString("Press me"), Internal));
    QVERIFY(button->isDefault());
    button->reset();
    QCOMPARE(button->getValue(), QVariant(QString("Press me")));
    QCOMPARE(button->save(),
             QJsonObject({{"type", "button"}, {"visible", true}, {"enabled", true}}));
    QCOMPARE(ButtonProperty::GetValue(&model, "b"), QString("Press me"));
    QVERIFY(ButtonProperty::SetValue(&model, "b", "Other", Internal));
    QVERIFY(!ButtonProperty::SetValue(&model, "missing", "Other", Internal));

    // Each uuid property draws its own id, and keeps it through reset.
    auto *first = add<UuidProperty>(model, "u1");
    auto *second = add<UuidProperty>(model, "u2");
    QVERIFY(!first->getUuid().isNull());
    QVERIFY(first->getUuid() != second->getUuid());
    QUuid const drawn = first->getUuid();
    QVERIFY(first->isDefault());
    first->reset();
    QCOMPARE(first->getUuid(), drawn);
    QCOMPARE(UuidProperty::Get(&model, "u1"), drawn);
    QVERIFY(UuidProperty::Get(&model, "missing").isNull());

    // Text that is no uuid loads as the null id.
    QVERIFY(first->load(QJsonObject{{"type", "uuid"}, {"value", "not a uuid"}}));
    QVERIFY(first->getUuid().isNull());
}

void tst_TypedProperties::staticAccessors()
{
    PropertyModel model;
    add<BooleanProperty>(model, "b");
    add<IntegerProperty>(model, "i");
    add<HexProperty>(model, "h");
    add<TextProperty>(model, "t");

    QVERIFY(AbstractBooleanProperty::Set(&model, "b", true, Internal));
    QVERIFY(AbstractIntegerProperty::Set(&model, "i", -4, Internal));
    QVERIFY(AbstractHexProperty::Set(&model, "h", 0xABu, Internal));
    QVERIFY(AbstractTextProperty::Set(&model, "t", "words", Internal));
    QCOMPARE(AbstractBooleanProperty::Get(&model, "b"), true);
    QCOMPARE(AbstractIntegerProperty::Get(&model, "i"), -4);
    QCOMPARE(AbstractHexProperty::Get(&model, "h"), 0xABu);
    QCOMPARE(AbstractTextProperty::Get(&model, "t"), QString("words"));

    // Writing the current value is a refusal like any other.
    QVERIFY(!AbstractIntegerProperty::Set(&model, "i", -4, Internal));

    // Unknown ids read as zero and refuse writes.
    QVERIFY(!AbstractBooleanProperty::Set(&model, "x", true, Internal));
    QVERIFY(!AbstractIntegerProperty::Set(&model, "x", 1, Internal));
    QVERIFY(!AbstractHexProperty::Set(&model, "x", 1u, Internal));
    QVERIFY(!AbstractTextProperty::Set(&model, "x", "a", Internal));
    QCOMPARE(AbstractBooleanProperty::Get(&model, "x"), false);
    QCOMPARE(AbstractIntegerProperty::Get(&model, "x"), 0);
    QCOMPARE(AbstractHexProperty::Get(&model, "x"), 0u);
    QCOMPARE(AbstractTextProperty::Get(&model, "x"), QString());
}

QTEST_GUILESS_MAIN(tst_TypedProperties)
#include "tst_TypedProperties.moc"
