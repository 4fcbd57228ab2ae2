// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Another process that holds a lock on a store for as long as the object lives.

#include <QCoreApplication>
#include <QProcess>
#include <QString>

namespace platform::storage::test {

class OtherStation
{
public:
    /// `what`: "shared", "exclusive", "reading", "writing" or "line", a place in the line that never moves.
    OtherStation(const QString& path, const QString& what)
    {
        m_process.start(QStringLiteral(STORAGE_LOCKHOLDER), {path, what});
        m_process.waitForReadyRead();
        m_answer = QString::fromLatin1(m_process.readAllStandardOutput()).trimmed();
    }
    ~OtherStation() { leave(); }
    OtherStation(const OtherStation&) = delete;
    OtherStation& operator=(const OtherStation&) = delete;

    /// "held", or the number that it failed with.
    [[nodiscard]] QString answer() const { return m_answer; }
    /// Lets go, and comes back when it has.
    void leave()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    /// Dies as at a loss of power.
    void crash()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
    QString m_answer;
};

} // namespace platform::storage::test
