// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a fuzz target says of every input. A claim that doesn't hold stops the run and keeps the input.

#include <cstdio>
#include <cstdlib>

namespace fuzz {

inline void require(bool claim, const char* text) noexcept
{
    if (claim)
        return;
    std::fprintf(stderr, "doesn't hold: %s\n", text);
    std::abort();
}

} // namespace fuzz
