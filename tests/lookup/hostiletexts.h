// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Texts that a user could type or paste to break a query that they are put into as they stand: pieces of
// queries, quotes, wildcards, other alphabets, signs that can't be seen, and very long ones. The same seed
// gives the same texts.

#include <QRandomGenerator>
#include <QString>
#include <QStringList>

namespace lookuptest {

class HostileTexts
{
public:
    /// `names` are tables, columns and files worth naming in a query.
    HostileTexts(quint32 seed, QStringList names);

    /// At most 10,000 units; may be empty or blank, and hold what a text box doesn't take.
    [[nodiscard]] QString next();

private:
    [[nodiscard]] int dice(int sides) { return m_dice.bounded(sides); }
    [[nodiscard]] QString oneOf(std::initializer_list<QStringView> pieces);
    [[nodiscard]] QString name();
    [[nodiscard]] QString literal();
    [[nodiscard]] QString condition(int depth);
    [[nodiscard]] QString piece();
    [[nodiscard]] QString soup();
    [[nodiscard]] QString closingCondition();
    [[nodiscard]] QString secondStatement();
    [[nodiscard]] QString otherTable();
    [[nodiscard]] QString anyUnits();
    [[nodiscard]] QString longText();
    [[nodiscard]] QString damaged(QString text);

    QRandomGenerator m_dice;
    QStringList m_names;
};

} // namespace lookuptest
