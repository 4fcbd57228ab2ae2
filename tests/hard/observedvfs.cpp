// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/observedvfs.h"

#include <sqlite3.h>

#include <new>

#include <fcntl.h>
#include <unistd.h>

namespace hardtest {

namespace {

/// What SQLite holds for an open file: our part, and behind it the real file's.
struct File
{
    sqlite3_file base;
    VfsObserver* observer;
    QByteArray* path;
    sqlite3_file* real;
};

File& fileOf(sqlite3_file* file)
{
    return *reinterpret_cast<File*>(file);
}

/// Asks the observer, makes the call, tells the observer.
template <typename Call>
int passed(VfsObserver& observer, const VfsEvent& event, Call&& call)
{
    const int refusal = observer.before(event);
    if (refusal != SQLITE_OK)
        return refusal;
    const int code = call();
    if (code == SQLITE_OK)
        observer.after(event);
    return code;
}

int closeFile(sqlite3_file* file)
{
    File& f = fileOf(file);
    const int code = f.real->pMethods != nullptr ? f.real->pMethods->xClose(f.real) : SQLITE_OK;
    delete f.path;
    f.path = nullptr;
    return code;
}

int readFile(sqlite3_file* file, void* buffer, int amount, sqlite3_int64 offset)
{
    File& f = fileOf(file);
    return passed(*f.observer, {VfsCall::Read, *f.path, offset, {}},
                  [&] { return f.real->pMethods->xRead(f.real, buffer, amount, offset); });
}

int writeFile(sqlite3_file* file, const void* buffer, int amount, sqlite3_int64 offset)
{
    File& f = fileOf(file);
    const QByteArrayView bytes(static_cast<const char*>(buffer), amount);
    return passed(*f.observer, {VfsCall::Write, *f.path, offset, bytes},
                  [&] { return f.real->pMethods->xWrite(f.real, buffer, amount, offset); });
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    File& f = fileOf(file);
    return passed(*f.observer, {VfsCall::Truncate, *f.path, size, {}},
                  [&] { return f.real->pMethods->xTruncate(f.real, size); });
}

int syncFile(sqlite3_file* file, int flags)
{
    File& f = fileOf(file);
    return passed(*f.observer, {VfsCall::Sync, *f.path, 0, {}},
                  [&] { return f.real->pMethods->xSync(f.real, flags); });
}

int sizeOfFile(sqlite3_file* file, sqlite3_int64* size)
{
    File& f = fileOf(file);
    return passed(*f.observer, {VfsCall::FileSize, *f.path, 0, {}},
                  [&] { return f.real->pMethods->xFileSize(f.real, size); });
}

int lockFile(sqlite3_file* file, int level)
{
    File& f = fileOf(file);
    return passed(*f.observer, {VfsCall::Lock, *f.path, 0, {}},
                  [&] { return f.real->pMethods->xLock(f.real, level); });
}

int unlockFile(sqlite3_file* file, int level)
{
    File& f = fileOf(file);
    // A refused unlocking leaves the lock: what the real file then knows is what SQLite believes.
    return passed(*f.observer, {VfsCall::Unlock, *f.path, 0, {}},
                  [&] { return f.real->pMethods->xUnlock(f.real, level); });
}

int checkReservedLock(sqlite3_file* file, int* isReserved)
{
    File& f = fileOf(file);
    return passed(*f.observer, {VfsCall::Lock, *f.path, 0, {}},
                  [&] { return f.real->pMethods->xCheckReservedLock(f.real, isReserved); });
}

int controlFile(sqlite3_file* file, int operation, void* argument)
{
    File& f = fileOf(file);
    if (operation == SQLITE_FCNTL_PRAGMA) {
        // [1] is the property, [2] the value that it is to get, or null where it is only asked for.
        char** const words = static_cast<char**>(argument);
        if (words[2] != nullptr && f.observer->swallowsPragma(QByteArrayView(words[1])))
            return SQLITE_OK;
    }
    return f.real->pMethods->xFileControl(f.real, operation, argument);
}

int sectorSize(sqlite3_file* file)
{
    File& f = fileOf(file);
    return f.real->pMethods->xSectorSize(f.real);
}

int deviceCharacteristics(sqlite3_file* file)
{
    File& f = fileOf(file);
    return f.real->pMethods->xDeviceCharacteristics(f.real);
}

/// Version 1: without shared memory there is no write-ahead log, and without mapping every read is seen.
const sqlite3_io_methods kMethods = {
    1,
    &closeFile,
    &readFile,
    &writeFile,
    &truncateFile,
    &syncFile,
    &sizeOfFile,
    &lockFile,
    &unlockFile,
    &checkReservedLock,
    &controlFile,
    &sectorSize,
    &deviceCharacteristics,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

using OpenFolder = int (*)(const char*, int*);

OpenFolder realOpenFolder = nullptr;
VfsObserver* folderObserver = nullptr;

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/'));
}

/// SQLite's unix layer opens the folder of a new journal in order to sync it, at the journal's first sync.
int openFolder(const char* name, int* descriptor)
{
    const int code = realOpenFolder(name, descriptor);
    if (code == SQLITE_OK)
        folderObserver->after({VfsCall::SyncFolder, folderOf(name), 0, {}});
    return code;
}

int syncFolder(const QByteArray& folder)
{
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return SQLITE_IOERR_DIR_FSYNC;
    const int result = fsync(descriptor);
    ::close(descriptor);
    return result == 0 ? SQLITE_OK : SQLITE_IOERR_DIR_FSYNC;
}

} // namespace

struct ObservedVfs::State
{
    sqlite3_vfs vfs = {};
    sqlite3_vfs* real = nullptr;
    VfsObserver* observer = nullptr;

    static State& of(sqlite3_vfs* vfs) { return *static_cast<State*>(vfs->pAppData); }

    static int open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags)
    {
        const State& state = of(vfs);
        auto* const f = new (file) File{};
        const QByteArray path(name);
        const bool create = (flags & SQLITE_OPEN_CREATE) != 0;
        const auto openReal = [&] {
            f->real = reinterpret_cast<sqlite3_file*>(f + 1);
            return state.real->xOpen(state.real, name, f->real, flags, outFlags);
        };
        const int code = passed(*state.observer, {VfsCall::Open, path, 0, {}, create}, openReal);
        if (code != SQLITE_OK)
            return code;
        f->observer = state.observer;
        f->path = new QByteArray(path);
        f->base.pMethods = &kMethods;
        return SQLITE_OK;
    }

    static int remove(sqlite3_vfs* vfs, const char* name, int lasting)
    {
        const State& state = of(vfs);
        const QByteArray path(name);
        // In two calls, so that each can be told and refused by itself.
        const int code = passed(*state.observer, {VfsCall::Delete, path, 0, {}},
                                [&] { return state.real->xDelete(state.real, name, 0); });
        if (code != SQLITE_OK || lasting == 0)
            return code;
        return passed(*state.observer, {VfsCall::SyncFolder, folderOf(path), 0, {}},
                      [&] { return syncFolder(folderOf(path)); });
    }

    static int access(sqlite3_vfs* vfs, const char* name, int flags, int* result)
    {
        const State& state = of(vfs);
        return passed(*state.observer, {VfsCall::Access, QByteArray(name), 0, {}},
                      [&] { return state.real->xAccess(state.real, name, flags, result); });
    }
};

ObservedVfs::ObservedVfs(VfsObserver& observer)
    : m_state(std::make_unique<State>())
{
    m_state->observer = &observer;
    m_state->real = sqlite3_vfs_find("unix");
    m_state->vfs = *m_state->real;
    sqlite3_vfs& vfs = m_state->vfs;
    vfs.pNext = nullptr;
    vfs.zName = "observed";
    vfs.pAppData = m_state.get();
    vfs.szOsFile = m_state->real->szOsFile + static_cast<int>(sizeof(File));
    vfs.xOpen = &State::open;
    vfs.xDelete = &State::remove;
    vfs.xAccess = &State::access;
    folderObserver = &observer;
    realOpenFolder =
        reinterpret_cast<OpenFolder>(m_state->real->xGetSystemCall(m_state->real, "openDirectory"));
    m_state->real->xSetSystemCall(m_state->real, "openDirectory",
                                  reinterpret_cast<sqlite3_syscall_ptr>(&openFolder));
    sqlite3_vfs_register(&vfs, 1);
}

ObservedVfs::~ObservedVfs()
{
    sqlite3_vfs_unregister(&m_state->vfs);
    sqlite3_vfs_register(m_state->real, 1);
    m_state->real->xSetSystemCall(m_state->real, "openDirectory", nullptr);
    folderObserver = nullptr;
}

} // namespace hardtest
