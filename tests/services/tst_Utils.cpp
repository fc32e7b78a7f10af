#include "scene/SceneManager.h"
#include "services/Constant.h"
#include "services/DebugPrint.h"
#include "services/Utils.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"

#include <QBitArray>
#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace TES;
using namespace TES::Test;

namespace {

// Runs fn with standard output sent to a file, and answers what it printed.
template<typename Fn>
QString captureStdout(Fn fn)
{
    std::fflush(stdout);
    int const saved = dup(STDOUT_FILENO);
    int const fd = open("stdout.txt", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(fd, STDOUT_FILENO);
    close(fd);
    fn();
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
    QFile file("stdout.txt");
    file.open(QIODevice::ReadOnly);
    return QString::fromLocal8Bit(file.readAll());
}

// The tree of the list operations, in a SceneManager of its own, with the root rectangles:
//
//   R   (0, 0, 200, 200)        S   (300, 0, 50, 50)
//   +- a                        +- s0
//   +- b (50, 50, 100, 100)     +- s1
//   |  +- b1 (60, 60, 20, 20)
//   |  +- b2
//   +- c
//   +- d
class Scene
{
public:
    Scene()
    {
        new SceneManager();
        TestScene::registerFactories();
        R = add(TestScene::addContainer(QUuid(), QRect(0, 0, 200, 200)), "R");
        add(TestScene::addLeaf(R, QRect(0, 0, 10, 10)), "a");
        QUuid const b = add(TestScene::addContainer(R, QRect(50, 50, 100, 100)), "b");
        add(TestScene::addLeaf(b, QRect(10, 10, 20, 20)), "b1");
        add(TestScene::addLeaf(b, QRect(0, 0, 5, 5)), "b2");
        add(TestScene::addLeaf(R, QRect(0, 0, 10, 10)), "c");
        add(TestScene::addLeaf(R, QRect(0, 0, 10, 10)), "d");
        S = add(TestScene::addContainer(QUuid(), QRect(300, 0, 50, 50)), "S");
        add(TestScene::addLeaf(S, QRect()), "s0");
        add(TestScene::addLeaf(S, QRect()), "s1");
    }
    ~Scene() { SceneManager::destroy(); }

    // Ids by space-separated names; "?" is an id that names nothing.
    QList<QUuid> ids(QString const &names) const
    {
        QList<QUuid> result;
        for (QString const &name : names.split(' ', Qt::SkipEmptyParts))
            result.append(name == "?" ? unknown : byName.value(name));
        return result;
    }
    QString names(QList<QUuid> const &ids) const
    {
        QStringList result;
        for (QUuid const &id : ids)
            result.append(byName.key(id, "?"));
        return result.join(' ');
    }
    QString children(QUuid const &parent) const
    {
        return names(TestScene::object(parent)->children(false));
    }

    QHash<QString, QUuid> byName;
    QUuid R, S;
    QUuid const unknown = QUuid::createUuid();

private:
    QUuid add(QUuid const &id, QString const &name)
    {
        byName.insert(name, id);
        return id;
    }
};

} // namespace

class tst_Utils : public QObject
{
    Q_OBJECT

private slots:
    void hashing();
    void byteWriters_data();
    void byteWriters();
    void numbersAndText();
    void files();
    void clearLayout();
    void checkerboard();
    void debugPrinters();
    void sceneLookups();
    void trimToAncestors_data();
    void trimToAncestors();
    void sortObjectsIsStable();
    void sortByParent();
    void moves_data();
    void moves();
    void listIsAllOfType();
    void boundingBox();
    void itemsCanMove_data();
    void itemsCanMove();
    void reparentAndTranslate();
    void duplicateScreenData();
};

void tst_Utils::hashing()
{
    unsigned char const a = 0x61;
    QCOMPARE(Utils::FastHash(&a, 1), 3826002220u);
    QCOMPARE(Utils::FastHash(&a, 0), 0x811C9DC5u);
    QCOMPARE(Utils::FastHash(nullptr, 5), 0u);

    QVERIFY(Utils::BitsToBytes(QBitArray()).isEmpty());
    QBitArray bits(3);
    bits.setBit(0);
    QByteArray const bytes = Utils::BitsToBytes(bits);
    QDataStream in(bytes);
    QBitArray back;
    in >> back;
    QCOMPARE(back, bits);
}

void tst_Utils::byteWriters_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("3 bytes") << 1193046 << 3 << QByteArray("\x56\x34\x12");
    QTest::newRow("2 bytes") << 0x1234 << 2 << QByteArray("\x34\x12");
    QTest::newRow("4 bytes") << 0x12345678 << 4 << QByteArray("\x78\x56\x34\x12");
    QTest::newRow("size 1") << 0x1234 << 1 << QByteArray("\x34");
    QTest::newRow("size 7") << 0x1234 << 7 << QByteArray("\x34");
    QTest::newRow("negative") << -1 << 2 << QByteArray("\xFF\xFF");
}

void tst_Utils::byteWriters()
{
    QFETCH(int, value);
    QFETCH(int, size);
    QFETCH(QByteArray, expected);
    QByteArray bytes("P");
    Utils::WriteValue(bytes, value, size);
    QCOMPARE(bytes, "P" + expected);
}

void tst_Utils::numbersAndText()
{
    QCOMPARE(Utils::ToHex(255), QString("FF"));
    QCOMPARE(Utils::ToHex(0), QString("0"));
    QCOMPARE(Utils::ToHex(0xFFFFFFFF), QString("FFFFFFFF"));
    // The value comes last.
    QCOMPARE(Utils::Clamp(0.0, 10.0, 12.0), 10.0);
    QCOMPARE(Utils::Clamp(0.0, 10.0, -3.0), 0.0);
    QCOMPARE(Utils::Clamp(0.0, 10.0, 4.5), 4.5);
    QCOMPARE(Utils::Radians(180.0f), static_cast<float>(Constant::pi));
    QCOMPARE(QString(Constant::ApplicationDir), QString("tes"));
    QCOMPARE(Utils::StripQuotes("\"quoted\""), QString("\"quoted\""));
    QVERIFY(!Utils::IsUnicode("plain ascii ~"));
    QVERIFY(Utils::IsUnicode("caf\u00e9"));
}

void tst_Utils::files()
{
    QFile::remove("utils.bin");
    QVERIFY(Utils::ReadFile("utils.bin").isEmpty());
    QVERIFY(!Utils::DeleteFile("utils.bin"));
    QVERIFY(Utils::WriteFile("utils.bin", QByteArray("\x00\x01\x02", 3)));
    QCOMPARE(Utils::ReadFile("utils.bin"), QByteArray("\x00\x01\x02", 3));
    QVERIFY(Utils::DeleteFile("utils.bin"));
    QVERIFY(!QFile::exists("utils.bin"));
    QVERIFY(!Utils::WriteFile("no/such/dir/utils.bin", "x"));

    QImage image(4, 3, QImage::Format_ARGB32);
    image.fill(Qt::red);
    Utils::WritePNG(image, "utils.png");
    QImage const back("utils.png");
    QCOMPARE(back.size(), QSize(4, 3));
    QCOMPARE(back.pixelColor(2, 1), QColor(Qt::red));
    QFile::remove("utils.png");
}

void tst_Utils::clearLayout()
{
    QWidget host;
    auto *outer = new QVBoxLayout(&host);
    QPointer<QLabel> kept = new QLabel("kept");
    outer->addWidget(kept);
    auto *inner = new QHBoxLayout();
    QPointer<QLabel> nested = new QLabel("nested");
    inner->addWidget(nested);
    outer->addLayout(inner);

    Utils::ClearLayout(outer, false);
    QCOMPARE(outer->count(), 0);
    QVERIFY(kept && nested); // only taken out

    outer->addWidget(kept);
    auto *again = new QHBoxLayout();
    again->addWidget(nested);
    outer->addLayout(again);
    Utils::ClearLayout(outer, true);
    QCOMPARE(outer->count(), 0);
    QTRY_VERIFY(!kept && !nested); // deleted later, nested ones too
}

void tst_Utils::checkerboard()
{
    // 25 by 12 in cells of 10: three columns (the last 5 wide), two rows (the last 2 high).
    QImage image(25, 12, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        Utils::PaintCheckerboard(painter, image.rect(), 10);
        Utils::PaintCheckerboard(painter, QRect(0, 0, 1, 1), 0); // refused size: fill only
    }
    QColor const dark(Qt::gray);
    QColor const light(Qt::lightGray);
    QCOMPARE(image.pixelColor(0, 0), light); // refused call filled this pixel only
    QCOMPARE(image.pixelColor(5, 5), dark);
    QCOMPARE(image.pixelColor(15, 5), light);
    QCOMPARE(image.pixelColor(24, 9), dark);
    QCOMPARE(image.pixelColor(5, 11), light); // each row starts opposite to the one above
    QCOMPARE(image.pixelColor(15, 11), dark);
    QCOMPARE(image.pixelColor(24, 11), light);
}

void tst_Utils::debugPrinters()
{
    QString const printed = captureStdout([] {
        printQS("caf\u00e9 text");
        QEvent const press(QEvent::MouseButtonPress);
        printQEvent(&press);
        printQEvent(nullptr);
    });
    QCOMPARE(printed, QString("caf\u00e9 text\nQEvent MouseButtonPress\n"));
}

void tst_Utils::sceneLookups()
{
    QUuid const id = QUuid::createUuid();
    QVERIFY(Utils::ObjectInList(id, {QUuid(), id}));
    QVERIFY(!Utils::ObjectInList(id, {}));
    // Without a manager nothing resolves.
    QVERIFY(!Utils::GetSceneObject(id));
    QCOMPARE(Utils::GetBoundingBox({id}), QRect());

    Scene scene;
    QCOMPARE(Utils::GetSceneObject(scene.R)->id(), scene.R);
    QVERIFY(!Utils::GetSceneObject(scene.unknown));
    QVERIFY(!Utils::GetSceneObject(QUuid()));
}

void tst_Utils::trimToAncestors_data()
{
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("trimmed");
    QTest::newRow("child and its parent") << "b1 c b"
                                          << "c b";
    QTest::newRow("siblings") << "b2 b1"
                              << "b2 b1";
    QTest::newRow("grandchild and its root") << "b1 R S s0"
                                             << "R S";
    QTest::newRow("root first") << "R b b1 c"
                                << "R";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_Utils::trimToAncestors()
{
    QFETCH(QString, ids);
    QFETCH(QString, trimmed);
    Scene scene;
    QCOMPARE(scene.names(Utils::TrimToAncestors(scene.ids(ids))), trimmed);
}

void tst_Utils::sortObjectsIsStable()
{
    Scene scene;
    QCOMPARE(scene.names(Utils::SortObjects(scene.ids("d a c b"))), QString("a b c d"));
    // Objects without a common parent count as equal and keep their order.
    QCOMPARE(scene.names(Utils::SortObjects(scene.ids("S R"))), QString("S R"));
    QCOMPARE(scene.names(Utils::SortObjects(scene.ids("b1 S R ?"))), QString("b1 S R ?"));
    // Each parent's run is put in order; the runs keep theirs.
    QCOMPARE(scene.names(Utils::SortObjects(scene.ids("c a s1 s0"))), QString("a c s0 s1"));
    QVERIFY(Utils::SortObjects({}).isEmpty());
}

void tst_Utils::sortByParent()
{
    Scene scene;
    QUuid const b = scene.byName.value("b");
    // Roots and ids without an object are left out; each list is in child order.
    QMap<QUuid, QList<QUuid>> const expected{
        {scene.R, scene.ids("a d")}, {scene.S, scene.ids("s0 s1")}, {b, scene.ids("b1")}};
    QCOMPARE(Utils::SortByParent(scene.ids("d s1 a R ? s0 b1")), expected);
    QVERIFY(Utils::SortByParent({}).isEmpty());
}

void tst_Utils::moves_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("childrenOfR");
    QTest::addColumn<QString>("childrenOfS");
    QTest::newRow("up") << "up"
                        << "c s1"
                        << "a c b d"
                        << "s1 s0";
    QTest::newRow("up, block at the top") << "up"
                                          << "a b"
                                          << "a b c d"
                                          << "s0 s1";
    QTest::newRow("to top") << "top"
                            << "d c"
                            << "c d a b"
                            << "s0 s1";
    QTest::newRow("down") << "down"
                          << "a s0"
                          << "b a c d"
                          << "s1 s0";
    QTest::newRow("to bottom") << "bottom"
                               << "b a"
                               << "c d a b"
                               << "s0 s1";
    // A root has no parent to move it, and an unknown id no object.
    QTest::newRow("roots and strangers") << "top"
                                         << "R ? c"
                                         << "c a b d"
                                         << "s0 s1";
    QTest::newRow("empty") << "bottom"
                           << ""
                           << "a b c d"
                           << "s0 s1";
}

void tst_Utils::moves()
{
    QFETCH(QString, operation);
    QFETCH(QString, ids);
    QFETCH(QString, childrenOfR);
    QFETCH(QString, childrenOfS);

    Scene scene;
    QList<QUuid> const list = scene.ids(ids);
    if (operation == "up")
        Utils::MoveObjectsUp(list);
    else if (operation == "top")
        Utils::MoveObjectsToTop(list);
    else if (operation == "down")
        Utils::MoveObjectsDown(list);
    else
        Utils::MoveObjectsToBottom(list);
    QCOMPARE(scene.children(scene.R), childrenOfR);
    QCOMPARE(scene.children(scene.S), childrenOfS);
}

void tst_Utils::listIsAllOfType()
{
    Scene scene;
    QVERIFY(!Utils::ObjectListIsAllOfType({}, TestLeaf::Type()));
    QVERIFY(Utils::ObjectListIsAllOfType(scene.ids("a c b1"), TestLeaf::Type()));
    QVERIFY(!Utils::ObjectListIsAllOfType(scene.ids("a b"), TestLeaf::Type()));
    QVERIFY(Utils::ObjectListIsAllOfType(scene.ids("a b"), TransformSceneObject::Type()));
    QVERIFY(!Utils::ObjectListIsAllOfType(scene.ids("a ?"), TestLeaf::Type()));
}

void tst_Utils::boundingBox()
{
    Scene scene;
    QRect const none = Utils::GetBoundingBox({});
    QCOMPARE(none, QRect());
    QVERIFY(!none.isValid());
    // In root coordinates: b1 lies at (10, 10) in b, which lies at (50, 50) in R.
    QCOMPARE(Utils::GetBoundingBox(scene.ids("b1")), QRect(60, 60, 20, 20));
    QCOMPARE(Utils::GetBoundingBox(scene.ids("? b1 S")), QRect(60, 0, 290, 80));
}

void tst_Utils::itemsCanMove_data()
{
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<unsigned int>("count");
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("down");
    QTest::newRow("packed at the top") << QList<int>{0, 1} << 5u << false << true;
    QTest::newRow("a gap") << QList<int>{0, 2} << 5u << true << true;
    QTest::newRow("packed at the bottom, unsorted") << QList<int>{4, 3} << 5u << true << false;
    QTest::newRow("all") << QList<int>{2, 0, 1} << 3u << false << false;
    QTest::newRow("none") << QList<int>{} << 3u << false << false;
}

void tst_Utils::itemsCanMove()
{
    QFETCH(QList<int>, rows);
    QFETCH(unsigned int, count);
    QFETCH(bool, up);
    QFETCH(bool, down);
    QCOMPARE(Utils::ItemsCanMoveUp(rows), up);
    QCOMPARE(Utils::ItemsCanMoveDown(rows, count), down);
}

void tst_Utils::reparentAndTranslate()
{
    Scene scene;
    QUuid const b = scene.byName.value("b");
    QUuid const b1 = scene.byName.value("b1");
    QUuid const b2 = scene.byName.value("b2");

    // The object stays where it was on screen.
    Utils::ReparentAndTranslate(b1, scene.S);
    QCOMPARE(TestScene::object(b1)->parent(), scene.S);
    QCOMPARE(scene.children(scene.S), QString("s0 s1 b1"));
    QCOMPARE(TestScene::object(b1)->getPosition(), QPoint(-240, 60));
    QCOMPARE(TestScene::object(b1)->rootRectangle(), QRect(60, 60, 20, 20));

    // Refused by the new parent, or missing: nothing moves.
    Utils::ReparentAndTranslate(b2, scene.byName.value("a"));
    Utils::ReparentAndTranslate(b, b2);
    Utils::ReparentAndTranslate(b2, scene.unknown);
    Utils::ReparentAndTranslate(scene.unknown, scene.S);
    QCOMPARE(TestScene::object(b2)->parent(), b);
    QCOMPARE(TestScene::object(b2)->getRectangle(), QRect(0, 0, 5, 5));
    QCOMPARE(TestScene::object(b)->parent(), scene.R);
}

void tst_Utils::duplicateScreenData()
{
    QString const nullId = QUuid().toString();
    QString const screen = QUuid::createUuid().toString();
    QString const first = QUuid::createUuid().toString();
    QString const second = QUuid::createUuid().toString();
    QString const guarded = QUuid::createUuid().toString();
    QString const buried = QUuid::createUuid().toString();
    auto uuid = [](QString const &value) {
        return QJsonObject{{"type", "uuid"}, {"value", value}};
    };
    QJsonObject const original{
        {"properties", QJsonObject{{"id", uuid(screen)}, {"name", "\u00c9cran \u2713"}}},
        {"activeLayer", first},
        {"roots",
         QJsonArray{
             QJsonObject{{"properties", QJsonObject{{"id", uuid(first)}}}, {"link", second}},
             QJsonObject{{"properties", QJsonObject{{"id", uuid(second)}}}, {"link", first}}}},
        // An object that says its id is null is not registered.
        {"guarded", QJsonObject{{"type", "uuid"}, {"uuid", nullId}, {"value", guarded}}},
        {"nullLink", nullId},
        {"note", "see " + first},
        // Arrays in arrays are not walked.
        {"buried", QJsonArray{QJsonArray{uuid(buried)}}},
        {"blank", uuid(QString())},
    };
    QJsonObject const copy = Utils::DuplicateScreenData(original);

    QString const newScreen = copy["properties"].toObject()["id"].toObject()["value"].toString();
    QJsonArray const roots = copy["roots"].toArray();
    QString const newFirst
        = roots[0].toObject()["properties"].toObject()["id"].toObject()["value"].toString();
    QString const newSecond
        = roots[1].toObject()["properties"].toObject()["id"].toObject()["value"].toString();
    QStringList const fresh{newScreen, newFirst, newSecond};
    for (QString const &id : fresh) {
        QVERIFY(!QUuid(id).isNull());
        QVERIFY(!QStringList({screen, first, second}).contains(id));
    }
    QCOMPARE(QSet<QString>(fresh.begin(), fresh.end()).size(), 3);
    // Every mention follows, wherever it stands.
    QCOMPARE(copy["activeLayer"].toString(), newFirst);
    QCOMPARE(roots[0].toObject()["link"].toString(), newSecond);
    QCOMPARE(roots[1].toObject()["link"].toString(), newFirst);
    QCOMPARE(copy["note"].toString(), "see " + newFirst);
    // What was not registered stays as it was; so does everything else.
    QCOMPARE(copy["guarded"], original["guarded"]);
    QCOMPARE(copy["nullLink"], original["nullLink"]);
    QCOMPARE(copy["buried"], original["buried"]);
    QCOMPARE(copy["blank"], original["blank"]);
    QCOMPARE(copy["properties"].toObject()["name"], original["properties"].toObject()["name"]);

    // Each copy gets ids of its own.
    QJsonObject const again = Utils::DuplicateScreenData(original);
    QVERIFY(again["activeLayer"].toString() != newFirst);
    QCOMPARE(Utils::DuplicateScreenData(QJsonObject()), QJsonObject());
}

QTEST_MAIN(tst_Utils)
#include "tst_Utils.moc"
