#include "services/ILogListener.h"
#include "services/Log.h"
#include "services/PluginManager.h"
#include "support/FixturePlugins.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace TES;
using TES::Test::FixturePlugins;

namespace {

class LogLines : public ILogListener
{
public:
    void logMessageWritten(LogMessage const &message) override
    {
        lines.append(QString("[%1] %2").arg(message.source, message.message));
    }
    QStringList lines;
};

// Runs fn with standard error sent to a file, and answers what it printed.
template<typename Fn>
QString captureStderr(Fn fn)
{
    std::fflush(stderr);
    int const saved = dup(STDERR_FILENO);
    int const fd = open("stderr.txt", O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(fd, STDERR_FILENO);
    close(fd);
    fn();
    std::fflush(stderr);
    dup2(saved, STDERR_FILENO);
    close(saved);
    QFile file("stderr.txt");
    file.open(QIODevice::ReadOnly);
    return QString::fromLocal8Bit(file.readAll());
}

QString besideExecutable()
{
    return QCoreApplication::applicationDirPath() + "/plugins";
}

// Makes "plugins" beside the test executable for one test, and takes it away again however
// the test ends: the executable's folder is shared by every run of this test.
class BesideExecutable
{
public:
    BesideExecutable() { QDir().mkpath(besideExecutable()); }
    ~BesideExecutable() { FixturePlugins::removeAll(besideExecutable()); }
};

PluginDescriptor const *findByPath(std::vector<PluginDescriptor> const &plugins,
                                   QString const &path)
{
    for (PluginDescriptor const &plugin : plugins)
        if (plugin.path == path)
            return &plugin;
    return nullptr;
}

QStringList namesOf(std::vector<PluginDescriptor> const &plugins)
{
    QStringList names;
    for (PluginDescriptor const &plugin : plugins)
        names.append(plugin.name());
    names.sort();
    return names;
}

int hostInitializeCalls = 0;

int hostInitialize(char const *)
{
    ++hostInitializeCalls;
    return 0;
}

} // namespace

class tst_PluginManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void discoveryCases();
    void discoveryRoots_data();
    void discoveryRoots();
    void loadAndUnload();
    void loadAsksTheLibraryAgain();
    void refusedLoads();

private:
    PluginManager *_manager = nullptr;
};

void tst_PluginManager::initTestCase()
{
    // Every test below arranges its own folders; one left beside the executable would be
    // scanned instead.
    QVERIFY(!QDir(besideExecutable()).exists());
    FixturePlugins::startRecording();
}

void tst_PluginManager::init()
{
    FixturePlugins::removeAll();
    FixturePlugins::startRecording();
    _manager = new PluginManager();
}

void tst_PluginManager::cleanup()
{
    PluginManager::destroy();
    QVERIFY(!PluginManager::ip());
}

void tst_PluginManager::discoveryCases()
{
    QString const complete = FixturePlugins::install("complete", "complete");
    QString const noInfo = FixturePlugins::install("noinfo", "noinfo");
    QString const noShutdown = FixturePlugins::install("noshutdown", "noshutdown");
    QString const failing = FixturePlugins::install("failing", "failing");
    FixturePlugins::install("refusing", "refusing");
    FixturePlugins::install("loose", QString());
    // Not a library at all, and a library under a name that doesn't match.
    QDir().mkpath("plugins/junk");
    QFile junk("plugins/junk/libjunk.so");
    QVERIFY(junk.open(QIODevice::WriteOnly));
    junk.write("not a shared object");
    junk.close();
    QVERIFY(QFile::copy(FixturePlugins::library("loose"), "plugins/junk/libloose.so.1"));

    std::vector<PluginDescriptor> plugins;
    QString const errors = captureStderr([&] { plugins = _manager->availablePlugins(); });

    QCOMPARE(namesOf(plugins), QStringList({"complete", "failing", "noinfo", "noshutdown"}));
    QVERIFY2(errors.contains("libjunk.so"), qPrintable(errors));

    // Every library is closed after the scan. The complete fixture's texts and picture came
    // from its constant data, now unmapped: they are still readable only as copies.
    for (PluginDescriptor const &plugin : plugins) {
        QVERIFY2(!FixturePlugins::isOpen(plugin.path), qPrintable(plugin.path));
        QVERIFY(!plugin.handle);
    }
    PluginDescriptor const *full = findByPath(plugins, complete);
    QVERIFY(full);
    QCOMPARE(full->title, QString("complete fixture"));
    QCOMPARE(full->description, QString("The complete test plug-in."));
    QCOMPARE(full->image.size(), QSize(2, 2));
    QCOMPARE(full->image.pixel(0, 0), qRgb(255, 0, 0));
    QCOMPARE(full->image.pixel(0, 1), qRgb(0, 0, 255));
    QCOMPARE(full->interface.versionMinor, 2u);
    QVERIFY(full->interface.shutdown);

    PluginDescriptor const *bare = findByPath(plugins, noInfo);
    QVERIFY(bare);
    QVERIFY(bare->title.isEmpty());
    QVERIFY(bare->description.isEmpty());
    QVERIFY(bare->image.isNull());

    QVERIFY(findByPath(plugins, noShutdown));
    QVERIFY(!findByPath(plugins, noShutdown)->interface.shutdown);
    QVERIFY(findByPath(plugins, failing));

    // The scan reads the entry points and nothing else: no plug-in runs.
    QStringList const calls = FixturePlugins::calls();
    QVERIFY(calls.contains("complete getInfo"));
    QVERIFY(calls.contains("refusing getInterface"));
    QVERIFY(!calls.contains("loose getInterface"));
    QVERIFY(calls.filter(" initialize").isEmpty());
}

void tst_PluginManager::discoveryRoots_data()
{
    QTest::addColumn<QStringList>("beside");
    QTest::addColumn<QStringList>("local");
    QTest::addColumn<bool>("makeBeside");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("no folder at all") << QStringList() << QStringList() << false << QStringList();
    QTest::newRow("only the working directory's")
        << QStringList() << QStringList({"complete", "noinfo"}) << false
        << QStringList({"complete", "noinfo"});
    QTest::newRow("beside the executable first")
        << QStringList({"complete"}) << QStringList({"noinfo"}) << true
        << QStringList({"complete"});
    // Only a missing folder passes the search on, not an empty one.
    QTest::newRow("an empty folder beside the executable")
        << QStringList() << QStringList({"noinfo"}) << true << QStringList();
}

void tst_PluginManager::discoveryRoots()
{
    QFETCH(QStringList, beside);
    QFETCH(QStringList, local);
    QFETCH(bool, makeBeside);
    QFETCH(QStringList, expected);

    std::unique_ptr<BesideExecutable> besideFolder;
    if (makeBeside)
        besideFolder = std::make_unique<BesideExecutable>();
    for (QString const &fixture : beside)
        FixturePlugins::install(fixture, fixture, besideExecutable());
    for (QString const &fixture : local)
        FixturePlugins::install(fixture, fixture);

    QCOMPARE(namesOf(_manager->availablePlugins()), expected);
}

void tst_PluginManager::loadAndUnload()
{
    LogLines log;
    Log logger("tessera.log", false);
    logger.setListener(&log);

    QString const path = FixturePlugins::install("complete", "load");
    std::vector<PluginDescriptor> const plugins = _manager->availablePlugins();
    QCOMPARE(plugins.size(), std::size_t(1));
    QVERIFY(!_manager->pluginIsLoaded());

    QVERIFY(_manager->loadPlugin(plugins.front()));
    QVERIFY(_manager->pluginIsLoaded());
    PluginDescriptor const current = _manager->currentPlugin();
    QVERIFY(current.handle);
    QCOMPARE(current.path, path);
    QCOMPARE(current.title, QString("complete fixture"));
    QCOMPARE(current.name(), QString("complete"));
    QCOMPARE(FixturePlugins::calls(),
             QStringList({"complete getInfo", "complete getInterface", "complete getInterface",
                          "complete initialize " + path}));
    QCOMPARE(log.lines, QStringList({"[Plugin] Initializing Plugin \"complete\" v1.2.3..."}));

    _manager->unloadPlugin();
    QCOMPARE(FixturePlugins::calls().last(), QString("complete shutdown"));
    QVERIFY(!_manager->pluginIsLoaded());
    PluginDescriptor const empty = _manager->currentPlugin();
    QVERIFY(!empty.handle && empty.path.isEmpty() && empty.title.isEmpty());
    QVERIFY(empty.name().isEmpty() && !empty.interface.shutdown);
    // Objects of the plug-in's classes may outlive it: its library stays mapped.
    QVERIFY(FixturePlugins::isOpen(path));

    // With nothing loaded, unloading calls nobody.
    int const callCount = FixturePlugins::calls().size();
    _manager->unloadPlugin();
    QCOMPARE(FixturePlugins::calls().size(), callCount);
    logger.setListener(nullptr);
}

void tst_PluginManager::loadAsksTheLibraryAgain()
{
    QString const path = FixturePlugins::install("noinfo", "again");
    std::vector<PluginDescriptor> const plugins = _manager->availablePlugins();
    QCOMPARE(plugins.size(), std::size_t(1));

    // The pointers from the scan are not trusted: the ones the library gives now are called.
    PluginDescriptor stale = plugins.front();
    stale.interface.initialize = &hostInitialize;
    hostInitializeCalls = 0;
    QVERIFY(_manager->loadPlugin(stale));
    QCOMPARE(hostInitializeCalls, 0);
    QCOMPARE(FixturePlugins::calls(), QStringList({"noinfo getInterface", "noinfo getInterface",
                                                   "noinfo initialize " + path}));
    QVERIFY(_manager->currentPlugin().interface.initialize != &hostInitialize);

    _manager->unloadPlugin();
    QCOMPARE(FixturePlugins::calls().last(), QString("noinfo shutdown"));
}

void tst_PluginManager::refusedLoads()
{
    QString const noShutdown = FixturePlugins::install("noshutdown", "noshutdown");
    QString const failing = FixturePlugins::install("failing", "failing");
    QString const vanishing = FixturePlugins::install("complete", "vanishing");
    std::vector<PluginDescriptor> const plugins = _manager->availablePlugins();
    QCOMPARE(plugins.size(), std::size_t(3));
    QStringList const scanCalls = FixturePlugins::calls();

    // Without a shutdown the library isn't even opened.
    QVERIFY(!_manager->loadPlugin(*findByPath(plugins, noShutdown)));
    QCOMPARE(FixturePlugins::calls(), scanCalls);
    QVERIFY(!FixturePlugins::isOpen(noShutdown));

    // A failing initialize ran, and its library is closed again.
    QVERIFY(!_manager->loadPlugin(*findByPath(plugins, failing)));
    QCOMPARE(FixturePlugins::calls().last(), "failing initialize " + failing);
    QVERIFY(!FixturePlugins::isOpen(failing));

    // A file gone since the scan.
    QVERIFY(QFile::remove(vanishing));
    QVERIFY(!_manager->loadPlugin(*findByPath(plugins, vanishing)));

    QVERIFY(!_manager->pluginIsLoaded());
    QVERIFY(_manager->currentPlugin().path.isEmpty());
    // No shutdown for a plug-in that never ran.
    _manager->unloadPlugin();
    QVERIFY(FixturePlugins::calls().filter(QRegularExpression(" shutdown$")).isEmpty());
}

QTEST_MAIN(tst_PluginManager)
#include "tst_PluginManager.moc"
