// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Message boxes: plain text, one "Aceptar" button, blocking. A test answers them.

#include <QString>

#include <functional>

namespace platform {

enum class MessageIcon { None, Information };

struct Message
{
    QString text;
    QString title; ///< empty: the program's own title
    MessageIcon icon = MessageIcon::None;

    friend bool operator==(const Message&, const Message&) = default;
};

/// Shows a message over the active window and returns when the user has closed it. Where neither of the
/// functions below was called there is no window to show it over: it returns at once.
void messageBox(const Message& message);

/// Replaces what shows messages; an empty function brings the real box back.
void setMessageBox(std::function<void(const Message&)> show);

/// Installs the real box. For the window library, at its start.
void setRealMessageBox(std::function<void(const Message&)> show);

} // namespace platform
