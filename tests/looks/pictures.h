// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Pictures of what the tests look at, for people to look at too.

#include <QString>

class QWidget;

namespace looks {

/// Writes the window to the folder in ORVANE_LOOK_PICTURES, under the name, the scheme, the scale and the
/// size of type. Without that variable it does nothing.
void keepPicture(QWidget& window, const QString& name);

} // namespace looks
