// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A store that looks up at the shell: the include check has to refuse this tree.
#include "shell/window.h"
