#include "events/EventBus.h"
#include "services/Log.h"
#include "windows/ConsoleWindow.h"

#include <QAction>
#include <QScrollBar>
#include <QTextEdit>
#include <QToolBar>
#include <QtTest>

#include <memory>

using namespace TES;

namespace {

QTextEdit *textOf(ConsoleWindow &console)
{
    return console.findChild<QTextEdit *>();
}

QStringList linesOf(ConsoleWindow &console)
{
    return textOf(console)->toPlainText().split('\n');
}

// The lines without their "(hh:mm:ss)" stamps.
QStringList unstamped(ConsoleWindow &console)
{
    QStringList lines = linesOf(console);
    for (QString &line : lines)
        line = line.mid(10);
    return lines;
}

// Whether the newest line is in view.
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
    void lineFormat_data();
    void lineFormat();
    void writeLineTrims();
    void followsOnlyFromTheBottom();
    void clearButton();
};

void tst_ConsoleWindow::init()
{
    new EventBus();
    new Log("tessera.log", true);
}

void tst_ConsoleWindow::cleanup()
{
    Log::destroy();
    EventBus::destroy();
}

void tst_ConsoleWindow::showsBacklogThenEveryLine()
{
    Log::i().writeMessage("first", "Core", LogSeverity::Info, LogLevel::User);
    Log::i().writeMessage("second", "Data", LogSeverity::Warning, LogLevel::User);

    auto console = std::make_unique<ConsoleWindow>();
    QCOMPARE(ConsoleWindow::ip(), console.get());
    QCOMPARE(console->size(), QSize(400, 300));
    QCOMPARE(unstamped(*console), QStringList({" : first", "[Data]<Warning> : second"}));

    // From now on straight through, without waiting for a flush.
    Log::i().writeMessage("third", "Core", LogSeverity::Error, LogLevel::User);
    QCOMPARE(unstamped(*console).last(), QString("[Core]<Error> : third"));
    // What the log filters out never arrives.
    Log::i().writeMessage("hidden", "Core", LogSeverity::Info, LogLevel::Debug);
    QCOMPARE(linesOf(*console).size(), 3);

    // Gone, the console is no longer told; the log goes on writing its file.
    console.reset();
    QCOMPARE(ConsoleWindow::ip(), nullptr);
    Log::i().writeMessage("after", "Core", LogSeverity::Info, LogLevel::User);
}

void tst_ConsoleWindow::lineFormat_data()
{
    QTest::addColumn<int>("severity");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("line");

    QTest::newRow("plain") << 0 << 0 << "(10:02:33) : Ready.";
    // Only Info for the User is plain; the rest names source and severity.
    QTest::newRow("info debug") << 0 << 1 << "(10:02:33)[Core]<Info> : Ready.";
    QTest::newRow("info all") << 0 << 2 << "(10:02:33)[Core]<Info> : Ready.";
    QTest::newRow("warning") << 1 << 0 << "(10:02:33)[Core]<Warning> : Ready.";
    QTest::newRow("error") << 2 << 1 << "(10:02:33)[Core]<Error> : Ready.";
    QTest::newRow("unknown severity") << 3 << 0 << "(10:02:33)[Core]<> : Ready.";
}

void tst_ConsoleWindow::lineFormat()
{
    QFETCH(int, severity);
    QFETCH(int, level);
    QFETCH(QString, line);

    ConsoleWindow console;
    textOf(console)->clear();
    LogMessage message;
    message.message = "Ready.";
    message.source = "Core";
    message.timestamp = "(10:02:33)";
    message.severity = static_cast<LogSeverity>(severity);
    message.level = static_cast<LogLevel>(level);
    console.logMessageWritten(message);
    QCOMPARE(textOf(console)->toPlainText(), line);
}

void tst_ConsoleWindow::writeLineTrims()
{
    ConsoleWindow console;
    textOf(console)->clear();
    console.writeLine("  one \t");
    console.writeLine("   "); // an empty line, not nothing
    console.writeLine("two");
    QCOMPARE(linesOf(console), QStringList({"one", "", "two"}));
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

    // Within 4 of the bottom counts as the bottom.
    bar->setValue(bar->maximum() - 4);
    int maximum = bar->maximum();
    console.writeLine("more");
    QVERIFY(bar->maximum() > maximum);
    QVERIFY(lastLineShown(console));

    bar->setValue(bar->maximum() - 5);
    int const kept = bar->value();
    console.writeLine("more");
    QCOMPARE(bar->value(), kept);
}

void tst_ConsoleWindow::clearButton()
{
    ConsoleWindow console;
    console.show();
    QVERIFY(QTest::qWaitForWindowExposed(&console));
    console.writeLine("something");

    QToolBar *bar = console.findChild<QToolBar *>();
    QVERIFY(bar);
    QCOMPARE(bar->actions().size(), 1);
    QAction *clear = bar->actions().first();
    QCOMPARE(clear->text(), QString());
    QCOMPARE(clear->toolTip(), QString("Clear"));
    QVERIFY(!clear->icon().isNull());

    QTest::mouseClick(bar->widgetForAction(clear), Qt::LeftButton);
    QCOMPARE(textOf(console)->toPlainText(), QString());
    // The log keeps writing to the emptied console.
    Log::i().writeMessage("again", "Core", LogSeverity::Info, LogLevel::User);
    QCOMPARE(unstamped(console), QStringList({" : again"}));
}

QTEST_MAIN(tst_ConsoleWindow)
#include "tst_ConsoleWindow.moc"
