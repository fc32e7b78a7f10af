// SPDX-License-Identifier: MIT
#include "app/CommandLineParser.h"
#include "app/ConfigFile.h"

#include <QFile>
#include <QtTest>

#include <stdexcept>
#include <vector>

using namespace TES;

using Pairs = QList<QPair<QString, QString>>;
Q_DECLARE_METATYPE(Pairs)

class tst_CommandLineParser : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void configFileStaysEmpty();
};

void tst_CommandLineParser::parse_data()
{
    QTest::addColumn<QStringList>("argv");
    QTest::addColumn<Pairs>("expected");

    QTest::newRow("program only") << QStringList{"app"} << Pairs{};
    // The shell split the value at the blank; the parser joins it again.
    QTest::newRow("split value") << QStringList{"app", "-file=my", "project.zip", "-level=3"}
                                 << Pairs{{"file", "my project.zip"}, {"level", "3"}};
    QTest::newRow("quoted value") << QStringList{"app", "-title=\"x y\""}
                                  << Pairs{{"title", "x y"}};
    QTest::newRow("first value wins") << QStringList{"app", "-a=1", "-a=2"} << Pairs{{"a", "1"}};
    QTest::newRow("second equals") << QStringList{"app", "-a=b=c"} << Pairs{};
    QTest::newRow("switch with word") << QStringList{"app", "-flag", "value"} << Pairs{};
    QTest::newRow("bare switch") << QStringList{"app", "-verbose", "-x=1"} << Pairs{{"x", "1"}};
    QTest::newRow("empty value") << QStringList{"app", "-x="} << Pairs{{"x", ""}};
    // Only one leading character is removed.
    QTest::newRow("double dash") << QStringList{"app", "--x=1"} << Pairs{{"-x", "1"}};
    QTest::newRow("empty key") << QStringList{"app", "-=v"} << Pairs{{"", "v"}};
    QTest::newRow("lone quote") << QStringList{"app", "-q=\""} << Pairs{{"q", ""}};
    QTest::newRow("words before options")
        << QStringList{"app", "a", "b", "-k=v"} << Pairs{{"k", "v"}};
}

void tst_CommandLineParser::parse()
{
    QFETCH(QStringList, argv);
    QFETCH(Pairs, expected);

    std::vector<QByteArray> storage;
    for (QString const &argument : argv)
        storage.push_back(argument.toUtf8());
    std::vector<char *> pointers;
    for (QByteArray &bytes : storage)
        pointers.push_back(bytes.data());

    CommandLineParser::ArgumentMap const map
        = CommandLineParser::Parse(static_cast<int>(pointers.size()), pointers.data());
    Pairs actual;
    for (auto const &entry : map)
        actual.append({entry.first, entry.second});
    std::sort(expected.begin(), expected.end());
    QCOMPARE(actual, expected);
}

void tst_CommandLineParser::configFileStaysEmpty()
{
    QFile::remove("settings.bin");
    ConfigFile config("settings.bin");
    QVERIFY(!config.read()); // no file yet
    config.setInt("count", 1);
    config.setBool("on", true);
    config.setDouble("ratio", 0.5);
    config.setString("name", "x");
    // The setters change a copy: nothing is kept.
    QCOMPARE(config.getInt("count"), 0);
    QCOMPARE(config.getBool("on"), false);
    QCOMPARE(config.getDouble("ratio"), 0.0);
    QCOMPARE(config.getString("name"), QString());
    QVERIFY(config.write());
    QVERIFY(QFile::exists("settings.bin"));
    QVERIFY(config.read());

    // Garbage reads as readable; read() keeps nothing of it.
    QFile garbage("garbage.bin");
    QVERIFY(garbage.open(QIODevice::WriteOnly));
    garbage.write("\x01\x02not json at all");
    garbage.close();
    config.setPath("garbage.bin");
    QVERIFY(config.read());
    QCOMPARE(config.getString("name"), QString());

    ConfigFile nowhere;
    nowhere.setPath("missing-dir/sub/settings.bin");
    QVERIFY(!nowhere.write());
}

QTEST_GUILESS_MAIN(tst_CommandLineParser)
#include "tst_CommandLineParser.moc"
