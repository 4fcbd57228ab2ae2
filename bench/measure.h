// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Times a thing beside its raw floor in the same run and gives the ratio of the two. The two take turns, so
// that a machine that changes its speed changes it for both; the median of the rounds counts.

#include <QString>

#include <functional>
#include <vector>

namespace bench {

struct Result
{
    QString name;
    QString unit;      ///< what one operation is
    double ours = 0;   ///< microseconds an operation
    double floor = 0;  ///< the same for the raw floor
    double atMost = 0; ///< largest ratio aimed at; 0: none

    [[nodiscard]] double ratio() const { return ours / floor; }
};

struct Case
{
    QString name;
    QString unit;
    double atMost = 0;
    int operations = 1; ///< operations of one call of `ours` or `floor`
    std::function<void()> ours;
    std::function<void()> floor;
};

/// One warm-up and then `rounds` rounds of both.
[[nodiscard]] Result measure(const Case& what, int rounds);

/// The table as Markdown on the standard output.
void print(const std::vector<Result>& results);

/// Keeps the optimiser from dropping a value that nobody reads.
void keep(qsizetype value);

} // namespace bench
