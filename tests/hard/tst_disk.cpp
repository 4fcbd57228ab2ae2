// SPDX-License-Identifier: GPL-3.0-or-later

// The model of a disk itself: a test that stands on it proves nothing if it forgives too much.

#include "hard/disk.h"

#include <QSet>
#include <QtTest>

using namespace hardtest;

class DiskTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void syncedBytesSurviveEveryCut();
    void unsyncedBytesMayBeLost();
    void newNameMayBeLostUntilItsFolderIsSynced();
    void deletionMayBeUndoneUntilItsFolderIsSynced();
    void renamingIsWholeOrAbsent();
    void prefixKeepsTheOrder();
    void subsetMayKeepTheLaterWriteAlone();
    void tornWriteKeepsWholeSectors();
    void spoiltSectorTouchesNoNeighbour();
    void lengthMayComeBeforeTheBytes();
    void truncationMayBeLost();
    void folderSyncLeavesOtherFoldersAlone();

private:
    /// What many cuts leave of one file; a missing file is "(none)".
    static QSet<QByteArray> leftovers(const Disk& disk, Cut cut, const QByteArray& path = "/d/a");
};

QSet<QByteArray> DiskTest::leftovers(const Disk& disk, Cut cut, const QByteArray& path)
{
    constexpr int kTries = 300;
    QRandomGenerator random(7);
    QSet<QByteArray> found;
    for (int i = 0; i < kTries; ++i)
        found.insert(disk.afterCut(cut, random).value(path, "(none)"));
    return found;
}

void DiskTest::syncedBytesSurviveEveryCut()
{
    Disk disk;
    disk.apply({DiskOp::Make, "/d/a", {}, 0, {}});
    disk.apply({DiskOp::Write, "/d/a", {}, 0, "synced"});
    disk.apply({DiskOp::Sync, "/d/a", {}, 0, {}});
    disk.apply({DiskOp::SyncFolder, "/d", {}, 0, {}});

    QCOMPARE(disk.unsynced(), 0);
    for (const Cut cut : kCuts)
        QCOMPARE(leftovers(disk, cut), QSet<QByteArray>{"synced"});
}

void DiskTest::unsyncedBytesMayBeLost()
{
    Disk disk({{"/d/a", "old"}});
    disk.apply({DiskOp::Write, "/d/a", {}, 0, "new"});

    QCOMPARE(leftovers(disk, Cut::Lost), QSet<QByteArray>{"old"});
    QCOMPARE(leftovers(disk, Cut::Kept), QSet<QByteArray>{"new"});
    QCOMPARE(leftovers(disk, Cut::Subset), (QSet<QByteArray>{"old", "new"}));
    QCOMPARE(disk.seen().value("/d/a"), QByteArray("new"));
}

void DiskTest::newNameMayBeLostUntilItsFolderIsSynced()
{
    Disk disk;
    disk.apply({DiskOp::Make, "/d/a", {}, 0, {}});
    disk.apply({DiskOp::Write, "/d/a", {}, 0, "x"});
    disk.apply({DiskOp::Sync, "/d/a", {}, 0, {}});

    QCOMPARE(leftovers(disk, Cut::Subset), (QSet<QByteArray>{"(none)", "x"}));

    disk.apply({DiskOp::SyncFolder, "/d", {}, 0, {}});
    QCOMPARE(leftovers(disk, Cut::Lost), QSet<QByteArray>{"x"});
}

void DiskTest::deletionMayBeUndoneUntilItsFolderIsSynced()
{
    Disk disk({{"/d/a", "x"}});
    disk.apply({DiskOp::Unlink, "/d/a", {}, 0, {}});

    QCOMPARE(leftovers(disk, Cut::Subset), (QSet<QByteArray>{"(none)", "x"}));

    disk.apply({DiskOp::SyncFolder, "/d", {}, 0, {}});
    QCOMPARE(leftovers(disk, Cut::Subset), QSet<QByteArray>{"(none)"});
}

void DiskTest::renamingIsWholeOrAbsent()
{
    Disk disk({{"/d/a", "old"}, {"/d/b", "new"}});
    disk.apply({DiskOp::Rename, "/d/b", "/d/a", 0, {}});
    QRandomGenerator random(7);

    for (int i = 0; i < 100; ++i) {
        const DiskImage image = disk.afterCut(Cut::Subset, random);
        const bool isThere = image == DiskImage{{"/d/a", "new"}};
        const bool isAbsent = image == DiskImage{{"/d/a", "old"}, {"/d/b", "new"}};
        QVERIFY(isThere || isAbsent);
    }
    QCOMPARE(leftovers(disk, Cut::Subset), (QSet<QByteArray>{"old", "new"}));
}

void DiskTest::prefixKeepsTheOrder()
{
    Disk disk({{"/d/a", "..."}});
    disk.apply({DiskOp::Write, "/d/a", {}, 0, "1"});
    disk.apply({DiskOp::Write, "/d/a", {}, 1, "2"});
    disk.apply({DiskOp::Write, "/d/a", {}, 2, "3"});

    QCOMPARE(leftovers(disk, Cut::Prefix), (QSet<QByteArray>{"...", "1..", "12.", "123"}));
}

void DiskTest::subsetMayKeepTheLaterWriteAlone()
{
    Disk disk({{"/d/a", ".."}});
    disk.apply({DiskOp::Write, "/d/a", {}, 0, "1"});
    disk.apply({DiskOp::Write, "/d/a", {}, 1, "2"});

    QCOMPARE(leftovers(disk, Cut::Subset), (QSet<QByteArray>{"..", "1.", ".2", "12"}));
}

void DiskTest::tornWriteKeepsWholeSectors()
{
    Disk disk({{"/d/a", QByteArray(1024, '.')}});
    disk.apply({DiskOp::Write, "/d/a", {}, 256, QByteArray(512, 'x')});
    const QByteArray quarter(256, '.');
    const QByteArray written(256, 'x');

    QCOMPARE(
        leftovers(disk, Cut::Torn512),
        (QSet<QByteArray>{quarter + quarter + quarter + quarter, quarter + written + quarter + quarter,
                          quarter + quarter + written + quarter, quarter + written + written + quarter}));
    QCOMPARE(leftovers(disk, Cut::Torn4096), (QSet<QByteArray>{quarter + quarter + quarter + quarter,
                                                               quarter + written + written + quarter}));
}

void DiskTest::spoiltSectorTouchesNoNeighbour()
{
    Disk disk({{"/d/a", QByteArray(1024, '.')}});
    disk.apply({DiskOp::Write, "/d/a", {}, 0, QByteArray(512, 'x')});

    bool isSpoilt = false;
    for (const QByteArray& left : leftovers(disk, Cut::Spoilt512)) {
        QCOMPARE(left.last(512), QByteArray(512, '.'));
        isSpoilt = isSpoilt || (left.at(0) != '.' && left.at(0) != 'x');
    }
    QVERIFY(isSpoilt);
}

void DiskTest::lengthMayComeBeforeTheBytes()
{
    Disk disk({{"/d/a", QByteArray()}});
    disk.apply({DiskOp::Write, "/d/a", {}, 0, QByteArray(512, 'x')});

    QVERIFY(leftovers(disk, Cut::Torn512).contains(QByteArray(512, '\0')));
}

void DiskTest::truncationMayBeLost()
{
    Disk disk({{"/d/a", "long"}});
    disk.apply({DiskOp::Truncate, "/d/a", {}, 1, {}});

    QCOMPARE(leftovers(disk, Cut::Subset), (QSet<QByteArray>{"long", "l"}));
}

void DiskTest::folderSyncLeavesOtherFoldersAlone()
{
    Disk disk;
    disk.apply({DiskOp::Make, "/d/a", {}, 0, {}});

    disk.apply({DiskOp::SyncFolder, "/e", {}, 0, {}});

    QCOMPARE(leftovers(disk, Cut::Lost), QSet<QByteArray>{"(none)"});
}

QTEST_GUILESS_MAIN(DiskTest)
#include "tst_disk.moc"
