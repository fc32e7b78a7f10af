#include "services/Path.h"

#include <QtTest>

using namespace TES;

class tst_Path : public QObject
{
    Q_OBJECT

private slots:
    void construction_data();
    void construction();
    void parent_data();
    void parent();
    void relations();
};

void tst_Path::construction_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("elements");

    QTest::newRow("root") << "/"
                          << "/"
                          << "/" << QStringList();
    QTest::newRow("two levels") << "/a/b"
                                << "/a/b"
                                << "b" << QStringList({"a", "b"});
    // Not repaired but replaced.
    QTest::newRow("relative") << "abc"
                              << "/"
                              << "/" << QStringList();
    QTest::newRow("empty") << ""
                           << "/"
                           << "/" << QStringList();
    QTest::newRow("doubled separators") << "//a//b/"
                                        << "//a//b/"
                                        << "b" << QStringList({"a", "b"});
}

void tst_Path::construction()
{
    QFETCH(QString, text);
    QFETCH(QString, stored);
    QFETCH(QString, name);
    QFETCH(QStringList, elements);

    Path const path(text);
    QCOMPARE(path.get(), stored);
    QCOMPARE(path.name(), name);
    QCOMPARE(path.elements(), elements);
    QVERIFY(path.isValid());
    QCOMPARE(Path(text.toUtf8().constData()), path);
    QCOMPARE(QString::fromLatin1(path.asChar()), stored);

    Path assigned;
    assigned.set(text);
    QCOMPARE(assigned, path);
}

void tst_Path::parent_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("parent");
    QTest::newRow("two levels") << "/a/b"
                                << "/a";
    QTest::newRow("one level") << "/a"
                               << "/";
    QTest::newRow("root") << "/"
                          << "/";
    QTest::newRow("three levels") << "/a/b/c"
                                  << "/a/b";
}

void tst_Path::parent()
{
    QFETCH(QString, text);
    QFETCH(QString, parent);
    QCOMPARE(Path(text).parent().get(), parent);
}

void tst_Path::relations()
{
    Path const a("/a");
    QVERIFY(a.isChild(Path("/a/b")));
    QVERIFY(!a.isChild(Path("/a/b/c")));
    QVERIFY(a.isDescendent(Path("/a/b/c")));
    QVERIFY(a.isDescendent(Path("/a/b")));
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
