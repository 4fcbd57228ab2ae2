// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/rawsqlite.h"
#include "platform/storage/storefixture.h"

#include <QTest>

#include <memory>
#include <sqlite3.h>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

namespace {

/// SQLite as it comes, without anything of ours, on a store of three clients.
class PlainSqlite
{
public:
    PlainSqlite()
    {
        static_cast<void>(m_folder.createClients());
        RawSqlite(m_folder.path())
            .run("INSERT INTO CLIENTES(CODIGO, NOMBRE) VALUES('1', 'luz'), ('2', 'Llave'), ('3', 'mano')");
        sqlite3* handle = nullptr;
        sqlite3_open(m_folder.path().toUtf8().constData(), &handle);
        m_handle.reset(handle);
    }
    int load()
    {
        sqlite3_db_config(m_handle.get(), SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 1, nullptr);
        return sqlite3_load_extension(m_handle.get(), STORAGE_EXTENSION, nullptr, nullptr);
    }
    [[nodiscard]] QString column(const char* sql)
    {
        QStringList rows;
        const int code = sqlite3_exec(m_handle.get(), sql, &collect, &rows, nullptr);
        return code == SQLITE_OK ? rows.join(u',') : QString::fromUtf8(sqlite3_errmsg(m_handle.get()));
    }

private:
    static int collect(void* rows, int, char** values, char**)
    {
        static_cast<QStringList*>(rows)->append(QString::fromUtf8(values[0]));
        return 0;
    }
    struct Close
    {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    StoreFolder m_folder;
    std::unique_ptr<sqlite3, Close> m_handle;
};

} // namespace

class ExtensionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storeIsReadableWithoutIt();
    void orderNeedsIt();
    void orderIsThatOfTheStore();
    void textsAreFoundWithoutRegardToCase();
    void storeChecksSoundWithIt();
};

void ExtensionTest::storeIsReadableWithoutIt()
{
    PlainSqlite plain;

    QCOMPARE(plain.column("SELECT CODIGO FROM CLIENTES"), u"1,2,3"_s);
}

void ExtensionTest::orderNeedsIt()
{
    PlainSqlite plain;

    QCOMPARE(plain.column("SELECT NOMBRE FROM CLIENTES ORDER BY NOMBRE"),
             u"no such collation sequence: ES_TRADICIONAL"_s);
}

void ExtensionTest::orderIsThatOfTheStore()
{
    PlainSqlite plain;
    QCOMPARE(plain.load(), SQLITE_OK);

    QCOMPARE(plain.column("SELECT NOMBRE FROM CLIENTES ORDER BY NOMBRE"), u"luz,Llave,mano"_s);
}

void ExtensionTest::textsAreFoundWithoutRegardToCase()
{
    PlainSqlite plain;
    QCOMPARE(plain.load(), SQLITE_OK);

    QCOMPARE(plain.column("SELECT CODIGO FROM CLIENTES WHERE NOMBRE = 'LLAVE '"), u"2"_s);
}

void ExtensionTest::storeChecksSoundWithIt()
{
    PlainSqlite plain;
    QCOMPARE(plain.load(), SQLITE_OK);

    QCOMPARE(plain.column("PRAGMA integrity_check"), u"ok"_s);
}

QTEST_GUILESS_MAIN(ExtensionTest)
#include "tst_extension.moc"
