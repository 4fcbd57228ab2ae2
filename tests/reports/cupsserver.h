// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A printing system of the test's own: a CUPS scheduler with its folders below a temporary one, reached
// through a socket there. Its queues print to nowhere, and keep what was sent to them.

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace reporttest {

/// A job as the scheduler keeps it.
struct SpooledJob
{
    QByteArray attributes; ///< as they go over the wire
    QString document;      ///< path of the file that was sent

    [[nodiscard]] bool hasNumber(const QByteArray& name, qint32 value) const;
    [[nodiscard]] bool hasFlag(const QByteArray& name) const;
    [[nodiscard]] bool hasAttribute(const QByteArray& name) const;
    [[nodiscard]] bool isFor(const QByteArray& queue) const
    {
        return attributes.contains("/printers/" + queue);
    }
};

class CupsServer
{
public:
    /// Starts the scheduler and points this process at it. Must come before the first look at a printer.
    CupsServer();
    ~CupsServer();
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;

    [[nodiscard]] bool isRunning();
    [[nodiscard]] bool addQueue(const QString& name);
    [[nodiscard]] bool makeDefault(const QString& queue);
    /// Jobs that have arrived whole, the oldest first.
    [[nodiscard]] QList<SpooledJob> jobs() const;
    /// What the scheduler says of itself, for a test that fails.
    [[nodiscard]] QByteArray log() const;

private:
    [[nodiscard]] bool administer(const QStringList& arguments);
    [[nodiscard]] QString file(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    QProcess m_scheduler;
};

} // namespace reporttest
