// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One store under copying: the original, open as a station has it, and the copy, which nobody else knows yet.
// Both are SQLite's pages, moved by SQLite's own backup.

#include "platform/storage/sqlite/store.h"

#include <chrono>
#include <optional>

namespace platform::storage::sqlite {

class StoreCopy
{
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Opens the store, shared, and makes the copy's file. Failures as `openStore`; 3204 the copy's name is
    /// taken.
    StoreCopy(const QString& from, const QString& to);

    [[nodiscard]] const QString& path() const noexcept { return m_from; }

    /// Copies in slices, each with a stay behind the gate of its own. A store that changes all the time is
    /// given up for now.
    void copyAhead();

    /// Holds the gate until `leave()`. False when it couldn't be had in that time.
    [[nodiscard]] bool enter(std::chrono::milliseconds wait);
    void leave() noexcept { m_stay.reset(); }
    /// Copies the store anew where it has changed since; the gate is held. False when the time was up.
    [[nodiscard]] bool copyInside(Deadline deadline);

    /// Lets go of the original and brings the copy onto the disk. 3026, 3043.
    void finish();

private:
    struct Stay
    {
        Stay(const Sidecar& sidecar, std::chrono::milliseconds wait)
            : pass(GatePass::forReading(sidecar, Task::Read, wait))
        {}
        GatePass pass;
    };

    QString m_from;
    QString m_to;
    std::unique_ptr<Store> m_store;
    Database m_copy;
    std::optional<Stay> m_stay;
    std::optional<quint64> m_copied; ///< change number of the original that the copy holds
};

} // namespace platform::storage::sqlite
