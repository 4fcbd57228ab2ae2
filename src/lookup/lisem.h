// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The one way to the lookup window. The caller sets `TIPOBUSQUEDA` before and looks at `RESULTADOBUSQUEDA`
// after.

#include <functional>

class QWidget;

/// Shows the lookup over `parent`, modally, and returns when it has closed. Failures pass to the caller.
void MuestraLISEM(QWidget* parent);

/// How the lookup is shown: set by the program's start, answered by tests. Empty: nothing is shown, as if the
/// user had left it at once.
void setMuestraLISEM(std::function<void(QWidget* parent)> show);
