#include "data/IKeyValueMapListener.h"
#include "data/KeyValueMap.h"

#include <QtTest>

#include <functional>

using namespace TES;

namespace {

class RecordingListener : public IKeyValueMapListener
{
public:
    struct Call
    {
        KeyValueMap const *map;
        QString key;
        QVariant oldValue;
        QVariant newValue;
    };

    void keyValueChanged(KeyValueMap const *map, QString const &key, QVariant const &oldValue,
                         QVariant const &newValue) override
    {
        calls.append({map, key, oldValue, newValue});
        if (onCall)
            onCall();
    }

    QList<Call> calls;
    std::function<void()> onCall;
};

QJsonArray parseArray(QByteArray const &text)
{
    return QJsonDocument::fromJson(text).array();
}

} // namespace

class tst_KeyValueMap : public QObject
{
    Q_OBJECT

private slots:
    void unknownKeys();
    void settersAndGetters();
    void conversions();
    void listenersHearEverySet();
    void listenerLeavingDuringNotification();
    void saveForm_data();
    void saveForm();
    void roundTrip_data();
    void roundTrip();
    void handWrittenNumbers();
    void loadRules();
};

void tst_KeyValueMap::unknownKeys()
{
    KeyValueMap map;
    QVERIFY(!map.contains("k"));
    QCOMPARE(map.getType("k"), 0u);
    QCOMPARE(map.getBool("k"), false);
    QCOMPARE(map.getInt("k"), 0);
    QCOMPARE(map.getDouble("k"), 0.0);
    QCOMPARE(map.getString("k"), QString());
    QCOMPARE(map.getPoint("k"), QPoint(0, 0));
    QVERIFY(!map.getColor("k").isValid());
    QCOMPARE(map.getPointer("k"), static_cast<void *>(nullptr));
    map.remove("k");
    QVERIFY(map.save().isEmpty());
}

void tst_KeyValueMap::settersAndGetters()
{
    int target = 0;
    KeyValueMap map;
    map.setBool("bool", true);
    map.setInt("int", -7);
    map.setDouble("double", 2.5);
    map.setString("string", "text");
    map.setPoint("point", QPoint(3, -4));
    map.setColor("color", QColor(10, 20, 30));
    map.setPointer("pointer", &target);

    QCOMPARE(map.getBool("bool"), true);
    QCOMPARE(map.getInt("int"), -7);
    QCOMPARE(map.getDouble("double"), 2.5);
    QCOMPARE(map.getString("string"), QString("text"));
    QCOMPARE(map.getPoint("point"), QPoint(3, -4));
    QCOMPARE(map.getColor("color"), QColor(10, 20, 30));
    QCOMPARE(map.getPointer("pointer"), static_cast<void *>(&target));

    QCOMPARE(map.getType("bool"), unsigned(QMetaType::Bool));
    QCOMPARE(map.getType("color"), unsigned(QMetaType::QColor));
    QCOMPARE(map.getType("pointer"), 31u);

    // A setter replaces the kind as well as the value.
    map.setString("int", "now text");
    QCOMPARE(map.getType("int"), unsigned(QMetaType::QString));

    map.remove("bool");
    QVERIFY(!map.contains("bool"));
    map.clear();
    QVERIFY(!map.contains("int"));
    QVERIFY(map.save().isEmpty());
}

void tst_KeyValueMap::conversions()
{
    KeyValueMap map;
    // getInt reads a double and truncates toward zero.
    map.setString("s", "12.9");
    QCOMPARE(map.getInt("s"), 12);
    map.setDouble("d", -3.99);
    QCOMPARE(map.getInt("d"), -3);
    map.setDouble("huge", 1e300);
    QCOMPARE(map.getInt("huge"), std::numeric_limits<int>::max());
    map.setString("word", "abc");
    QCOMPARE(map.getInt("word"), 0);
    QCOMPARE(map.getBool("word"), true);
    map.setInt("n", 5);
    QCOMPARE(map.getString("n"), QString("5"));
    QCOMPARE(map.getDouble("n"), 5.0);

    // Colours convert from their names; anything else gives an invalid colour or null.
    map.setString("red", "#ff0000");
    QCOMPARE(map.getColor("red"), QColor(Qt::red));
    QVERIFY(!map.getColor("n").isValid());
    QCOMPARE(map.getPointer("n"), static_cast<void *>(nullptr));
    QCOMPARE(map.getPoint("n"), QPoint(0, 0));
}

void tst_KeyValueMap::listenersHearEverySet()
{
    KeyValueMap map;
    RecordingListener listener;
    RecordingListener other;
    map.addListener(&listener);
    map.addListener(&listener);
    map.addListener(&other);
    map.addListener(nullptr);
    map.removeListener(nullptr);

    // No comparison: the same value again is told again.
    map.setBool("a", true);
    map.setBool("a", true);
    QCOMPARE(listener.calls.size(), 2);
    QCOMPARE(listener.calls.at(0).map, &map);
    QCOMPARE(listener.calls.at(0).key, QString("a"));
    QVERIFY(!listener.calls.at(0).oldValue.isValid());
    QCOMPARE(listener.calls.at(0).newValue, QVariant(true));
    QCOMPARE(listener.calls.at(1).oldValue, QVariant(true));
    QCOMPARE(listener.calls.at(1).newValue, QVariant(true));
    QCOMPARE(other.calls.size(), 2);

    // Clearing, removing and loading are not told.
    map.remove("a");
    map.remove("unknown");
    map.clear();
    map.load(parseArray(R"([{"key": "x", "type": "int", "value": "1"}])"));
    QCOMPARE(listener.calls.size(), 2);
    QCOMPARE(map.getInt("x"), 1);

    map.removeListener(&listener);
    map.removeListener(&listener);
    map.setInt("x", 2);
    QCOMPARE(listener.calls.size(), 2);
    QCOMPARE(other.calls.size(), 3);
    QCOMPARE(other.calls.last().oldValue, QVariant(1));
}

void tst_KeyValueMap::listenerLeavingDuringNotification()
{
    KeyValueMap map;
    RecordingListener first;
    RecordingListener second;
    map.addListener(&first);
    map.addListener(&second);
    // Whichever is told first removes both; the other is not told any more.
    auto leave = [&] {
        map.removeListener(&first);
        map.removeListener(&second);
    };
    first.onCall = leave;
    second.onCall = leave;
    map.setInt("k", 1);
    QCOMPARE(first.calls.size() + second.calls.size(), 1);
    map.setInt("k", 2);
    QCOMPARE(first.calls.size() + second.calls.size(), 1);
}

void tst_KeyValueMap::saveForm_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QJsonObject>("json");

    QTest::newRow("bool") << QVariant(false)
                          << QJsonObject{{"key", "k"}, {"type", "bool"}, {"value", "false"}};
    QTest::newRow("int") << QVariant(-12)
                         << QJsonObject{{"key", "k"}, {"type", "int"}, {"value", "-12"}};
    QTest::newRow("double") << QVariant(0.1)
                            << QJsonObject{{"key", "k"}, {"type", "double"}, {"value", "0.1"}};
    QTest::newRow("string") << QVariant(QString("a b"))
                            << QJsonObject{{"key", "k"}, {"type", "string"}, {"value", "a b"}};
    QTest::newRow("point") << QVariant(
        QPoint(-1, 20)) << QJsonObject{{"key", "k"}, {"type", "point"}, {"x", "-1"}, {"y", "20"}};
    // A colour is written as its brightness only.
    QTest::newRow("color") << QVariant(QColor(10, 200, 30))
                           << QJsonObject{{"key", "k"}, {"type", "color"}, {"value", "200"}};
    QTest::newRow("pointer") << QVariant::fromValue(static_cast<void *>(nullptr))
                             << QJsonObject{{"key", "k"}, {"type", ""}};
}

void tst_KeyValueMap::saveForm()
{
    QFETCH(QVariant, value);
    QFETCH(QJsonObject, json);

    KeyValueMap map;
    switch (value.userType()) {
    case QMetaType::Bool:
        map.setBool("k", value.toBool());
        break;
    case QMetaType::Int:
        map.setInt("k", value.toInt());
        break;
    case QMetaType::Double:
        map.setDouble("k", value.toDouble());
        break;
    case QMetaType::QString:
        map.setString("k", value.toString());
        break;
    case QMetaType::QPoint:
        map.setPoint("k", value.toPoint());
        break;
    case QMetaType::QColor:
        map.setColor("k", value.value<QColor>());
        break;
    default:
        map.setPointer("k", value.value<void *>());
    }
    QCOMPARE(map.save(), QJsonArray{json});
}

void tst_KeyValueMap::roundTrip_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QVariant>("loaded");

    QTest::newRow("bool") << "bool" << QVariant(true);
    QTest::newRow("int") << "int" << QVariant(-2147483647 - 1);
    QTest::newRow("double") << "double" << QVariant(-1234.5678);
    QTest::newRow("string") << "string" << QVariant(QString("ünïcode \"quoted\""));
    // Points and colours are written as strings but read as numbers.
    QTest::newRow("point") << "point" << QVariant(QPoint(0, 0));
    QTest::newRow("color") << "color" << QVariant(QColor(0, 0, 0));
    // A pointer comes back as an entry of no kind.
    QTest::newRow("pointer") << "pointer" << QVariant();
}

void tst_KeyValueMap::roundTrip()
{
    QFETCH(QString, kind);
    QFETCH(QVariant, loaded);

    int target = 0;
    KeyValueMap map;
    map.setBool("bool", true);
    map.setInt("int", -2147483647 - 1);
    map.setDouble("double", -1234.5678);
    map.setString("string", QString("ünïcode \"quoted\""));
    map.setPoint("point", QPoint(5, 6));
    map.setColor("color", QColor(1, 2, 3, 4));
    map.setPointer("pointer", &target);

    // Through the text form, and into a map that held something else.
    QByteArray const text = QJsonDocument(map.save()).toJson();
    KeyValueMap copy;
    copy.setString("stale", "gone");
    copy.load(parseArray(text));
    QVERIFY(!copy.contains("stale"));
    QVERIFY(copy.contains(kind));
    QCOMPARE(copy.getType(kind), unsigned(loaded.userType()));
    if (kind == "point") {
        QCOMPARE(copy.getPoint(kind), loaded.toPoint());
    } else if (kind == "color") {
        // Opaque, whatever the alpha was.
        QCOMPARE(copy.getColor(kind), loaded.value<QColor>());
    } else if (kind == "pointer") {
        QCOMPARE(copy.getInt(kind), 0);
        QCOMPARE(copy.getPointer(kind), static_cast<void *>(nullptr));
    } else {
        QCOMPARE(copy.getString(kind), loaded.toString());
    }
}

void tst_KeyValueMap::handWrittenNumbers()
{
    // Only JSON numbers bring points and colours back.
    KeyValueMap map;
    map.load(parseArray(R"([{"key": "p", "type": "point", "x": 12, "y": -3},
                            {"key": "c", "type": "color", "value": 16711680}])"));
    QCOMPARE(map.getPoint("p"), QPoint(12, -3));
    QCOMPARE(map.getColor("c"), QColor(255, 0, 0));
}

void tst_KeyValueMap::loadRules()
{
    KeyValueMap map;
    map.load(parseArray(R"([
        {"key": "twice", "type": "int", "value": "1"},
        {"key": "twice", "type": "int", "value": "2"},
        {"key": "caps", "type": "Int", "value": "3"},
        {"key": "truth", "type": "bool", "value": "TRUE"},
        {"key": "number", "type": "int", "value": 5},
        {"key": "bad", "type": "double", "value": "x"},
        {"type": "string", "value": "no key"},
        7,
        "garbage"
    ])"));
    // The first of two entries wins.
    QCOMPARE(map.getInt("twice"), 1);
    // Type words are case-sensitive; an unknown one makes an entry of no kind.
    QVERIFY(map.contains("caps"));
    QCOMPARE(map.getType("caps"), 0u);
    QCOMPARE(map.getBool("truth"), false);
    // The value is read as a string: a JSON number reads as empty, so as 0.
    QCOMPARE(map.getInt("number"), 0);
    QCOMPARE(map.getType("number"), unsigned(QMetaType::Int));
    QCOMPARE(map.getDouble("bad"), 0.0);
    // A missing key is the empty key; the non-objects after it are ignored since it exists.
    QCOMPARE(map.getString(""), QString("no key"));

    map.load(QJsonArray());
    QVERIFY(!map.contains("twice"));
    QVERIFY(map.save().isEmpty());
}

QTEST_GUILESS_MAIN(tst_KeyValueMap)
#include "tst_KeyValueMap.moc"
