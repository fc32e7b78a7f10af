// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace TES::Test {

// Checks painting against a reference PNG made once by the project's own code and reviewed
// by eye. Two pixels match when no channel differs by more than the tolerance. On a mismatch
// the actual image and a difference image (mismatches red, matches faded) are written into
// the working directory as "<base>.actual.png" and "<base>.diff.png".
//
// A relative reference path is taken from the tests' source folder (TES_TEST_SOURCE). With
// TES_GOLDEN_UPDATE set in the environment the reference is written instead and the check
// passes: run a test so once, look at the image, commit it.
class GoldenImage
{
public:
    // An empty text when the images match; otherwise why not, for QVERIFY2.
    static QString compare(const QImage &actual, const QString &reference, int tolerance = 2);

    // The difference image of two images of one size, and the number of mismatching pixels.
    static QImage difference(const QImage &actual, const QImage &expected, int tolerance,
                             int *mismatches);
};

} // namespace TES::Test
