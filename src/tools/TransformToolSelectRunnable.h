// SPDX-License-Identifier: MIT
#pragma once

#include "services/Runnable.h"
#include "tessera_export.h"

#include <QUuid>

namespace TES {

// Selects one object on the next turn of the event loop and deletes itself: the transform
// tool's click selects this way, so that the selection changes only after the mouse event
// has been handled. Made on the heap and scheduled once.
class TES_EXPORT TransformToolSelectRunnable : public Runnable
{
    Q_OBJECT

public:
    explicit TransformToolSelectRunnable(QUuid const &id);
    ~TransformToolSelectRunnable() override;

protected slots:
    void _exec() override;

private:
    QUuid _id;
};

} // namespace TES
