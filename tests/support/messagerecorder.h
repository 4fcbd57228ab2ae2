// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Answers every message box at once and remembers what it said, in order. While the object lives no box
// appears; afterwards the real one is back.

#include "platform/system/messagebox.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace testsupport {

class MessageRecorder
{
public:
    MessageRecorder();
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    [[nodiscard]] const QList<platform::Message>& messages() const { return m_messages; }
    /// The texts alone, for one comparison of all that was said.
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] bool isEmpty() const { return m_messages.isEmpty(); }
    /// Forgets what was said so far.
    void clear() { m_messages.clear(); }
    /// Runs while a box would stand on the screen: what the window behind it looks like can be checked here.
    void whileShown(std::function<void(const platform::Message&)> action)
    {
        m_whileShown = std::move(action);
    }

private:
    QList<platform::Message> m_messages;
    std::function<void(const platform::Message&)> m_whileShown;
};

} // namespace testsupport
