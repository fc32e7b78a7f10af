// SPDX-License-Identifier: MIT
#include "support/GoldenImage.h"

#include <QDir>
#include <QFileInfo>

#include <cstdlib>

namespace TES::Test {

namespace {

bool close(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance
           && std::abs(qBlue(a) - qBlue(b)) <= tolerance
           && std::abs(qAlpha(a) - qAlpha(b)) <= tolerance;
}

} // namespace

QImage GoldenImage::difference(const QImage &actual, const QImage &expected, int tolerance,
                               int *mismatches)
{
    QImage const a = actual.convertToFormat(QImage::Format_ARGB32);
    QImage const e = expected.convertToFormat(QImage::Format_ARGB32);
    QImage diff(a.size(), QImage::Format_ARGB32);
    int bad = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            QRgb const pa = a.pixel(x, y);
            if (close(pa, e.pixel(x, y), tolerance)) {
                diff.setPixel(x, y, qRgba(qRed(pa), qGreen(pa), qBlue(pa), qAlpha(pa) / 4));
            } else {
                diff.setPixel(x, y, qRgb(255, 0, 0));
                ++bad;
            }
        }
    }
    if (mismatches != nullptr)
        *mismatches = bad;
    return diff;
}

QString GoldenImage::compare(const QImage &actual, const QString &reference, int tolerance)
{
    QString const path
        = QDir::isAbsolutePath(reference)
              ? reference
              : QDir(QString::fromLocal8Bit(qgetenv("TES_TEST_SOURCE"))).filePath(reference);
    if (qEnvironmentVariableIsSet("TES_GOLDEN_UPDATE")) {
        QDir().mkpath(QFileInfo(path).absolutePath());
        return actual.save(path) ? QString() : QStringLiteral("cannot write ") + path;
    }
    QString const base = QFileInfo(path).completeBaseName();
    QImage const expected(path);
    if (expected.isNull()) {
        actual.save(base + QStringLiteral(".actual.png"));
        return QStringLiteral("no reference image ") + path;
    }
    if (expected.size() != actual.size()) {
        actual.save(base + QStringLiteral(".actual.png"));
        return QStringLiteral("size %1x%2, reference %3x%4")
            .arg(actual.width())
            .arg(actual.height())
            .arg(expected.width())
            .arg(expected.height());
    }
    int mismatches = 0;
    QImage const diff = difference(actual, expected, tolerance, &mismatches);
    if (mismatches == 0)
        return QString();
    actual.save(base + QStringLiteral(".actual.png"));
    diff.save(base + QStringLiteral(".diff.png"));
    return QStringLiteral("%1 pixels differ from %2; see %3.diff.png")
        .arg(mismatches)
        .arg(path)
        .arg(QDir::current().filePath(base));
}

} // namespace TES::Test
