// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/openclients.h"
#include "platform/storage/sqlite/handle.h"

#include <QTest>

#include <csignal>
#include <new>

#include <sqlite3.h>
#include <sys/resource.h>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;
using platform::storage::sqlite::Task;

namespace {

/// Lets no file of the process grow beyond a size, as a disk that refuses to write does.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    using Handler = void (*)(int);
    Handler m_handler;
    rlimit m_before = {};
};

} // namespace

class HandleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codeHasTheNumberOfItsTask_data();
    void codeHasTheNumberOfItsTask();
    void outOfMemoryIsNoFailureOfTheProgram();
    void refusedWriteLeavesTheStoreAsItWas();
    void nameIsQuoted();
};

void HandleTest::codeHasTheNumberOfItsTask_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("task");
    QTest::addColumn<int>("number");
    const auto row = [](const char* name, int code, Task task, int number) {
        QTest::newRow(name) << code << static_cast<int>(task) << number;
    };
    row("busy at the open", SQLITE_BUSY, Task::Open, kCouldNotLockFile);
    row("busy at a read", SQLITE_BUSY, Task::Read, kLockedByAnother);
    row("busy at an update", SQLITE_BUSY, Task::Write, kLockedByAnother);
    row("busy at a change of structure", SQLITE_LOCKED, Task::Structure, kCouldNotLockTable);
    row("lock that the disk refuses", SQLITE_IOERR_LOCK, Task::Open, kCouldNotLockFile);
    row("protocol", SQLITE_PROTOCOL, Task::Open, kCouldNotLockFile);
    row("disk full", SQLITE_FULL, Task::Write, kDiskFull);
    row("read-only", SQLITE_READONLY, Task::Write, kReadOnly);
    row("disk error", SQLITE_IOERR_WRITE, Task::Write, kDiskOrNetworkError);
    row("no database", SQLITE_NOTADB, Task::Open, kNotADatabase);
    row("damage met later", SQLITE_CORRUPT, Task::Read, kNotADatabase);
    row("can't open", SQLITE_CANTOPEN, Task::Open, kCannotOpenFile);
    row("too big", SQLITE_TOOBIG, Task::Write, kRecordTooLarge);
    row("duplicate", SQLITE_CONSTRAINT_UNIQUE, Task::Write, kDuplicateKey);
    row("Null in a column that refuses it", SQLITE_CONSTRAINT_NOTNULL, Task::Write, kNullInPrimaryKey);
    row("not allowed", SQLITE_AUTH, Task::Read, kInvalidOperation);
}

void HandleTest::codeHasTheNumberOfItsTask()
{
    QFETCH(int, code);
    QFETCH(int, task);
    QFETCH(int, number);

    QCOMPARE(failureOf([&] { sqlite::fail(code, nullptr, static_cast<Task>(task)); }), number);
}

void HandleTest::outOfMemoryIsNoFailureOfTheProgram()
{
    QVERIFY_THROWS_EXCEPTION(std::bad_alloc, sqlite::fail(SQLITE_NOMEM, nullptr, Task::Write));
}

void HandleTest::refusedWriteLeavesTheStoreAsItWas()
{
    const OpenClients store;
    store.table->insert(client(u"A"_s, u"Ana"_s));
    const Row large = client(u"B"_s, u"Luis"_s, Null{}, QString(200'000, u'x'));
    {
        const FileSizeLimit limit(100'000);
        QCOMPARE(failureOf([&] { store.table->insert(large); }), kDiskOrNetworkError);
    }

    QCOMPARE(store.table->count(), 1);
    store.table->insert(large);
    QCOMPARE(store.table->count(), 2);
}

void HandleTest::nameIsQuoted()
{
    QCOMPARE(sqlite::quoted(u"a\"b"_s), "\"a\"\"b\"");
}

QTEST_GUILESS_MAIN(HandleTest)
#include "tst_handle.moc"
