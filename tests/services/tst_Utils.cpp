// SPDX-License-Identifier: MIT
#include "scene/SceneManager.h"
#include "services/Constant.h"
#include "services/Utils.h"
#include "support/TestContainer.h"
#include "support/TestLeaf.h"
#include "support/TestScene.h"

#include <QBitArray>
#include <QHBoxLayout>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <QtTest>

using namespace TES;
using namespace TES::Test;

namespace {

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
        auto add = [this](QString const &name, QUuid const &id) {
            byName.insert(name, id);
            return id;
        };
        R = add("R", TestScene::addContainer(QUuid(), QRect(0, 0, 200, 200)));
        add("a", TestScene::addLeaf(R, QRect(0, 0, 10, 10)));
        QUuid const b = add("b", TestScene::addContainer(R, QRect(50, 50, 100, 100)));
        add("b1", TestScene::addLeaf(b, QRect(10, 10, 20, 20)));
        add("b2", TestScene::addLeaf(b, QRect(0, 0, 5, 5)));
        add("c", TestScene::addLeaf(R, QRect(0, 0, 10, 10)));
        add("d", TestScene::addLeaf(R, QRect(0, 0, 10, 10)));
        S = add("S", TestScene::addContainer(QUuid(), QRect(300, 0, 50, 50)));
        add("s0", TestScene::addLeaf(S, QRect()));
        add("s1", TestScene::addLeaf(S, QRect()));
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
    QUuid id(QString const &name) const { return byName.value(name); }
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
};

} // namespace

class tst_Utils : public QObject
{
    Q_OBJECT

private slots:
    void numbersTextAndFiles();
    void layoutAndPainting();
    void idListQueries();
    void moves();
    void itemsCanMove_data();
    void itemsCanMove();
    void reparentAndTranslate();
    void duplicateScreenData();
};

void tst_Utils::numbersTextAndFiles()
{
    unsigned char const a = 0x61;
    QCOMPARE(Utils::FastHash(&a, 1), 3826002220u);
    QCOMPARE(Utils::FastHash(&a, 0), 0x811C9DC5u);
    QCOMPARE(Utils::FastHash(nullptr, 5), 0u);
    QVERIFY(Utils::BitsToBytes(QBitArray()).isEmpty());
    QVERIFY(!Utils::BitsToBytes(QBitArray(3, true)).isEmpty());

    // Least significant byte first; a size other than 2, 3 or 4 writes the low byte only.
    QByteArray bytes;
    Utils::Write3Bytes(bytes, 1193046);
    Utils::WriteValue(bytes, 0x1234, 2);
    Utils::WriteValue(bytes, 0x12345678, 4);
    Utils::WriteValue(bytes, 0x1234, 1);
    Utils::WriteValue(bytes, 0x1234, 7);
    QCOMPARE(bytes, QByteArray("\x56\x34\x12"
                               "\x34\x12"
                               "\x78\x56\x34\x12"
                               "\x34\x34"));

    QCOMPARE(Utils::ToHex(255), QString("FF"));
    // The value comes last.
    QCOMPARE(Utils::Clamp(0.0, 10.0, 12.0), 10.0);
    QCOMPARE(Utils::Clamp(0.0, 10.0, -3.0), 0.0);
    QCOMPARE(Utils::Radians(180.0f), static_cast<float>(Constant::pi));
    QCOMPARE(QString(Constant::ApplicationDir), QString("tes"));
    // Answers its argument unchanged.
    QCOMPARE(Utils::StripQuotes("\"quoted\""), QString("\"quoted\""));
    QVERIFY(!Utils::IsUnicode("plain ascii ~"));
    QVERIFY(Utils::IsUnicode("caf\u00e9"));

    QVERIFY(Utils::ReadFile("utils.bin").isEmpty());
    QVERIFY(!Utils::DeleteFile("utils.bin"));
    QVERIFY(Utils::WriteFile("utils.bin", QByteArray("\x00\x01\x02", 3)));
    QCOMPARE(Utils::ReadFile("utils.bin"), QByteArray("\x00\x01\x02", 3));
    QVERIFY(Utils::DeleteFile("utils.bin"));
    QVERIFY(!Utils::WriteFile("no/such/dir/utils.bin", "x"));

    QImage image(4, 3, QImage::Format_ARGB32);
    image.fill(Qt::red);
    Utils::WritePNG(image, "utils.png");
    QCOMPARE(QImage("utils.png").pixelColor(2, 1), QColor(Qt::red));
}

void tst_Utils::layoutAndPainting()
{
    QWidget host;
    auto *outer = new QVBoxLayout(&host);
    QPointer<QLabel> kept = new QLabel("kept");
    QPointer<QLabel> nested = new QLabel("nested");
    for (bool deleteWidgets : {false, true}) {
        outer->addWidget(kept);
        auto *inner = new QHBoxLayout();
        inner->addWidget(nested);
        outer->addLayout(inner);
        Utils::ClearLayout(outer, deleteWidgets);
        QCOMPARE(outer->count(), 0);
    }
    // The first pass only took them out; the second deletes them later, nested ones too.
    QTRY_VERIFY(!kept && !nested);

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
    QCOMPARE(image.pixelColor(0, 0), light); // the refused call filled this pixel only
    QCOMPARE(image.pixelColor(15, 5), light);
    QCOMPARE(image.pixelColor(24, 9), dark);
    QCOMPARE(image.pixelColor(24, 11), light); // each row starts opposite to the one above
}

void tst_Utils::idListQueries()
{
    QUuid const loose = QUuid::createUuid();
    QVERIFY(Utils::ObjectInList(loose, {QUuid(), loose}));
    // Without a manager nothing resolves.
    QVERIFY(!Utils::GetSceneObject(loose));
    QCOMPARE(Utils::GetBoundingBox({loose}), QRect());

    Scene scene;
    QCOMPARE(Utils::GetSceneObject(scene.R)->id(), scene.R);
    QVERIFY(!Utils::GetSceneObject(scene.unknown));

    auto trim
        = [&](QString const &ids) { return scene.names(Utils::TrimToAncestors(scene.ids(ids))); };
    QCOMPARE(trim("b1 c b"), QString("c b"));
    QCOMPARE(trim("b2 b1"), QString("b2 b1"));
    QCOMPARE(trim("b1 R S s0"), QString("R S"));

    auto sort = [&](QString const &ids) { return scene.names(Utils::SortObjects(scene.ids(ids))); };
    QCOMPARE(sort("d a c b"), QString("a b c d"));
    // Objects without a common parent count as equal and keep their order (a stable sort).
    QCOMPARE(sort("b1 S R ?"), QString("b1 S R ?"));
    QCOMPARE(sort("c a s1 s0"), QString("a c s0 s1"));

    // Roots and ids without an object are left out; each list is in child order.
    QMap<QUuid, QList<QUuid>> const expected{{scene.R, scene.ids("a d")},
                                             {scene.S, scene.ids("s0 s1")},
                                             {scene.id("b"), scene.ids("b1")}};
    QCOMPARE(Utils::SortByParent(scene.ids("d s1 a R ? s0 b1")), expected);

    QVERIFY(!Utils::ObjectListIsAllOfType({}, TestLeaf::Type()));
    QVERIFY(Utils::ObjectListIsAllOfType(scene.ids("a c b1"), TestLeaf::Type()));
    QVERIFY(!Utils::ObjectListIsAllOfType(scene.ids("a b"), TestLeaf::Type()));
    QVERIFY(Utils::ObjectListIsAllOfType(scene.ids("a b"), TransformSceneObject::Type()));
    QVERIFY(!Utils::ObjectListIsAllOfType(scene.ids("a ?"), TestLeaf::Type()));

    QVERIFY(!Utils::GetBoundingBox({}).isValid());
    // In root coordinates: b1 lies at (10, 10) in b, which lies at (50, 50) in R.
    QCOMPARE(Utils::GetBoundingBox(scene.ids("b1")), QRect(60, 60, 20, 20));
    QCOMPARE(Utils::GetBoundingBox(scene.ids("? b1 S")), QRect(60, 0, 290, 80));
}

void tst_Utils::moves()
{
    Scene scene;
    auto order = [&] { return scene.children(scene.R) + " / " + scene.children(scene.S); };
    Utils::MoveObjectsUp(scene.ids("c s1"));
    QCOMPARE(order(), QString("a c b d / s1 s0"));
    Utils::MoveObjectsDown(scene.ids("c s1"));
    QCOMPARE(order(), QString("a b c d / s0 s1"));
    Utils::MoveObjectsToTop(scene.ids("d c"));
    QCOMPARE(order(), QString("c d a b / s0 s1"));
    // A root has no parent to move it, and an unknown id no object.
    Utils::MoveObjectsToBottom(scene.ids("R ? d c"));
    QCOMPARE(order(), QString("a b c d / s0 s1"));
    Utils::MoveObjectsToBottom({});
    QCOMPARE(order(), QString("a b c d / s0 s1"));
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
    QUuid const b = scene.id("b");
    QUuid const b1 = scene.id("b1");
    QUuid const b2 = scene.id("b2");

    // The object stays where it was on screen.
    Utils::ReparentAndTranslate(b1, scene.S);
    QCOMPARE(scene.children(scene.S), QString("s0 s1 b1"));
    QCOMPARE(TestScene::object(b1)->getPosition(), QPoint(-240, 60));
    QCOMPARE(TestScene::object(b1)->rootRectangle(), QRect(60, 60, 20, 20));

    // Refused by the new parent, or missing: nothing moves.
    Utils::ReparentAndTranslate(b2, scene.id("a"));
    Utils::ReparentAndTranslate(b, b2);
    Utils::ReparentAndTranslate(b2, scene.unknown);
    Utils::ReparentAndTranslate(scene.unknown, scene.S);
    QCOMPARE(TestScene::object(b2)->parent(), b);
    QCOMPARE(TestScene::object(b2)->getRectangle(), QRect(0, 0, 5, 5));
    QCOMPARE(TestScene::object(b)->parent(), scene.R);
}

void tst_Utils::duplicateScreenData()
{
    // The references between objects are followed in the scene manager's tests; here, what
    // the textual pass reaches and what is never registered.
    QString const nullId = QUuid().toString();
    QString const first = QUuid::createUuid().toString();
    QString const second = QUuid::createUuid().toString();
    auto uuid = [](QString const &value) {
        return QJsonObject{{"type", "uuid"}, {"value", value}};
    };
    QJsonObject const original{
        {"activeLayer", first},
        {"roots", QJsonArray{QJsonObject{{"id", uuid(second)}}}},
        {"note", "see " + first + " and " + second},
        // An object that says its id is null is not registered, nor a null link.
        {"guarded", QJsonObject{{"type", "uuid"}, {"uuid", nullId}, {"value", "{guarded}"}}},
        {"nullLink", nullId},
        // Arrays in arrays are not walked.
        {"buried", QJsonArray{QJsonArray{uuid(QUuid::createUuid().toString())}}},
        {"name", "\u00c9cran \u2713"},
    };
    QJsonObject const copy = Utils::DuplicateScreenData(original);

    QString const newFirst = copy["activeLayer"].toString();
    QString const newSecond = copy["roots"][0]["id"]["value"].toString();
    QVERIFY(!QUuid(newFirst).isNull() && !QUuid(newSecond).isNull());
    QVERIFY(newFirst != first && newSecond != second && newFirst != newSecond);
    QCOMPARE(copy["note"].toString(), "see " + newFirst + " and " + newSecond);
    for (char const *key : {"guarded", "nullLink", "buried", "name"})
        QCOMPARE(copy[key], original[key]);

    // Each copy gets ids of its own.
    QVERIFY(Utils::DuplicateScreenData(original)["activeLayer"].toString() != newFirst);
    QCOMPARE(Utils::DuplicateScreenData(QJsonObject()), QJsonObject());
}

QTEST_MAIN(tst_Utils)
#include "tst_Utils.moc"
