// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <stdexcept>

namespace tools {

/// Something that the person who started the tool must put right. `text` is one Spanish line for the
/// terminal.
class ToolError : public std::runtime_error
{
public:
    explicit ToolError(const QString& text)
        : std::runtime_error(text.toStdString())
    {}

    [[nodiscard]] QString text() const { return QString::fromUtf8(what()); }
};

} // namespace tools
