// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The file `<store>.ldb` beside a store. It stays empty and is never deleted; only its bytes are locked.

#include "platform/storage/sqlite/sidecarbytes.h"
#include "platform/storage/sqlite/waitingline.h"

#include <QString>

#include <memory>

namespace platform::storage::sqlite {

class Sidecar
{
public:
    /// None, for a file that nobody shares.
    Sidecar() = default;
    /// Opens the sidecar of a store, makes it if need be with the store's own permissions. In a folder that
    /// can't be written, a sidecar that is missing stays missing (`exists()` false). 3050 where locks aren't
    /// kept, or only on this machine: nothing may be written there.
    explicit Sidecar(const QString& storePath);
    ~Sidecar();
    Sidecar(const Sidecar&) = delete;
    Sidecar& operator=(const Sidecar&) = delete;

    [[nodiscard]] bool exists() const noexcept { return m_descriptor >= 0; }
    /// False when only shared locks can be had, so the store can only be read.
    [[nodiscard]] bool isWritable() const noexcept { return m_writable; }
    [[nodiscard]] int descriptor() const noexcept { return m_descriptor; }
    /// Those who wait at the gate. There is one where the sidecar exists.
    [[nodiscard]] WaitingLine& line() const noexcept { return *m_line; }

private:
    int m_descriptor = -1;
    std::unique_ptr<WaitingLine> m_line;
    bool m_writable = false;
};

} // namespace platform::storage::sqlite
