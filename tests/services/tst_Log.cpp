#include "events/EventBus.h"
#include "events/GlobalStateChangedEvent.h"
#include "services/GlobalState.h"
#include "services/Log.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>
#include <QtTest>

using namespace TES;

namespace {

class Listener : public ILogListener
{
public:
    void logMessageWritten(LogMessage const &message) override { messages.append(message); }
    QStringList texts() const
    {
        QStringList result;
        for (auto const &m : messages)
            result.append(m.message);
        return result;
    }
    QList<LogMessage> messages;
};

// The log file's lines with the "(hh:mm:ss)" stamp checked and cut off.
QStringList fileLines(QString const &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    static QRegularExpression const stamp("^\\(\\d\\d:\\d\\d:\\d\\d\\)");
    for (QString &line : lines) {
        if (!stamp.match(line).hasMatch())
            return {"bad stamp: " + line};
        line = line.mid(10);
    }
    return lines;
}

} // namespace

class tst_Log : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void lineFormatAndLevelFilter();
    void bufferHandOver();
    void threadMessagesArriveInOrderOnTheMainLoop();
    void levelFollowsGlobalValueZero();
    void levelComesFromTheUserPreference();
    void levelFollowsGlobalStateChanges();
    void fileIsFlushedOnceAfterABurst();

private:
    // Outlives every Log of a test: the Log writes its closing line to it.
    Listener listener;
};

void tst_Log::init()
{
    listener.messages.clear();
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

void tst_Log::lineFormatAndLevelFilter()
{
    auto *log = new Log("test.log", true);
    log->setListener(&listener);
    QCOMPARE(log->getLevel(), LogLevel::User);

    // The start lines are Debug and the default level is User: nothing was kept.
    log->flushBuffer();
    QVERIFY(listener.messages.isEmpty());

    log->writeMessage("hidden", "Test", LogSeverity::Info, LogLevel::Debug);
    log->writeMessage("shown", "Core", LogSeverity::Info, LogLevel::User);
    log->writeMessage("careful  \t ", "Data", LogSeverity::Warning, LogLevel::User);
    log->writeMessage("bad", "Data", LogSeverity::Error, LogLevel::User);
    log->writeMessage("odd", "X", static_cast<LogSeverity>(3), LogLevel::User);
    log->setLevel(LogLevel::All);
    log->writeMessage("everything", "Test", LogSeverity::Info, LogLevel::All);
    log->setLevel(LogLevel::User); // a change to User does not show itself

    log->flushBuffer();
    QCOMPARE(listener.texts(), QStringList({"shown", "careful  \t ", "bad", "odd",
                                            "Setting Log Level to : 2", "everything"}));
    QCOMPARE(listener.messages.first().source, QString("Core"));
    QVERIFY(QRegularExpression("^\\(\\d\\d:\\d\\d:\\d\\d\\)$")
                .match(listener.messages.first().timestamp)
                .hasMatch());

    Log::destroy();
    QCOMPARE(fileLines("test.log"),
             QStringList({"[Core]<Info> : shown", "[Data]<Warning> : careful",
                          "[Data]<Error> : bad", "[X]<> : odd",
                          "[Log]<Info> : Setting Log Level to : 2", "[Test]<Info> : everything"}));
}

void tst_Log::bufferHandOver()
{
    auto *log = new Log("test.log", true);
    log->setLevel(LogLevel::Debug);
    log->writeMessage("one", "Test", LogSeverity::Info, LogLevel::User);

    // No listener yet: the buffer is kept.
    log->flushBuffer();
    log->setListener(&listener);
    log->writeMessage("two", "Test", LogSeverity::Info, LogLevel::User);
    QVERIFY(listener.messages.isEmpty());

    // As the console does it: take the backlog, then go direct.
    log->flushBuffer();
    log->setUseBuffering(false);
    QCOMPARE(listener.texts(), QStringList({"Setting Log Level to : 1", "one", "two"}));
    log->flushBuffer();
    QCOMPARE(listener.messages.size(), 3);
    log->writeMessage("three", "Test", LogSeverity::Info, LogLevel::User);
    QCOMPARE(listener.texts().last(), QString("three"));

    // Detached and unbuffered: the file only.
    log->setListener(nullptr);
    log->writeMessage("four", "Test", LogSeverity::Info, LogLevel::User);
    QCOMPARE(listener.messages.size(), 4);

    Log::destroy();
    QStringList const lines = fileLines("test.log");
    QCOMPARE(lines.mid(lines.size() - 2),
             QStringList({"[Test]<Info> : four", "[Log]<Info> : Closing log file: test.log"}));
}

void tst_Log::threadMessagesArriveInOrderOnTheMainLoop()
{
    auto *log = new Log("test.log", false);
    log->setListener(&listener);

    QThread *worker = QThread::create([] {
        for (int index = 0; index < 50; ++index)
            Log::WriteThreadMessage(QString::number(index), "Job", LogSeverity::Info,
                                    LogLevel::User);
    });
    worker->start();
    QVERIFY(worker->wait(30000));
    delete worker;

    // Posted, not written: nothing arrives until the main loop runs.
    QVERIFY(listener.messages.isEmpty());
    QTRY_COMPARE(listener.messages.size(), 50);
    for (int index = 0; index < 50; ++index)
        QCOMPARE(listener.messages.at(index).message, QString::number(index));
    QCOMPARE(listener.messages.first().source, QString("Job"));
}

void tst_Log::levelFollowsGlobalValueZero()
{
    auto *log = new Log("test.log", false);
    log->setListener(&listener);

    // Id 0 of any group sets the level, here the project's boolean SNAP_TOGGLED.
    EventBus::i().raiseEventNow(QSharedPointer<GlobalStateChangedEvent>::create(
        GlobalPropertyType::Project, 0, QVariant(false), QVariant(true)));
    QCOMPARE(log->getLevel(), LogLevel::Debug);
    QCOMPARE(listener.texts(), QStringList({"Setting Log Level to : 1"}));

    // Another id leaves the level alone.
    EventBus::i().raiseEventNow(QSharedPointer<GlobalStateChangedEvent>::create(
        GlobalPropertyType::User, 1, QVariant(0), QVariant(2)));
    QCOMPARE(log->getLevel(), LogLevel::Debug);

    EventBus::i().raiseEventNow(QSharedPointer<GlobalStateChangedEvent>::create(
        GlobalPropertyType::User, 0, QVariant(1), QVariant(2)));
    QCOMPARE(log->getLevel(), LogLevel::All);
}

void tst_Log::levelComesFromTheUserPreference()
{
    new GlobalState();
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::User, 0, 1));
    auto *log = new Log("test.log", true);
    QCOMPARE(log->getLevel(), LogLevel::Debug);
    // At level Debug the start lines show.
    log->setListener(&listener);
    log->flushBuffer();
    QCOMPARE(listener.texts(),
             QStringList({"Initializing Log System", "Opening log file: test.log"}));
}

void tst_Log::levelFollowsGlobalStateChanges()
{
    new GlobalState();
    auto *log = new Log("test.log", false);
    log->setListener(&listener);
    QCOMPARE(log->getLevel(), LogLevel::User);

    // The project's boolean SNAP_TOGGLED has id 0 as LOG_LEVEL has: true sets level 1.
    QVERIFY(GlobalState::i().setBool(GlobalPropertyType::Project, 0, true));
    QCOMPARE(log->getLevel(), LogLevel::Debug);
    QCOMPARE(listener.texts(), QStringList({"Setting Log Level to : 1"}));
    QCOMPARE(listener.messages.last().level, LogLevel::Debug);

    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::User, 0, 2));
    QCOMPARE(log->getLevel(), LogLevel::All);
    // Another id leaves it alone.
    QVERIFY(GlobalState::i().setInt(GlobalPropertyType::User, 1, 0));
    QCOMPARE(log->getLevel(), LogLevel::All);
    // And the session's DIRTY_DISABLED, id 0 as well, moves it again.
    QVERIFY(GlobalState::i().setBool(GlobalPropertyType::Session, 0, true));
    QCOMPARE(log->getLevel(), LogLevel::Debug);
}

void tst_Log::fileIsFlushedOnceAfterABurst()
{
    new Log("test.log", false);
    // A burst well below the file's own buffer: nothing reaches the disk per line, and the
    // one pending shot flushes the lot.
    for (int index = 0; index < 100; ++index)
        Log::i().writeMessage(QString("line %1").arg(index), "Test", LogSeverity::Info,
                              LogLevel::User);
    QCOMPARE(QFileInfo("test.log").size(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(fileLines("test.log").size(), 100, 15000);
    QCOMPARE(fileLines("test.log").last(), QString("[Test]<Info> : line 99"));

    // The next line waits for a new shot.
    Log::i().writeMessage("after", "Test", LogSeverity::Info, LogLevel::User);
    QCOMPARE(fileLines("test.log").size(), 100);
    QTRY_COMPARE_WITH_TIMEOUT(fileLines("test.log").size(), 101, 15000);
}

QTEST_GUILESS_MAIN(tst_Log)
#include "tst_Log.moc"
