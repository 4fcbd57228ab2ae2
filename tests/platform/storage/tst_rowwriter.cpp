// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/openclients.h"
#include "platform/storage/otherstation.h"

#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class RowWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void duplicateKeyIsRefusedAndNothingIsWritten();
    void duplicateDiffersOnlyInCase();
    void emptyTextCollides();
    void nullInThePrimaryKeyIsRefused();
    void severalNullsStandUnderAUniqueIndex();
    void rowOfAnotherWidthIsRefused();
    void updateWritesTheChangedColumns();
    void updateToATakenKeyIsRefused();
    void updateToANullKeyIsRefused();
    void updateOfARowThatAnotherChangedIsRefused();
    void updateOfARowThatAnotherChangedInAnotherColumnIsRefused();
    void updateTellsTheTextFromTheNumber();
    void updateOfADeletedRowIsRefused();
    void updateWithoutAChangeWritesNothing();
    void eraseOfADeletedRowIsRefused();
    void writingIsRefusedWhileAnotherWrites();
};

void RowWriterTest::duplicateKeyIsRefusedAndNothingIsWritten()
{
    const OpenClients store;
    store.table->insert(client(u"A"_s, u"Ana"_s));

    QCOMPARE(failureOf([&] { store.table->insert(client(u"A"_s, u"Luis"_s)); }), kDuplicateKey);

    QCOMPARE(store.names({}), QStringList{u"Ana"_s});
}

void RowWriterTest::duplicateDiffersOnlyInCase()
{
    const OpenClients store;
    store.table->insert(client(u"Ab"_s, u"Ana"_s));

    QCOMPARE(failureOf([&] { store.table->insert(client(u"aB "_s, u"Luis"_s)); }), kDuplicateKey);
}

void RowWriterTest::emptyTextCollides()
{
    const OpenClients store;
    store.table->insert(client(u""_s, u"Ana"_s));

    QCOMPARE(failureOf([&] { store.table->insert(client(u""_s, u"Luis"_s)); }), kDuplicateKey);
}

void RowWriterTest::nullInThePrimaryKeyIsRefused()
{
    const OpenClients store;
    Row row = client(u"A"_s, u"Ana"_s);
    row[0] = Null{};

    QCOMPARE(failureOf([&] { store.table->insert(row); }), kNullInPrimaryKey);
}

void RowWriterTest::severalNullsStandUnderAUniqueIndex()
{
    const OpenClients store;
    store.table->insert(client(u"A"_s, u"Ana"_s));
    store.table->insert(client(u"B"_s, u"Luis"_s));

    QCOMPARE(store.table->count(), 2);
}

void RowWriterTest::rowOfAnotherWidthIsRefused()
{
    const OpenClients store;

    QCOMPARE(failureOf([&] { store.table->insert({u"A"_s}); }), kInvalidArgument);
}

void RowWriterTest::updateWritesTheChangedColumns()
{
    const OpenClients store;
    const Row before = client(u"A"_s, u"Ana"_s, 1.0, u"x"_s);
    const Row after = client(u"B"_s, u"Ana"_s, Null{}, u"y"_s);
    const RowId id = store.table->insert(before);

    store.table->update(id, before, after);

    Row row;
    QCOMPARE(store.seek(u"PorCodigo"_s, {u"B"_s}, row), std::optional(id));
    QCOMPARE(row, after);
    QVERIFY(!store.seek(u"PorCodigo"_s, {u"A"_s}));
}

void RowWriterTest::updateToATakenKeyIsRefused()
{
    const OpenClients store;
    const Row ana = client(u"A"_s, u"Ana"_s);
    const RowId id = store.table->insert(ana);
    store.table->insert(client(u"B"_s, u"Luis"_s));

    QCOMPARE(failureOf([&] { store.table->update(id, ana, client(u"b"_s, u"Ana"_s)); }), kDuplicateKey);

    QCOMPARE(store.seek(u"PorCodigo"_s, {u"A"_s}), std::optional(id));
}

void RowWriterTest::updateToANullKeyIsRefused()
{
    const OpenClients store;
    const Row before = client(u"A"_s, u"Ana"_s);
    const RowId id = store.table->insert(before);
    Row after = before;
    after[0] = Null{};

    QCOMPARE(failureOf([&] { store.table->update(id, before, after); }), kNullInPrimaryKey);
}

void RowWriterTest::updateOfARowThatAnotherChangedIsRefused()
{
    const OpenClients store;
    const Row before = client(u"A"_s, u"Ana"_s);
    const RowId id = store.table->insert(before);
    store.folder.open()->openTable(u"CLIENTES"_s)->update(id, before, client(u"A"_s, u"ANA"_s));

    QCOMPARE(failureOf([&] { store.table->update(id, before, client(u"A"_s, u"Eva"_s)); }), kDataChanged);

    QCOMPARE(store.names({}), QStringList{u"ANA"_s});
}

void RowWriterTest::updateOfARowThatAnotherChangedInAnotherColumnIsRefused()
{
    const OpenClients store;
    const Row before = client(u"A"_s, u"Ana"_s);
    const RowId id = store.table->insert(before);
    store.folder.open()->openTable(u"CLIENTES"_s)->update(id, before, client(u"A"_s, u"Ana"_s, 1.0));

    QCOMPARE(failureOf([&] { store.table->update(id, before, client(u"A"_s, u"Eva"_s)); }), kDataChanged);
}

void RowWriterTest::updateTellsTheTextFromTheNumber()
{
    const OpenClients store;
    const Row before = client(u"A"_s, u"Ana"_s, 1.0);
    const RowId id = store.table->insert(before);

    QCOMPARE(failureOf([&] { store.table->update(id, client(u"A"_s, u"Ana"_s, u"1"_s), before); }),
             kDataChanged);
}

void RowWriterTest::updateOfADeletedRowIsRefused()
{
    const OpenClients store;
    const Row before = client(u"A"_s, u"Ana"_s);
    const RowId id = store.table->insert(before);
    store.folder.open()->openTable(u"CLIENTES"_s)->erase(id);

    QCOMPARE(failureOf([&] { store.table->update(id, before, client(u"A"_s, u"Eva"_s)); }), kRecordDeleted);
}

void RowWriterTest::updateWithoutAChangeWritesNothing()
{
    const OpenClients store;
    const Row before = client(u"A"_s, u"Ana"_s);
    const RowId id = store.table->insert(before);
    const quint64 version = store.connection->dataVersion();

    store.table->update(id, before, before);

    QCOMPARE(store.connection->dataVersion(), version);
}

void RowWriterTest::eraseOfADeletedRowIsRefused()
{
    const OpenClients store;
    const RowId id = store.table->insert(client(u"A"_s, u"Ana"_s));
    store.table->erase(id);

    QCOMPARE(failureOf([&] { store.table->erase(id); }), kRecordDeleted);
}

void RowWriterTest::writingIsRefusedWhileAnotherWrites()
{
    const OpenClients store;
    const OtherStation other(store.folder.path(), u"writing"_s);
    QCOMPARE(other.answer(), u"held"_s);

    QCOMPARE(failureOf([&] { store.table->insert(client(u"A"_s, u"Ana"_s)); }), kLockedByAnother);
}

QTEST_GUILESS_MAIN(RowWriterTest)
#include "tst_rowwriter.moc"
