// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/democlient.h"

#include "tools/data/identifiers.h"
#include "tools/data/places.h"
#include "tools/data/wordlists.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <initializer_list>

namespace tools {

namespace {

constexpr int kNameSize = 35;

struct KindShare
{
    ClientKind kind;
    int upTo; ///< of a hundred, running
};
constexpr std::array kKinds{
    KindShare{ClientKind::Community, 32}, KindShare{ClientKind::Company, 58},
    KindShare{ClientKind::Person, 72},    KindShare{ClientKind::Public, 78},
    KindShare{ClientKind::Hotel, 87},     KindShare{ClientKind::Workshop, 95},
    KindShare{ClientKind::School, 100},
};

ClientKind makeKind(Random& random)
{
    const int draw = random.below(100);
    const auto found = std::find_if(kKinds.begin(), kKinds.end(),
                                    [draw](const KindShare& share) { return draw < share.upTo; });
    return found == kKinds.end() ? ClientKind::Company : found->kind;
}

QString word(Words words, Random& random)
{
    return random.pick(words).toString();
}

QString postalText(int code)
{
    return QString::number(code).rightJustified(5, u'0');
}

/// The parts in a row. A braced list is evaluated from left to right with every compiler, which the operands
/// of
/// `+` are not, and the order of the draws is part of the data.
QString joined(std::initializer_list<QString> parts)
{
    QString text;
    for (const QString& part : parts)
        text += part;
    return text;
}

QString companyName(Random& random)
{
    const QString form = random.chance(80) ? QStringLiteral(", S.L.") : QStringLiteral(", S.A.");
    switch (random.below(4)) {
    case 0:
        return joined({word(firmStems(), random), word(firmStems(), random).toLower(), form});
    case 1:
        return joined({word(firmTrades(), random), QStringLiteral(" "), word(surnames(), random), form});
    case 2:
        return joined({word(surnames(), random), QStringLiteral(" y "), word(surnames(), random), form});
    default:
        return joined({word(firmTrades(), random), QStringLiteral(" "), word(houseNames(), random), form});
    }
}

QString surnameFirst(Random& random)
{
    return joined({word(surnames(), random), QStringLiteral(" "), word(surnames(), random),
                   QStringLiteral(", "), word(givenNames(), random)});
}

QString hotelName(Random& random)
{
    constexpr std::array kHouses{QStringView(u"Hotel"),        QStringView(u"Hostal"),
                                 QStringView(u"Restaurante"),  QStringView(u"Cafetería"),
                                 QStringView(u"Apartamentos"), QStringView(u"Chiringuito")};
    return joined({word(kHouses, random), QStringLiteral(" "), word(houseNames(), random)});
}

QString workshopName(Random& random)
{
    constexpr std::array kWorkshops{QStringView(u"Talleres"), QStringView(u"Hnos."),
                                    QStringView(u"Mecanizados"), QStringView(u"Carrocerías"),
                                    QStringView(u"Neumáticos")};
    return joined({word(kWorkshops, random), QStringLiteral(" "), word(surnames(), random),
                   random.chance(50) ? QStringLiteral(", S.L.") : QStringLiteral(", C.B.")});
}

QString schoolName(Random& random)
{
    constexpr std::array kSchools{QStringView(u"Colegio"), QStringView(u"Instituto"),
                                  QStringView(u"Guardería"), QStringView(u"Residencia"),
                                  QStringView(u"Academia")};
    return joined({word(kSchools, random), QStringLiteral(" "), word(houseNames(), random)});
}

QString publicName(const Address& address, Random& random)
{
    constexpr std::array kBodies{QStringView(u"Ayuntamiento de "), QStringView(u"Ayuntamiento de "),
                                 QStringView(u"Centro de Salud de "), QStringView(u"Juzgado de "),
                                 QStringView(u"Polideportivo de ")};
    return word(kBodies, random) + address.town;
}

QString nameOf(ClientKind kind, const Address& address, Random& random)
{
    switch (kind) {
    case ClientKind::Community:
        return QStringLiteral("C.P. ") + QString(address.street).remove(QStringLiteral("C/ "));
    case ClientKind::Company:
        return companyName(random);
    case ClientKind::Person:
        return surnameFirst(random);
    case ClientKind::Public:
        return publicName(address, random);
    case ClientKind::Hotel:
        return hotelName(random);
    case ClientKind::Workshop:
        return workshopName(random);
    case ClientKind::School:
        return schoolName(random);
    }
    return {};
}

/// The letter that a legal person's number begins with; a null character for a person.
QChar taxLetter(const DemoClient& client)
{
    switch (client.kind) {
    case ClientKind::Community:
        return u'H';
    case ClientKind::Public:
        return u'P';
    case ClientKind::School:
        return u'G';
    case ClientKind::Person:
        return {};
    default:
        if (client.name.endsWith(u"S.A."))
            return u'A';
        return client.name.endsWith(u"C.B.") ? QChar(u'E') : QChar(u'B');
    }
}

QString makeTaxId(const DemoClient& client, Random& random)
{
    const QChar letter = taxLetter(client);
    if (letter.isNull())
        return nif(random.between(1200000, 78999999));
    // Two digits of the province, five that number the firms of it.
    return cif(letter, client.address.postalCode.left(2).toInt() * 100000 + random.between(1000, 99999));
}

/// Letters and digits of a name without accents, for a mail address.
QString plainLetters(const QString& name)
{
    QString plain;
    for (const QChar character : name.normalized(QString::NormalizationForm_D).toLower()) {
        if ((character >= u'a' && character <= u'z') || character.isDigit())
            plain += character;
    }
    return plain.left(20);
}

/// Nobody lives in an industrial estate or on a road: a community's street is drawn again until people could.
Address makeHome(Random& random)
{
    constexpr std::array kRoads{QStringView(u"Pol."), QStringView(u"Ctra."), QStringView(u"Camino")};
    for (;;) {
        Address address = makeAddress(random);
        const bool road = std::any_of(kRoads.begin(), kRoads.end(),
                                      [&](QStringView kind) { return address.street.startsWith(kind); });
        if (!road && !address.street.contains(u'º'))
            return address;
    }
}

QString makeEmail(const DemoClient& client, Random& random)
{
    if (random.chance(35))
        return {};
    if (client.kind == ClientKind::Person)
        return plainLetters(client.name) + QStringLiteral("@correo.example");
    constexpr std::array kBoxes{QStringView(u"info"), QStringView(u"administracion"), QStringView(u"correo"),
                                QStringView(u"mantenimiento")};
    return word(kBoxes, random) + u'@' + plainLetters(client.name) + QStringLiteral(".example");
}

} // namespace

int codeNumber(int number) noexcept
{
    return number + number / 17;
}

Address makeAddress(Random& random)
{
    const Town& town = random.pick(towns());
    const int code = town.lastPostalCode > town.firstPostalCode
                         ? random.between(town.firstPostalCode, town.lastPostalCode)
                         : town.firstPostalCode;
    QString street = joined({word(streetKinds(), random), QStringLiteral(" "), word(streetNames(), random),
                             QStringLiteral(", "), QString::number(random.between(1, 120))});
    if (random.chance(25))
        street += QStringLiteral(", %1º").arg(random.between(1, 8));
    return {street.left(kNameSize), town.name.toString(), provinceOf(code).name.toString(), postalText(code)};
}

QString makePerson(Random& random)
{
    return joined({word(givenNames(), random), QStringLiteral(" "), word(surnames(), random),
                   QStringLiteral(" "), word(surnames(), random)});
}

QString makePhone(const QString& postalCode, bool mobile, Random& random)
{
    const QString start = mobile ? QString::number(random.between(600, 699))
                                 : provinceOf(postalCode.toInt()).phonePrefix.toString();
    QString phone = start;
    while (phone.size() < 9)
        phone += QChar(u'0' + random.below(10));
    return phone;
}

DemoClient makeClient(int number, Random& random)
{
    DemoClient client;
    client.number = number;
    client.code = QString::number(codeNumber(number)).rightJustified(10, u'0');
    client.kind = makeKind(random);
    client.address = client.kind == ClientKind::Community ? makeHome(random) : makeAddress(random);
    client.name = nameOf(client.kind, client.address, random).left(kNameSize);
    client.taxId = makeTaxId(client, random);
    client.email = makeEmail(client, random);
    if (client.kind == ClientKind::Hotel || random.chance(20))
        client.tradeName = word(houseNames(), random);
    return client;
}

} // namespace tools
