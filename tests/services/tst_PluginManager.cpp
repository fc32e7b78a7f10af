// SPDX-License-Identifier: MIT
#include "services/Log.h"
#include "services/PluginManager.h"
#include "support/FixturePlugins.h"
#include "support/LogRecorder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QtTest>

using namespace TES;
using TES::Test::FixturePlugins;
using TES::Test::LogRecorder;

namespace {

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

PluginDescriptor findByPath(std::vector<PluginDescriptor> const &plugins, QString const &path)
{
    for (PluginDescriptor const &plugin : plugins)
        if (plugin.path == path)
            return plugin;
    return {};
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
    void discoveryRoots();
    void loadAndUnload();
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
    FixturePlugins::install("failing", "failing");
    FixturePlugins::install("refusing", "refusing");
    FixturePlugins::install("loose", QString());
    // Not a library at all, and a library under a name that doesn't match.
    QDir().mkpath("plugins/junk");
    QFile junk("plugins/junk/libjunk.so");
    QVERIFY(junk.open(QIODevice::WriteOnly));
    junk.write("not a shared object");
    junk.close();
    QVERIFY(QFile::copy(FixturePlugins::library("loose"), "plugins/junk/libloose.so.1"));

    std::vector<PluginDescriptor> const plugins = _manager->availablePlugins();
    QCOMPARE(namesOf(plugins), QStringList({"complete", "failing", "noinfo", "noshutdown"}));

    // Every library is closed after the scan. The complete fixture's texts and picture came
    // from its constant data, now unmapped: they are still readable only as copies.
    for (PluginDescriptor const &plugin : plugins) {
        QVERIFY2(!FixturePlugins::isOpen(plugin.path), qPrintable(plugin.path));
        QVERIFY(!plugin.handle);
    }
    PluginDescriptor const full = findByPath(plugins, complete);
    QCOMPARE(full.title, QString("complete fixture"));
    QCOMPARE(full.description, QString("The complete test plug-in."));
    QCOMPARE(full.image.size(), QSize(2, 2));
    QCOMPARE(full.image.pixel(0, 1), qRgb(0, 0, 255));
    QCOMPARE(full.interface.versionMinor, 2u);

    PluginDescriptor const bare = findByPath(plugins, noInfo);
    QCOMPARE(bare.path, noInfo);
    QVERIFY(bare.title.isEmpty() && bare.description.isEmpty() && bare.image.isNull());
    QVERIFY(!findByPath(plugins, noShutdown).interface.shutdown);

    // The scan reads the entry points and nothing else: no plug-in runs.
    QStringList const calls = FixturePlugins::calls();
    QVERIFY(calls.contains("complete getInfo"));
    QVERIFY(calls.contains("refusing getInterface"));
    QVERIFY(!calls.contains("loose getInterface"));
    QVERIFY(calls.filter(" initialize").isEmpty());
}

void tst_PluginManager::discoveryRoots()
{
    QVERIFY(_manager->availablePlugins().empty());
    // Without a folder beside the executable the working directory's is scanned.
    FixturePlugins::install("noinfo", "noinfo");
    QCOMPARE(namesOf(_manager->availablePlugins()), QStringList({"noinfo"}));

    // The one beside the executable comes first. Only a missing folder passes the search on,
    // not an empty one.
    BesideExecutable beside;
    QVERIFY(_manager->availablePlugins().empty());
    FixturePlugins::install("complete", "complete", besideExecutable());
    QCOMPARE(namesOf(_manager->availablePlugins()), QStringList({"complete"}));
}

void tst_PluginManager::loadAndUnload()
{
    LogRecorder log;
    Log logger("tessera.log", false);
    logger.setListener(&log);

    QString const path = FixturePlugins::install("complete", "load");
    std::vector<PluginDescriptor> const plugins = _manager->availablePlugins();
    QCOMPARE(plugins.size(), std::size_t(1));
    QVERIFY(!_manager->pluginIsLoaded());

    // The pointers from the scan are not trusted: the ones the library gives now are called.
    PluginDescriptor stale = plugins.front();
    stale.interface.initialize = &hostInitialize;
    QVERIFY(_manager->loadPlugin(stale));
    QCOMPARE(hostInitializeCalls, 0);
    QVERIFY(_manager->pluginIsLoaded());
    PluginDescriptor const current = _manager->currentPlugin();
    QVERIFY(current.handle);
    QCOMPARE(current.path, path);
    QCOMPARE(current.title, QString("complete fixture"));
    QCOMPARE(FixturePlugins::calls(),
             QStringList({"complete getInfo", "complete getInterface", "complete getInterface",
                          "complete initialize " + path}));
    QCOMPARE(log.lines(), QStringList({"Plugin|Initializing Plugin \"complete\" v1.2.3..."}));

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
}

void tst_PluginManager::refusedLoads()
{
    QString const noShutdown = FixturePlugins::install("noshutdown", "noshutdown");
    QString const failing = FixturePlugins::install("failing", "failing");
    QString const vanishing = FixturePlugins::install("complete", "vanishing");
    std::vector<PluginDescriptor> const plugins = _manager->availablePlugins();
    QCOMPARE(namesOf(plugins), QStringList({"complete", "failing", "noshutdown"}));
    QStringList const scanCalls = FixturePlugins::calls();

    // Without a shutdown the library isn't even opened.
    QVERIFY(!_manager->loadPlugin(findByPath(plugins, noShutdown)));
    QCOMPARE(FixturePlugins::calls(), scanCalls);
    QVERIFY(!FixturePlugins::isOpen(noShutdown));

    // A failing initialize ran, and its library is closed again.
    QVERIFY(!_manager->loadPlugin(findByPath(plugins, failing)));
    QCOMPARE(FixturePlugins::calls().last(), "failing initialize " + failing);
    QVERIFY(!FixturePlugins::isOpen(failing));

    // A file gone since the scan.
    QVERIFY(QFile::remove(vanishing));
    QVERIFY(!_manager->loadPlugin(findByPath(plugins, vanishing)));

    QVERIFY(!_manager->pluginIsLoaded());
    // No shutdown for a plug-in that never ran.
    _manager->unloadPlugin();
    QVERIFY(FixturePlugins::calls().filter(QRegularExpression(" shutdown$")).isEmpty());
}

QTEST_MAIN(tst_PluginManager)
#include "tst_PluginManager.moc"
