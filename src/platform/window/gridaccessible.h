// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A grid as screen readers know it: a table whose cells bear their column's name, tell whether they are
// ticked, and do by their action what a key does to them. The headings are the first children, then come the
// cells, row after row; rows and columns of the table count from 0, below the headings.

namespace platform {

/// Makes every `FlexGrid` show itself so, from now on. More calls do nothing.
void provideGridAccessibility();

} // namespace platform
