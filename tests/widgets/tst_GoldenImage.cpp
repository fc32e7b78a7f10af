// SPDX-License-Identifier: MIT
#include "support/GoldenImage.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace TES::Test;

class tst_GoldenImage : public QObject
{
    Q_OBJECT

private slots:
    void compare();
};

void tst_GoldenImage::compare()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QString const reference = dir.filePath("swatch.png");
    QImage image(8, 6, QImage::Format_ARGB32);
    image.fill(qRgb(10, 20, 30));

    QVERIFY(GoldenImage::compare(image, reference).contains("no reference image"));
    QVERIFY(QFile::exists("swatch.actual.png"));

    // Update mode writes the reference, which then matches.
    qputenv("TES_GOLDEN_UPDATE", "1");
    QVERIFY(GoldenImage::compare(image, reference).isEmpty());
    qunsetenv("TES_GOLDEN_UPDATE");
    QCOMPARE(GoldenImage::compare(image, reference), QString());

    QImage near = image;
    near.setPixel(3, 2, qRgb(12, 20, 30));
    QCOMPARE(GoldenImage::compare(near, reference, 2), QString());

    QImage off = image;
    off.setPixel(3, 2, qRgb(13, 20, 30));
    QString const why = GoldenImage::compare(off, reference, 2);
    QVERIFY2(why.startsWith("1 pixels differ"), qPrintable(why));
    QImage const diff("swatch.diff.png");
    QCOMPARE(diff.size(), image.size());
    QCOMPARE(diff.pixel(3, 2), qRgb(255, 0, 0));
    QVERIFY(diff.pixel(0, 0) != qRgb(255, 0, 0));

    QVERIFY(GoldenImage::compare(image.copy(0, 0, 4, 4), reference).startsWith("size 4x4"));
}

QTEST_GUILESS_MAIN(tst_GoldenImage)
#include "tst_GoldenImage.moc"
