// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/slices.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <vector>

namespace platform::print {

/// The works in the order of their turns.
class SliceQueue
{
public:
    static SliceQueue& instance()
    {
        static SliceQueue queue;
        return queue;
    }

    void add(SlicedWork* work)
    {
        m_works.push_back(work);
        if (!m_timer) {
            m_timer = new QTimer(QCoreApplication::instance()); // goes with the application
            QObject::connect(m_timer, &QTimer::timeout, m_timer, [this] { runNext(); });
        }
        m_timer->start(0);
    }

    void remove(const SlicedWork* work)
    {
        std::erase(m_works, work);
        if (m_works.empty() && m_timer)
            m_timer->stop();
    }

    [[nodiscard]] bool holds(const SlicedWork* work) const
    {
        return std::find(m_works.begin(), m_works.end(), work) != m_works.end();
    }

private:
    void runNext()
    {
        std::rotate(m_works.begin(), m_works.begin() + 1, m_works.end());
        m_works.back()->m_slice();
    }

    std::vector<SlicedWork*> m_works;
    QPointer<QTimer> m_timer;
};

SlicedWork::SlicedWork(std::function<void()> slice)
    : m_slice(std::move(slice))
{}

SlicedWork::~SlicedWork()
{
    stop();
}

void SlicedWork::start()
{
    if (!isActive())
        SliceQueue::instance().add(this);
}

void SlicedWork::stop()
{
    SliceQueue::instance().remove(this);
}

bool SlicedWork::isActive() const
{
    return SliceQueue::instance().holds(this);
}

} // namespace platform::print
