// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The print engine's state behind `pe.h`: whether it is open, its jobs by number, its clock.

#include "platform/print/job.h"

#include <QDateTime>
#include <QHash>

#include <functional>
#include <memory>

namespace platform::print {

/// What a job number stands for: a report, or a subreport within one.
struct JobEntry
{
    std::shared_ptr<Job> job;
    int subreport = -1;
    ErrorCode code = kNoError;
    QString text;
};

class Engine
{
public:
    static Engine& instance();

    void open();
    void close();
    [[nodiscard]] bool isOpen() const noexcept { return m_open; }

    /// Number of the opened report, 0 with the engine's error set.
    int openJob(const QString& nativePath);
    /// Number of a subreport's job, the same for the same subreport; 0 when there are no numbers left.
    int openSubreport(int number, int subreport);
    /// Null when there is no such job; then the engine's error is set.
    [[nodiscard]] JobEntry* entry(int number);
    /// The last call's error, else why the job came to nothing after its start. Number 0 is the engine
    /// itself.
    [[nodiscard]] JobEntry error(int number) const;
    void setError(ErrorCode code, const QString& text);
    [[nodiscard]] QDateTime now() const;
    void setClock(std::function<QDateTime()> clock) { m_clock = std::move(clock); }

private:
    [[nodiscard]] int add(const JobEntry& entry);

    QHash<int, JobEntry> m_jobs;
    int m_last = 0;
    bool m_open = false;
    ErrorCode m_code = kNoError;
    QString m_text;
    std::function<QDateTime()> m_clock;
};

/// Why a job's last failing call failed, in Spanish, with the place where there is one; job 0 is the engine.
[[nodiscard]] QString jobLastError(int job);
[[nodiscard]] JobState jobState(int job);

/// The clock of reports; an empty function brings the program's back.
void setEngineClock(std::function<QDateTime()> clock);

} // namespace platform::print
