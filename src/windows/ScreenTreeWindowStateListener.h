// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QList>
#include <QUuid>

namespace TES {

// Told by ScreenTreeWindow each time it has enabled its tool bar's actions anew, that is on
// every event the window receives: a plug-in implements it to keep actions of its own in step
// with the selection. Set with ScreenTreeWindow::setListener; not owned by the window.
class TES_EXPORT ScreenTreeWindowStateListener
{
public:
    virtual ~ScreenTreeWindowStateListener() = default;

    // The selection, oldest first, as SelectionManager has it after the refresh.
    virtual void stateRefreshed(QList<QUuid> selected) = 0;
};

} // namespace TES
