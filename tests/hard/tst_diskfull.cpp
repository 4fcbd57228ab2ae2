// SPDX-License-Identifier: GPL-3.0-or-later

// The disk fills up in the middle of the work: with 0 KB free, with 4, with 8, until all of it fits. Rows are
// whole or absent, nothing that was there is harmed, and once there is room again the same save is done.

#include "hard/examiner.h"
#include "hard/faultydisk.h"
#include "hard/smalldisk.h"
#include "hard/works.h"

#include <QTemporaryDir>
#include <QtTest>

#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace hardtest;

namespace {

constexpr int kDiskKilobytes = 8192;
constexpr int kStepKilobytes = 4;
/// Where no file system can be mounted, SQLite's writes are refused as on a full disk.
constexpr DiskFault kFull{"full", VfsCall::Write, SQLITE_FULL, true};

bool mounts = false;

/// Rows of every store of the work.
QSet<QByteArray> rowsOf(const Scene& scene)
{
    QSet<QByteArray> rows;
    for (const QString& store : scene.work().stores)
        rows += hardtest::rowsOf(scene.fixture.root.path(store));
    return rows;
}

QList<Content> contentsOf(const Scene& scene)
{
    QList<Content> contents;
    for (const QString& store : scene.work().stores)
        contents.append(contentOf(scene.fixture.root.path(store)));
    return contents;
}

} // namespace

class DiskFullTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void workOnAFullDiskLeavesRowsWholeOrAbsent_data();
    void workOnAFullDiskLeavesRowsWholeOrAbsent();
    void saveIsDoneOnceThereIsRoom_data();
    void saveIsDoneOnceThereIsRoom();

private:
    void addWorks(QByteArrayView start);
    /// Runs the work with this step's room on the disk, and gives the room back.
    void runWithRoom(Scene& scene, int step);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SmallDisk> m_disk;
    FaultyDisk m_faulty;
    std::unique_ptr<ObservedVfs> m_vfs;
    int m_steps = 0;
};

void DiskFullTest::initTestCase()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_vfs = std::make_unique<ObservedVfs>(m_faulty);
    if (!mounts)
        return;
    m_disk = std::make_unique<SmallDisk>(m_folder->path(), kDiskKilobytes);
    QVERIFY(m_disk->isMounted());
    qputenv("TMPDIR", QFile::encodeName(m_folder->path()));
}

void DiskFullTest::cleanupTestCase()
{
    qInfo("%d steps on %s", m_steps, mounts ? "a small disk" : "refused writes");
    m_disk.reset();
    m_vfs.reset();
}

void DiskFullTest::addWorks(QByteArrayView start)
{
    QTest::addColumn<QByteArray>("name");
    for (const Work& work : works()) {
        if (QByteArrayView(work.name).startsWith(start))
            QTest::newRow(work.name) << QByteArray(work.name);
    }
}

void DiskFullTest::runWithRoom(Scene& scene, int step)
{
    scene.restore();
    scene.ready();
    if (m_disk)
        m_disk->leaveFree(step * kStepKilobytes);
    else
        m_faulty.arm(kFull, step + 1);
    scene.run();
    m_faulty.disarm();
    if (m_disk)
        m_disk->empty();
    scene.close();
    ++m_steps;
}

void DiskFullTest::workOnAFullDiskLeavesRowsWholeOrAbsent_data()
{
    addWorks("");
}

void DiskFullTest::workOnAFullDiskLeavesRowsWholeOrAbsent()
{
    constexpr int kLastStep = 400;
    QFETCH(const QByteArray, name);
    Scene scene(work(name));
    scene.restore();
    const QSet<QByteArray> before = rowsOf(scene);
    scene.ready();
    scene.run();
    scene.close();
    const QSet<QByteArray> after = rowsOf(scene);
    const QList<Content> whole = contentsOf(scene);

    int step = 0;
    for (bool isDone = false; !isDone; ++step) {
        runWithRoom(scene, step);

        const QByteArray where = name + ", step " + QByteArray::number(step);
        const QList<Content> found = contentsOf(scene);
        QVERIFY2(std::all_of(found.begin(), found.end(), &isSound), (where + found.join(' ')).constData());
        // A row that has gained some of its columns is none of either, but none is lost.
        const QSet<QByteArray> rows = rowsOf(scene);
        QVERIFY2(name.startsWith("upgrade") ? rows.size() == before.size() : (before | after).contains(rows),
                 where.constData());
        QVERIFY2(rows.contains(before & after), where.constData());
        isDone = found == whole;
        QVERIFY2(step < kLastStep, where.constData());
    }
}

void DiskFullTest::saveIsDoneOnceThereIsRoom_data()
{
    addWorks("save known");
}

void DiskFullTest::saveIsDoneOnceThereIsRoom()
{
    QFETCH(const QByteArray, name);
    Scene scene(work(name));
    scene.restore();
    scene.ready();
    scene.run();
    scene.close();
    const QSet<QByteArray> after = rowsOf(scene);

    runWithRoom(scene, 0);
    QVERIFY(rowsOf(scene) != after);
    scene.ready();
    scene.run();
    scene.close();

    QCOMPARE(rowsOf(scene), after);
}

int main(int argc, char* argv[])
{
    // Before Qt starts a thread.
    mounts = hardtest::mayMount();
    QApplication application(argc, argv);
    DiskFullTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_diskfull.moc"
