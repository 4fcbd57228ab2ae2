// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/system/durable.h"
#include "support/failureof.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class DurableTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileAndFolderCanBeMadeLasting();
    void missingFileFails();
    void nameTakesThePlaceOfAFile();
    void nameTakesThePlaceOfAnEmptyFolder();
    void folderWithContentKeepsItsName();
    void twoNamesOfOneFileAreTheSame();
};

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void DurableTest::fileAndFolderCanBeMadeLasting()
{
    const QTemporaryDir folder;
    write(folder.filePath(u"a"_s), "a");

    platform::makeLasting(folder.filePath(u"a"_s));
    platform::makeLasting(folder.path());

    QCOMPARE(read(folder.filePath(u"a"_s)), "a");
}

void DurableTest::missingFileFails()
{
    const QTemporaryDir folder;

    QCOMPARE(support::failureOf([&] { platform::makeLasting(folder.filePath(u"nada"_s)); }),
             platform::kFileNotFound);
}

void DurableTest::nameTakesThePlaceOfAFile()
{
    const QTemporaryDir folder;
    write(folder.filePath(u"nuevo"_s), "nuevo");
    write(folder.filePath(u"viejo"_s), "viejo");

    platform::renameLasting(folder.filePath(u"nuevo"_s), folder.filePath(u"viejo"_s));

    QCOMPARE(read(folder.filePath(u"viejo"_s)), "nuevo");
    QVERIFY(!QFile::exists(folder.filePath(u"nuevo"_s)));
}

void DurableTest::nameTakesThePlaceOfAnEmptyFolder()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(u"nuevo/dentro"_s));
    QVERIFY(QDir(folder.path()).mkdir(u"viejo"_s));

    platform::renameLasting(folder.filePath(u"nuevo"_s), folder.filePath(u"viejo"_s));

    QVERIFY(QFile::exists(folder.filePath(u"viejo/dentro"_s)));
}

void DurableTest::folderWithContentKeepsItsName()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"nuevo"_s));
    QVERIFY(QDir(folder.path()).mkpath(u"viejo/dentro"_s));

    QCOMPARE(support::failureOf(
                 [&] { platform::renameLasting(folder.filePath(u"nuevo"_s), folder.filePath(u"viejo"_s)); }),
             platform::kCannotOpenFile);

    QVERIFY(QFile::exists(folder.filePath(u"viejo/dentro"_s)));
}

void DurableTest::twoNamesOfOneFileAreTheSame()
{
    const QTemporaryDir folder;
    write(folder.filePath(u"a"_s), "a");
    write(folder.filePath(u"b"_s), "a");
    QVERIFY(QFile::link(folder.filePath(u"a"_s), folder.filePath(u"c"_s)));

    QVERIFY(platform::isSameFile(folder.filePath(u"a"_s), folder.filePath(u"c"_s)));
    QVERIFY(!platform::isSameFile(folder.filePath(u"a"_s), folder.filePath(u"b"_s)));
    QVERIFY(!platform::isSameFile(folder.filePath(u"a"_s), folder.filePath(u"nada"_s)));
}

QTEST_GUILESS_MAIN(DurableTest)
#include "tst_durable.moc"
