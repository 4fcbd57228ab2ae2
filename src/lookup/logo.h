// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The picture in the corner of a window, which tells the program's version.

#include "platform/window/icons.h"

#include <QString>

namespace platform {
class ImageLabel;
}

/// "Quenda.- Ver.", major, ".", minor, " Build " and revision of the running program.
[[nodiscard]] QString versionHint();

/// Puts a picture of 32 pixels on the label.
void showPicture(platform::ImageLabel& label, platform::Icon picture);
