// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Readings that stay behind a gate over several turns of the event loop. Whoever of the same thread would
// have to wait, at a gate or for having a store alone, has them ended first: else it would wait for itself,
// or for a station that waits for it.

#include <functional>

namespace platform::storage::sqlite {

/// One such reading, known from the making of the object to its end. Belongs to its thread.
class HeldReading
{
public:
    /// `finish` takes what is still to be read and lets go of every gate before it returns. It doesn't throw;
    /// it may end this object.
    explicit HeldReading(std::function<void()> finish);
    ~HeldReading();
    HeldReading(const HeldReading&) = delete;
    HeldReading& operator=(const HeldReading&) = delete;

private:
    friend bool finishHeldReadings();

    std::function<void()> m_finish;
};

/// Ends every reading that this thread holds. False when there was none.
bool finishHeldReadings();

} // namespace platform::storage::sqlite
