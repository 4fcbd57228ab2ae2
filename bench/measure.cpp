// SPDX-License-Identifier: GPL-3.0-or-later
#include "measure.h"

#include <QTextStream>

#include <algorithm>
#include <chrono>

namespace bench {

namespace {

volatile qsizetype kept = 0;

double microseconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

Result measure(const Case& what, int rounds)
{
    std::vector<double> ours;
    std::vector<double> floor;
    for (int round = -1; round < rounds; ++round) {
        const double floorTime = microseconds(what.floor);
        const double oursTime = microseconds(what.ours);
        if (round < 0)
            continue;
        floor.push_back(floorTime / what.operations);
        ours.push_back(oursTime / what.operations);
    }
    return {what.name, what.unit, median(ours), median(floor), what.atMost};
}

void print(const std::vector<Result>& results)
{
    QTextStream out(stdout);
    out << "| case | one operation | ours, µs | raw floor, µs | ratio | aim |\n|---|---|---|---|---|---|\n";
    for (const Result& result : results) {
        out << "| " << result.name << " | " << result.unit << " | " << QString::number(result.ours, 'f', 1)
            << " | " << QString::number(result.floor, 'f', 1) << " | "
            << QString::number(result.ratio(), 'f', 2) << " | "
            << (result.atMost > 0 ? QStringLiteral("≤ %1").arg(result.atMost) : QString()) << " |\n";
    }
}

void keep(qsizetype value)
{
    kept = kept + value;
}

} // namespace bench
