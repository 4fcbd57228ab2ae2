// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/randomfile.h"

#include "support/failureof.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::RandomFile;
using support::failureOf;

class RandomFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordsLieAtTheirPlaces();
    void shortRecordIsFilledUp();
    void recordLongerThanItsLengthIsRefused();
    void fileThatCannotBeOpenedFails();
    void recordLengthBelowOneIsRefused();
    void unopenedFileFails();
    void recordHeldByAnotherIsRefused();
    void closingDropsTheLocks();

private:
    [[nodiscard]] QString path() const { return m_folder.filePath(u"records"_s); }

    QTemporaryDir m_folder;
};

void RandomFileTest::recordsLieAtTheirPlaces()
{
    RandomFile file;
    file.open(path(), 4);

    file.put(2, "bbbb");
    file.put(1, "aaaa");
    file.close();

    QFile written(path());
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), QByteArray("aaaabbbb"));
}

void RandomFileTest::shortRecordIsFilledUp()
{
    RandomFile file;
    file.open(path(), 4);

    file.put(1, "x");
    file.close();

    QFile written(path());
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.read(4), QByteArray("x\0\0\0", 4));
}

void RandomFileTest::recordLongerThanItsLengthIsRefused()
{
    RandomFile file;
    file.open(path(), 4);

    QCOMPARE(failureOf([&] { file.put(1, "abcde"); }), 59);
}

void RandomFileTest::fileThatCannotBeOpenedFails()
{
    RandomFile file;

    QCOMPARE(failureOf([&] { file.open(m_folder.filePath(u"missing/records"_s), 4); }), 53);
}

void RandomFileTest::recordLengthBelowOneIsRefused()
{
    RandomFile file;

    QCOMPARE(failureOf([&] { file.open(m_folder.filePath(u"unmade"_s), 0); }), 5);
    QVERIFY(!QFile::exists(m_folder.filePath(u"unmade"_s)));
}

void RandomFileTest::unopenedFileFails()
{
    RandomFile file;

    QCOMPARE(failureOf([&] { file.lock(1); }), 52);
    QCOMPARE(failureOf([&] { file.put(1, "x"); }), 52);
}

void RandomFileTest::recordHeldByAnotherIsRefused()
{
    RandomFile one;
    RandomFile other;
    one.open(path(), 4);
    other.open(path(), 4);
    one.lock(1);

    QCOMPARE(failureOf([&] { other.lock(1); }), 70);
    QCOMPARE(failureOf([&] { other.lock(2); }), 0);
    one.unlock(1);
    QCOMPARE(failureOf([&] { other.lock(1); }), 0);
}

void RandomFileTest::closingDropsTheLocks()
{
    RandomFile one;
    RandomFile other;
    one.open(path(), 4);
    other.open(path(), 4);
    one.lock(1);

    one.close();

    QCOMPARE(failureOf([&] { other.lock(1); }), 0);
}

QTEST_GUILESS_MAIN(RandomFileTest)
#include "tst_randomfile.moc"
