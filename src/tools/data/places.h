// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Towns of Spain with their province and postal codes, and the provinces with their telephone prefixes.

#include <QStringView>

#include <span>

namespace tools {

struct Town
{
    QStringView name;
    int firstPostalCode; ///< a code's first two digits are the province's number
    int lastPostalCode;
};

struct Province
{
    int number; ///< 1 to 52
    QStringView name;
    QStringView phonePrefix;
};

[[nodiscard]] std::span<const Town> towns() noexcept;
[[nodiscard]] std::span<const Province> provinces() noexcept;

/// The province of a postal code from 1000 to 52999.
[[nodiscard]] const Province& provinceOf(int postalCode) noexcept;

} // namespace tools
