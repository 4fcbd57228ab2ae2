// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What is made out of a document besides its preview: a print, a file. Runs in slices of the event loop,
// behind the making of the pages.

#include "platform/print/output/document.h"
#include "platform/print/slices.h"

#include <functional>
#include <memory>

namespace platform::print {

class OutputTask
{
public:
    virtual ~OutputTask();
    OutputTask(const OutputTask&) = delete;
    OutputTask& operator=(const OutputTask&) = delete;

    /// Does all that is missing before it returns, with the waiting pointer.
    void finish();
    /// Leaves nothing behind.
    void cancel();
    [[nodiscard]] bool isDone() const noexcept { return m_done; }
    /// Cancelled, refused, or its document can't be made.
    [[nodiscard]] bool failed() const noexcept { return m_failed; }
    /// Called after each slice; an empty function is called no more.
    void setProgress(std::function<void()> progress) { m_progress = std::move(progress); }
    /// What a person reads about it now: "Imprimiendo página 3 de 12".
    [[nodiscard]] virtual QString state() const = 0;

protected:
    OutputTask() = default;
    /// From now on slices run.
    void run(std::shared_ptr<Document> document);

    [[nodiscard]] Document& document() noexcept { return *m_document; }
    [[nodiscard]] const Document& document() const noexcept { return *m_document; }

private:
    /// One page or some records of a complete document. False when all are made.
    virtual bool step() = 0;
    /// After the last step. False when it didn't come out well.
    virtual bool close() = 0;
    /// Instead of the steps that are missing.
    virtual void abandon() = 0;
    void work();
    void end();

    std::shared_ptr<Document> m_document;
    SlicedWork m_slices{[this] { work(); }};
    std::function<void()> m_progress;
    bool m_done = false;
    bool m_failed = false;
};

} // namespace platform::print
