// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QColor>
#include <QJsonArray>
#include <QPoint>
#include <QString>
#include <QVariant>

#include <map>
#include <set>

namespace TES {

class IKeyValueMapListener;

// A small typed dictionary: string keys to values of seven kinds (bool, int, double, string,
// point, colour, pointer), with listeners told of every set and a JSON array form. It carries
// state between view cells and their listeners, a wizard's shared data, a progress stage's
// settings and a tool activation's arguments. Whoever creates a map owns it; the listeners
// are not owned.
//
// The JSON form is lossy by design: points and colours are written as strings but read as
// numbers, so a saved point comes back as (0, 0) and a saved colour as opaque black, and a
// colour is written as its brightness only.
class TES_EXPORT KeyValueMap
{
public:
    KeyValueMap();

    // Neither clear nor remove tells the listeners.
    void clear();
    void remove(QString const &key);
    void addListener(IKeyValueMapListener *listener);
    void removeListener(IKeyValueMapListener *listener);

    // The QVariant type of the entry; 0 for an unknown key.
    unsigned int getType(QString const &key) const;
    bool contains(QString const &key) const;

    // An unknown key reads as false, 0, 0.0, empty, (0, 0), an invalid colour or null;
    // a known one goes through the variant's conversion.
    bool getBool(QString const &key) const;
    // Truncated toward zero from the value read as a double.
    int getInt(QString const &key) const;
    double getDouble(QString const &key) const;
    QString getString(QString const &key) const;
    QPoint getPoint(QString const &key) const;
    QColor getColor(QString const &key) const;
    void *getPointer(QString const &key) const;

    // Every set tells every listener, even when the value does not change.
    void setBool(QString const &key, bool value);
    void setInt(QString const &key, int value);
    void setDouble(QString const &key, double value);
    void setString(QString const &key, QString const &value);
    void setPoint(QString const &key, QPoint const &value);
    void setColor(QString const &key, QColor const &value);
    void setPointer(QString const &key, void *value);

    // One object per entry, in key order.
    QJsonArray save() const;
    // Replaces the content, telling nobody; of two entries with the same key the first wins.
    void load(QJsonArray const &array);

private:
    void _set(QString const &key, QVariant const &value);
    void _notifyListeners(QString const &key, QVariant const &oldValue,
                          QVariant const &newValue) const;

    std::map<QString, QVariant> _values;
    std::set<IKeyValueMapListener *> _listeners;
};

} // namespace TES
