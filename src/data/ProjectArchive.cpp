// SPDX-License-Identifier: MIT
#include "data/ProjectArchive_p.h"

#include "data/DataState.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace TES {

QString ProjectArchive::StateFileName()
{
    return QStringLiteral("state.json");
}

QString ProjectArchive::VersionFileName()
{
    return QStringLiteral("version.json");
}

QByteArray ProjectArchive::VersionDocument()
{
    QJsonObject const version{{"major", 1},         {"minor", 5}, {"patch", 0},  {"suffix", "b"},
                              {"month", "January"}, {"day", 3},   {"year", 2023}};
    return QJsonDocument(version).toJson(QJsonDocument::Indented);
}

void ProjectArchive::AddVersion(DataState &state)
{
    state.setFileData(VersionFileName(), VersionDocument());
}

bool ProjectArchive::IsValidProject(QString const &path)
{
    DataState names;
    return names.readNoData(path) && IsValidProject(names);
}

bool ProjectArchive::IsValidProject(DataState const &names)
{
    return names.hasFileData(StateFileName());
}

} // namespace TES
