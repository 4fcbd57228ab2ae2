// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What SQLite may do on a store's handle. While a query is prepared and run nothing but selecting from the
// user's tables is let through, whatever its text says; no statement may ever reach another file.

#include <QByteArray>

struct sqlite3;

namespace platform::storage::sqlite {

class Authorizer
{
public:
    /// Installs itself; must outlive the handle's last statement.
    explicit Authorizer(sqlite3* database);
    Authorizer(const Authorizer&) = delete;
    Authorizer& operator=(const Authorizer&) = delete;

    [[nodiscard]] bool onlySelects() const noexcept { return m_onlySelects; }

private:
    friend class SelectOnly;
    bool m_onlySelects = false;
};

/// Lets through nothing but selecting, for as long as it lives.
class SelectOnly
{
public:
    explicit SelectOnly(Authorizer& authorizer) noexcept
        : m_authorizer(authorizer)
    {
        authorizer.m_onlySelects = true;
    }
    ~SelectOnly() { m_authorizer.m_onlySelects = false; }
    SelectOnly(const SelectOnly&) = delete;
    SelectOnly& operator=(const SelectOnly&) = delete;

private:
    Authorizer& m_authorizer;
};

} // namespace platform::storage::sqlite
