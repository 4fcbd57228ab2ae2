// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The pieces of work that the stores are put under fire with: the store procedures of a start, and the saves
// and deletions of the client window, over real files.

#include "clients/clientfixture.h"
#include "hard/disk.h"

#include <QStringList>

#include <span>

namespace hardtest {

class Scene;

struct Work
{
    const char* name;
    /// Makes the files that the work finds. Stores are closed before and afterwards.
    void (*given)(Scene& scene);
    /// Opens the stores and fills the window; nothing of it is under fire. Null where the work opens by
    /// itself.
    void (*ready)(Scene& scene);
    void (*run)(Scene& scene);
    /// Files that the work changes, below the data root.
    QStringList stores;
};

/// Every piece of work: creating, opening and upgrading the six stores, saving and deleting.
[[nodiscard]] std::span<const Work> works();
/// The piece of that name.
[[nodiscard]] const Work& work(QByteArrayView name);

/// A data root and the client window for one piece of work, which can be done again and again from the same
/// beginning.
class Scene
{
public:
    explicit Scene(const Work& work);

    [[nodiscard]] const Work& work() const { return m_work; }
    [[nodiscard]] QByteArray folder() const { return QFile::encodeName(fixture.root.path()); }
    [[nodiscard]] QByteArray path(const QString& store) const
    {
        return QFile::encodeName(fixture.root.path(store));
    }

    /// Closes everything and brings back the files that the work finds. Messages are forgotten.
    void restore();
    void ready();
    void run() { m_work.run(*this); }
    /// Closes every store, as the end of a run does.
    void close();

    /// Opens the stores of the company, as a start does.
    static void openStores();

    testsupport::ClientFixture fixture;

private:
    const Work& m_work;
    DiskImage m_files;
};

} // namespace hardtest
