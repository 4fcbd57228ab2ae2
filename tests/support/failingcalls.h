// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Makes calls of the data access objects fail, and counts them. One statement of a procedure makes one call
// or a few, so that failing the first call, then the second, and so on makes every step of a skipping
// procedure fail in turn:
//
//     FailingCalls calls;
//     climant.LeerClientes();
//     const int count = calls.count();
//     for (int n = 1; n <= count; ++n) {
//         calls.failNth(n);
//         climant.LeerClientes();
//         ... everything but one step must have been done
//     }
//
// A failing call has no effect. Handles that nothing has bound fail with 91 by themselves and aren't counted.

#include <QString>

namespace testsupport {

class FailingCalls
{
public:
    FailingCalls();
    ~FailingCalls();
    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;

    /// Calls made since the beginning, the last `restart`, or the last of the functions below.
    [[nodiscard]] int count() const { return m_count; }
    /// Counts from 0 again and lets every call pass.
    void restart();
    /// The nth call from now on (1 is the next one) fails, once.
    void failNth(int n, int number = 3043);
    /// Every call on a field of this name fails: reading its value, setting it, asking for its size.
    void failColumn(const QString& column, int number = 3043);
    /// Every call fails.
    void failAll(int number = 3043);

private:
    void onCall(QStringView column);

    int m_count = 0;
    int m_nth = 0;
    bool m_all = false;
    QString m_column;
    int m_number = 0;
};

} // namespace testsupport
