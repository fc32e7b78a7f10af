// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QBitArray>
#include <QByteArray>
#include <QImage>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QRect>
#include <QSharedPointer>
#include <QString>
#include <QUuid>

class QLayout;
class QPainter;

namespace TES {

class SceneObject;

// Static helpers shared by the host and plug-ins: bytes, files and painting, and the
// operations on lists of object ids that the tools and the screen tree run over a selection.
// The list operations resolve ids through SceneManager at each step and keep nothing; with no
// SceneManager nothing resolves.
class TES_EXPORT Utils
{
public:
    // FNV-1a; 0 for a null pointer, the offset basis for size 0.
    static quint32 FastHash(unsigned char const *data, unsigned int size);
    static QByteArray BitsToBytes(QBitArray const &bits);

    // Append the value least significant byte first.
    static void WriteByte(QByteArray &bytes, int value);
    static void Write2Bytes(QByteArray &bytes, int value);
    static void Write3Bytes(QByteArray &bytes, int value);
    static void Write4Bytes(QByteArray &bytes, int value);
    // Sizes 2, 3 and 4 as above; any other size appends the low byte only.
    static void WriteValue(QByteArray &bytes, int value, int size);

    static void WritePNG(QImage const &image, QString const &path);
    // Note the order: the value comes last.
    static double Clamp(double low, double high, double value);
    static float Radians(float degrees);
    // Returns its argument unchanged; kept as plug-ins know it.
    static QString StripQuotes(QString const &text);
    // Upper-case hexadecimal, no prefix, no padding.
    static QString ToHex(unsigned int value);

    static QByteArray ReadFile(QString const &path);
    static bool WriteFile(QString const &path, QByteArray const &bytes);
    static bool DeleteFile(QString const &path);
    // Whether any UTF-16 unit is 128 or above.
    static bool IsUnicode(QString const &text);

    // Empties a layout, nested layouts included; widgets are deleted later when asked.
    static void ClearLayout(QLayout *layout, bool deleteWidgets);
    // Light and dark grey cells of size pixels; size must not be 0.
    static void PaintCheckerboard(QPainter &painter, QRect const &rect, unsigned int size);

    // Linear search.
    static bool ObjectInList(QUuid const &id, QList<QUuid> const &ids);
    // The object for an id, held for the caller's use; null when the id is unknown or the
    // object is gone. Keep it no longer than the call that needs it.
    static QSharedPointer<SceneObject> GetSceneObject(QUuid const &id);
    // The ids without those that have an ancestor in the list, order kept: a group selected
    // with its child is acted on once, as the group. Every id must name a live object.
    static QList<QUuid> TrimToAncestors(QList<QUuid> const &ids);
    // A stable merge sort that orders siblings by their place in their parent and counts
    // every other pair as equal: ids of one parent come out in child order, the rest keep
    // their relative places as far as the merging lets them.
    static QList<QUuid> SortObjects(QList<QUuid> const &ids);
    // The ids grouped by parent id, each group in child order. Ids without an object or
    // without a parent are left out.
    static QMap<QUuid, QList<QUuid>> SortByParent(QList<QUuid> const &ids);
    // Hand each parent its ids for raiseChildren, raiseChildrenToTop, lowerChildren or
    // lowerChildrenToBottom. Callers pass the ids through SortObjects first.
    static void MoveObjectsUp(QList<QUuid> const &ids);
    static void MoveObjectsToTop(QList<QUuid> const &ids);
    static void MoveObjectsDown(QList<QUuid> const &ids);
    static void MoveObjectsToBottom(QList<QUuid> const &ids);
    // False for an empty list or one with an id that names no object of the type.
    static bool ObjectListIsAllOfType(QList<QUuid> const &ids, QString const &type);
    // The union of the root rectangles of the transform objects; an empty list gives the
    // invalid QRect().
    static QRect GetBoundingBox(QList<QUuid> const &ids);
    // Whether a multiple selection of rows in a list can move up at all: false for a block
    // packed at the top (and for no rows).
    static bool ItemsCanMoveUp(QList<int> rows);
    // The same toward the end of a list of `count` rows.
    static bool ItemsCanMoveDown(QList<int> rows, unsigned int count);
    // Adds the child at the end of the new parent's children and, when the parent took it,
    // moves it so that it stays where it was on screen. Both must be transform objects.
    static void ReparentAndTranslate(QUuid const &child, QUuid const &newParent);
    // A copy of a screen's saved form in which every id is new. The ids are those of uuid
    // properties (unless the object carries the null id under "uuid") and the values of
    // "activeLayer"; each is then replaced throughout the JSON text, so that any mention of it,
    // wherever it stands, follows.
    static QJsonObject DuplicateScreenData(QJsonObject const &json);
};

} // namespace TES
