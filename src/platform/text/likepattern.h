// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The LIKE of the stores' query language.

#include <QString>

namespace platform {

/// True when the whole `text` fits `pattern`: `*` any run, `?` one character, `#` one digit, `[abc]`,
/// `[a-z]`,
/// `[!a-z]`; `%` and `_` are themselves, `[]` is nothing, a lone `]` is itself. Case is ignored, accents tell
/// apart; "[!]" is the exclamation mark, a range the wrong way round holds nothing. Runs in time proportional
/// to text × pattern, whatever the pattern. An unclosed `[` fails with 3075.
[[nodiscard]] bool likeMatches(QStringView text, QStringView pattern);

} // namespace platform
