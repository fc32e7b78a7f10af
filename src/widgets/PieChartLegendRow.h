// SPDX-License-Identifier: MIT
#pragma once

#include "tessera_export.h"

#include <QString>

namespace TES {

// The texts of one row of a PieChart's legend: the text in black, and in the error form the
// word drawn in red after it. A value type that PieChart makes per row while it draws.
struct TES_EXPORT PieChartLegendRow
{
    QString text;
    QString error;

    // The row of a segment of value bytes, in a model of the given capacity and total.
    static PieChartLegendRow Make(const QString &name, unsigned int value, unsigned int capacity,
                                  unsigned int used);
};

} // namespace TES
