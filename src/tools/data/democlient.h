// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One client of the demo, made up whole: who it is, where it is and how it is reached. Pure: the same
// generator state gives the same client, and nothing is written.

#include "tools/data/random.h"

#include <QString>

namespace tools {

enum class ClientKind { Community, Company, Person, Public, Hotel, Workshop, School };

struct Address
{
    QString street;
    QString town;
    QString province;
    QString postalCode;
};

struct DemoClient
{
    int number = 0; ///< from 1
    QString code;   ///< ten digits
    ClientKind kind = ClientKind::Company;
    QString name;
    QString tradeName; ///< may be empty
    QString taxId;
    QString email; ///< may be empty
    Address address;
};

/// The code that a client's number is stored under: codes have gaps, as clients come and go.
[[nodiscard]] int codeNumber(int number) noexcept;

[[nodiscard]] DemoClient makeClient(int number, Random& random);

/// A street in one of the towns.
[[nodiscard]] Address makeAddress(Random& random);
/// A person's name, given name first.
[[nodiscard]] QString makePerson(Random& random);
/// A fixed line of the province, nine digits, or a mobile one.
[[nodiscard]] QString makePhone(const QString& postalCode, bool mobile, Random& random);

} // namespace tools
