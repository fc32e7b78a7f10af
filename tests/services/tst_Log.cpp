// SPDX-License-Identifier: MIT
#include "events/EventBus.h"
#include "services/GlobalState.h"
#include "services/Log.h"
#include "support/LogRecorder.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>
#include <QtTest>

using namespace TES;
using TES::Test::LogRecorder;

namespace {

// The log file's lines with the "(hh:mm:ss)" stamp checked and cut off.
QStringList fileLines(QString const &name = "test.log")
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    static QRegularExpression const stamp("^\\(\\d\\d:\\d\\d:\\d\\d\\)");
    for (QString &line : lines) {
        if (!stamp.match(line).hasMatch())
            return {"bad stamp: " + line};
        line = line.mid(10);
    }
    return lines;
}

void write(QString const &text, LogLevel level = LogLevel::User)
{
    Log::i().writeMessage(text, "Test", LogSeverity::Info, level);
}

} // namespace

class tst_Log : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void lineFormatLevelFilterAndBuffer();
    void threadMessagesArriveInOrderOnTheMainLoop();
    void levelFollowsGlobalState();
    void fileIsFlushedOnceAfterABurst();

private:
    // Outlives every Log of a test: the Log writes its closing line to it.
    LogRecorder _listener;
};

void tst_Log::init()
{
    _listener.messages.clear();
    QFile::remove("test.log");
    new EventBus();
    EventBus::i().setEventsEnabled(true);
}

void tst_Log::cleanup()
{
    Log::destroy();
    GlobalState::destroy();
    EventBus::destroy();
}

void tst_Log::lineFormatLevelFilterAndBuffer()
{
    auto *log = new Log("test.log", true);
    QCOMPARE(log->getLevel(), LogLevel::User);
    log->writeMessage("hidden", "Test", LogSeverity::Info, LogLevel::Debug);
    log->writeMessage("shown", "Core", LogSeverity::Info, LogLevel::User);
    // No listener yet: the buffer is kept.
    log->flushBuffer();
    log->setListener(&_listener);
    log->writeMessage("careful  \t ", "Data", LogSeverity::Warning, LogLevel::User);
    log->writeMessage("bad", "Data", LogSeverity::Error, LogLevel::User);
    QVERIFY(_listener.messages.isEmpty());

    // As the console does it: take the backlog (without the Debug start lines), then go
    // direct.
    log->flushBuffer();
    log->setUseBuffering(false);
    QCOMPARE(_listener.texts(), QStringList({"shown", "careful  \t ", "bad"}));
    QVERIFY(QRegularExpression("^\\(\\d\\d:\\d\\d:\\d\\d\\)$")
                .match(_listener.messages.first().timestamp)
                .hasMatch());
    log->writeMessage("odd", "X", static_cast<LogSeverity>(3), LogLevel::User);
    log->setLevel(LogLevel::All);
    write("everything", LogLevel::All);
    log->setLevel(LogLevel::User); // a change to User does not show itself
    QCOMPARE(_listener.texts().mid(3),
             QStringList({"odd", "Setting Log Level to : 2", "everything"}));

    // Detached and unbuffered: the file only.
    log->setListener(nullptr);
    write("file only");
    QCOMPARE(_listener.messages.size(), 6);
    Log::destroy();
    QCOMPARE(fileLines(), QStringList({"[Core]<Info> : shown", "[Data]<Warning> : careful",
                                       "[Data]<Error> : bad", "[X]<> : odd",
                                       "[Log]<Info> : Setting Log Level to : 2",
                                       "[Test]<Info> : everything", "[Test]<Info> : file only"}));
}

void tst_Log::threadMessagesArriveInOrderOnTheMainLoop()
{
    auto *log = new Log("test.log", false);
    log->setListener(&_listener);

    QThread *worker = QThread::create([] {
        for (int index = 0; index < 50; ++index)
            Log::WriteThreadMessage(QString::number(index), "Job", LogSeverity::Info,
                                    LogLevel::User);
    });
    worker->start();
    QVERIFY(worker->wait(30000));
    delete worker;

    // Posted, not written: nothing arrives until the main loop runs.
    QVERIFY(_listener.messages.isEmpty());
    QTRY_COMPARE(_listener.messages.size(), 50);
    for (int index = 0; index < 50; ++index)
        QCOMPARE(_listener.lines().at(index), "Job|" + QString::number(index));
}

void tst_Log::levelFollowsGlobalState()
{
    new GlobalState();
    // The level is read from the user preference at construction: at Debug the start lines
    // show.
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::User, 0, 1));
    auto *log = new Log("test.log", true);
    QCOMPARE(log->getLevel(), LogLevel::Debug);
    log->setListener(&_listener);
    log->flushBuffer();
    log->setUseBuffering(false);
    QCOMPARE(_listener.texts(),
             QStringList({"Initializing Log System", "Opening log file: test.log"}));
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::User, 0, 0));
    QCOMPARE(log->getLevel(), LogLevel::User);

    // Any value with id 0 moves it, whatever its group: the project's boolean SNAP_TOGGLED
    // set to true gives level 1, and its Debug message is written.
    QVERIFY(GlobalState::i().setBool(GlobalPropertyType::Project, 0, true));
    QCOMPARE(log->getLevel(), LogLevel::Debug);
    QCOMPARE(_listener.texts().last(), QString("Setting Log Level to : 1"));
    QCOMPARE(_listener.messages.last().level, LogLevel::Debug);
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::User, 0, 2));
    QCOMPARE(log->getLevel(), LogLevel::All);
    // Another id leaves it alone; the session's DIRTY_DISABLED, id 0 as well, doesn't.
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::User, 1, 0));
    QCOMPARE(log->getLevel(), LogLevel::All);
    QVERIFY(GlobalState::i().setBool(GlobalPropertyType::Session, 0, true));
    QCOMPARE(log->getLevel(), LogLevel::Debug);
}

void tst_Log::fileIsFlushedOnceAfterABurst()
{
    new Log("test.log", false);
    // A burst well below the file's own buffer: nothing reaches the disk per line, and the
    // one pending shot flushes the lot.
    for (int index = 0; index < 100; ++index)
        write(QString("line %1").arg(index));
    QCOMPARE(QFileInfo("test.log").size(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(fileLines().size(), 100, 15000);
    QCOMPARE(fileLines().last(), QString("[Test]<Info> : line 99"));

    // The next line waits for a new shot.
    write("after");
    QCOMPARE(fileLines().size(), 100);
    QTRY_COMPARE_WITH_TIMEOUT(fileLines().size(), 101, 15000);
}

QTEST_GUILESS_MAIN(tst_Log)
#include "tst_Log.moc"
