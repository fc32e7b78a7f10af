// SPDX-License-Identifier: MIT
#include <QImage>
#include <QtTest>

class tst_Icons : public QObject
{
    Q_OBJECT

private slots:
    void iconLoads_data();
    void iconLoads();
};

void tst_Icons::iconLoads_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size"); // 0: any size

    QTest::newRow("app 32") << "tessera_icon_32x32.png" << 32;
    QTest::newRow("app 72") << "tessera_icon_72x72.png" << 72;
    for (char const *name : {"new_icon.png", "open_icon.png", "save_icon24.png"})
        QTest::newRow(name) << name << 24;
    for (char const *name : {"add_icon.png",       "bottom.png",       "delete_all.png",
                             "delete_icon2.png",   "down_arrow.png",   "eyedropper_icon4.png",
                             "hidden_icon.png",    "locked_icon2.png", "lower.png",
                             "minusbutton.png",    "plusbutton.png",   "raise.png",
                             "screen_icon.png",    "top.png",          "transformgrip.png",
                             "unlocked_icon2.png", "up_arrow.png",     "visible_icon.png",
                             "zoom_in.png",        "zoom_out.png",     "zoom_reset.png"})
        QTest::newRow(name) << name << 0;
}

void tst_Icons::iconLoads()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    // The library registers its resources when it loads; linking it is all a user does.
    QImage const image(":/resources/" + name);
    QVERIFY2(!image.isNull(), qPrintable(name));
    if (size > 0)
        QCOMPARE(image.size(), QSize(size, size));
}

QTEST_GUILESS_MAIN(tst_Icons)
#include "tst_Icons.moc"
