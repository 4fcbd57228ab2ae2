// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The look that all windows share; docs/design-language.md tells its rules.

namespace platform {

/// Sets the style of `programstyle.h`, and with it colours, distances and marks of the focus, and the icon
/// theme that suits a light or dark palette. Call once, when the application object stands.
void installAppearance();

/// Makes `messageBox()` show real boxes: plain text, "Aceptar", over the active window, titled with the
/// application's name when the message has no title.
void installMessageBox();

} // namespace platform
