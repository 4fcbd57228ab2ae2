// SPDX-License-Identifier: GPL-3.0-or-later

// Adds many clients to a store, quickly: code, name and town, in an order that is plain to see.
// Usage: orvane-crowd CLIENTS_STORE COUNT

#include "platform/core/failure.h"
#include "platform/storage/storage.h"
#include "tools/data/bulktable.h"

#include <QCoreApplication>
#include <QTextStream>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Trees, in the order of the stores' texts: "ch" is a letter after "c", "ll" one after "l", "ñ" one after
/// "n", and an accent counts for nothing here.
constexpr std::array<QStringView, 10> kTrees{u"Álamo", u"Barranco", u"Chopo", u"Encina",  u"Llano",
                                             u"Nogal", u"Ñandú",    u"Olmo",  u"Robledo", u"Zarza"};
constexpr int kFirstCode = 1'000'000;
constexpr int kCodeDigits = 10;
constexpr int kNumberDigits = 6;

QString padded(int number, int digits)
{
    return u"%1"_s.arg(number, digits, 10, QChar(u'0'));
}

void addClients(const QString& store, int count)
{
    const auto connection =
        platform::storage::sqliteEngine()->open(store, platform::storage::Sharing::Exclusive);
    tools::BulkTable clients(*connection, u"ClientesTabla");
    for (int number = 0; number < count; ++number) {
        const QStringView tree = kTrees.at(static_cast<std::size_t>(number) % kTrees.size());
        const QString name = u"%1 %2"_s.arg(tree, padded(number, kNumberDigits));
        clients.add({{u"CliCodigo", padded(kFirstCode + number, kCodeDigits)},
                     {u"CliNombre", name},
                     {u"CliCodPostalLocali", u"Jaca"_s}});
    }
    clients.flush();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    try {
        addClients(arguments.at(1), arguments.at(2).toInt());
    } catch (const platform::Failure& failure) {
        QTextStream(stderr) << arguments.at(1) << ": " << failure.number() << ' ' << failure.text() << '\n';
        return 1;
    }
    return 0;
}
