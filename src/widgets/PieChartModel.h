// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QColor>
#include <QString>

#include <set>

namespace TES {

class PieChart;
class PieChartListener;

// The numbers behind a PieChart: how a capacity of bytes is divided among named segments.
// Plug-in code subclasses it and owns it; charts enter themselves as listeners, and the
// subclass tells them of a change with _notifyListeners().
class TES_EXPORT PieChartModel
{
public:
    virtual ~PieChartModel();

    // Number of segments; each has a legend row.
    virtual unsigned int segmentCount() const = 0;
    // The whole amount, 100% of the pie. 0 shows the legend only, every row " - 0 bytes".
    virtual unsigned int capacity() const = 0;
    // The sum of the segments. Above capacity() shows the legend only, with "Error".
    virtual unsigned int usedTotal() const = 0;
    // Bytes of one segment, index below segmentCount().
    virtual unsigned int segmentValue(unsigned int index) const = 0;
    // Legend text of one segment.
    virtual QString segmentName(unsigned int index) const = 0;
    // Fill of one segment's slice and swatch.
    virtual QColor segmentColor(unsigned int index) const = 0;

protected:
    // Calls modelUpdated(this) on every listener.
    void _notifyListeners();

    std::set<PieChartListener *> _listeners;

    friend class PieChart;
};

} // namespace TES
