// SPDX-License-Identifier: MIT
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

// Adds a property of the type; a combo gets the choices "a", "b" and "c".
Property *addOfType(PropertyModel &model, QString const &type)
{
    Property *property = model.addProperty(type, "p", {});
    if (auto *combo = dynamic_cast<ComboProperty *>(property))
        combo->setComboValues({"a", "b", "c"});
    return property;
}

} // namespace

class tst_TypedProperties : public QObject
{
    Q_OBJECT

private slots:
    void values_data();
    void values();
    void toolTips_data();
    void toolTips();
    void defaults();
    void integerLimits();
    void hexLimits();
    void floatLimits();
    void combo();
    void buttonAndUuid();
};

void tst_TypedProperties::values_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QJsonValue>("json");
    QTest::addColumn<QVariant>("refused");
    auto row = [](char const *name, QVariant const &value, QJsonValue const &json,
                  QVariant const &refused) {
        QTest::newRow(name) << QString(name).section(' ', 0, 0) << value << json << refused;
    };

    // No conversions: only the exact QVariant type is taken.
    row("integer", -42, -42, 5u);
    row("integer double", -42, -42, 5.0);
    // Hex is written signed: the top of the range is -1.
    row("hex max", 0xFFFFFFFFu, -1, 5);
    row("hex high bit", 0x80000000u, std::numeric_limits<int>::min(), 5);
    row("boolean", true, true, 1);
    row("text", QString("é\n\""), "é\n\"", QByteArray("x"));
    row("uuid", QUuid("{0f3a6b1e-2c4d-4e5f-8a9b-0c1d2e3f4a5b}"),
        "{0f3a6b1e-2c4d-4e5f-8a9b-0c1d2e3f4a5b}", QUuid::createUuid().toString());
    // The index is written, not the string; it must hit the list of three.
    row("combo", 2, 2, 3);
    row("combo negative", 2, 2, -1);
}

void tst_TypedProperties::values()
{
    QFETCH(QString, type);
    QFETCH(QVariant, value);
    QFETCH(QJsonValue, json);
    QFETCH(QVariant, refused);

    PropertyModel model;
    Property *property = addOfType(model, type);
    QVariant const before = property->getValue();
    QVERIFY(!property->isCompatible(refused));
    QVERIFY(!property->setValue(refused, Internal));
    QCOMPARE(property->getValue(), before);
    QVERIFY(property->isCompatible(value));
    QVERIFY(property->setValue(value, Internal));
    QJsonObject const saved = property->save();
    QCOMPARE(saved.value("value"), json);

    // Through the text form, as a project file goes.
    PropertyModel other;
    Property *copy = addOfType(other, type);
    QVERIFY(copy->load(QJsonDocument::fromJson(QJsonDocument(saved).toJson()).object()));
    QCOMPARE(copy->getValue(), value);
}

void tst_TypedProperties::toolTips_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("tip");
    auto row = [](char const *type, char const *tip) {
        QTest::newRow(type) << QString(type) << QString(tip);
    };
    row("boolean", "Label <i>(p)</i><br><b>Boolean</b>");
    row("button", "Label (p)<br>Button");
    row("combo", "Label (p)<br>Combo");
    row("integer", "Label (p)<br>Integer<br>[-5,2147483647]");
    // The upper end stays at 0xFFFFFFFF whatever the maximum.
    row("hex", "Label (p)<br>Hex<br>[16,0xFFFFFFFF]");
    row("float", "Label (p)<br>Float<br>[1.17549e-38,3.40282e+38]");
    row("text", "Label (p)<br>Text");
    row("uuid", "Label (p)<br>Uuid");
}

void tst_TypedProperties::toolTips()
{
    QFETCH(QString, type);
    QFETCH(QString, tip);

    PropertyModel model;
    FloatProperty real(&model, "p");
    Property *property = type == "float" ? &real : addOfType(model, type);
    if (auto *integer = dynamic_cast<IntegerProperty *>(property))
        integer->setMin(-5);
    if (auto *hex = dynamic_cast<HexProperty *>(property)) {
        hex->setMax(255);
        hex->setMin(16);
    }
    property->setText("Label");
    QCOMPARE(property->toolTip(), tip);
    // The help text never shows on a float; its separator does.
    property->setHelpText("Help");
    QCOMPARE(property->toolTip(), tip + (type == "float" ? "<br><br>" : "<br><br>Help"));
}

void tst_TypedProperties::defaults()
{
    PropertyModel model;
    auto *integer = add<IntegerProperty>(model, "i");
    integer->setMax(100);
    QVERIFY(integer->setValue(5, Internal));
    RecordingPropertyListener listener;
    model.addListener(&listener);

    // A default outside the limits, or of another type, is dropped in silence.
    integer->setDefault(500);
    integer->setDefault(7u);
    QVERIFY(listener.calls.isEmpty());
    // Without a default a property counts as default, yet reset writes the type's zero.
    QVERIFY(integer->isDefault());
    integer->reset();
    QCOMPARE(integer->getValue(), QVariant(0));

    // A default is announced as a state change and leaves the value alone.
    integer->setDefault(7);
    QCOMPARE(listener.words(), QStringList({"value:i", "state:i"}));
    QCOMPARE(integer->getValue(), QVariant(0));
    QVERIFY(!integer->isDefault());
    integer->reset();
    QCOMPARE(integer->getValue(), QVariant(7));
    QVERIFY(integer->isDefault());

    auto *boolean = add<BooleanProperty>(model, "b");
    auto *text = add<TextProperty>(model, "t");
    auto *hex = add<HexProperty>(model, "h");
    boolean->setDefault(true);
    text->setDefault(QString("fallback"));
    hex->setDefault(0x10u);
    QVERIFY(!text->isDefault());
    model.reset();
    QVERIFY(boolean->getBool() && boolean->isDefault());
    QCOMPARE(text->getString(), QString("fallback"));
    QCOMPARE(hex->getHex(), 0x10u);
}

void tst_TypedProperties::integerLimits()
{
    PropertyModel model;
    auto *integer = add<IntegerProperty>(model, "i");
    QVERIFY(integer->setValue(std::numeric_limits<int>::min(), Internal));
    QVERIFY(integer->setValue(std::numeric_limits<int>::max(), Internal));
    RecordingPropertyListener listener;
    model.addListener(&listener);

    // A new maximum pulls the value down, then is announced.
    integer->setMax(20);
    QCOMPARE(integer->getInteger(), 20);
    QCOMPARE(listener.words(), QStringList({"value:i", "state:i"}));
    QVERIFY(!integer->setValue(21, Internal));
    QVERIFY(integer->setValue(-20, Internal));
    integer->setMin(-10);
    QCOMPARE(integer->getInteger(), -10);
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
    QVERIFY(listener.calls.isEmpty());
    integer->setStep(5);
    integer->setShowButton(true);
    QCOMPARE(listener.words(), QStringList({"state:i", "state:i"}));
}

void tst_TypedProperties::hexLimits()
{
    PropertyModel model;
    auto *hex = add<HexProperty>(model, "h");
    QVERIFY(hex->setValue(0xFFFFFFFFu, Internal));
    QVERIFY(hex->setValue(0u, Internal));

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
    hex->setMax(0x10);
    QCOMPARE(hex->getHex(), 1000u);

    // The minimum behaves as usual.
    auto *other = add<HexProperty>(model, "o");
    other->setMin(8);
    QCOMPARE(other->getHex(), 8u);
    QVERIFY(!other->setValue(7u, Internal));
}

void tst_TypedProperties::floatLimits()
{
    PropertyModel model;
    FloatProperty real(&model, "f");
    QCOMPARE(real.type(), QString("float"));

    // Zero and negative numbers are refused until the minimum allows them.
    QVERIFY(!real.setValue(0.0f, Internal));
    QVERIFY(!real.setValue(-1.0f, Internal));
    QVERIFY(!real.setValue(1.5, Internal));
    QVERIFY(!real.setValue(std::numeric_limits<float>::quiet_NaN(), Internal));
    QVERIFY(real.setValue(std::numeric_limits<float>::min(), Internal));
    QVERIFY(real.setValue(std::numeric_limits<float>::max(), Internal));
    QVERIFY(real.setValue(1.5f, Internal));
    QVERIFY(real.load(QJsonObject{{"type", "float"}, {"value", 0.0}}));
    QCOMPARE(real.getFloat(), 1.5f);
    // Too large for a float: refused, not converted.
    QVERIFY(real.load(QJsonObject{{"type", "float"}, {"value", 1e300}}));
    QCOMPARE(real.getFloat(), 1.5f);
    real.setDefault(0.0f);
    real.reset();
    QCOMPARE(real.getFloat(), 1.5f);

    real.setMin(-1.0f);
    QVERIFY(real.setValue(0.0f, Internal));
    QVERIFY(real.load(QJsonObject{{"type", "float"}, {"value", -0.25}}));
    QCOMPARE(real.getFloat(), -0.25f);
    QCOMPARE(real.save().value("value"), QJsonValue(-0.25));
    real.setMax(-0.5f);
    QCOMPARE(real.getFloat(), -0.5f);
}

void tst_TypedProperties::combo()
{
    PropertyModel model;
    auto *combo = add<ComboProperty>(model, "c");
    QCOMPARE(combo->getCurrentIndex(), -1);
    QVERIFY(combo->isDefault());
    QCOMPARE(combo->stringValue(), QString());

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
    QCOMPARE(combo->stringValue(), QString("blue"));
    QVERIFY(!combo->setCurrentString("purple", Internal));
    QVERIFY(!combo->setCurrentIndex(3, Internal));
    QVERIFY(combo->setCurrentIndex(1, Internal));
    QCOMPARE(combo->getCurrentString(), QString("green"));

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
    combo->setDefault(5);
    QVERIFY(!combo->isDefault());
    combo->reset();
    QCOMPARE(combo->getCurrentString(), QString("y"));

    // The accessors by id: a missing id reads as -1 or nothing and refuses a string.
    QCOMPARE(AbstractComboProperty::GetIndex(&model, "missing"), -1);
    QCOMPARE(AbstractComboProperty::GetString(&model, "missing"), QString());
    QVERIFY(!AbstractComboProperty::SetString(&model, "missing", "x", Internal));
    QVERIFY(AbstractComboProperty::SetString(&model, "c", "x", Internal));
    QCOMPARE(AbstractComboProperty::GetIndex(&model, "c"), 0);
    QVERIFY(!AbstractComboProperty::SetIndex(&model, "c", 2, Internal));
    // SetIndex goes to the property itself, which is silent only while the model is.
    listener.clear();
    model.setEventsEnabled(false);
    QVERIFY(AbstractComboProperty::SetIndex(&model, "c", 1, Internal));
    QCOMPARE(AbstractComboProperty::GetString(&model, "c"), QString("y"));
    QVERIFY(listener.calls.isEmpty());
}

void tst_TypedProperties::buttonAndUuid()
{
    // Neither has a default of its own: both always count as default and reset does nothing.
    PropertyModel model;
    auto *button = add<ButtonProperty>(model, "b");
    QVERIFY(!button->getPersistent());
    QVERIFY(ButtonProperty::SetValue(&model, "b", "Press me", Internal));
    QVERIFY(!ButtonProperty::SetValue(&model, "missing", "Other", Internal));
    QVERIFY(!button->setValue(true, Internal));
    QVERIFY(button->isDefault());
    button->reset();
    QCOMPARE(ButtonProperty::GetValue(&model, "b"), QString("Press me"));
    QCOMPARE(button->save(),
             QJsonObject({{"type", "button"}, {"visible", true}, {"enabled", true}}));

    // Each uuid property draws its own id without any call.
    auto *first = add<UuidProperty>(model, "u1");
    auto *second = add<UuidProperty>(model, "u2");
    QVERIFY(!first->getUuid().isNull());
    QVERIFY(first->getUuid() != second->getUuid());
    QUuid const drawn = first->getUuid();
    QVERIFY(first->isDefault());
    first->reset();
    QCOMPARE(UuidProperty::Get(&model, "u1"), drawn);
    QVERIFY(UuidProperty::Get(&model, "missing").isNull());

    // Text that is no uuid loads as the null id.
    QVERIFY(first->load(QJsonObject{{"type", "uuid"}, {"value", "not a uuid"}}));
    QVERIFY(first->getUuid().isNull());
}

QTEST_GUILESS_MAIN(tst_TypedProperties)
#include "tst_TypedProperties.moc"
