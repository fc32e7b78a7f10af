// SPDX-License-Identifier: MIT
#include "support/ModalAnswerer.h"
#include "widgets/HelpViewDialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

using namespace TES;

class tst_HelpViewDialog : public QObject
{
    Q_OBJECT

private slots:
    void showsTextReadOnly();
    void okCloses();
};

void tst_HelpViewDialog::showsTextReadOnly()
{
    HelpViewDialog dialog("<h1>Screens</h1><p>A <b>screen</b> is a page.</p>");
    QCOMPARE(dialog.windowTitle(), QString("Help Viewer"));
    QCOMPARE(dialog.minimumSize(), QSize(785, 606));
    QCOMPARE(dialog.maximumSize(), QSize(785, 606));
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QList<QAbstractButton *> const buttons = dialog.findChild<QDialogButtonBox *>()->buttons();
    QCOMPARE(buttons.size(), 1);
    QCOMPARE(buttons.first()->text(), QString("OK"));
    QVERIFY(buttons.first()->icon().isNull());

    // Rich text is interpreted, not shown as mark-up, and typing doesn't change it.
    auto *text = dialog.findChild<QTextEdit *>();
    QCOMPARE(text->toPlainText(), QString("Screens\nA screen is a page."));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(QApplication::focusWidget(), buttons.first());
    QTest::mouseClick(text->viewport(), Qt::LeftButton);
    QTest::keyClicks(text->viewport(), "typed");
    QTest::keyClick(text->viewport(), Qt::Key_Delete);
    QCOMPARE(text->toPlainText(), QString("Screens\nA screen is a page."));

    dialog.setText("plain & simple");
    QCOMPARE(text->toPlainText(), QString("plain & simple"));
    QVERIFY(HelpViewDialog().findChild<QTextEdit *>()->toPlainText().isEmpty());
}

void tst_HelpViewDialog::okCloses()
{
    HelpViewDialog dialog("Press OK.");
    Test::ModalAnswerer user({"OK"});
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(user.seen, QStringList({"Help Viewer"}));
    QVERIFY(!dialog.isVisible());
}

QTEST_MAIN(tst_HelpViewDialog)
#include "tst_HelpViewDialog.moc"
