// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QList>
#include <QUuid>

namespace TES {

// What a drag of objects in the screen tree means: a plug-in implements it and hands it to
// ScreenTree::setDragDropInterface, keeping ownership. While none is set the tree takes no
// drags. The dragged objects are always the tree's selected items, in the tree's order; the
// interface carries a drop out through the scene classes, whose events then reshape the tree.
class TES_EXPORT ScreenTreeDragDropInterface
{
public:
    virtual ~ScreenTreeDragDropInterface() = default;

    // Whether these items may be dropped on the object `target`. Asked at every move of the
    // drag over an item; true highlights the target.
    virtual bool canDrop(QUuid const &target, QList<QUuid> items) = 0;
    // Carries out a drop of the items on `target`. The tree itself moves nothing.
    virtual void drop(QUuid const &target, QList<QUuid> items) = 0;
    // Whether a drag of these items may enter the tree at all.
    virtual bool canDrag(QList<QUuid> items) = 0;
};

} // namespace TES
