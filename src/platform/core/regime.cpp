// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/regime.h"

namespace platform {

namespace {

int currentError = 0;
std::function<void(const Failure&)> unhandledAction;

} // namespace

int lastError() noexcept
{
    return currentError;
}

void clearError() noexcept
{
    currentError = 0;
}

void setLastError(int number) noexcept
{
    currentError = number;
}

void runHandler(const std::function<void()>& body)
{
    try {
        body();
    } catch (const Failure& failure) {
        if (!unhandledAction)
            std::terminate();
        unhandledAction(failure);
    }
}

void setUnhandledFailure(std::function<void(const Failure&)> action)
{
    unhandledAction = std::move(action);
}

} // namespace platform
