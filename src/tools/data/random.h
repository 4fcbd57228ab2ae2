// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A small pseudo-random generator whose numbers are the same with every compiler and library, which those of
// <random>'s distributions are not. Never for secrets.

#include <cstdint>
#include <span>

namespace tools {

class Random
{
public:
    /// Generators of one seed and different streams are independent of each other.
    Random(std::uint64_t seed, std::uint64_t stream) noexcept;

    /// Uniform over all 64 bits.
    [[nodiscard]] std::uint64_t next() noexcept;
    /// 0 to `limit` − 1; 0 for a limit of 0 or less.
    [[nodiscard]] int below(int limit) noexcept;
    /// `first` to `last`, both included.
    [[nodiscard]] int between(int first, int last) noexcept;
    /// True in `percent` of a hundred cases.
    [[nodiscard]] bool chance(int percent) noexcept;
    /// One element of a table that isn't empty.
    template <typename T>
    [[nodiscard]] const T& pick(std::span<const T> table) noexcept
    {
        return table[static_cast<std::size_t>(below(static_cast<int>(table.size())))];
    }

private:
    std::uint64_t m_state;
};

} // namespace tools
