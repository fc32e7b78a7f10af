// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

namespace TES {

class PieChartModel;

// Told by a PieChartModel that its numbers changed. PieChart is the host's one listener; the
// model does not own its listeners.
class TES_EXPORT PieChartListener
{
public:
    virtual ~PieChartListener();

    // The model's segments, capacity or total changed; called by the model itself.
    virtual void modelUpdated(PieChartModel *model) = 0;
};

} // namespace TES
