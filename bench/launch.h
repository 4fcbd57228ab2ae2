// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One start of a program, from its exec to its usable window.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace bench {

struct Program
{
    QString path;
    QStringList arguments;
    QString folder; ///< current directory; the caller's when empty
};

struct Launch
{
    double wall = 0;      ///< milliseconds from the exec to the usable window
    double processor = 0; ///< milliseconds of processor that the process took, its end included
    double peak = 0;      ///< most memory that was resident, in MB
    double share = 0;     ///< resident memory at the usable window, what is shared counted by its part, in MB
};

/// Starts the program at the display, waits for its window and ends it. Throws `std::runtime_error` when the
/// window doesn't come.
[[nodiscard]] Launch launch(const Program& program, const QByteArray& display);

} // namespace bench
