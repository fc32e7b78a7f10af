// SPDX-License-Identifier: MIT
#include "widgets/HexSpinBox.h"

#include <QSignalSpy>
#include <QtTest>

using namespace TES;

namespace {

// Replaces the field's text by typing, as a user would after selecting all.
void retype(HexSpinBox &spin, QString const &keys)
{
    QTest::keyClick(&spin, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&spin, Qt::Key_Backspace);
    QTest::keyClicks(&spin, keys);
}

void finish(HexSpinBox &spin)
{
    QTest::keyClick(&spin, Qt::Key_Return);
}

} // namespace

class tst_HexSpinBox : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void setFromString_data();
    void setFromString();
    void typedPrefix();
    void typingIsCheckedKeyByKey();
    void paddedToTheMaximum();
    void limits();
    void stepping();

private:
    HexSpinBox *spin = nullptr;
};

void tst_HexSpinBox::init()
{
    spin = new HexSpinBox();
    spin->show();
    spin->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(spin));
}

void tst_HexSpinBox::cleanup()
{
    delete spin;
    spin = nullptr;
}

void tst_HexSpinBox::setFromString_data()
{
    QTest::addColumn<uint>("minimum");
    QTest::addColumn<uint>("maximum");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<uint>("value");

    uint const all = 0xFFFFFFFF;
    QTest::newRow("prefixed") << 0u << all << "0x1f" << true << 31u;
    QTest::newRow("bare hex") << 0u << all << "1f" << true << 31u;
    // Only a lower-case prefix counts as one; base 16 takes "0X" by itself.
    QTest::newRow("upper prefix") << 0u << all << "0X1F" << true << 31u;
    QTest::newRow("empty is minimum") << 5u << all << "" << true << 5u;
    QTest::newRow("clamped high") << 0u << 0xFFu << "1FF" << true << 0xFFu;
    QTest::newRow("not hex") << 0u << all << "zz" << false << 7u;
    QTest::newRow("too large") << 0u << all << "100000000" << false << 7u;
}

void tst_HexSpinBox::setFromString()
{
    QFETCH(uint, minimum);
    QFETCH(uint, maximum);
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(uint, value);

    spin->setMaximum(maximum);
    spin->setMinimum(minimum);
    spin->setValue(7);
    QSignalSpy changed(spin, &HexSpinBox::valueChanged);

    QCOMPARE(spin->setFromString(text), ok);
    QCOMPARE(spin->getValue(), value);
    QCOMPARE(changed.size(), ok ? 1 : 0);
    QCOMPARE(spin->text(), QString::number(value, 16).toUpper());
}

void tst_HexSpinBox::typedPrefix()
{
    QSignalSpy changed(spin, &HexSpinBox::valueChanged);

    // The prefix cannot be typed in front of nothing ("0x" alone is refused), but in front of
    // digits it can; the field shows what was typed, upper-cased, until editing finishes.
    retype(*spin, "1f");
    QTest::keyClick(spin, Qt::Key_Home);
    QTest::keyClicks(spin, "0x");
    QCOMPARE(spin->text(), QString("0X1F"));
    QCOMPARE(spin->getValue(), 0u);
    finish(*spin);
    QCOMPARE(spin->getValue(), 31u);
    QCOMPARE(spin->text(), QString("1F"));
    QCOMPARE(changed.last().at(0).toUInt(), 31u);

    retype(*spin, "0x2a");
    QCOMPARE(spin->text(), QString("02A"));
    finish(*spin);
    QCOMPARE(spin->getValue(), 42u);
    QCOMPARE(spin->text(), QString("2A"));
}

void tst_HexSpinBox::typingIsCheckedKeyByKey()
{
    // Blanks and letters beyond F are refused as they are typed.
    retype(*spin, "c 3");
    QCOMPARE(spin->text(), QString("C3"));
    retype(*spin, "xyz");
    QCOMPARE(spin->text(), QString());

    // So is a key that would take the value above the maximum.
    spin->setMaximum(0xFF);
    retype(*spin, "ff1");
    QCOMPARE(spin->text(), QString("FF"));
    finish(*spin);
    QCOMPARE(spin->getValue(), 0xFFu);

    // A field typed empty falls back to the minimum when editing finishes.
    spin->setMinimum(3);
    QTest::keyClick(spin, Qt::Key_End);
    QTest::keyClick(spin, Qt::Key_Backspace);
    QTest::keyClick(spin, Qt::Key_Backspace);
    QCOMPARE(spin->text(), QString());
    finish(*spin);
    QCOMPARE(spin->getValue(), 3u);
    QCOMPARE(spin->text(), QString("3"));
}

void tst_HexSpinBox::paddedToTheMaximum()
{
    spin->setMaximum(65535);
    spin->setValue(10);
    // The flag shows from the next setValue() on.
    spin->setFillField(true);
    QCOMPARE(spin->text(), QString("A"));
    spin->setValue(10);
    QCOMPARE(spin->text(), QString("000A"));
    retype(*spin, "b");
    finish(*spin);
    QCOMPARE(spin->text(), QString("000B"));

    // A maximum of 0 means no padding rather than a width of one digit.
    spin->setMaximum(0);
    QCOMPARE(spin->toString(), QString("0"));
    spin->setMaximum(0xFFFFF);
    spin->setValue(1);
    QCOMPARE(spin->toString(), QString("00001"));
}

void tst_HexSpinBox::limits()
{
    spin->setValue(0x80);
    QSignalSpy changed(spin, &HexSpinBox::valueChanged);
    // setValue() announces itself even when nothing changes.
    spin->setValue(0x80);
    QCOMPARE(changed.size(), 1);

    // A lower maximum pulls the value down with it; limits that would cross are ignored.
    spin->setMaximum(0x40);
    QCOMPARE(spin->getValue(), 0x40u);
    QCOMPARE(spin->text(), QString("40"));
    spin->setMinimum(0x50);
    QCOMPARE(spin->getMinimum(), 0u);
    spin->setValue(0x30);
    spin->setMinimum(0x38);
    QCOMPARE(spin->getValue(), 0x38u);
}

void tst_HexSpinBox::stepping()
{
    spin->setMaximum(65535);
    QCOMPARE(spin->stepEnabled(), QAbstractSpinBox::StepUpEnabled);
    // The arrow keys step only where stepEnabled() allows.
    QTest::keyClick(spin, Qt::Key_Down);
    QCOMPARE(spin->getValue(), 0u);
    QTest::keyClick(spin, Qt::Key_Up);
    QCOMPARE(spin->getValue(), 1u);
    QCOMPARE(spin->stepEnabled(),
             QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled);

    // A step below 0 wraps round first, so the clamp lands on the maximum, not the minimum.
    spin->setMinimum(3);
    spin->setValue(5);
    spin->stepBy(-10);
    QCOMPARE(spin->getValue(), 65535u);
    QCOMPARE(spin->stepEnabled(), QAbstractSpinBox::StepDownEnabled);

    // Past the top of 32 bits it wraps to the bottom, then clamps to the minimum.
    spin->setMaximum(0xFFFFFFFF);
    spin->setValue(0xFFFFFFFF);
    spin->stepBy(1);
    QCOMPARE(spin->getValue(), 3u);
}

QTEST_MAIN(tst_HexSpinBox)
#include "tst_HexSpinBox.moc"
