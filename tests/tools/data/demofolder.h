// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Runs the real tool as a process, and gives tests a data root of their own.

#include <QByteArray>
#include <QMap>
#include <QStringList>
#include <QTemporaryDir>

namespace tooltest {

struct ToolRun
{
    int exitCode = -1;
    QString out;
    QString err;

    /// The lines of `out` that begin with "fallo".
    [[nodiscard]] QStringList faults() const;
    [[nodiscard]] QStringList notices() const;
};

/// Starts `orvane-data` with the arguments and waits for its end.
[[nodiscard]] ToolRun runTool(const QStringList& arguments);

/// A small demo data root, made once in the process, copied to a folder that goes with the object.
class DemoFolder
{
public:
    DemoFolder();

    [[nodiscard]] QString path(const QString& relative = {}) const;
    [[nodiscard]] ToolRun check() const;
    /// Names and bytes of every file but the lock files.
    [[nodiscard]] QMap<QString, QByteArray> stores() const;

private:
    QTemporaryDir m_folder;
};

/// Names and bytes of every file under a folder but the lock files.
[[nodiscard]] QMap<QString, QByteArray> filesUnder(const QString& folder);

} // namespace tooltest
