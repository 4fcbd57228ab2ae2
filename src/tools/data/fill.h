// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Fills the stores of one company, already created, with the demo's rows. Each function writes one store and
// fails with the data engine's failures.

#include "platform/storage/storage.h"
#include "tools/data/catalogue.h"
#include "tools/data/democlient.h"
#include "tools/data/random.h"

#include <QDate>
#include <QString>

#include <vector>

namespace tools {

/// First and last working day of the demo's years. Fixed, so that the data is the same on every day.
inline constexpr int kFirstYear = 2019;
[[nodiscard]] QDate firstDay() noexcept;
[[nodiscard]] QDate lastDay() noexcept;

/// A day from one to the other, both included.
[[nodiscard]] QDate makeDay(const QDate& from, const QDate& to, Random& random);

/// What the other stores need to know of a client that was written.
struct WrittenClient
{
    QString code;
    QString postalCode;
    int concepts = 0; ///< lines of `clientescyctabla`
};

void fillArticles(platform::storage::Connection& store, Random& random);
/// The zones, with the default one that every opening sees to.
void fillZones(platform::storage::Connection& store);
void fillTypes(platform::storage::Connection& store, Random& random);
/// Clients 1 to `count` with their addresses, accounts, concepts and prices.
[[nodiscard]] std::vector<WrittenClient> fillClients(platform::storage::Connection& store, int count,
                                                     Random& random);
/// Consultations of the clients, numbered through the company in the order of their days.
void fillConsultations(platform::storage::Connection& store, const std::vector<WrittenClient>& clients,
                       Random& random);
/// Telephones of the clients, under the company's number.
void fillTelephones(platform::storage::Connection& store, const Company& company,
                    const std::vector<WrittenClient>& clients, Random& random);

} // namespace tools
