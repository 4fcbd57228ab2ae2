// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How a value is written on the page: "numero(2)", "numero(2,cero-blanco)", "fecha(dd/MM/yyyy)", "sino",
// "texto".

#include "platform/print/formula/value.h"

#include <QString>

#include <optional>

namespace platform::print {

struct Format
{
    enum class Kind { Default, Number, Date, YesNo, Text };

    Kind kind = Kind::Default;
    int decimals = 2;
    bool zeroBlank = false;
    QString pattern; ///< of a date
};

/// Nothing when the text is no format.
[[nodiscard]] std::optional<Format> parseFormat(QStringView text);

/// The value as printed. By default whole numbers have no decimals and others two. A text that holds a date
/// dd/mm/yyyy takes a date's pattern; any other text prints as it stands. No value prints "".
[[nodiscard]] QString formatted(const Format& format, const formula::Value& value);

} // namespace platform::print
