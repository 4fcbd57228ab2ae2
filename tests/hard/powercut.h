// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Cuts the power in the middle of a piece of work, again and again at every moment of it, and looks at what
// the stores hold afterwards.

#include "hard/diskrecorder.h"
#include "hard/examiner.h"
#include "hard/works.h"

#include <QStringList>

namespace hardtest {

struct PowerCuts
{
    qsizetype moments = 0; ///< calls on the disk after which the power may go
    qsizetype states = 0;  ///< states of the disk looked at
    qsizetype opened = 0;  ///< of them, stores with different bytes
    QStringList faults;    ///< what was found that must not be; the first few
    qsizetype faulty = 0;  ///< states with a fault
};

/// Does the work once with its calls noted, and then looks at `states` states that a power cut may leave.
/// After each, every store must open and its parts agree; it must hold all that the program had been told of
/// as done, and of what was under way either all or nothing.
[[nodiscard]] PowerCuts cutPower(const Work& work, const JournalMode& mode, qsizetype states, quint32 seed);

} // namespace hardtest
