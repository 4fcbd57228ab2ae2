// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Remembers which programs were started, which addresses were handed to the mail program, and that the
// process was to end. While the object lives nothing of this really happens.

#include <QStringList>

#include <concepts>
#include <functional>

namespace testsupport {

/// Thrown where the process would end. It is no `platform::Failure`, so no regime swallows it. It must not
/// pass through Qt's event loop: end the process from a direct call, inside `ProcessRecorder::ends`.
struct ProcessEnded
{
};

class ProcessRecorder
{
public:
    ProcessRecorder();
    ~ProcessRecorder();
    ProcessRecorder(const ProcessRecorder&) = delete;
    ProcessRecorder& operator=(const ProcessRecorder&) = delete;

    [[nodiscard]] const QStringList& started() const { return m_started; }
    [[nodiscard]] const QStringList& mails() const { return m_mails; }
    [[nodiscard]] int endings() const { return m_endings; }

    /// Programs that aren't there: starting one fails with 53, and it isn't remembered as started.
    void setMissing(const QStringList& programs) { m_missing = programs; }

    /// Runs the body and tells whether it asked for the end of the process.
    template <std::invocable F>
    [[nodiscard]] static bool ends(F&& body)
    {
        try {
            std::invoke(std::forward<F>(body));
        } catch (const ProcessEnded&) {
            return true;
        }
        return false;
    }

private:
    QStringList m_started;
    QStringList m_mails;
    QStringList m_missing;
    int m_endings = 0;
};

} // namespace testsupport
