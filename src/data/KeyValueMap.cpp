// SPDX-License-Identifier: MIT
#include "data/KeyValueMap.h"

#include "data/IKeyValueMapListener.h"

#include <QJsonObject>

#include <cmath>
#include <limits>

namespace TES {

namespace {

// Toward zero, held within the int range: a double beyond it has no int to convert to.
int truncateToInt(double value)
{
    if (std::isnan(value))
        return 0;
    double const truncated = std::trunc(value);
    if (truncated >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (truncated <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(truncated);
}

} // namespace

KeyValueMap::KeyValueMap() = default;

void KeyValueMap::clear()
{
    _values.clear();
}

void KeyValueMap::remove(QString const &key)
{
    _values.erase(key);
}

void KeyValueMap::addListener(IKeyValueMapListener *listener)
{
    if (listener)
        _listeners.insert(listener);
}

void KeyValueMap::removeListener(IKeyValueMapListener *listener)
{
    _listeners.erase(listener);
}

unsigned int KeyValueMap::getType(QString const &key) const
{
    auto it = _values.find(key);
    return it == _values.end() ? 0u : static_cast<unsigned int>(it->second.userType());
}

bool KeyValueMap::contains(QString const &key) const
{
    return _values.count(key) > 0;
}

bool KeyValueMap::getBool(QString const &key) const
{
    auto it = _values.find(key);
    return it == _values.end() ? false : it->second.toBool();
}

int KeyValueMap::getInt(QString const &key) const
{
    auto it = _values.find(key);
    return it == _values.end() ? 0 : truncateToInt(it->second.toDouble());
}

double KeyValueMap::getDouble(QString const &key) const
{
    auto it = _values.find(key);
    return it == _values.end() ? 0.0 : it->second.toDouble();
}

QString KeyValueMap::getString(QString const &key) const
{
    auto it = _values.find(key);
    return it == _values.end() ? QString() : it->second.toString();
}

QPoint KeyValueMap::getPoint(QString const &key) const
{
    auto it = _values.find(key);
    return it == _values.end() ? QPoint(0, 0) : it->second.toPoint();
}

QColor KeyValueMap::getColor(QString const &key) const
{
    auto it = _values.find(key);
    if (it == _values.end())
        return QColor();
    if (it->second.userType() == QMetaType::QColor)
        return it->second.value<QColor>();
    QVariant converted = it->second;
    if (!converted.convert(QMetaType::QColor))
        return QColor();
    return converted.value<QColor>();
}

void *KeyValueMap::getPointer(QString const &key) const
{
    auto it = _values.find(key);
    if (it == _values.end())
        return nullptr;
    if (it->second.userType() == QMetaType::VoidStar)
        return it->second.value<void *>();
    QVariant converted = it->second;
    if (!converted.convert(QMetaType::VoidStar))
        return nullptr;
    return converted.value<void *>();
}

void KeyValueMap::setBool(QString const &key, bool value)
{
    _set(key, QVariant(value));
}

void KeyValueMap::setInt(QString const &key, int value)
{
    _set(key, QVariant(value));
}

void KeyValueMap::setDouble(QString const &key, double value)
{
    _set(key, QVariant(value));
}

void KeyValueMap::setString(QString const &key, QString const &value)
{
    _set(key, QVariant(value));
}

void KeyValueMap::setPoint(QString const &key, QPoint const &value)
{
    _set(key, QVariant(value));
}

void KeyValueMap::setColor(QString const &key, QColor const &value)
{
    _set(key, QVariant::fromValue(value));
}

void KeyValueMap::setPointer(QString const &key, void *value)
{
    _set(key, QVariant::fromValue(value));
}

QJsonArray KeyValueMap::save() const
{
    QJsonArray array;
    for (auto const &entry : _values) {
        QVariant const &value = entry.second;
        QJsonObject object;
        object.insert("key", entry.first);
        QString type;
        switch (value.userType()) {
        case QMetaType::Bool:
            type = "bool";
            object.insert("value", value.toBool() ? "true" : "false");
            break;
        case QMetaType::Int:
            type = "int";
            object.insert("value", value.toString());
            break;
        case QMetaType::Double:
            type = "double";
            object.insert("value", value.toString());
            break;
        case QMetaType::QString:
            type = "string";
            object.insert("value", value.toString());
            break;
        case QMetaType::QPoint: {
            type = "point";
            QPoint const point = value.toPoint();
            object.insert("x", QString::number(point.x(), 10));
            object.insert("y", QString::number(point.y(), 10));
            break;
        }
        case QMetaType::QColor:
            type = "color";
            object.insert("value", QString::number(value.value<QColor>().value()));
            break;
        default:
            // Pointers, and entries of no kind that load() made, are written by key only.
            break;
        }
        object.insert("type", type);
        array.append(object);
    }
    return array;
}

void KeyValueMap::load(QJsonArray const &array)
{
    _values.clear();
    for (int i = 0; i < array.size(); ++i) {
        QJsonObject const object = array.at(i).toObject();
        QString const key = object.value("key").toString();
        QString const type = object.value("type").toString();
        QJsonValue const value = object.value("value");
        QVariant variant;
        if (type == "bool") {
            variant = QVariant(value.toString() == "true");
        } else if (type == "int") {
            variant = QVariant(value.toString().toInt(nullptr, 10));
        } else if (type == "double") {
            variant = QVariant(value.toString().toDouble());
        } else if (type == "string") {
            variant = QVariant(value.toString());
        } else if (type == "point") {
            // Read as numbers though saved as strings: a saved point comes back as (0, 0).
            variant = QVariant(QPoint(object.value("x").toInt(0), object.value("y").toInt(0)));
        } else if (type == "color") {
            variant = QVariant::fromValue(QColor(static_cast<QRgb>(value.toInt(0))));
        }
        _values.emplace(key, variant);
    }
}

void KeyValueMap::_set(QString const &key, QVariant const &value)
{
    QVariant &slot = _values[key];
    QVariant const oldValue = slot;
    slot = value;
    QVariant const newValue = slot;
    _notifyListeners(key, oldValue, newValue);
}

void KeyValueMap::_notifyListeners(QString const &key, QVariant const &oldValue,
                                   QVariant const &newValue) const
{
    // A copy, so that a listener may leave (or remove another) while the set is walked; one
    // that has left is not called any more.
    std::set<IKeyValueMapListener *> const listeners = _listeners;
    for (IKeyValueMapListener *listener : listeners) {
        if (_listeners.count(listener) > 0)
            listener->keyValueChanged(this, key, oldValue, newValue);
    }
}

} // namespace TES
