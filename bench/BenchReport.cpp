// SPDX-License-Identifier: MIT
#include "BenchReport.h"

#include <algorithm>
#include <cstdio>

namespace TES::Bench {

BenchReport::BenchReport(int runs) : _runs(runs) {}

int BenchReport::runs() const
{
    return _runs;
}

double BenchReport::medianNanoseconds(std::function<qint64()> const &workload) const
{
    std::vector<double> durations;
    for (int run = 0; run < _runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        qint64 const own = workload();
        qint64 const whole = timer.nsecsElapsed();
        durations.push_back(static_cast<double>(own >= 0 ? own : whole));
    }
    return Median(durations);
}

void BenchReport::print(QString const &name, double value, QString const &unit) const
{
    std::printf("%-44s %14.3f %-6s (median of %d runs)\n", name.toLocal8Bit().constData(), value,
                unit.toLocal8Bit().constData(), _runs);
    std::fflush(stdout);
}

void BenchReport::PrintValue(QString const &name, double value, QString const &unit)
{
    std::printf("%-44s %14.3f %s\n", name.toLocal8Bit().constData(), value,
                unit.toLocal8Bit().constData());
    std::fflush(stdout);
}

double BenchReport::Median(std::vector<double> values)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    size_t const middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}

} // namespace TES::Bench
