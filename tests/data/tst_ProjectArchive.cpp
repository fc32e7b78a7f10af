// SPDX-License-Identifier: MIT
#include "data/DataState.h"
#include "data/ProjectArchive_p.h"
#include "services/GlobalState.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <zip.h>

using namespace TES;

namespace {

// Rewrites a file in place: cutting a file to nothing before each of thousands of writes is
// slow on some file systems.
void overwriteFile(QString const &path, QByteArray const &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
    QVERIFY(file.resize(bytes.size()));
}

QByteArray readFile(QString const &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The bytes of an archive written with libzip directly, for names that DataState would
// never write (a leading "/", directories). An entry name ending in "/" is a directory.
QByteArray rawZip(QList<QPair<QByteArray, QByteArray>> const &entries)
{
    QString const path = "raw.zip";
    QFile::remove(path);
    int error = 0;
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE, &error);
    if (!archive)
        return QByteArray();
    for (auto const &entry : entries) {
        if (entry.first.endsWith('/')) {
            zip_dir_add(archive, entry.first.constData(), 0);
            continue;
        }
        zip_source_t *source = zip_source_buffer(archive, entry.second.constData(),
                                                 static_cast<zip_uint64_t>(entry.second.size()), 0);
        zip_file_add(archive, entry.first.constData(), source, 0);
    }
    if (zip_close(archive) != 0)
        return QByteArray();
    return readFile(path);
}

// A project as the save job writes it: the version, the global state, screens and a file of
// the plug-in's own.
QByteArray savedProject()
{
    new GlobalState();
    DataState state;
    ProjectArchive::AddVersion(state);
    GlobalState::i().save(state);
    GlobalState::destroy();
    state.setFileData("screens/screens.json", R"({"screens": []})");
    state.setFileData("plugin/data.bin", QByteArray(700, '\x5a'));
    QFile::remove("saved.zip");
    if (!state.writeZip("saved.zip"))
        return QByteArray();
    return readFile("saved.zip");
}

} // namespace

class tst_ProjectArchive : public QObject
{
    Q_OBJECT

private slots:
    void versionDocument();
    void validity_data();
    void validity();
    void damagedArchivesAreRefusedQuietly();
};

void tst_ProjectArchive::versionDocument()
{
    QByteArray const document = ProjectArchive::VersionDocument();
    QJsonObject const version = QJsonDocument::fromJson(document).object();
    QVERIFY(document.contains("\n    \"major\": 1")); // indented
    QCOMPARE(version, (QJsonObject{{"major", 1},
                                   {"minor", 5},
                                   {"patch", 0},
                                   {"suffix", "b"},
                                   {"month", "January"},
                                   {"day", 3},
                                   {"year", 2023}}));

    DataState state;
    ProjectArchive::AddVersion(state);
    QCOMPARE(state.fileNames(), QStringList({"version.json"}));
    QCOMPARE(state.getFileData("version.json"), document);
}

void tst_ProjectArchive::validity_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("valid");

    QByteArray const project = savedProject();
    QVERIFY(!project.isEmpty());
    QTest::newRow("saved project") << project << true;
    // The version is neither required nor read.
    QTest::newRow("state only") << rawZip({{"state.json", "{}"}}) << true;
    QTest::newRow("version only") << rawZip({{"version.json", ProjectArchive::VersionDocument()}})
                                  << false;
    // The exact name only: a leading slash, another folder, a directory.
    QTest::newRow("leading slash") << rawZip({{"/state.json", "{}"}}) << false;
    QTest::newRow("in a folder") << rawZip({{"screens/state.json", "{}"}}) << false;
    QTest::newRow("directory") << rawZip({{"state.json/", ""}, {"state.json/x", "1"}}) << false;
    // The end record of a zip without entries: a sound archive that holds nothing.
    QTest::newRow("empty archive") << QByteArray("PK\x05\x06", 4) + QByteArray(18, '\0') << false;
    QTest::newRow("not a zip") << QByteArray("{\"state.json\": true}") << false;
    QTest::newRow("truncated") << project.left(project.size() - 30) << false;
    // Only the directory is read, so damaged entry data doesn't show here; loading the
    // archive is what finds it.
    QByteArray damagedData = project;
    int const dataStart = project.indexOf("state.json") + 10;
    for (int index = dataStart; index < dataStart + 20; ++index)
        damagedData[index] = static_cast<char>(~damagedData[index]);
    QTest::newRow("damaged entry data") << damagedData << true;
}

void tst_ProjectArchive::validity()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, valid);

    QString const path = "project.zip";
    overwriteFile(path, bytes);
    QCOMPARE(ProjectArchive::IsValidProject(path), valid);
    // The overload answers the same for the names that readNoData gives.
    DataState names;
    names.readNoData(path);
    QCOMPARE(ProjectArchive::IsValidProject(names), valid);
}

void tst_ProjectArchive::damagedArchivesAreRefusedQuietly()
{
    // Every byte of a real project flipped in turn, and every length of it cut off: reading
    // answers or refuses, and never crashes (the sanitizers watch for the rest).
    QByteArray const project = savedProject();
    QVERIFY(project.size() > 500);
    QVERIFY(!ProjectArchive::IsValidProject("missing.zip"));
    QVERIFY(!ProjectArchive::IsValidProject(QDir::currentPath()));

    QString const path = "damaged.zip";
    int probes = 0;
    int accepted = 0;
    int loaded = 0;
    auto probe = [&](QByteArray const &bytes) {
        ++probes;
        overwriteFile(path, bytes);
        DataState names;
        bool const listed = names.readNoData(path);
        accepted += ProjectArchive::IsValidProject(path) ? 1 : 0;
        DataState content;
        bool const read = content.read(path);
        loaded += read ? 1 : 0;
        // Whatever reads in full has a readable directory; a failed read leaves nothing.
        if (read)
            QVERIFY(listed);
        else
            QVERIFY(content.fileNames().isEmpty());
        // A loaded archive never has more files than its directory names.
        QVERIFY(content.fileNames().size() <= names.fileNames().size());
    };
    for (int index = 0; index < project.size(); ++index) {
        for (char pattern : {'\xff', '\x01'}) {
            QByteArray bytes = project;
            bytes[index] = static_cast<char>(bytes[index] ^ pattern);
            probe(bytes);
            if (QTest::currentTestFailed())
                return;
        }
    }
    for (int size = 0; size < project.size(); ++size) {
        probe(project.left(size));
        if (QTest::currentTestFailed())
            return;
    }
    // Both outcomes occurred: the sweep reached the directory and the entry data alike.
    QVERIFY(accepted > 0);
    QVERIFY(loaded < probes);
}

QTEST_GUILESS_MAIN(tst_ProjectArchive)
#include "tst_ProjectArchive.moc"
