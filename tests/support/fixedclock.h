// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The program's clock, standing still where a test puts it. While the object lives `platform::now()` gives
// its time; afterwards the system's clock is back.

#include <QDateTime>

namespace testsupport {

class FixedClock
{
public:
    explicit FixedClock(const QDateTime& time);
    FixedClock(QDate date, QTime time)
        : FixedClock(QDateTime(date, time))
    {}
    ~FixedClock();
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;

    [[nodiscard]] QDateTime time() const { return m_time; }
    void set(const QDateTime& time) { m_time = time; }
    void advance(qint64 seconds) { m_time = m_time.addSecs(seconds); }

private:
    QDateTime m_time;
};

} // namespace testsupport
