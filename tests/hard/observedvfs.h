// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A layer of ours between SQLite and the file system: every call passes an observer, who may note it or make
// it fail, and then goes on to the real one. While an `ObservedVfs` lives it is SQLite's default, so that the
// store engine uses it without knowing.

#include <QByteArray>
#include <QByteArrayView>

#include <memory>

namespace hardtest {

enum class VfsCall { Open, Read, Write, Truncate, Sync, SyncFolder, FileSize, Lock, Unlock, Delete, Access };

struct VfsEvent
{
    VfsCall call;
    QByteArray path;      ///< native; the folder of `SyncFolder`; empty for a file without a name
    qint64 offset = 0;    ///< of `Read`, `Write`; the new size of `Truncate`
    QByteArrayView bytes; ///< of `Write`; borrowed for the time of the call
    bool create = false;  ///< of `Open`: makes the file if there is none
};

class VfsObserver
{
public:
    virtual ~VfsObserver() = default;

    /// Asked before a call. Another answer than 0 is given to SQLite as the call's result code, and the call
    /// isn't made.
    virtual int before(const VfsEvent& event)
    {
        static_cast<void>(event);
        return 0;
    }
    /// Told after a call that succeeded.
    virtual void after(const VfsEvent& event) { static_cast<void>(event); }
    /// True to keep SQLite from seeing a PRAGMA that sets this property.
    virtual bool swallowsPragma(QByteArrayView name)
    {
        static_cast<void>(name);
        return false;
    }
};

class ObservedVfs
{
public:
    /// The observer is borrowed and outlives every file opened meanwhile. One at a time.
    explicit ObservedVfs(VfsObserver& observer);
    /// Every file opened meanwhile must be closed.
    ~ObservedVfs();
    ObservedVfs(const ObservedVfs&) = delete;
    ObservedVfs& operator=(const ObservedVfs&) = delete;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace hardtest
