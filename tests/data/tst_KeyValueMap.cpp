// SPDX-License-Identifier: MIT
#include "data/IKeyValueMapListener.h"
#include "data/KeyValueMap.h"

#include <QtTest>

#include <functional>

using namespace TES;

namespace {

// Writes down each notification as "key: old -> new".
class RecordingListener : public IKeyValueMapListener
{
public:
    void keyValueChanged(KeyValueMap const *map, QString const &key, QVariant const &oldValue,
                         QVariant const &newValue) override
    {
        lastMap = map;
        calls << QString("%1: %2 -> %3")
                     .arg(key, oldValue.isValid() ? oldValue.toString() : "none",
                          newValue.toString());
        if (onCall)
            onCall();
    }

    QStringList calls;
    KeyValueMap const *lastMap = nullptr;
    std::function<void()> onCall;
};

QJsonArray parseArray(QByteArray const &text)
{
    return QJsonDocument::fromJson(text).array();
}

// One entry of every kind, each under the name of its kind.
void fillAll(KeyValueMap &map, void *pointer)
{
    map.setBool("bool", true);
    map.setInt("int", -2147483647 - 1);
    map.setDouble("double", -1234.5678);
    map.setString("string", QString("ünïcode \"quoted\""));
    map.setPoint("point", QPoint(-1, 20));
    map.setColor("color", QColor(10, 200, 30, 4));
    map.setPointer("pointer", pointer);
}

} // namespace

class tst_KeyValueMap : public QObject
{
    Q_OBJECT

private slots:
    void gettersAndConversions();
    void listenersHearEverySet();
    void saveThenLoad();
    void loadRules();
};

void tst_KeyValueMap::gettersAndConversions()
{
    KeyValueMap map;
    int target = 0;
    fillAll(map, &target);
    QCOMPARE(map.getColor("color"), QColor(10, 200, 30, 4));
    QCOMPARE(map.getPointer("pointer"), static_cast<void *>(&target));
    QCOMPARE(map.getType("pointer"), 31u);

    // A setter replaces the kind as well as the value; getInt truncates toward zero.
    map.setString("int", "12.9");
    QCOMPARE(map.getType("int"), unsigned(QMetaType::QString));
    QCOMPARE(map.getInt("int"), 12);
    map.setDouble("double", -3.99);
    QCOMPARE(map.getInt("double"), -3);
    QCOMPARE(map.getInt("string"), 0);
    // Colours convert from their names; anything else gives an invalid colour or null.
    map.setString("string", "#ff0000");
    QCOMPARE(map.getColor("string"), QColor(Qt::red));
    QVERIFY(!map.getColor("double").isValid());
    QCOMPARE(map.getPointer("double"), static_cast<void *>(nullptr));

    map.remove("bool");
    map.remove("unknown");
    QVERIFY(!map.contains("bool"));
    QVERIFY(map.contains("int"));
    map.clear();
    QVERIFY(map.save().isEmpty());
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
    QCOMPARE(listener.calls, QStringList({"a: none -> true", "a: true -> true"}));
    QCOMPARE(listener.lastMap, &map);
    QCOMPARE(other.calls, listener.calls);

    // Clearing, removing and loading are not told.
    map.remove("a");
    map.clear();
    map.load(parseArray(R"([{"key": "x", "type": "int", "value": "1"}])"));
    map.removeListener(&listener);
    map.removeListener(&listener);
    map.setInt("x", 2);
    QCOMPARE(listener.calls.size(), 2);
    QCOMPARE(other.calls.mid(2), QStringList({"x: 1 -> 2"}));

    // Whichever is told first removes both; the other is not told any more.
    map.addListener(&listener);
    listener.calls.clear();
    other.calls.clear();
    auto leave = [&] {
        map.removeListener(&listener);
        map.removeListener(&other);
    };
    listener.onCall = leave;
    other.onCall = leave;
    map.setInt("k", 1);
    map.setInt("k", 2);
    QCOMPARE(listener.calls.size() + other.calls.size(), 1);
}

void tst_KeyValueMap::saveThenLoad()
{
    int target = 0;
    KeyValueMap map;
    fillAll(map, &target);

    // In key order. A colour is written as its brightness only, a pointer as a kind of no name.
    QJsonArray const saved = map.save();
    QCOMPARE(
        saved,
        (QJsonArray{
            QJsonObject{{"key", "bool"}, {"type", "bool"}, {"value", "true"}},
            QJsonObject{{"key", "color"}, {"type", "color"}, {"value", "200"}},
            QJsonObject{{"key", "double"}, {"type", "double"}, {"value", "-1234.5678"}},
            QJsonObject{{"key", "int"}, {"type", "int"}, {"value", "-2147483648"}},
            QJsonObject{{"key", "point"}, {"type", "point"}, {"x", "-1"}, {"y", "20"}},
            QJsonObject{{"key", "pointer"}, {"type", ""}},
            QJsonObject{{"key", "string"}, {"type", "string"}, {"value", "ünïcode \"quoted\""}},
        }));

    // Through the text form, and into a map that held something else.
    KeyValueMap copy;
    copy.setString("stale", "gone");
    copy.load(parseArray(QJsonDocument(saved).toJson()));
    QVERIFY(!copy.contains("stale"));
    QCOMPARE(copy.getBool("bool"), true);
    QCOMPARE(copy.getInt("int"), -2147483647 - 1);
    QCOMPARE(copy.getDouble("double"), -1234.5678);
    QCOMPARE(copy.getString("string"), QString("ünïcode \"quoted\""));
    QCOMPARE(copy.getType("double"), unsigned(QMetaType::Double));
    // Points and colours are written as strings but read as numbers: the origin, opaque black.
    QCOMPARE(copy.getPoint("point"), QPoint(0, 0));
    QCOMPARE(copy.getColor("color"), QColor(0, 0, 0));
    // A pointer comes back as an entry of no kind.
    QVERIFY(copy.contains("pointer"));
    QCOMPARE(copy.getType("pointer"), 0u);
    QCOMPARE(copy.getInt("pointer"), 0);
    QCOMPARE(copy.getPointer("pointer"), static_cast<void *>(nullptr));

    // Only JSON numbers bring points and colours back.
    copy.load(parseArray(R"([{"key": "p", "type": "point", "x": 12, "y": -3},
                             {"key": "c", "type": "color", "value": 16711680}])"));
    QCOMPARE(copy.getPoint("p"), QPoint(12, -3));
    QCOMPARE(copy.getColor("c"), QColor(255, 0, 0));
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
    QVERIFY(map.save().isEmpty());
}

QTEST_GUILESS_MAIN(tst_KeyValueMap)
#include "tst_KeyValueMap.moc"
