// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Spanish identity numbers and bank account numbers with the check characters that they must have.

#include <QString>

namespace tools {

/// A person's NIF: eight digits and their letter. `number` is 0 to 99999999.
[[nodiscard]] QString nif(int number);

/// A legal person's number: letter of its kind, seven digits (0 to 9999999), and the check character, which
/// is a letter for public bodies and foreigners (P, Q, R, S, N, W) and a digit for all others.
[[nodiscard]] QString cif(QChar kind, int number);

/// The two check digits of an account: the first over bank and branch (four digits each), the second over the
/// account's ten digits. Anything but digits counts as 0.
[[nodiscard]] QString accountCheckDigits(QStringView bank, QStringView branch, QStringView account);

} // namespace tools
