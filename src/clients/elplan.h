// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The link to the suite's chart of accounts. No procedure of this program opens that chart, so nothing is
// stored.

#include <QString>

/// Offers the account in the `CUENTA…` variables to the chart. Its lasting effect is on the variables alone:
/// the first comma of `CUENTANOMBRE` and of `CUENTADIRECCION` becomes a blank, unless `CUENTACODIGO` is
/// blank. Handler mode: every failure goes on with the next statement.
void ESCRIBIRCUENTA();

/// The account as one text of 45 fields parted by commas, from the `CUENTA…` variables.
[[nodiscard]] QString accountLine();
