#include "app/Core.h"
#include "app/CoreLifecycleListener.h"
#include "events/EventBus.h"
#include "services/Log.h"
#include "support/RecordingHandler.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace TES;

namespace {

class Listener : public CoreLifecycleListener
{
public:
    void coreInitialized() override
    {
        calls.append("initialized");
        busOnAtInit = EventBus::ip() && EventBus::ip()->getEventsEnabled();
    }
    void coreDestroying() override
    {
        calls.append("destroying");
        servicesAliveAtDestroy = EventBus::ip() && Log::ip();
    }
    QStringList calls;
    bool busOnAtInit = false;
    bool servicesAliveAtDestroy = false;
};

// Runs fn with standard output sent to a file, and answers what it printed.
template<typename Fn>
QString captureStdout(Fn fn)
{
    std::fflush(stdout);
    int const saved = dup(STDOUT_FILENO);
    int const fd = open("stdout.txt", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(fd, STDOUT_FILENO);
    close(fd);
    fn();
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
    QFile file("stdout.txt");
    file.open(QIODevice::ReadOnly);
    return QString::fromLocal8Bit(file.readAll());
}

} // namespace

class tst_Core : public QObject
{
    Q_OBJECT

private slots:
    void startAndStop();
};

void tst_Core::startAndStop()
{
    QString const base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QVERIFY(base.startsWith(QDir::currentPath())); // the test runner points it here
    QDir(base + "/.tes").removeRecursively();
    QFile::remove("tessera.log");

    Core core;
    QCOMPARE(Core::_instance, &core);
    Listener listener;
    core.setListener(&listener);
    QCOMPARE(core.getListener(), &listener);

    CommandLineParser::ArgumentMap args;
    args.emplace("level", "3");

    bool started = false;
    QString const printed = captureStdout([&] { started = core.initialize(args); });
    QVERIFY(started);
    QCOMPARE(printed, QString("Creating TES directory at %1/.tes\n").arg(base));
    QVERIFY(QDir(base + "/.tes").exists());
    QCOMPARE(Core::pluginDataDirectory(), QDir(base + "/.tes").canonicalPath());
    QCOMPARE(core.commandLineArgs(), args);
    QCOMPARE(listener.calls, QStringList({"initialized"}));
    QVERIFY(listener.busOnAtInit);
    QVERIFY(EventBus::ip());
    QVERIFY(Log::ip());

    core.destroy();
    QCOMPARE(listener.calls, QStringList({"initialized", "destroying"}));
    QVERIFY(listener.servicesAliveAtDestroy);
    QVERIFY(!EventBus::ip());
    QVERIFY(!Log::ip());

    QFile log("tessera.log");
    QVERIFY(log.open(QIODevice::ReadOnly | QIODevice::Text));
    QStringList lines = QString::fromUtf8(log.readAll()).split('\n', Qt::SkipEmptyParts);
    for (QString &line : lines)
        line = line.mid(10); // the "(hh:mm:ss)" stamp
    QCOMPARE(lines, QStringList({"[Core]<Info> : Initialization complete."}));

    // A second start finds the directory and says nothing about it.
    Core::_instance = nullptr;
    Core again;
    QString const second = captureStdout([&] { again.initialize({}); });
    QCOMPARE(second, QString());
    again.destroy();
}

QTEST_MAIN(tst_Core)
#include "tst_Core.moc"
