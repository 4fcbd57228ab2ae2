// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What screen readers are to call the controls that are none of Qt's: the list bar is a tool bar, the pages
// of a tab control a group.

namespace platform {

/// Gives the controls their roles, from now on. More calls do nothing.
void provideAccessibleRoles();

} // namespace platform
