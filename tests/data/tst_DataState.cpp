// SPDX-License-Identifier: MIT
#include "data/DataState.h"
#include "events/EventBus.h"
#include "services/Log.h"
#include "support/LogRecorder.h"
#include "support/Services.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <zip.h>

using namespace TES;
using TES::Test::LogRecorder;
using TES::Test::Services;

namespace {

QByteArray binaryBytes()
{
    QByteArray bytes;
    for (int index = 0; index < 3000; ++index)
        bytes.append(static_cast<char>(index * 7 % 256));
    return bytes;
}

void writeFile(QString const &path, QByteArray const &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(QString const &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Runs a command in the working directory; answers its standard output, or a marker on
// failure so that comparisons fail loudly.
QString run(QString const &program, QStringList const &arguments, QString const &folder = ".")
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return "FAILED: " + program + ' ' + arguments.join(' ') + '\n'
               + QString::fromLocal8Bit(process.readAllStandardError());
    return QString::fromLocal8Bit(process.readAllStandardOutput());
}

// Writes an archive with libzip directly, for names the zip command can't make.
void writeRawZip(QString const &path, QList<QPair<QByteArray, QByteArray>> const &entries)
{
    QFile::remove(path);
    int error = 0;
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE, &error);
    QVERIFY(archive);
    for (auto const &entry : entries) {
        zip_source_t *source = zip_source_buffer(archive, entry.second.constData(),
                                                 static_cast<zip_uint64_t>(entry.second.size()), 0);
        QVERIFY(zip_file_add(archive, entry.first.constData(), source, 0) >= 0);
    }
    QCOMPARE(zip_close(archive), 0);
}

} // namespace

class tst_DataState : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void namesAndLookups();
    void zipRoundTrip();
    void archivesOfOtherWriters();
    void damagedInput_data();
    void damagedInput();
    void writeZipFailures();
    void writeFolderReplaces();

private:
    LogRecorder _log;
    QString const _home = QDir::currentPath();
    QScopedPointer<QTemporaryDir> _folder;
    std::optional<Services> _services;
};

void tst_DataState::init()
{
    // Each case works in a fresh folder of its own.
    _folder.reset(new QTemporaryDir(_home + "/case-XXXXXX"));
    QVERIFY(QDir::setCurrent(_folder->path()));
    _services.emplace(Services::Bus | Services::Logging, false);
    Log::i().setLevel(LogLevel::Debug);
    _log.attach();
    _log.messages.clear();
}

void tst_DataState::cleanup()
{
    _services.reset();
    QDir::setCurrent(_home);
}

void tst_DataState::namesAndLookups()
{
    DataState state;
    state.setFileData("state.json", "{}");
    state.setFileData("screens/b/screen.json", "b");
    state.setFileData("screens/a/screen.json", "a");
    state.setFileData("state.json", "{\"x\":1}");
    QCOMPARE(state.fileNames(),
             QStringList({"screens/a/screen.json", "screens/b/screen.json", "state.json"}));
    QCOMPARE(state.getFileData("state.json"), QByteArray("{\"x\":1}"));
    // A leading "/" is ignored by getFileData only.
    QCOMPARE(state.getFileData("/state.json"), QByteArray("{\"x\":1}"));
    QVERIFY(!state.hasFileData("/state.json"));
    QVERIFY(state.hasFileData("state.json"));
    QVERIFY(state.getFileData("missing").isEmpty());

    // Writers on several threads at once, under the state's mutex.
    DataState shared;
    QList<QThread *> threads;
    for (int t = 0; t < 4; ++t) {
        threads.append(QThread::create([&shared, t] {
            for (int index = 0; index < 200; ++index)
                shared.setFileData(QString("t%1/f%2").arg(t).arg(index), QByteArray::number(index));
        }));
        threads.last()->start();
    }
    for (QThread *thread : threads) {
        QVERIFY(thread->wait(60000));
        delete thread;
    }
    QCOMPARE(shared.fileNames().size(), 800);
    QCOMPARE(shared.getFileData("t3/f199"), QByteArray("199"));
}

void tst_DataState::zipRoundTrip()
{
    QByteArray const binary = binaryBytes();
    QStringList const names{"empty.txt", "screens/s1/screen.json", "state.json", "version.json"};
    {
        DataState state;
        state.setFileData("version.json", "{\"major\": 1}");
        state.setFileData("state.json", "{}");
        state.setFileData("screens/s1/screen.json", binary);
        state.setFileData("empty.txt", QByteArray());
        QVERIFY(state.writeZip("project.zip"));
    }
    QTRY_COMPARE(_log.lines(), QStringList({"DataManager|Attempting to write file: project.zip",
                                            "DataManager|Creating zip file: project.zip",
                                            "DataManager|Writing zip entry: empty.txt",
                                            "DataManager|Writing zip entry: screens/s1/screen.json",
                                            "DataManager|Writing zip entry: state.json",
                                            "DataManager|Writing zip entry: version.json",
                                            "DataState|Successfully wrote file: project.zip"}));

    // An independent reader agrees.
    QString const listing = run("unzip", {"-Z1", "project.zip"});
    QCOMPARE(listing.split('\n', Qt::SkipEmptyParts), names);
    QVERIFY(run("unzip", {"-tq", "project.zip"}).contains("No errors detected"));

    // Deflated at level 6 as libzip sees it.
    int error = 0;
    zip_t *archive = zip_open("project.zip", ZIP_RDONLY, &error);
    QVERIFY(archive);
    zip_stat_t stat;
    QCOMPARE(zip_stat(archive, "screens/s1/screen.json", 0, &stat), 0);
    QCOMPARE(stat.comp_method, static_cast<zip_uint16_t>(ZIP_CM_DEFLATE));
    QCOMPARE(stat.size, static_cast<zip_uint64_t>(binary.size()));
    zip_discard(archive);

    DataState loaded;
    QVERIFY(loaded.read("project.zip"));
    QCOMPARE(loaded.fileNames(), names);
    QCOMPARE(loaded.getFileData("screens/s1/screen.json"), binary);
    QCOMPARE(loaded.getFileData("version.json"), QByteArray("{\"major\": 1}"));
    QVERIFY(loaded.getFileData("empty.txt").isEmpty());

    // A second read replaces the content (and frees what the first one held); names only.
    QVERIFY(loaded.readNoData("project.zip"));
    QCOMPARE(loaded.fileNames(), names);
    QVERIFY(loaded.getFileData("state.json").isNull());

    // Writing over an existing archive replaces it.
    DataState other;
    other.setFileData("only.json", "1");
    QVERIFY(other.writeZip("project.zip"));
    QVERIFY(loaded.read("project.zip"));
    QCOMPARE(loaded.fileNames(), QStringList({"only.json"}));
}

void tst_DataState::archivesOfOtherWriters()
{
    QDir().mkpath("tree/screens/s1");
    QDir().mkpath("tree/empty/deeper");
    writeFile("tree/state.json", "{\"a\": 1}");
    writeFile("tree/screens/s1/screen.json", binaryBytes());

    // Stored without compression, with directory entries: directories are skipped.
    QVERIFY(!run("zip", {"-q", "-0", "-r", "../stored.zip", "."}, "tree").startsWith("FAILED"));
    DataState stored;
    QVERIFY(stored.read("stored.zip"));
    QCOMPARE(stored.fileNames(), QStringList({"screens/s1/screen.json", "state.json"}));
    QCOMPARE(stored.getFileData("screens/s1/screen.json"), binaryBytes());

    // Only directories: an empty state, and a success.
    QVERIFY(!run("zip", {"-q", "-r", "../dirs.zip", "empty"}, "tree").startsWith("FAILED"));
    DataState dirs;
    dirs.setFileData("old", "x");
    QVERIFY(dirs.read("dirs.zip"));
    QVERIFY(dirs.fileNames().isEmpty());
    QVERIFY(dirs.readNoData("dirs.zip"));
    QVERIFY(dirs.fileNames().isEmpty());

    // Names with a leading "/": read strips it, readNoData keeps it, so such an archive
    // doesn't pass the "state.json" test.
    writeRawZip("slash.zip", {{"/state.json", "{}"}, {"/screens/screens.json", "[]"}});
    DataState slash;
    QVERIFY(slash.read("slash.zip"));
    QCOMPARE(slash.fileNames(), QStringList({"screens/screens.json", "state.json"}));
    QCOMPARE(slash.getFileData("state.json"), QByteArray("{}"));
    QVERIFY(slash.readNoData("slash.zip"));
    QCOMPARE(slash.fileNames(), QStringList({"/screens/screens.json", "/state.json"}));
    QVERIFY(!slash.hasFileData("state.json"));
}

void tst_DataState::damagedInput_data()
{
    QTest::addColumn<QByteArray>("bytes"); // null: no file; "/": a directory
    QTest::addColumn<bool>("listed");      // whether readNoData still succeeds

    DataState state;
    state.setFileData("state.json", QByteArray(20000, 'x') + binaryBytes());
    state.setFileData("z.json", binaryBytes());
    state.writeZip("good.zip");
    QByteArray const good = readFile("good.zip");
    QVERIFY(good.size() > 100);
    // Inside the first entry's deflated data: the directory stays intact, the CRC doesn't.
    QByteArray corrupt = good;
    for (int index = 60; index < 90; ++index)
        corrupt[index] = static_cast<char>(corrupt[index] ^ 0x5A);

    QTest::newRow("truncated") << good.left(good.size() / 2) << false;
    QTest::newRow("not a zip") << QByteArray("this is plainly not an archive\n") << false;
    QTest::newRow("empty file") << QByteArray("") << false;
    QTest::newRow("directory") << QByteArray("/") << false;
    QTest::newRow("missing") << QByteArray() << false;
    QTest::newRow("corrupt entry") << corrupt << true;
}

void tst_DataState::damagedInput()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, listed);

    QString const path = "damaged.zip";
    if (bytes == "/")
        QDir().mkpath(path);
    else if (!bytes.isNull())
        writeFile(path, bytes);
    DataState state;
    state.setFileData("kept", "x");
    QCOMPARE(state.readNoData(path), listed);
    QVERIFY(!state.read(path));
    QVERIFY(state.fileNames().isEmpty());
}

void tst_DataState::writeZipFailures()
{
    DataState state;
    state.setFileData("state.json", "{}");

    QDir().mkpath("a-directory.zip");
    QVERIFY(!state.writeZip("a-directory.zip"));
    QVERIFY(!state.writeZip("missing/folder/project.zip"));
    QVERIFY(!state.writeZip("/proc/project.zip")); // unwritable even for root
    QTRY_VERIFY(_log.lines().contains("DataState|Failed to read file: /proc/project.zip"));
    QVERIFY(_log.lines().contains(
        "DataState|Failed to write file.  File already exists: a-directory.zip"));
    QVERIFY(_log.lines().contains("DataState|Failed to read file: missing/folder/project.zip"));
    for (LogMessage const &message : _log.messages) {
        if (message.message.startsWith("Failed"))
            QCOMPARE(message.severity, LogSeverity::Error);
    }
    QVERIFY(!QFile::exists("missing/folder/project.zip"));
}

void tst_DataState::writeFolderReplaces()
{
    QDir().mkpath("generate_output/stale");
    writeFile("generate_output/stale/old.txt", "old");

    DataState state;
    state.setFileData("main.c", "int main;");
    state.setFileData("include/screens.h", "#pragma once");
    QVERIFY(state.writeFolder(""));
    QVERIFY(!QFile::exists("generate_output/stale/old.txt"));
    QCOMPARE(readFile("generate_output/main.c"), QByteArray("int main;"));
    QCOMPARE(readFile("generate_output/include/screens.h"), QByteArray("#pragma once"));
    QTRY_VERIFY(_log.lines().contains(
        "DataState|Successfully wrote file: ./generate_output/include/screens.h"));
    QVERIFY(_log.lines().contains("DataManager|Attempting to write data state folder: "
                                  "./generate_output"));
    QVERIFY(_log.lines().contains("DataManager|Writing file entry: ./generate_output/main.c"));

    // A file that can't be created is logged and skipped; the rest is written.
    DataState blocked;
    blocked.setFileData("a.txt", "a");
    blocked.setFileData("a.txt/inner.txt", "cannot exist beside the file a.txt");
    blocked.setFileData("b.txt", "b");
    QVERIFY(blocked.writeFolder("out/deep"));
    QCOMPARE(readFile("out/deep/a.txt"), QByteArray("a"));
    QCOMPARE(readFile("out/deep/b.txt"), QByteArray("b"));
    QTRY_VERIFY(_log.lines().contains("DataState|Failed to write data state file.  File "
                                      "couldn't be opened: out/deep/a.txt/inner.txt"));
}

QTEST_GUILESS_MAIN(tst_DataState)
#include "tst_DataState.moc"
