// SPDX-License-Identifier: MIT
#include "data/DataState.h"

#include "services/Log.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>

#include <zip.h>

#include <cstdlib>
#include <cstring>
#include <limits>

namespace TES {

namespace {

// Entries are read in pieces rather than trusting the size a damaged directory may claim.
constexpr zip_uint64_t ReadChunk = 1 << 20;

QByteArray nativePath(QString const &path)
{
    return QFile::encodeName(path);
}

void debugLine(QString const &text, QString const &source = QStringLiteral("DataManager"))
{
    Log::WriteThreadMessage(text, source, LogSeverity::Info, LogLevel::Debug);
}

void errorLine(QString const &text)
{
    Log::WriteThreadMessage(text, QStringLiteral("DataState"), LogSeverity::Error, LogLevel::User);
}

// Reads one entry into a malloc'ed block; null with size 0 for an empty entry. False on a
// read error (a damaged entry), with nothing left allocated.
bool readEntry(zip_t *archive, zip_uint64_t index, zip_uint64_t expected, void **block,
               zip_uint64_t *size)
{
    *block = nullptr;
    *size = 0;
    zip_file_t *entry = zip_fopen_index(archive, index, 0);
    if (!entry)
        return false;
    zip_uint64_t capacity = qBound<zip_uint64_t>(1, expected, ReadChunk);
    char *data = static_cast<char *>(std::malloc(capacity));
    bool ok = data != nullptr;
    while (ok) {
        if (*size == capacity) {
            capacity *= 2;
            char *grown = static_cast<char *>(std::realloc(data, capacity));
            if (!grown) {
                ok = false;
                break;
            }
            data = grown;
        }
        zip_int64_t const got = zip_fread(entry, data + *size, capacity - *size);
        if (got < 0)
            ok = false;
        else if (got == 0)
            break;
        else
            *size += static_cast<zip_uint64_t>(got);
    }
    zip_fclose(entry);
    if (!ok || *size > static_cast<zip_uint64_t>(std::numeric_limits<int>::max())) {
        std::free(data);
        *size = 0;
        return false;
    }
    *block = data;
    return true;
}

} // namespace

DataState::DataState() = default;

DataState::~DataState()
{
    _clear();
}

void DataState::_clear()
{
    // Free the blocks first, then drop the entries whose data wraps them.
    for (DataStateFile const &file : _files)
        std::free(file.buffer());
    _files.clear();
}

void DataState::_insert(DataStateFile const &file)
{
    auto const found = _files.find(file);
    if (found != _files.end()) {
        std::free(found->buffer());
        _files.erase(found);
    }
    _files.insert(file);
}

bool DataState::read(QString const &path)
{
    _clear();
    int error = 0;
    zip_t *archive = zip_open(nativePath(path).constData(), ZIP_RDONLY, &error);
    if (!archive)
        return false;

    bool ok = true;
    zip_int64_t const count = zip_get_num_entries(archive, 0);
    for (zip_int64_t index = 0; ok && index < count; ++index) {
        zip_stat_t stat;
        zip_stat_init(&stat);
        if (zip_stat_index(archive, static_cast<zip_uint64_t>(index), 0, &stat) != 0
            || !(stat.valid & ZIP_STAT_NAME)) {
            ok = false;
            break;
        }
        QString name = QString::fromUtf8(stat.name);
        if (name.endsWith(QLatin1Char('/')))
            continue;
        void *block = nullptr;
        zip_uint64_t size = 0;
        zip_uint64_t const expected = (stat.valid & ZIP_STAT_SIZE) ? stat.size : 0;
        if (!readEntry(archive, static_cast<zip_uint64_t>(index), expected, &block, &size)) {
            ok = false;
            break;
        }
        if (name.startsWith(QLatin1Char('/')))
            name.remove(0, 1);
        QByteArray const data
            = block ? QByteArray::fromRawData(static_cast<char *>(block), static_cast<int>(size))
                    : QByteArray();
        _insert(DataStateFile(name, data, block));
    }
    zip_discard(archive); // read only: nothing to write back
    if (!ok)
        _clear();
    return ok;
}

bool DataState::readNoData(QString const &path)
{
    _clear();
    int error = 0;
    zip_t *archive = zip_open(nativePath(path).constData(), ZIP_RDONLY, &error);
    if (!archive)
        return false;
    zip_int64_t const count = zip_get_num_entries(archive, 0);
    for (zip_int64_t index = 0; index < count; ++index) {
        char const *name = zip_get_name(archive, static_cast<zip_uint64_t>(index), 0);
        if (!name)
            continue;
        QString const fileName = QString::fromUtf8(name);
        if (!fileName.endsWith(QLatin1Char('/')))
            _insert(DataStateFile(fileName, QByteArray(), nullptr));
    }
    zip_discard(archive);
    return true;
}

bool DataState::writeZip(QString const &path)
{
    QMutexLocker locker(&_mutex);
    debugLine("Attempting to write file: " + path);
    if (QFile::exists(path) && !QFile::remove(path)) {
        errorLine("Failed to write file.  File already exists: " + path);
        return false;
    }
    debugLine("Creating zip file: " + path);
    int error = 0;
    zip_t *archive = zip_open(nativePath(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    if (!archive) {
        errorLine("Failed to read file: " + path);
        return false;
    }
    for (DataStateFile const &file : _files) {
        QByteArray const name = file.fileName().toUtf8();
        debugLine("Writing zip entry: " + file.fileName());
        // The bytes stay alive in _files until zip_close, which is when libzip reads them.
        QByteArray const &data = file.data();
        zip_source_t *source = zip_source_buffer(archive, data.constData(),
                                                 static_cast<zip_uint64_t>(data.size()), 0);
        if (!source)
            continue;
        zip_int64_t const index
            = zip_file_add(archive, name.constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8);
        if (index < 0) {
            zip_source_free(source);
            continue;
        }
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_DEFLATE, 6);
    }
    // libzip writes here, not at zip_open: this is where a bad directory shows.
    if (zip_close(archive) != 0) {
        zip_discard(archive);
        errorLine("Failed to read file: " + path);
        return false;
    }
    debugLine("Successfully wrote file: " + path, QStringLiteral("DataState"));
    return true;
}

bool DataState::writeFolder(QString path)
{
    QMutexLocker locker(&_mutex);
    if (path.isEmpty())
        path = QStringLiteral(".") + QDir::separator() + QStringLiteral("generate_output");
    QDir directory(path);
    if (directory.exists())
        directory.removeRecursively(); // replaced, not merged
    debugLine("Attempting to write data state folder: " + path);
    directory.cdUp();
    if (!directory.mkpath(QFileInfo(path).absoluteFilePath())) {
        errorLine("Failed to write data state folder.  File already exists: " + path);
        return false;
    }
    for (DataStateFile const &file : _files) {
        QString filePath = path;
        if (!filePath.endsWith(QLatin1Char('/')))
            filePath += QLatin1Char('/');
        QString name = file.fileName();
        if (name.startsWith(QLatin1Char('/')))
            name.remove(0, 1);
        filePath += name;
        QDir().mkpath(QFileInfo(filePath).absolutePath());
        debugLine("Writing file entry: " + filePath);
        QFile output(filePath);
        if (output.open(QIODevice::WriteOnly)) {
            output.write(file.data());
            output.close();
            debugLine("Successfully wrote file: " + filePath, QStringLiteral("DataState"));
        } else {
            errorLine("Failed to write data state file.  File couldn't be opened: " + filePath);
        }
    }
    return true;
}

bool DataState::hasFileData(QString const &name) const
{
    return _files.find(DataStateFile(name, QByteArray(), nullptr)) != _files.end();
}

QByteArray DataState::getFileData(QString const &name) const
{
    QString key = name;
    if (key.startsWith(QLatin1Char('/')))
        key.remove(0, 1);
    auto const found = _files.find(DataStateFile(key, QByteArray(), nullptr));
    return found == _files.end() ? QByteArray() : found->data();
}

void DataState::setFileData(QString const &name, QByteArray const &data)
{
    QMutexLocker locker(&_mutex);
    _insert(DataStateFile(name, data, nullptr));
}

QStringList DataState::fileNames() const
{
    QStringList names;
    names.reserve(static_cast<int>(_files.size()));
    for (DataStateFile const &file : _files)
        names.append(file.fileName());
    return names;
}

} // namespace TES
