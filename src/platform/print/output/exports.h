// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A finished document as a file. Each file is written aside and takes its name only when it is whole.

#include "platform/print/output/document.h"

namespace platform::print {

/// All pages as PDF, fonts embedded, with the title given. Makes the pages that are missing. False when the
/// file can't be written.
[[nodiscard]] bool writePdf(Document& document, const QString& path, const QString& title);

/// One line for each record: group fields, then the fields of the details; ";" between them, numbers with a
/// decimal comma, UTF-8 with its mark. False when the file can't be written.
[[nodiscard]] bool writeCsv(Document& document, const QString& path);

} // namespace platform::print
