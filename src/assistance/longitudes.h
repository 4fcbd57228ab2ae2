// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The zero fill of codes, shared by the client's fields and the consultation numbers.

/// Reads `VALORLONGITUD` and `ANCHOLONGITUD`, writes `RESULTADOLONGITUD`: a text of digits only becomes its
/// number, filled with zeros at the left to the width; any other text is only trimmed. A number wider than
/// the width leaves the result as it was. Skip mode.
void AJUSTALONGITUD();
