// SPDX-License-Identifier: MIT
#include "widgets/PieChartModel.h"

#include "widgets/PieChartListener.h"

namespace TES {

PieChartModel::~PieChartModel() = default;

void PieChartModel::_notifyListeners()
{
    // A listener told may take others out of the set: tell only those still in it.
    std::set<PieChartListener *> const listeners = _listeners;
    for (PieChartListener *listener : listeners) {
        if (_listeners.count(listener) != 0)
            listener->modelUpdated(this);
    }
}

} // namespace TES
