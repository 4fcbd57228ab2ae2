// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The toolkit's own texts in Spanish, whatever language the desktop speaks.

namespace platform {

/// Makes the toolkit speak Spanish: dates and numbers, the packaged Spanish texts, and over these our own for
/// what they lack or say otherwise than the manual. Dialogs are the toolkit's own, since those of the desktop
/// speak the desktop's language. Call once, when the application object stands, before the first window.
/// False when the packaged texts aren't there: most of the toolkit's texts then stay English.
bool installSpanishTexts();

} // namespace platform
