// SPDX-License-Identifier: MIT
#include "scene/SiblingOrder.h"

#include <QtTest>

using namespace TES;

// The reorderings over a plain list of four siblings a, b, c, d; x stands in no list. Each
// row gives the operation, the ids passed, the moves asked of the owner as "id:place" words,
// and the order afterwards. The owner's move ignores a place past the end, as the scene's
// owners do.
class tst_SiblingOrder : public QObject
{
    Q_OBJECT

private slots:
    void reorderings_data();
    void reorderings();
};

void tst_SiblingOrder::reorderings_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("moves");
    QTest::addColumn<QString>("order");

    auto row = [](char const *name, QString operation, QString ids, QString moves, QString order) {
        QTest::newRow(name) << operation << ids << moves << order;
    };
    // The first sibling is not guarded when raised: the owner is asked for 0xFFFFFFFF.
    row("raise first", "raise", "a", "a:4294967295", "abcd");
    row("raise", "raise", "c", "c:1", "acbd");
    row("raise stranger", "raise", "x", "", "abcd");
    row("top", "top", "d", "d:0", "dabc");
    row("top stranger", "top", "x", "", "abcd");
    // The last sibling is guarded when lowered, unlike the first when raised.
    row("lower last", "lower", "d", "", "abcd");
    row("lower", "lower", "a", "a:1", "bacd");
    row("lower stranger", "lower", "x", "", "abcd");
    row("bottom", "bottom", "b", "b:3", "acdb");
    row("bottom last", "bottom", "d", "", "abcd");
    row("bottom stranger", "bottom", "x", "", "abcd");
    row("raiseAll block at the top", "raiseAll", "ab", "", "abcd");
    row("raiseAll spread", "raiseAll", "bd", "b:0 d:2", "badc");
    row("raiseAll skips strangers", "raiseAll", "xc", "c:1", "acbd");
    row("raiseAllToTop", "raiseAllToTop", "xca", "c:0 a:1", "cabd");
    // Walking backward, only the last place is tested: the two at the bottom swap.
    row("lowerAll block at the bottom", "lowerAll", "cd", "c:3", "abdc");
    row("lowerAll spread", "lowerAll", "ac", "c:3 a:1", "badc");
    row("lowerAllToBottom", "lowerAllToBottom", "axb", "a:3 b:3", "cdab");
    for (QString const operation : {"raiseAll", "raiseAllToTop", "lowerAll", "lowerAllToBottom"})
        row(qPrintable("empty " + operation), operation, "", "", "abcd");
}

void tst_SiblingOrder::reorderings()
{
    QFETCH(QString, operation);
    QFETCH(QString, ids);
    QFETCH(QString, moves);
    QFETCH(QString, order);

    QHash<QUuid, QChar> names;
    QList<QUuid> list;
    for (QChar const name : QString("abcdx"))
        names.insert(QUuid::createUuid(), name);
    for (QChar const name : QString("abcd"))
        list.append(names.key(name));
    QStringList asked;
    SiblingOrder const sibling([&](QUuid const &id) { return list.indexOf(id); },
                               [&] { return static_cast<unsigned int>(list.size()); },
                               [&](QUuid const &id, unsigned int place) {
                                   asked.append(QString("%1:%2").arg(names.value(id)).arg(place));
                                   if (place < static_cast<unsigned int>(list.size()))
                                       list.move(list.indexOf(id), static_cast<int>(place));
                               });
    QList<QUuid> passed;
    for (QChar const name : ids)
        passed.append(names.key(name));

    if (operation == "raise")
        sibling.raise(passed.first());
    else if (operation == "top")
        sibling.raiseToTop(passed.first());
    else if (operation == "lower")
        sibling.lower(passed.first());
    else if (operation == "bottom")
        sibling.lowerToBottom(passed.first());
    else if (operation == "raiseAll")
        sibling.raiseAll(passed);
    else if (operation == "raiseAllToTop")
        sibling.raiseAllToTop(passed);
    else if (operation == "lowerAll")
        sibling.lowerAll(passed);
    else
        sibling.lowerAllToBottom(passed);

    QString after;
    for (QUuid const &id : list)
        after += names.value(id);
    QCOMPARE(asked.join(' '), moves);
    QCOMPARE(after, order);
}

QTEST_MAIN(tst_SiblingOrder)
#include "tst_SiblingOrder.moc"
