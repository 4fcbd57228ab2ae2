// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A file of records of one length, shared with other stations, each record locked while it is written.
// Never for store files: those are opened by the storage engine alone.

#include <QByteArray>
#include <QString>

namespace platform {

class RandomFile
{
public:
    RandomFile() = default;
    ~RandomFile();
    RandomFile(const RandomFile&) = delete;
    RandomFile& operator=(const RandomFile&) = delete;

    /// Opens or makes the file, shared. A record length below 1 fails with 5, a file that can't be opened
    /// with 53.
    void open(const QString& path, qsizetype recordLength);
    /// Locks and unlocks a record, counted from 1. 52 when no file is open, 70 when another holds the record.
    void lock(qint64 record);
    void unlock(qint64 record);
    /// Writes a record. 52 when no file is open, 59 when it is longer than the record length.
    void put(qint64 record, const QByteArray& bytes);
    /// Closes the file and drops its locks. Nothing when none is open.
    void close();

private:
    void setLock(qint64 record, short type);

    int m_descriptor = -1;
    qsizetype m_recordLength = 0;
};

} // namespace platform
