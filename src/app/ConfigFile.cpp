// SPDX-License-Identifier: MIT
// Qt's binary JSON, the form of this file, is deprecated in Qt 5.15, whose deprecated API the
// build otherwise turns off: this file alone keeps it, and says so before any Qt header.
#undef QT_DISABLE_DEPRECATED_BEFORE
#define QT_DISABLE_DEPRECATED_BEFORE 0x050E00

#include "app/ConfigFile.h"

#include <QFile>
#include <QJsonObject>
#include <QJsonValue>

namespace TES {

ConfigFile::ConfigFile() = default;

ConfigFile::ConfigFile(QString const &path) : _path(path) {}

ConfigFile::~ConfigFile() = default;

void ConfigFile::setPath(QString const &path)
{
    _path = path;
}

bool ConfigFile::read()
{
    QFile file(_path);
    if (!file.exists() || !file.open(QIODevice::ReadOnly))
        return false;
    QByteArray const bytes = file.readAll();
    file.close();
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QJsonDocument::fromBinaryData(bytes); // only proves the file readable; not kept
    QT_WARNING_POP
    return true;
}

bool ConfigFile::write()
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QByteArray const bytes = _document.toBinaryData();
    QT_WARNING_POP
    QFile file(_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(bytes);
    file.close();
    return true;
}

bool ConfigFile::getBool(QString const &key) const
{
    return _document.object().value(key).toBool(false);
}

int ConfigFile::getInt(QString const &key) const
{
    return static_cast<int>(_document.object().value(key).toDouble(0.0));
}

double ConfigFile::getDouble(QString const &key) const
{
    return _document.object().value(key).toDouble(0.0);
}

QString ConfigFile::getString(QString const &key) const
{
    return _document.object().value(key).toString();
}

// The setters write into a copy of the document's object and drop it.
void ConfigFile::setBool(QString const &key, bool value)
{
    QJsonObject object = _document.object();
    object.insert(key, value);
}

void ConfigFile::setInt(QString const &key, int value)
{
    QJsonObject object = _document.object();
    object.insert(key, value);
}

void ConfigFile::setDouble(QString const &key, double value)
{
    QJsonObject object = _document.object();
    object.insert(key, value);
}

void ConfigFile::setString(QString const &key, QString const &value)
{
    QJsonObject object = _document.object();
    object.insert(key, value);
}

} // namespace TES
