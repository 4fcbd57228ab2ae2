// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/failingcalls.h"

#include "platform/core/failure.h"
#include "platform/dao/callprobe.h"

namespace testsupport {

FailingCalls::FailingCalls()
{
    platform::dao::setCallProbe([this](QStringView column) { onCall(column); });
}

FailingCalls::~FailingCalls()
{
    platform::dao::setCallProbe({});
}

void FailingCalls::restart()
{
    m_count = 0;
    m_nth = 0;
    m_all = false;
    m_column.clear();
}

void FailingCalls::failNth(int n, int number)
{
    restart();
    m_nth = n;
    m_number = number;
}

void FailingCalls::failColumn(const QString& column, int number)
{
    restart();
    m_column = column;
    m_number = number;
}

void FailingCalls::failAll(int number)
{
    restart();
    m_all = true;
    m_number = number;
}

void FailingCalls::onCall(QStringView column)
{
    ++m_count;
    const bool columnFails = !m_column.isEmpty() && column.compare(m_column, Qt::CaseInsensitive) == 0;
    if (m_all || columnFails || m_count == m_nth)
        throw platform::Failure(m_number, QStringLiteral("made to fail"));
}

} // namespace testsupport
