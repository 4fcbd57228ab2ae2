// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The file `<store>.ldb` beside a store. It stays empty and is never deleted; only its bytes are locked.

#include <QString>

namespace platform::storage::sqlite {

/// Bytes of the sidecar and what a lock on them means.
inline constexpr int kPresenceByte = 0;  ///< shared: the store is open; exclusive: open for one alone
inline constexpr int kTurnstileByte = 1; ///< exclusive while waiting for the room: the queue before it
inline constexpr int kRoomByte = 2;      ///< shared: reading; exclusive: writing
inline constexpr int kTrialByte = 3;     ///< exclusive for a moment at the opening: whether locks hold at all
inline constexpr int kMakerByte = 4;     ///< exclusive while the store is being made

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

private:
    int m_descriptor = -1;
    bool m_writable = false;
};

} // namespace platform::storage::sqlite
