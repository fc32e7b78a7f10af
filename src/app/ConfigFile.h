// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QJsonDocument>
#include <QString>

namespace TES {

// A settings file in Qt's binary JSON form. The application doesn't use it. As it stands,
// read() only tests that the file can be read (the document is discarded) and the setters
// change a copy of the document, so that a ConfigFile stays empty whatever is done to it.
// Plug-ins rely on that behaviour; it is kept.
class TES_EXPORT ConfigFile
{
public:
    ConfigFile();
    explicit ConfigFile(QString const &path);
    virtual ~ConfigFile();

    void setPath(QString const &path);
    bool read();
    bool write();

    bool getBool(QString const &key) const;
    int getInt(QString const &key) const;
    double getDouble(QString const &key) const;
    QString getString(QString const &key) const;

    void setBool(QString const &key, bool value);
    void setInt(QString const &key, int value);
    void setDouble(QString const &key, double value);
    void setString(QString const &key, QString const &value);

private:
    QString _unused;
    QString _path;
    QJsonDocument _document;
};

} // namespace TES
