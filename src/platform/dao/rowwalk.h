// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The walk over the rows of a recordset in skip mode.

#include "platform/core/regime.h"
#include "platform/dao/dao.h"

namespace platform::dao {

/// Runs `body` for each row from the current one to the end. A test of the end that fails lets the body run;
/// a row that can't be left ends the walk, so that a query that failed gives one pass.
template <typename Body>
void walkToEnd(Recordset& rows, Body&& body)
{
    bool moved = true;
    while (moved && holds([&] { return !rows.EOF_(); })) {
        body();
        moved = false;
        attempt([&] {
            rows.MoveNext();
            moved = true;
        });
    }
}

} // namespace platform::dao
