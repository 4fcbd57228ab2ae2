// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The look that all windows share.

#include <QIcon>

namespace platform {

/// Sets the style of `focusstyle.h`, the icon theme that suits a light or dark palette, and the small
/// adjustments of spacing. Call once, when the application object stands.
void installAppearance();

/// Makes `messageBox()` show real boxes: plain text, "Aceptar", over the active window, titled with the
/// application's name when the message has no title.
void installMessageBox();

} // namespace platform
