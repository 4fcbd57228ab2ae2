// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/output/outputtask.h"

#include <QCursor>
#include <QElapsedTimer>
#include <QGuiApplication>

namespace platform::print {

OutputTask::~OutputTask() = default;

void OutputTask::run(std::shared_ptr<Document> document)
{
    m_document = std::move(document);
    m_slices.start();
}

void OutputTask::work()
{
    QElapsedTimer timer;
    timer.start();
    // Totals over all pages stand on the first one, so all pages are made before it is put out.
    if (!m_document->work(kSliceMilliseconds)) {
        bool more = m_document->isComplete();
        if (!more)
            cancel();
        while (more && timer.elapsed() < kSliceMilliseconds)
            more = step();
        if (!more && !m_done)
            end();
    }
    if (m_progress)
        m_progress();
}

void OutputTask::end()
{
    m_slices.stop();
    m_done = true;
    m_failed = !close();
}

void OutputTask::finish()
{
    if (m_done)
        return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_document->makeAllPages();
    if (m_document->isComplete()) {
        while (step()) {
        }
        end();
    } else {
        cancel();
    }
    QGuiApplication::restoreOverrideCursor();
}

void OutputTask::cancel()
{
    if (m_done)
        return;
    m_slices.stop();
    abandon();
    m_done = true;
    m_failed = true;
}

} // namespace platform::print
