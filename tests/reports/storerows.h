// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the stores of a data root hold, read by SQLite alone and reckoned here: neither the program nor its
// print engine has a hand in it.

#include <QList>
#include <QString>
#include <QStringList>

namespace reporttest {

/// The rows of a query over a store; Null as "". A query that fails ends the test.
[[nodiscard]] QList<QStringList> storeRows(const QString& file, const char* query);

/// What a maintenance note must say of a client.
struct ExpectedNote
{
    QString client; ///< its code
    QString name;
    QString zone;
    QString road;         ///< postal code and code: the order of the notes in their zone
    QStringList articles; ///< of the concepts in force, in their order
    qint64 cents = 0;     ///< units by price, rounded each, all together
};

/// The notes of all clients with concepts in force, by zone and road.
[[nodiscard]] QList<ExpectedNote> expectedNotes(const QString& companyFolder);

struct ExpectedConsultation
{
    QString number; ///< ten digits
    QString client; ///< its code
    QString date;   ///< dd/mm/yyyy
    QString time;
    QString subject;
    QString state; ///< "01 Abierta"

    [[nodiscard]] QString month() const { return date.mid(3, 2); }
    [[nodiscard]] QString year() const { return date.mid(6, 4); }
};

/// All consultations, by number.
[[nodiscard]] QList<ExpectedConsultation> expectedConsultations(const QString& companyFolder);

/// "1.234,50"
[[nodiscard]] QString spanishAmount(qint64 cents);

} // namespace reporttest
