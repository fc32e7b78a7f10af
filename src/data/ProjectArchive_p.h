// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QByteArray>
#include <QString>

namespace TES {

class DataState;

// What makes a zip archive a project: the fixed "version.json" that every save writes, and
// the validity rule that every open applies before loading anything. Static helpers only;
// the save job adds the version file, the DataManager asks for validity. Internal to the
// host, and not installed for plug-ins.
//
// An archive is a project exactly when its directory can be read and it holds an entry
// "state.json" by that exact name (a leading "/" or another case doesn't count). The version
// file is neither required nor read back: archives of older or newer builds are taken.
class TES_EXPORT ProjectArchive
{
public:
    ProjectArchive() = delete;

    // The project state file that makes an archive a project.
    static QString StateFileName();
    static QString VersionFileName();

    // The indented JSON of "version.json": one object with the fixed members "major" 1,
    // "minor" 5, "patch" 0, "suffix" "b", "month" "January", "day" 3, "year" 2023.
    static QByteArray VersionDocument();
    // Stores VersionDocument() as "version.json" in the state.
    static void AddVersion(DataState &state);

    // Reads only the archive's directory (DataState::readNoData), never entry data.
    static bool IsValidProject(QString const &path);
    // For a state that readNoData filled: whether it holds "state.json".
    static bool IsValidProject(DataState const &names);
};

} // namespace TES
