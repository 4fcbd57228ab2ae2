// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/storefixture.h"

#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class TableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void insertedRowIsFoundByItsKey();
    void missingKeyFindsNothing();
};

void TableTest::insertedRowIsFoundByItsKey()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    const auto table = connection->openTable(u"clientes"_s);
    const RowId id = table->insert(client(u"0000000001"_s, u"Ana"_s, 12.5, u"línea\r\notra"_s));
    table->insert(client(u"0000000002"_s, u"Luis"_s));

    Row row;
    const std::vector<Value> keys{u"0000000001"_s};
    const auto found = table->seek(u"porcodigo"_s, keys, row);

    QCOMPARE(found, std::optional(id));
    QCOMPARE(row, client(u"0000000001"_s, u"Ana"_s, 12.5, u"línea\r\notra"_s));
}

void TableTest::missingKeyFindsNothing()
{
    const StoreFolder folder;
    const auto connection = folder.createClients();
    const auto table = connection->openTable(u"CLIENTES"_s);
    table->insert(client(u"A"_s, u"Ana"_s));

    Row row;
    const std::vector<Value> keys{u"B"_s};
    QVERIFY(!table->seek(u"PorCodigo"_s, keys, row));
}

QTEST_GUILESS_MAIN(TableTest)
#include "tst_table.moc"
