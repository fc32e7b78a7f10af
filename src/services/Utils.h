#pragma once

#include "tessera_export.h"

#include <QBitArray>
#include <QByteArray>
#include <QImage>
#include <QRect>
#include <QString>

class QLayout;
class QPainter;

namespace TES {

// Static helpers shared by the host and plug-ins: bytes, files and painting.
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
};

} // namespace TES
