// SPDX-License-Identifier: MIT
#include "services/Path.h"

#include <QtTest>

using namespace TES;

class tst_Path : public QObject
{
    Q_OBJECT

private slots:
    void paths_data();
    void paths();
    void relations();
};

void tst_Path::paths_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("elements");
    QTest::addColumn<QString>("parent");

    QTest::newRow("root") << "/" << QString("/") << "/" << QStringList() << "/";
    QTest::newRow("one level") << "/a" << QString("/a") << "a" << QStringList({"a"}) << "/";
    QTest::newRow("two levels") << "/a/b" << QString("/a/b") << "b" << QStringList({"a", "b"})
                                << "/a";
    // Not repaired but replaced.
    QTest::newRow("relative") << "abc" << QString("/") << "/" << QStringList() << "/";
    QTest::newRow("empty") << "" << QString("/") << "/" << QStringList() << "/";
    QTest::newRow("doubled separators")
        << "//a//b/" << QString("//a//b/") << "b" << QStringList({"a", "b"}) << "/a";
}

void tst_Path::paths()
{
    QFETCH(QString, text);
    QFETCH(QString, stored);
    QFETCH(QString, name);
    QFETCH(QStringList, elements);
    QFETCH(QString, parent);

    Path const path(text);
    QCOMPARE(path.get(), stored);
    QCOMPARE(path.name(), name);
    QCOMPARE(path.elements(), elements);
    QCOMPARE(path.parent().get(), parent);
    QVERIFY(path.isValid());
    QCOMPARE(Path(text.toUtf8().constData()), path);
    Path assigned("/other");
    assigned.set(text);
    QCOMPARE(assigned, path);
}

void tst_Path::relations()
{
    Path const a("/a");
    QVERIFY(a.isChild(Path("/a/b")));
    QVERIFY(!a.isChild(Path("/a/b/c")));
    QVERIFY(a.isDescendent(Path("/a/b/c")));
    // An equal path is neither, and siblings are not related.
    QVERIFY(!a.isChild(a));
    QVERIFY(!a.isDescendent(a));
    QVERIFY(!a.isDescendent(Path("/b/c")));
    // Every one-element path is a child of the root.
    QVERIFY(Path().isChild(Path("/x")));
    QVERIFY(Path().isRoot());
    QVERIFY(!a.isRoot());
    QVERIFY(Path("/a") < Path("/b"));
}

QTEST_GUILESS_MAIN(tst_Path)
#include "tst_Path.moc"
