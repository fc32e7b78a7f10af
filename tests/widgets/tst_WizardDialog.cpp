// SPDX-License-Identifier: MIT
#include "support/ModalAnswerer.h"
#include "widgets/WizardDialog.h"
#include "widgets/WizardDialogModel.h"
#include "widgets/WizardPanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

using namespace TES;

namespace {

// A panel with a line edit that reports each edit to its wizard. It refuses an empty line,
// or always warns, or always accepts; it writes its hooks into a shared log.
class Panel : public WizardPanel
{
public:
    enum Rule { Refuse, Warn, Accept };

    Panel(QString const &name, Rule rule, QStringList &log, QString const &help = QString())
        : _name(name), _rule(rule), _log(log), _help(help)
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(edit);
        connect(edit, &QLineEdit::textChanged, this, [this] {
            if (wizard())
                wizard()->panelUpdated(this);
        });
    }

    QString panelName() const override { return _name; }
    QString panelTitle() const override { return _name + " title"; }
    bool validate(WizardPanelStatus &status) override
    {
        if (_rule == Accept || (_rule == Refuse && !edit->text().isEmpty()))
            return true;
        status.isError = _rule == Refuse;
        status.message = _rule == Refuse ? "A name is needed." : "Defaults will be used.";
        return false;
    }
    QString helpTitle() const override { return _name + " help"; }
    QString helpText() const override { return _help; }
    void enterPanel() override { _log << _name + " enter"; }
    void leavePanel() override { _log << _name + " leave"; }
    void finalizePanel() override { _log << _name + " finalize"; }

    QLineEdit *edit = new QLineEdit;

private:
    QString _name;
    Rule _rule;
    QStringList &_log;
    QString _help;
};

} // namespace

class tst_WizardDialog : public QObject
{
    Q_OBJECT

private slots:
    void nextAndBack();
};

void tst_WizardDialog::nextAndBack()
{
    QStringList log;
    WizardDialogModel model;
    auto *name = new Panel("Name", Panel::Refuse, log);
    QVERIFY(model.addPanel(name));
    QVERIFY(model.addPanel(new Panel("Options", Panel::Warn, log)));
    QVERIFY(model.addPanel(new Panel("Summary", Panel::Accept, log, "<b>Check</b> and finish.")));
    Panel twin("Name", Panel::Accept, log);
    QVERIFY(!model.addPanel(&twin));

    WizardDialog dialog;
    auto button = [&dialog](QString const &text) {
        for (QPushButton *b : dialog.findChildren<QPushButton *>()) {
            if (b->text() == text)
                return b;
        }
        return static_cast<QPushButton *>(nullptr);
    };
    QPushButton *help = button("Help");
    QPushButton *back = button("Back");
    QPushButton *next = button("Next");
    QLabel *title = nullptr;
    QLabel *message = nullptr;
    for (QLabel *label : dialog.findChildren<QLabel *>()) {
        if (label->text() == "Current Step")
            title = label;
        if (label->wordWrap())
            message = label;
    }
    QVERIFY(help && back && next && title && message);
    QVERIFY(!help->isEnabled() && !back->isEnabled() && !next->isEnabled());
    dialog.show();
    dialog.setModel(&model);

    // An error found on entry is shown but does not hold Next.
    QCOMPARE(title->text(), QString("Name title"));
    QVERIFY(dialog.isAncestorOf(name));
    QVERIFY(name->isVisible());
    QCOMPARE(message->text(), QString("A name is needed."));
    QCOMPARE(message->palette().color(QPalette::WindowText), QColor(Qt::red));
    QVERIFY(next->isEnabled());
    QVERIFY(!back->isEnabled());
    QVERIFY(!help->isEnabled());

    // Once the panel reports, the refusal holds Next.
    QTest::keyClicks(name->edit, "x");
    QTest::keyClick(name->edit, Qt::Key_Backspace);
    QVERIFY(!next->isEnabled());
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(title->text(), QString("Name title"));
    QTest::keyClicks(name->edit, "Ada");
    QVERIFY(next->isEnabled());
    QCOMPARE(message->text(), QString(" "));

    // A warning leaves Next enabled and is drawn black.
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(title->text(), QString("Options title"));
    QCOMPARE(message->text(), QString("Defaults will be used."));
    QCOMPARE(message->palette().color(QPalette::WindowText), QColor(Qt::black));
    QVERIFY(next->isEnabled());
    QVERIFY(back->isEnabled());
    QCOMPARE(name->parent(), static_cast<QObject *>(nullptr));
    QVERIFY(!name->isVisible());
    QStringList bold;
    for (QLabel *label : dialog.findChildren<QLabel *>()) {
        if (label->font().bold())
            bold << label->text();
    }
    QCOMPARE(bold, QStringList({"2.", "Options"}));

    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(title->text(), QString("Name title"));
    QVERIFY(!back->isEnabled());
    QTest::mouseClick(next, Qt::LeftButton);
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(title->text(), QString("Summary title"));
    QCOMPARE(next->text(), QString("Finish"));
    QVERIFY(help->isEnabled());
    QCOMPARE(log, QStringList({"Name enter", "Name leave", "Options enter", "Options leave",
                               "Name enter", "Name leave", "Options enter", "Options leave",
                               "Summary enter"}));

    Test::ModalAnswerer user({"OK"});
    QTest::mouseClick(help, Qt::LeftButton);
    QCOMPARE(user.seen, QStringList({"Summary help"}));

    // Finish finalises every panel in order and hides the dialog.
    log.clear();
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(log, QStringList({"Name finalize", "Options finalize", "Summary finalize"}));
    QVERIFY(dialog.finished());
    QVERIFY(!dialog.isVisible());
}

QTEST_MAIN(tst_WizardDialog)
#include "tst_WizardDialog.moc"
