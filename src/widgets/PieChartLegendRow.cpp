// SPDX-License-Identifier: MIT
#include "widgets/PieChartLegendRow.h"

namespace TES {

PieChartLegendRow PieChartLegendRow::Make(const QString &name, unsigned int value,
                                          unsigned int capacity, unsigned int used)
{
    QString const lead = name + QStringLiteral(" - ");
    if (capacity == 0)
        return {name + QStringLiteral(" - 0 bytes"), QString()};
    if (used > capacity)
        return {lead, QStringLiteral("Error")};
    QString const bytes = lead + QString::number(value);
    if (value >= capacity)
        return {bytes + QStringLiteral(" bytes (100%)"), QString()};
    QString share = QStringLiteral("0");
    if (value != 0) {
        int const percent
            = static_cast<int>(static_cast<float>(value) / static_cast<float>(capacity) * 100.0f);
        share = percent == 0 ? QStringLiteral("<1") : QLatin1Char('~') + QString::number(percent);
    }
    return {bytes + QStringLiteral(" bytes (") + share + QStringLiteral("%)"), QString()};
}

} // namespace TES
