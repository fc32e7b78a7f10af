#include "services/Utils.h"

#include "services/Constant.h"

#include <QDataStream>
#include <QFile>
#include <QImageWriter>
#include <QLayout>
#include <QLayoutItem>
#include <QPainter>
#include <QWidget>

namespace TES {

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

} // namespace TES
