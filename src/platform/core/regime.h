// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The two failure regimes of the program's procedures.
//
// Skip mode: every statement stands in an `attempt` of its own; a failing one is dropped and the next one
// runs. A test stands in `holds`, negation included, since a test that fails counts as passed.
// Handler mode: a statement stands in `handled`; a failure asks the procedure's handler by its number.
//
// Both catch `Failure` and nothing else. The last failure is kept in one error state, which a procedure may
// clear and look at.

#include "platform/core/failure.h"

#include <concepts>
#include <functional>
#include <utility>

namespace platform {

/// The number of the last failure that a regime swallowed, 0 when there has been none since `clearError()`.
[[nodiscard]] int lastError() noexcept;
/// Forgets the last failure. Call it right before the statement whose failing is tested.
void clearError() noexcept;
/// Records a swallowed failure. For the helpers below.
void setLastError(int number) noexcept;

/// Runs one statement. A failure drops it and control goes on with the next.
template <std::invocable F>
void attempt(F&& statement)
{
    try {
        std::invoke(std::forward<F>(statement));
    } catch (const Failure& failure) {
        setLastError(failure.number());
    }
}

/// Evaluates one whole test. A test that fails counts as passed.
template <std::predicate F>
[[nodiscard]] bool holds(F&& test)
{
    try {
        return std::invoke(std::forward<F>(test));
    } catch (const Failure& failure) {
        setLastError(failure.number());
        return true;
    }
}

/// What a procedure's failure handler decides.
enum class After { NextStatement, Leave };

/// Runs one statement in handler mode: on a failure `onError(number)` decides what comes after it. A failure
/// raised inside the handler goes to the caller.
template <std::invocable F, std::invocable<int> H>
[[nodiscard]] After handled(H&& onError, F&& statement)
{
    int number = 0;
    try {
        std::invoke(std::forward<F>(statement));
        return After::NextStatement;
    } catch (const Failure& failure) {
        number = failure.number();
    }
    setLastError(number);
    return std::invoke(std::forward<H>(onError), number);
}

/// Runs the body of an event handler that has no regime of its own. A failure that reaches it is shown in the
/// runtime's error box and ends the process; see `setUnhandledFailure`.
void runHandler(const std::function<void()>& body);

/// Replaces what `runHandler` does with a failure (the shell shows the box and ends the process; tests record
/// it). An empty function brings the default back, which is `std::terminate`.
void setUnhandledFailure(std::function<void(const Failure&)> action);

} // namespace platform
