// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The windows that the main window's commands and the lookup contract show.

#include "shell/stmain.h"

namespace shell {

/// The real windows and the real print engine behind the main window's commands.
[[nodiscard]] STMAINLinks windowLinks();

/// Makes the lookup contract show the lookup window.
void installLookup();

} // namespace shell
