// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/identifiers.h"

#include <array>

namespace tools {

namespace {

QString padded(int number, int width)
{
    return QString::number(number).rightJustified(width, u'0');
}

int digitOf(QChar character)
{
    return character.isDigit() ? character.digitValue() : 0;
}

/// 11 less the weighted sum's rest; 10 is written 1 and 11 is written 0. Shorter texts use the last weights.
QChar accountDigit(QStringView digits)
{
    constexpr std::array<int, 10> kWeights{1, 2, 4, 8, 5, 10, 9, 7, 3, 6};
    int sum = 0;
    const qsizetype skipped = qsizetype{kWeights.size()} - digits.size();
    for (qsizetype i = 0; i < digits.size(); ++i)
        sum += digitOf(digits[i]) * kWeights.at(static_cast<std::size_t>(skipped + i));
    const int check = 11 - sum % 11;
    if (check == 11)
        return u'0';
    return check == 10 ? QChar(u'1') : QChar(u'0' + check);
}

} // namespace

QString nif(int number)
{
    constexpr QStringView kLetters = u"TRWAGMYFPDXBNJZSQVHLCKE";
    return padded(number, 8) + kLetters[number % 23];
}

QString cif(QChar kind, int number)
{
    const QString digits = padded(number, 7);
    int sum = 0;
    for (qsizetype i = 0; i < digits.size(); ++i) {
        const int doubled = 2 * digitOf(digits[i]);
        sum += i % 2 == 0 ? doubled / 10 + doubled % 10 : digitOf(digits[i]);
    }
    const int check = (10 - sum % 10) % 10;
    const bool letter = QStringView(u"PQRSNW").contains(kind);
    return kind + digits + (letter ? QStringView(u"JABCDEFGHI")[check] : QChar(u'0' + check));
}

QString accountCheckDigits(QStringView bank, QStringView branch, QStringView account)
{
    const QString office = bank.toString() + branch.toString();
    return QString(accountDigit(office)) + accountDigit(account);
}

} // namespace tools
