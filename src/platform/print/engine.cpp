// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/engine.h"

#include "platform/system/clock.h"

#include <QCoreApplication>

#include <limits>

using namespace Qt::StringLiterals;

namespace platform::print {

Engine& Engine::instance()
{
    static Engine engine;
    return engine;
}

void Engine::open()
{
    // Windows and printers must go before the application does, even where nobody closes the engine.
    static const bool closesAtTheEnd = [] {
        qAddPostRoutine([] { Engine::instance().close(); });
        return true;
    }();
    m_open = closesAtTheEnd;
    m_code = kNoError;
    m_text.clear();
}

void Engine::close()
{
    if (!m_open)
        return;
    for (const JobEntry& entry : std::as_const(m_jobs))
        entry.job->finishPrinting();
    m_jobs.clear();
    m_last = 0;
    m_open = false;
}

int Engine::add(const JobEntry& entry)
{
    if (m_last >= std::numeric_limits<qint16>::max()) {
        setError(kBadValue, u"no quedan números de trabajo"_s);
        return 0;
    }
    m_jobs.insert(++m_last, entry);
    return m_last;
}

int Engine::openJob(const QString& nativePath)
{
    if (!m_open) {
        setError(kEngineClosed, u"el motor de informes está cerrado"_s);
        return 0;
    }
    try {
        const int number = add({std::make_shared<Job>(nativePath), -1, kNoError, {}});
        if (number != 0)
            setError(kNoError, {});
        return number;
    } catch (const Problem& problem) {
        setError(problem.code(), problem.text());
        return 0;
    }
}

int Engine::openSubreport(int number, int subreport)
{
    const std::shared_ptr<Job> job = m_jobs.value(number).job;
    for (auto known = m_jobs.cbegin(); known != m_jobs.cend(); ++known) {
        if (known->job == job && known->subreport == subreport)
            return known.key();
    }
    return add({job, subreport, kNoError, {}});
}

JobEntry* Engine::entry(int number)
{
    const auto found = m_jobs.find(number);
    if (found != m_jobs.end())
        return &*found;
    setError(kNoSuchJob, u"el trabajo %1 no existe"_s.arg(number));
    return nullptr;
}

JobEntry Engine::error(int number) const
{
    if (number == 0)
        return {nullptr, -1, m_code, m_text};
    const auto found = m_jobs.constFind(number);
    if (found == m_jobs.constEnd())
        return {nullptr, -1, kNoSuchJob, u"el trabajo no existe"_s};
    JobEntry entry = *found;
    const std::optional<Problem> failure = entry.job->failure();
    if (entry.code == kNoError && failure) {
        entry.code = failure->code();
        entry.text = failure->text();
    }
    return entry;
}

void Engine::setError(ErrorCode code, const QString& text)
{
    m_code = code;
    m_text = text;
}

QDateTime Engine::now() const
{
    return m_clock ? m_clock() : platform::now();
}

QString jobLastError(int job)
{
    return Engine::instance().error(job).text;
}

JobState jobState(int job)
{
    const JobEntry entry = Engine::instance().error(job);
    return entry.job ? entry.job->state() : JobState::Failed;
}

void setEngineClock(std::function<QDateTime()> clock)
{
    Engine::instance().setClock(std::move(clock));
}

} // namespace platform::print
