// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The walk over the rows of a query in skip mode.

#include "platform/core/regime.h"
#include "platform/dao/dao.h"

#include <utility>

/// Runs `body` for each row from the current one to the end. A recordset that can't tell its end, as after a
/// query that failed, gives one pass; a row that can't be left ends the walk.
template <typename Body>
void walkToEnd(platform::dao::Recordset& rows, Body&& body)
{
    for (bool goesOn = true; goesOn;) {
        bool atEnd = false;
        goesOn = false;
        platform::attempt([&] {
            atEnd = rows.EOF_();
            goesOn = !atEnd;
        });
        if (atEnd)
            return;
        body();
        bool moved = false;
        platform::attempt([&] {
            rows.MoveNext();
            moved = true;
        });
        goesOn = goesOn && moved;
    }
}
