// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <functional>
#include <vector>

namespace TES::Bench {

// Times a workload several times and prints its figures, one line each: name, value, unit,
// and the number of runs whose median the value is.
class BenchReport
{
public:
    explicit BenchReport(int runs = 5);

    int runs() const;
    // Runs the workload runs() times and answers the median of its durations in nanoseconds.
    // The workload may answer its own duration (for instance to leave out its set-up);
    // a negative answer means "time the whole call".
    double medianNanoseconds(std::function<qint64()> const &workload) const;
    // Prints "name value unit (median of N runs)".
    void print(QString const &name, double value, QString const &unit) const;
    // Prints a figure that is no timing, such as a size: "name value unit".
    static void PrintValue(QString const &name, double value, QString const &unit);

    static double Median(std::vector<double> values);

private:
    int _runs;
};

} // namespace TES::Bench
