// SPDX-License-Identifier: MIT
#include "services/Utils.h"

#include "scene/Object.h"
#include "scene/SceneManager.h"
#include "scene/SceneObject.h"
#include "scene/TransformSceneObject.h"
#include "services/Constant.h"

#include <QDataStream>
#include <QFile>
#include <QImageWriter>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLayout>
#include <QLayoutItem>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <list>
#include <map>

namespace TES {

namespace {

// Siblings by their place in the parent; every other pair is equal.
bool siblingLess(QUuid const &a, QUuid const &b)
{
    auto first = Utils::GetSceneObject(a);
    auto second = Utils::GetSceneObject(b);
    if (!first || !second)
        return false;
    auto parent = Utils::GetSceneObject(first->parent());
    if (!parent || parent != Utils::GetSceneObject(second->parent()))
        return false;
    return parent->indexOfChild(a, false) < parent->indexOfChild(b, false);
}

QList<QUuid> liveIds(QList<QUuid> const &ids)
{
    QList<QUuid> live;
    for (QUuid const &id : ids) {
        if (Utils::GetSceneObject(id))
            live.append(id);
    }
    return live;
}

template<typename Move>
void moveObjects(QList<QUuid> const &ids, Move move)
{
    if (ids.isEmpty())
        return;
    QMap<QUuid, QList<QUuid>> const byParent = Utils::SortByParent(liveIds(ids));
    for (auto entry = byParent.cbegin(); entry != byParent.cend(); ++entry) {
        if (auto parent = Utils::GetSceneObject(entry.key()))
            move(*parent, entry.value());
    }
}

// The map is ordered, so that ids are registered in the order the walk meets them and the
// textual pass below is repeatable.
using IdMap = std::map<QString, QString>;

void registerId(IdMap &ids, QJsonValue const &value)
{
    QString const old = value.toString();
    // An empty text (or a value that is no text) would match between every two characters.
    if (!old.isEmpty() && ids.count(old) == 0)
        ids[old] = QUuid::createUuid().toString();
}

void collectIds(QJsonObject const &json, IdMap &ids)
{
    if (json.contains("activeLayer"))
        registerId(ids, json.value("activeLayer"));
    if (json.value("type").toString() == "uuid"
        && json.value("uuid").toString() != "{00000000-0000-0000-0000-000000000000}")
        registerId(ids, json.value("value"));
    for (auto it = json.constBegin(); it != json.constEnd(); ++it) {
        QJsonValue const value = it.value();
        if (value.isObject() && !value.toObject().isEmpty()) {
            collectIds(value.toObject(), ids);
        } else if (value.isArray()) {
            for (QJsonValue const element : value.toArray()) {
                if (element.isObject())
                    collectIds(element.toObject(), ids);
            }
        }
    }
}

} // namespace

quint32 Utils::FastHash(unsigned char const *data, unsigned int size)
{
    if (!data)
        return 0;
    quint32 hash = 0x811C9DC5u;
    for (unsigned int index = 0; index < size; ++index) {
        hash ^= data[index];
        hash *= 16777619u;
    }
    return hash;
}

QByteArray Utils::BitsToBytes(QBitArray const &bits)
{
    QByteArray bytes;
    if (bits.isEmpty())
        return bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << bits;
    return bytes;
}

void Utils::WriteByte(QByteArray &bytes, int value)
{
    bytes.append(static_cast<char>(value & 0xFF));
}

void Utils::Write2Bytes(QByteArray &bytes, int value)
{
    WriteByte(bytes, value);
    WriteByte(bytes, value >> 8);
}

void Utils::Write3Bytes(QByteArray &bytes, int value)
{
    Write2Bytes(bytes, value);
    WriteByte(bytes, value >> 16);
}

void Utils::Write4Bytes(QByteArray &bytes, int value)
{
    Write3Bytes(bytes, value);
    WriteByte(bytes, value >> 24);
}

void Utils::WriteValue(QByteArray &bytes, int value, int size)
{
    switch (size) {
    case 2:
        Write2Bytes(bytes, value);
        break;
    case 3:
        Write3Bytes(bytes, value);
        break;
    case 4:
        Write4Bytes(bytes, value);
        break;
    default:
        WriteByte(bytes, value);
        break;
    }
}

void Utils::WritePNG(QImage const &image, QString const &path)
{
    QImageWriter(path, "png").write(image);
}

double Utils::Clamp(double low, double high, double value)
{
    if (high < value)
        return high;
    return qMax(low, value);
}

float Utils::Radians(float degrees)
{
    return static_cast<float>(static_cast<double>(degrees) * (Constant::pi / 180.0));
}

QString Utils::StripQuotes(QString const &text)
{
    QString copy = text;
    copy.remove(QLatin1Char('"'));
    return text;
}

QString Utils::ToHex(unsigned int value)
{
    return QString::number(value, 16).toUpper();
}

QByteArray Utils::ReadFile(QString const &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

bool Utils::WriteFile(QString const &path, QByteArray const &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(bytes);
    return true;
}

bool Utils::DeleteFile(QString const &path)
{
    if (!QFile::exists(path))
        return false;
    return QFile::remove(path);
}

bool Utils::IsUnicode(QString const &text)
{
    for (QChar const unit : text) {
        if (unit.unicode() >= 128)
            return true;
    }
    return false;
}

void Utils::ClearLayout(QLayout *layout, bool deleteWidgets)
{
    if (!layout)
        return;
    while (QLayoutItem *item = layout->takeAt(0)) {
        if (deleteWidgets && item->widget())
            item->widget()->deleteLater();
        if (QLayout *nested = item->layout())
            ClearLayout(nested, deleteWidgets);
        delete item;
    }
}

void Utils::PaintCheckerboard(QPainter &painter, QRect const &rect, unsigned int size)
{
    painter.fillRect(rect, Qt::lightGray);
    if (size == 0)
        return;
    int const step = static_cast<int>(size);
    bool rowStartsFilled = true;
    for (int y = rect.top(); y <= rect.bottom(); y += step) {
        bool filled = rowStartsFilled;
        for (int x = rect.left(); x <= rect.right(); x += step) {
            if (filled) {
                QRect const cell(x, y, qMin(step, rect.right() - x + 1),
                                 qMin(step, rect.bottom() - y + 1));
                painter.fillRect(cell, Qt::gray);
            }
            filled = !filled;
        }
        rowStartsFilled = !rowStartsFilled;
    }
}

bool Utils::ObjectInList(QUuid const &id, QList<QUuid> const &ids)
{
    for (QUuid const &entry : ids) {
        if (entry == id)
            return true;
    }
    return false;
}

QSharedPointer<SceneObject> Utils::GetSceneObject(QUuid const &id)
{
    if (!SceneManager::ip())
        return {};
    QSharedPointer<SceneObject> object = SceneManager::ip()->getObject(id).toStrongRef();
    if (!object || !object->isType(Object::Type()))
        return {};
    return object;
}

QList<QUuid> Utils::TrimToAncestors(QList<QUuid> const &ids)
{
    QList<QUuid> trimmed = ids;
    int index = 0;
    while (index < trimmed.size()) {
        auto object = GetSceneObject(trimmed.at(index));
        bool removed = false;
        // Compared with the list as it stands, so an id already taken out no longer counts.
        for (int other = 0; object && other < trimmed.size(); ++other) {
            if (other != index && object->isDescendantOf(trimmed.at(other))) {
                trimmed.removeAt(index);
                removed = true;
                break;
            }
        }
        if (!removed)
            ++index;
    }
    return trimmed;
}

QList<QUuid> Utils::SortObjects(QList<QUuid> const &ids)
{
    // std::list::sort is a stable merge sort; the comparison is not a strict weak order
    // over unrelated objects, which a merge copes with and other sorts do not.
    std::list<QUuid> sorted(ids.cbegin(), ids.cend());
    sorted.sort(siblingLess);
    return QList<QUuid>(sorted.cbegin(), sorted.cend());
}

QMap<QUuid, QList<QUuid>> Utils::SortByParent(QList<QUuid> const &ids)
{
    QMap<QUuid, QList<QUuid>> byParent;
    for (QUuid const &id : ids) {
        auto object = GetSceneObject(id);
        if (!object || object->parent().isNull())
            continue;
        byParent[object->parent()].append(id);
    }
    for (auto entry = byParent.begin(); entry != byParent.end(); ++entry)
        entry.value() = SortObjects(entry.value());
    return byParent;
}

void Utils::MoveObjectsUp(QList<QUuid> const &ids)
{
    moveObjects(ids, [](SceneObject &parent, QList<QUuid> const &children) {
        parent.raiseChildren(children);
    });
}

void Utils::MoveObjectsToTop(QList<QUuid> const &ids)
{
    moveObjects(ids, [](SceneObject &parent, QList<QUuid> const &children) {
        parent.raiseChildrenToTop(children);
    });
}

void Utils::MoveObjectsDown(QList<QUuid> const &ids)
{
    moveObjects(ids, [](SceneObject &parent, QList<QUuid> const &children) {
        parent.lowerChildren(children);
    });
}

void Utils::MoveObjectsToBottom(QList<QUuid> const &ids)
{
    moveObjects(ids, [](SceneObject &parent, QList<QUuid> const &children) {
        parent.lowerChildrenToBottom(children);
    });
}

bool Utils::ObjectListIsAllOfType(QList<QUuid> const &ids, QString const &type)
{
    if (ids.isEmpty())
        return false;
    for (QUuid const &id : ids) {
        auto object = GetSceneObject(id);
        if (!object || !object->isType(type))
            return false;
    }
    return true;
}

QRect Utils::GetBoundingBox(QList<QUuid> const &ids)
{
    QRect box;
    bool first = true;
    for (QUuid const &id : ids) {
        auto object = GetSceneObject(id).dynamicCast<TransformSceneObject>();
        if (!object)
            continue;
        box = first ? object->rootRectangle() : (box | object->rootRectangle());
        first = false;
    }
    return box;
}

bool Utils::ItemsCanMoveUp(QList<int> rows)
{
    std::sort(rows.begin(), rows.end());
    int expected = 0;
    for (int row : rows) {
        if (row != expected)
            return true;
        ++expected;
    }
    return false;
}

bool Utils::ItemsCanMoveDown(QList<int> rows, unsigned int count)
{
    std::sort(rows.begin(), rows.end());
    long long expected = static_cast<long long>(count) - 1;
    for (int i = rows.size() - 1; i >= 0; --i) {
        if (rows.at(i) != expected)
            return true;
        --expected;
    }
    return false;
}

void Utils::ReparentAndTranslate(QUuid const &child, QUuid const &newParent)
{
    auto parent = GetSceneObject(newParent).dynamicCast<TransformSceneObject>();
    auto object = GetSceneObject(child).dynamicCast<TransformSceneObject>();
    if (!parent || !object)
        return;
    QRect const parentRect = parent->rootRectangle();
    QRect const objectRect = object->rootRectangle();
    if (parent->addChild(child, static_cast<unsigned int>(-1)))
        object->setPosition(objectRect.topLeft() - parentRect.topLeft());
}

QJsonObject Utils::DuplicateScreenData(QJsonObject const &json)
{
    IdMap ids;
    collectIds(json, ids);
    QString text = QString::fromUtf8(QJsonDocument(json).toJson());
    for (auto const &entry : ids)
        text.replace(entry.first, entry.second, Qt::CaseSensitive);
    return QJsonDocument::fromJson(text.toLocal8Bit()).object();
}

} // namespace TES
