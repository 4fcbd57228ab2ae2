// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// An X server without a screen, and somebody before it who sees when a program has its window up. The program
// that is watched knows nothing of it.

#include <QByteArray>

#include <memory>

namespace bench {

/// A virtual display of its own, from construction to destruction. Throws `std::runtime_error` where no Xvfb
/// starts.
class Display
{
public:
    Display();
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// What DISPLAY must say.
    [[nodiscard]] const QByteArray& name() const { return m_name; }

private:
    int m_server = 0;
    QByteArray m_name;
};

/// Sees what goes on at a display. One watcher for each program: it takes the first top-level window that is
/// mapped for the program's.
class Watcher
{
public:
    explicit Watcher(const QByteArray& display);
    ~Watcher();
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    /// Returns when the window is usable: it is mapped, something was painted in it, and the program has gone
    /// through one whole turn of its event loop without painting any more. That turn is known by the answer
    /// to the ping of the window managers' convention (_NET_WM_PING), which a program gives from its event
    /// loop. Throws `std::runtime_error` when that doesn't come to pass within half a minute.
    void waitUntilUsable();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace bench
