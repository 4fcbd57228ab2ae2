// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/openfile.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/functions.h"
#include "platform/storage/sqlite/metadata.h"
#include "platform/storage/sqlite/presence.h"
#include "platform/storage/sqlite/schema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

/// Second line of waiting, for tools that don't know the gate.
constexpr int kBusyMilliseconds = 1000;

bool folderExists(const QString& path)
{
    struct stat folder = {};
    const QByteArray name = QFile::encodeName(QFileInfo(path).absolutePath());
    return stat(name.constData(), &folder) == 0 && S_ISDIR(folder.st_mode);
}

Failure systemFailure(int error, const QString& path)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return Failure(folderExists(path) ? kDatabaseFileNotFound : kPathNotValid, path);
    case ENOSPC:
    case EDQUOT:
        return Failure(kDiskFull, path);
    case EACCES:
    case EPERM:
    case EROFS:
        return Failure(kCannotOpenFile, path);
    default:
        return Failure(kPathNotValid, path);
    }
}

struct stat statusOf(const QString& path)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        throw systemFailure(errno, path);
    if (!S_ISREG(status.st_mode))
        throw Failure(kCannotOpenFile, path);
    return status;
}

Database openHandle(const QString& path, bool writable)
{
    const int access = writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY;
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &handle,
                                     access | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    Database database(handle);
    if (code != SQLITE_OK)
        fail(code, handle, Task::Open);
    return database;
}

void configure(const Database& database)
{
    sqlite3* handle = database.get();
    sqlite3_busy_timeout(handle, kBusyMilliseconds);
    registerFunctions(handle);
    for (const int option : {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_TRUSTED_SCHEMA,
                             SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW})
        sqlite3_db_config(handle, option, 0, nullptr);
    for (const char* pragma :
         {"PRAGMA synchronous = EXTRA", "PRAGMA mmap_size = 0", "PRAGMA temp_store = MEMORY",
          "PRAGMA cell_size_check = ON", "PRAGMA fullfsync = ON"})
        database.execute(pragma, Task::Open);
}

/// The first bytes of the file, read by SQLite's own file object.
QByteArray headerOf(const Database& database)
{
    constexpr int kHeaderLength = 100;
    sqlite3_file* file = nullptr;
    const int found = sqlite3_file_control(database.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (found != SQLITE_OK || file == nullptr || file->pMethods == nullptr)
        fail(SQLITE_CANTOPEN, nullptr, Task::Open);
    sqlite3_int64 size = 0;
    if (file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        fail(SQLITE_IOERR, nullptr, Task::Open);
    if (size == 0)
        throw Failure(kNotADatabase, u"the file has length 0"_s);
    QByteArray header(kHeaderLength, '\0');
    const int code = file->pMethods->xRead(file, header.data(), kHeaderLength, 0);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)
        fail(code, nullptr, Task::Open);
    return header;
}

/// A file that another tool left with a write-ahead log is brought back to the rollback journal, since that
/// log can't be shared between machines. It fails with 3050 while that tool still has it open.
void leaveWriteAheadLog(const Database& database)
{
    constexpr int kWriteVersion = 18;
    constexpr int kReadVersion = 19;
    constexpr char kWriteAhead = 2;
    const QByteArray header = headerOf(database);
    if (header.at(kWriteVersion) != kWriteAhead && header.at(kReadVersion) != kWriteAhead)
        return;
    Statement statement(database.get(), "PRAGMA journal_mode = DELETE", Task::Open);
    Run run(statement, Task::Open);
    if (!run.next() || textAt(statement, 0) != u"delete"_s)
        throw Failure(kCouldNotLockFile, u"the file is in use with a write-ahead log"_s);
}

/// Reads the structure and one row by every table and index, so that a file whose roots are damaged is
/// refused here, where it can still be repaired, and not in the middle of the work.
void requireSound(const Database& database)
{
    // One look at one moment. What its first statement is refused, is refused to the opening: a lock of
    // another tool comes as 3050.
    database.execute("BEGIN", Task::Open);
    static_cast<void>(database.number("SELECT count(*) FROM sqlite_master", Task::Open));
    for (const StoredTable& table : readSchema(database)) {
        const QByteArray from = "SELECT 1 FROM " + quoted(table.definition.name);
        static_cast<void>(database.number(from + " ORDER BY " + table.rowId + " DESC LIMIT 1", Task::Open));
        for (const QString& index : table.indexNames)
            static_cast<void>(database.number("SELECT count(*) FROM (SELECT 1 FROM " +
                                                  quoted(table.definition.name) + " INDEXED BY " +
                                                  quoted(index) + " LIMIT 1)",
                                              Task::Open));
    }
    database.execute("COMMIT", Task::Open);
}

void requireFreeName(const QString& path)
{
    const QFileInfo info(path);
    if (!folderExists(path))
        throw Failure(kPathNotValid, path);
    const QStringList taken =
        QDir(info.absolutePath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    if (taken.contains(info.fileName(), Qt::CaseInsensitive))
        throw Failure(kDatabaseAlreadyExists, path);
}

/// Takes the name for good, or fails because another station was quicker.
void makeFile(const QString& path)
{
    constexpr mode_t kReadWriteBits = 0666;
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kReadWriteBits);
    if (descriptor < 0)
        throw errno == EEXIST ? Failure(kDatabaseAlreadyExists, path) : systemFailure(errno, path);
    // Nobody has this file open yet, so closing drops no lock.
    close(descriptor);
}

Database makeDatabase(const QString& path, const CreateOptions& options)
{
    Database database = openHandle(path, true);
    configure(database);
    database.execute("PRAGMA encoding = 'UTF-8'", Task::Open);
    database.execute("BEGIN IMMEDIATE", Task::Open);
    database.execute("PRAGMA application_id = " + QByteArray::number(kApplicationId), Task::Open);
    makeMetadata(database, options);
    database.execute("COMMIT", Task::Open);
    return database;
}

/// Gives a new file its name and opens it again.
Database published(Database database, NewFile& making, const Sidecar& sidecar)
{
    database = {};
    const int failure = making.publish();
    if (failure != 0)
        throw Failure(failure, making.path());
    database = openHandle(making.path(), true);
    configure(database);
    making.keep();
    stopMaking(sidecar);
    return database;
}

} // namespace

void requireReadable(const QString& path)
{
    static_cast<void>(statusOf(path));
    if (faccessat(AT_FDCWD, QFile::encodeName(path).constData(), R_OK, AT_EACCESS) != 0)
        throw systemFailure(errno, path);
}

Database makeStoreFile(const QString& path, const CreateOptions& options)
{
    makeFile(path);
    try {
        return makeDatabase(path, options);
    } catch (const Failure&) {
        unlink(QFile::encodeName(path).constData());
        throw;
    }
}

std::unique_ptr<Store> openStore(const QString& path, Sharing sharing)
{
    requireReadable(path);
    auto sidecar = std::make_unique<Sidecar>(path);
    takePresence(*sidecar, sharing);
    const GatePass pass = GatePass::forReading(*sidecar, Task::Open);
    if (statusOf(path).st_size == 0)
        throw Failure(kNotADatabase, u"the file has length 0"_s);
    Database database = openHandle(path, sidecar->isWritable());
    configure(database);
    leaveWriteAheadLog(database);
    requireSound(database);
    auto authorizer = std::make_unique<Authorizer>(database.get());
    return std::make_unique<Store>(std::move(sidecar), std::move(database), std::move(authorizer));
}

std::unique_ptr<Store> createStore(const QString& path, const CreateOptions& options)
{
    requireFreeName(path);
    auto sidecar = std::make_unique<Sidecar>(path);
    startMaking(*sidecar);
    // Another station may just have made it.
    requireFreeName(path);
    takePresence(*sidecar, Sharing::Shared);
    auto making = std::make_unique<NewFile>(path);
    Database database = makeStoreFile(making->path(), options);
    if (options.appears == Appears::AtOnce)
        database = published(std::move(database), *std::exchange(making, nullptr), *sidecar);
    auto authorizer = std::make_unique<Authorizer>(database.get());
    return std::make_unique<Store>(std::move(sidecar), std::move(database), std::move(authorizer),
                                   std::move(making));
}

} // namespace platform::storage::sqlite
