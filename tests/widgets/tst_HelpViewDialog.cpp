#include "widgets/HelpViewDialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QtTest>

using namespace TES;

class tst_HelpViewDialog : public QObject
{
    Q_OBJECT

private slots:
    void frame();
    void showsTextReadOnly();
    void okCloses();
};

void tst_HelpViewDialog::frame()
{
    HelpViewDialog dialog;
    QCOMPARE(dialog.windowTitle(), QString("Help Viewer"));
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(dialog.minimumSize(), QSize(785, 606));
    QCOMPARE(dialog.maximumSize(), QSize(785, 606));
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));

    auto *buttons = dialog.findChild<QDialogButtonBox *>();
    QVERIFY(buttons);
    QCOMPARE(buttons->buttons().size(), 1);
    QPushButton *ok = buttons->button(QDialogButtonBox::Ok);
    QVERIFY(ok);
    QCOMPARE(ok->text(), QString("OK"));
    QVERIFY(ok->icon().isNull());

    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(QApplication::focusWidget(), ok);
}

void tst_HelpViewDialog::showsTextReadOnly()
{
    HelpViewDialog dialog("<h1>Screens</h1><p>A <b>screen</b> is a page.</p>");
    auto *text = dialog.findChild<QTextEdit *>();
    QVERIFY(text);
    // Rich text is interpreted, not shown as mark-up.
    QCOMPARE(text->toPlainText(), QString("Screens\nA screen is a page."));

    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::mouseClick(text->viewport(), Qt::LeftButton);
    QTest::keyClicks(text->viewport(), "typed");
    QTest::keyClick(text->viewport(), Qt::Key_Delete);
    QCOMPARE(text->toPlainText(), QString("Screens\nA screen is a page."));

    dialog.setText("plain & simple");
    QCOMPARE(text->toPlainText(), QString("plain & simple"));

    HelpViewDialog empty;
    QVERIFY(empty.findChild<QTextEdit *>()->toPlainText().isEmpty());
}

void tst_HelpViewDialog::okCloses()
{
    HelpViewDialog dialog("Press OK.");
    bool clicked = false;
    // Waits for the dialog to be the active modal window, then clicks as a user would.
    QTimer answer;
    int attempts = 0;
    connect(&answer, &QTimer::timeout, [&] {
        auto *modal = qobject_cast<HelpViewDialog *>(QApplication::activeModalWidget());
        if (!modal) {
            // Never shown as modal: end the test rather than hang.
            if (++attempts > 500)
                dialog.done(-1);
            return;
        }
        answer.stop();
        QTest::mouseClick(modal->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
        clicked = true;
    });
    answer.start(10);
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(clicked);
    QVERIFY(!dialog.isVisible());
}

QTEST_MAIN(tst_HelpViewDialog)
#include "tst_HelpViewDialog.moc"
