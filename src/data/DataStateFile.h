// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QByteArray>
#include <QString>

namespace TES {

// One named file of a DataState: a "/"-separated path inside the project archive and its
// bytes. Files read from an archive wrap the block that the zip layer filled without
// copying it; the owning DataState frees that block. Copies share it.
class TES_EXPORT DataStateFile
{
public:
    DataStateFile(QString const &fileName, QByteArray data, void *buffer);
    DataStateFile(DataStateFile const &other);
    DataStateFile &operator=(DataStateFile const &other);
    ~DataStateFile();

    QString fileName() const;
    QByteArray data() const;
    // The malloc'ed block that data() wraps; null for a file set in memory.
    void *buffer() const;

    bool operator<(DataStateFile const &other) const;

private:
    QString _fileName;
    QByteArray _data;
    void *_buffer;
};

} // namespace TES
