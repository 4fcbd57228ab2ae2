// SPDX-License-Identifier: GPL-3.0-or-later
// Rows as they come out of a store, a few at a time, and the sorting of many.
#include "platform/print/data/connection.h"
#include "platform/print/data/mergesort.h"
#include "platform/print/storefixture.h"

#include <QTemporaryDir>
#include <QTest>

#include <sqlite3.h>

#include <numeric>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class TableReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowNumbersFarApartAreAllRead_data();
    void rowNumbersFarApartAreAllRead();
    void conditionThatNothingMeetsTakesSeveralSteps();
    void tableOfWhichNoColumnIsReadIsCounted();
    void bytesOfAPictureArriveUnchanged();
    void sortingInStepsIsStable_data();
    void sortingInStepsIsStable();

private:
    void givenRows(int count);
    void change(const QByteArray& sql) const;
    /// Column N of the rows, read to the end.
    QList<double> numbers(const QByteArray& condition);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TableReaderTest::givenRows(int count)
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"T.MDB"_s);
    std::vector<std::vector<Value>> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        rows.push_back({static_cast<double>(i), u"x"_s});
    givenTable(m_path, u"T"_s, {u"N#"_s, u"FOTO+"_s}, rows);
}

void TableReaderTest::change(const QByteArray& sql) const
{
    sqlite3* database = nullptr;
    QCOMPARE(sqlite3_open(m_path.toUtf8().constData(), &database), SQLITE_OK);
    const int code = sqlite3_exec(database, sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_close(database);
    QCOMPARE(code, SQLITE_OK);
}

QList<double> TableReaderTest::numbers(const QByteArray& condition)
{
    Connection connection;
    connection.open(m_path);
    const std::unique_ptr<TableReader> reader = connection.reader(m_path, u"T"_s, {0}, condition);
    while (reader->step()) {
    }
    const RowStore rows = reader->takeRows();
    QList<double> found;
    for (quint32 row = 0; row < rows.rowCount(); ++row)
        found += std::get<double>(rows.value(row, 0));
    return found;
}

void TableReaderTest::rowNumbersFarApartAreAllRead_data()
{
    QTest::addColumn<QByteArray>("condition");
    QTest::newRow("all rows") << QByteArray();
    QTest::newRow("with a condition") << QByteArray("N < 4");
}

void TableReaderTest::rowNumbersFarApartAreAllRead()
{
    QFETCH(const QByteArray, condition);
    givenRows(4);
    change("UPDATE T SET rowid = -9223372036854775807 WHERE N = 0;"
           "UPDATE T SET rowid = -3 WHERE N = 1;"
           "UPDATE T SET rowid = 9223372036854775306 WHERE N = 2;"
           "UPDATE T SET rowid = 9223372036854775807 WHERE N = 3");

    QCOMPARE(numbers(condition), (QList<double>{0, 1, 2, 3}));
}

void TableReaderTest::conditionThatNothingMeetsTakesSeveralSteps()
{
    givenRows(5000);
    Connection connection;
    connection.open(m_path);
    const std::unique_ptr<TableReader> reader = connection.reader(m_path, u"T"_s, {0}, "N < 0");
    int steps = 1;
    while (reader->step())
        ++steps;

    QVERIFY2(steps >= 8, qPrintable(QString::number(steps)));
    QCOMPARE(reader->rowCount(), 0u);
}

void TableReaderTest::tableOfWhichNoColumnIsReadIsCounted()
{
    givenRows(600);
    Connection connection;
    connection.open(m_path);
    const std::unique_ptr<TableReader> reader = connection.reader(m_path, u"T"_s, {}, "N >= 100");
    while (reader->step()) {
    }

    QCOMPARE(reader->takeRows().rowCount(), 500u);
}

void TableReaderTest::bytesOfAPictureArriveUnchanged()
{
    givenRows(1);
    change("UPDATE T SET FOTO = x'89504E470D0A1A0A00FFFE00'");
    Connection connection;
    connection.open(m_path);
    const std::unique_ptr<TableReader> reader = connection.reader(m_path, u"T"_s, {1});
    while (reader->step()) {
    }
    const RowStore rows = reader->takeRows();

    QCOMPARE(rows.bytes(0, 0).toByteArray(), QByteArray::fromHex("89504E470D0A1A0A00FFFE00"));
    QVERIFY(rows.bytes(kNoRow, 0).isEmpty());
}

void TableReaderTest::sortingInStepsIsStable_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 2, 3, 4095, 4096, 4097, 10'000})
        QTest::addRow("%d numbers", count) << count;
}

void TableReaderTest::sortingInStepsIsStable()
{
    QFETCH(const int, count);
    const auto less = [](quint32 left, quint32 right) {
        return left * 2654435761U % 97 < right * 2654435761U % 97;
    };
    std::vector<quint32> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0u);
    std::vector<quint32> expected = order;
    std::stable_sort(expected.begin(), expected.end(), less);

    MergeSort sort(order, less);
    while (sort.step()) {
    }

    QCOMPARE(order, expected);
}

QTEST_GUILESS_MAIN(TableReaderTest)
#include "tst_tablereader.moc"
