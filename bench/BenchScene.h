// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>
#include <QUuid>

namespace TES::Bench {

// Builds the benchmark designs with the test scene's classes, in the current SceneManager
// (which must have the test scene's factories).
class BenchScene
{
public:
    // A screen of `roots` trees three levels deep, 25 objects each (a container, three
    // containers below it, seven leaves below each of those), laid out over 480 by 272.
    // Answers the ids of all its objects.
    static QList<QUuid> AddScreen(int roots);
    // The design of the benchmarks: 50 screens of 200 objects, 10,000 objects in all.
    static QList<QUuid> AddDesign();

private:
    static void _addTree(QUuid const &screen, QRect const &rect, QList<QUuid> &ids);
};

} // namespace TES::Bench
