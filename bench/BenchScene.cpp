// SPDX-License-Identifier: MIT
#include "BenchScene.h"

#include "support/TestScene.h"

using TES::Test::TestScene;

namespace TES::Bench {

void BenchScene::_addTree(QUuid const &screen, QRect const &rect, QList<QUuid> &ids)
{
    QUuid const root = TestScene::addContainer(screen, rect);
    ids.append(root);
    int const w = rect.width() / 3;
    for (int c = 0; c < 3; ++c) {
        QUuid const child = TestScene::addContainer(root, QRect(c * w, 0, w, rect.height()));
        ids.append(child);
        for (int l = 0; l < 7; ++l)
            ids.append(TestScene::addLeaf(
                child, QRect(2, 2 + l * (rect.height() / 8), w - 4, rect.height() / 8 - 1)));
    }
}

QList<QUuid> BenchScene::AddScreen(int roots)
{
    QList<QUuid> ids;
    QUuid const screen = TestScene::addScreen();
    int const columns = roots <= 8 ? 4 : 10;
    int const rows = (roots + columns - 1) / columns;
    int const w = 480 / columns;
    int const h = 272 / rows;
    for (int index = 0; index < roots; ++index)
        _addTree(screen, QRect((index % columns) * w, (index / columns) * h, w - 1, h - 1), ids);
    return ids;
}

QList<QUuid> BenchScene::AddDesign()
{
    QList<QUuid> ids;
    for (int screen = 0; screen < 50; ++screen)
        ids += AddScreen(8);
    return ids;
}

} // namespace TES::Bench
