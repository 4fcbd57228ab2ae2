// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a check found, one Spanish line each: a fault is something that the program can't live with, a notice
// is something odd that it can.

#include <QString>
#include <QTextStream>

namespace tools {

/// Where a finding lies. `table` and `row` may be empty, when it is about the whole file or the whole table.
struct Spot
{
    QString file; ///< from the data root on, with "/"
    QString table;
    QString row; ///< the columns of the primary key with their values
};

class Findings
{
public:
    explicit Findings(QTextStream& out);

    void fault(const Spot& spot, const QString& text);
    void notice(const Spot& spot, const QString& text);

    [[nodiscard]] int faults() const noexcept { return m_faults; }
    [[nodiscard]] int notices() const noexcept { return m_notices; }

private:
    void write(QStringView kind, const Spot& spot, const QString& text);

    QTextStream& m_out;
    int m_faults = 0;
    int m_notices = 0;
};

} // namespace tools
