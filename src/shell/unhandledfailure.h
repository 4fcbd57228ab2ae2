// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What happens to a failure that no procedure takes: a box with its number, and the end of the process.

namespace shell {

/// Makes `runHandler` show the box and end the process.
void installUnhandledFailureBox();

} // namespace shell
