// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The number with which a statement fails, for tests that expect a failure.

#include "platform/core/failure.h"

#include <functional>
#include <utility>

namespace support {

/// 0 when the statement doesn't fail.
template <std::invocable F>
[[nodiscard]] int failureOf(F&& statement)
{
    try {
        static_cast<void>(std::invoke(std::forward<F>(statement)));
    } catch (const platform::Failure& failure) {
        return failure.number();
    }
    return 0;
}

} // namespace support
