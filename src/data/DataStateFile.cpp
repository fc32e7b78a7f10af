// SPDX-License-Identifier: MIT
#include "data/DataStateFile.h"

namespace TES {

DataStateFile::DataStateFile(QString const &fileName, QByteArray data, void *buffer)
    : _fileName(fileName), _data(std::move(data)), _buffer(buffer)
{}

DataStateFile::DataStateFile(DataStateFile const &other) = default;

DataStateFile &DataStateFile::operator=(DataStateFile const &other) = default;

DataStateFile::~DataStateFile() = default;

QString DataStateFile::fileName() const
{
    return _fileName;
}

QByteArray DataStateFile::data() const
{
    return _data;
}

void *DataStateFile::buffer() const
{
    return _buffer;
}

bool DataStateFile::operator<(DataStateFile const &other) const
{
    return _fileName < other._fileName;
}

} // namespace TES
