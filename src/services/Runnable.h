// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QObject>

namespace TES {

// Postpones a call to the next turn of the main event loop: schedule() now, _exec() later.
// A subclass made on the heap ends its _exec() with deleteLater(), as the transform tool's
// deferred selection does; one on the stack or owned elsewhere may be scheduled again.
class TES_EXPORT Runnable : public QObject
{
    Q_OBJECT

public:
    explicit Runnable(QObject *parent = nullptr);
    ~Runnable() override;

    // Queues one call of _exec(). Each call queues one more, so a self-deleting Runnable
    // must be scheduled once only.
    virtual void schedule();

protected slots:
    // The postponed work, on the thread of this object when its event loop next runs.
    virtual void _exec() = 0;
};

} // namespace TES
