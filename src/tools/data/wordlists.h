// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The words that the demo's people, firms, streets and banks are made of.

#include <QStringView>

#include <span>

namespace tools {

using Words = std::span<const QStringView>;

[[nodiscard]] Words surnames() noexcept;
[[nodiscard]] Words givenNames() noexcept;
[[nodiscard]] Words streetKinds() noexcept;
[[nodiscard]] Words streetNames() noexcept;
/// Invented halves of firm names ("Hidro", "Clima"), their fields of work, and the names of hotels and the
/// like.
[[nodiscard]] Words firmStems() noexcept;
[[nodiscard]] Words firmTrades() noexcept;
[[nodiscard]] Words houseNames() noexcept;
[[nodiscard]] Words contactPosts() noexcept;
[[nodiscard]] Words carriers() noexcept;

struct Bank
{
    QStringView code; ///< four digits
    QStringView name;
};
[[nodiscard]] std::span<const Bank> banks() noexcept;

} // namespace tools
