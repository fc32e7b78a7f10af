// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QUuid>

namespace TES::Test {

// The state of the current SceneManager's design as the host sees it: the screens in list
// order, the active and the visible ones, and the saved JSON of each screen and of each object
// that a screen holds. Taken through the host's interfaces alone, so that it serves for a
// scene made by a plug-in as well. Two snapshots compare equal when the designs would save
// alike.
struct SceneSnapshot
{
    static SceneSnapshot Take();

    bool operator==(SceneSnapshot const &other) const;
    bool operator!=(SceneSnapshot const &other) const { return !(*this == other); }

    QList<QUuid> screens;
    QUuid active;
    QList<QUuid> visible;
    // Indented JSON by id.
    QMap<QUuid, QByteArray> screenJson;
    QMap<QUuid, QByteArray> objectJson;
};

} // namespace TES::Test
