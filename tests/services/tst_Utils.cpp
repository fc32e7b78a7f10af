#include "services/Constant.h"
#include "services/Utils.h"

#include <QBitArray>
#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <QtTest>

using namespace TES;

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

QTEST_MAIN(tst_Utils)
#include "tst_Utils.moc"
