// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/random.h"

namespace tools {

namespace {

/// The finaliser of SplitMix64: spreads every bit of `value` over the whole result.
std::uint64_t mixed(std::uint64_t value) noexcept
{
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31);
}

constexpr std::uint64_t kGoldenStep = 0x9E3779B97F4A7C15U;

} // namespace

Random::Random(std::uint64_t seed, std::uint64_t stream) noexcept
    : m_state(mixed(seed + kGoldenStep) ^ mixed(stream * kGoldenStep + 1))
{}

std::uint64_t Random::next() noexcept
{
    m_state += kGoldenStep;
    return mixed(m_state);
}

int Random::below(int limit) noexcept
{
    if (limit <= 0)
        return 0;
    // The upper half times the limit: no modulo, and the bias is far below what a demo could show.
    return static_cast<int>(((next() >> 32) * static_cast<std::uint64_t>(limit)) >> 32);
}

int Random::between(int first, int last) noexcept
{
    return first + below(last - first + 1);
}

bool Random::chance(int percent) noexcept
{
    return below(100) < percent;
}

} // namespace tools
