// SPDX-License-Identifier: MIT
#pragma once

#include "data/DataStateFile.h"
#include "tessera_export.h"

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QStringList>

#include <set>

namespace TES {

// The files of a project in memory, by name: what GlobalState, SceneManager, DataManager
// and the plug-in save into and load from, without knowing about zip. It is written as a
// zip archive, or as a plain folder for generated output.
//
// Filled and written on a job's worker thread while the main thread waits: setFileData,
// writeZip and writeFolder take the mutex, so a plug-in may fill a state from several
// threads; the readers take none. Messages go through Log::WriteThreadMessage.
class TES_EXPORT DataState
{
public:
    DataState();
    ~DataState();
    DataState(DataState const &) = delete;
    DataState &operator=(DataState const &) = delete;

    // Replaces the content with every file entry of the zip at path. False if the archive
    // can't be opened or an entry can't be read; the state is then empty.
    bool read(QString const &path);
    // Replaces the content with the entry names only (null data, names kept exactly as in
    // the archive), reading nothing but the archive's directory: the cheap validity test.
    bool readNoData(QString const &path);
    // Writes all files, in name order, as a zip at level 6, replacing an existing file.
    bool writeZip(QString const &path);
    // Writes all files below a folder ("./generate_output" for an empty path), replacing
    // what was there. Single files that fail are logged and skipped.
    bool writeFolder(QString path);

    // Exact name lookup.
    bool hasFileData(QString const &name) const;
    // The data of a file; a leading "/" of the name is ignored. Empty when absent.
    QByteArray getFileData(QString const &name) const;
    void setFileData(QString const &name, QByteArray const &data);
    // All names, sorted.
    QStringList fileNames() const;

private:
    void _clear();
    void _insert(DataStateFile const &file);

    std::set<DataStateFile> _files;
    QMutex _mutex;
};

} // namespace TES
