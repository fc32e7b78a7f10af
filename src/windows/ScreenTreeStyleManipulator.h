// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QUuid>

class QTreeWidgetItem;

namespace TES {

// How an item of the screen tree looks beyond its name and icon: a plug-in implements it and
// hands it to ScreenTree::setStyleManipulator, keeping ownership. The tree asks it for each
// item it builds and for all items on ScreenTree::refreshStyle; ScreenTree's static lock and
// visibility icons are there for it.
class TES_EXPORT ScreenTreeStyleManipulator
{
public:
    virtual ~ScreenTreeStyleManipulator() = default;

    // May change the look of the item of the object `id` (fonts, colours, further icons). The
    // item's data in Qt::UserRole, the id, must stay as it is.
    virtual void styleItem(QTreeWidgetItem *item, QUuid const &id) = 0;
};

} // namespace TES
