// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Starting other programs, handing mail addresses to the desktop, and ending this process.

#include <QString>

#include <functional>

namespace platform {

/// Starts a program by its bare name and forgets it. 53 when there is no such program.
void startProgram(const QString& name);

/// Hands "mailto:" and the address to the desktop's mail program. The result is ignored; never fails.
void openMail(const QString& address);

/// Ends the process at once, without unloading any window.
[[noreturn]] void endProcess();

/// What the functions above do, for tests. An empty member leaves the real thing in place.
struct ProcessHooks
{
    std::function<bool(const QString& name)> start; ///< false: no such program
    std::function<void(const QString& address)> mail;
    std::function<void()> end; ///< must not return normally: throws, in tests
};
void setProcessHooks(ProcessHooks hooks);

} // namespace platform
