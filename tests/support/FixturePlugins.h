// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace TES::Test {

// The test plug-ins of tests/fixtures and the "plugins" folders that tests arrange from them.
// A fixture is named as in tests/fixtures/CMakeLists.txt ("complete", "noinfo", ...). Each
// fixture appends what the host calls to the file in TES_FIXTURE_CALLS, which
// startRecording() points into the working directory.
class FixturePlugins
{
public:
    // The built library of a fixture.
    static QString library(QString const &fixture);

    // Copies a fixture's library into `root`/`subdirectory` (directly into `root` when the
    // subdirectory is empty) and answers the copy's absolute path. A copy, not a link, so
    // that the loader sees a file of its own, which it unmaps again on dlclose.
    static QString install(QString const &fixture, QString const &subdirectory,
                           QString const &root = QStringLiteral("plugins"));
    static void removeAll(QString const &root = QStringLiteral("plugins"));

    // Points TES_FIXTURE_CALLS at an empty file in the working directory.
    static void startRecording();
    // The lines recorded since startRecording(), "<fixture> <call> [<argument>]".
    static QStringList calls();

    // Whether the loader holds the library at this path open.
    static bool isOpen(QString const &path);
};

} // namespace TES::Test
