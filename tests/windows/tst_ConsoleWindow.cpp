// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "services/Log.h"
#include "support/Services.h"
#include "windows/ConsoleWindow.h"

#include <QAction>
#include <QScrollBar>
#include <QTextEdit>
#include <QToolBar>
#include <QtTest>

#include <memory>

using namespace TES;
using TES::Test::Services;

namespace {

QTextEdit *textOf(ConsoleWindow &console)
{
    return console.findChild<QTextEdit *>();
}

// The lines without their "(hh:mm:ss)" stamps.
QStringList unstamped(ConsoleWindow &console)
{
    QStringList lines = textOf(console)->toPlainText().split('\n');
    for (QString &line : lines)
        line = line.mid(10);
    return lines;
}

bool lastLineShown(ConsoleWindow &console)
{
    QTextEdit *edit = textOf(console);
    return edit->textCursor().atEnd() && edit->viewport()->rect().contains(edit->cursorRect());
}

} // namespace

class tst_ConsoleWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsBacklogThenEveryLine();
    void lineFormat();
    void followsOnlyFromTheBottom();

private:
    std::optional<Services> _services;
};

void tst_ConsoleWindow::init()
{
    _services.emplace(Services::Bus | Services::Logging, false);
}

void tst_ConsoleWindow::cleanup()
{
    _services.reset();
}

void tst_ConsoleWindow::showsBacklogThenEveryLine()
{
    Log::i().writeMessage("first", "Core", LogSeverity::Info, LogLevel::User);
    Log::i().writeMessage("second", "Data", LogSeverity::Warning, LogLevel::User);

    auto console = std::make_unique<ConsoleWindow>();
    console->show();
    QVERIFY(QTest::qWaitForWindowExposed(console.get()));
    QCOMPARE(console->size(), QSize(400, 300));
    QCOMPARE(unstamped(*console), QStringList({" : first", "[Data]<Warning> : second"}));
    // From now on straight through, without waiting for a flush; what the log filters out
    // never arrives.
    Log::i().writeMessage("hidden", "Core", LogSeverity::Info, LogLevel::Debug);
    Log::i().writeMessage("third", "Core", LogSeverity::Error, LogLevel::User);
    QCOMPARE(unstamped(*console).mid(2), QStringList({"[Core]<Error> : third"}));

    // The clear button empties the view; the log keeps writing to it.
    QToolBar *bar = console->findChild<QToolBar *>();
    QCOMPARE(bar->actions().size(), 1);
    QAction *clear = bar->actions().first();
    QCOMPARE(clear->text(), QString());
    QCOMPARE(clear->toolTip(), QString("Clear"));
    QVERIFY(!clear->icon().isNull());
    QTest::mouseClick(bar->widgetForAction(clear), Qt::LeftButton);
    QCOMPARE(textOf(*console)->toPlainText(), QString());
    Log::i().writeMessage("again", "Core", LogSeverity::Info, LogLevel::User);
    QCOMPARE(unstamped(*console), QStringList({" : again"}));

    // Gone, the console is no longer told; the log goes on writing its file.
    console.reset();
    QCOMPARE(ConsoleWindow::ip(), nullptr);
    Log::i().writeMessage("after", "Core", LogSeverity::Info, LogLevel::User);
}

void tst_ConsoleWindow::lineFormat()
{
    ConsoleWindow console;
    textOf(console)->clear();
    // Only Info for the User is plain; the rest names source and severity.
    QList<QPair<LogSeverity, LogLevel>> const kinds{{LogSeverity::Info, LogLevel::User},
                                                    {LogSeverity::Info, LogLevel::Debug},
                                                    {LogSeverity::Warning, LogLevel::User},
                                                    {static_cast<LogSeverity>(3), LogLevel::User}};
    for (auto const &kind : kinds) {
        LogMessage message;
        message.message = "Ready.";
        message.source = "Core";
        message.timestamp = "(10:02:33)";
        message.severity = kind.first;
        message.level = kind.second;
        console.logMessageWritten(message);
    }
    console.writeLine("  one \t");
    console.writeLine("   "); // an empty line, not nothing
    QCOMPARE(textOf(console)->toPlainText().split('\n'),
             QStringList({"(10:02:33) : Ready.", "(10:02:33)[Core]<Info> : Ready.",
                          "(10:02:33)[Core]<Warning> : Ready.", "(10:02:33)[Core]<> : Ready.",
                          "one", ""}));
    QVERIFY(textOf(console)->isReadOnly());
}

void tst_ConsoleWindow::followsOnlyFromTheBottom()
{
    ConsoleWindow console;
    console.show();
    QVERIFY(QTest::qWaitForWindowExposed(&console));
    QScrollBar *bar = textOf(console)->verticalScrollBar();
    for (int i = 0; i < 100; ++i)
        console.writeLine(QString("line %1").arg(i));
    QVERIFY(bar->maximum() > 50);
    QVERIFY(lastLineShown(console));

    // Scrolled up: the place is kept while lines arrive.
    bar->setValue(10);
    console.writeLine("more");
    QCOMPARE(bar->value(), 10);
    QVERIFY(!lastLineShown(console));

    // Within 4 of the bottom counts as the bottom; 5 does not.
    bar->setValue(bar->maximum() - 4);
    int const maximum = bar->maximum();
    console.writeLine("more");
    QVERIFY(bar->maximum() > maximum);
    QVERIFY(lastLineShown(console));
    bar->setValue(bar->maximum() - 5);
    int const kept = bar->value();
    console.writeLine("more");
    QCOMPARE(bar->value(), kept);
}

QTEST_MAIN(tst_ConsoleWindow)
#include "tst_ConsoleWindow.moc"
