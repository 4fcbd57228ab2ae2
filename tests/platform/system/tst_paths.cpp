// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;

class PathsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void currentDirectoryHasBackslashesAndNoneAtTheEnd();
    void currentDirectoryIsReadAfresh();
    void currentDirectoryOfTheRootIsOneBackslash();
    void bothSeparatorsAndDoubledOnesAreOne_data();
    void bothSeparatorsAndDoubledOnesAreOne();
    void exactNameStandsBeforeOtherCases();
    void otherCaseIsFoundPartByPart();
    void accentsAndEneHaveCasesToo();
    void firstInSortedOrderIsTaken();
    void missingFileKeepsItsNameInTheFolderThatIsThere();
    void missingFolderKeepsItsName();
    void relativePathCountsFromTheCurrentDirectory();
    void relativePathFollowsTheCurrentDirectory();
    void twoSpellingsAndALinkGiveOneName();
    void linkedFolderGivesTheRealName();
    void linkToNowhereKeepsItsName();
    void dotsAreResolved();
    void folderAboveALinkIsThatOfItsTarget();
    void folderAboveTheRootIsTheRoot();
    void emptyPathIsTheCurrentDirectory();
    void rootIsTheRoot();
    void hiddenFileIsFoundInAnotherCase();
    void separatorAtTheEndIsDropped();
    void pathThroughAFileKeepsItsName();
    void programFormHasBackslashes();
    void programFormComesBack();

private:
    void givenFile(const QString& name) const;
    void givenFolder(const QString& name) const { QVERIFY(QDir(m_root).mkpath(name)); }
    [[nodiscard]] QString under(const QString& name) const { return m_root + u'/' + name; }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_root; ///< canonical
    QString m_before;
};

void PathsTest::init()
{
    m_before = QDir::currentPath();
    m_folder = std::make_unique<QTemporaryDir>();
    m_root = QFileInfo(m_folder->path()).canonicalFilePath();
    QVERIFY(QDir::setCurrent(m_root));
}

void PathsTest::cleanup()
{
    QVERIFY(QDir::setCurrent(m_before));
}

void PathsTest::givenFile(const QString& name) const
{
    QFile file(under(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void PathsTest::currentDirectoryHasBackslashesAndNoneAtTheEnd()
{
    QCOMPARE(currentDirectory(), QString(m_root).replace(u'/', u'\\'));
}

void PathsTest::currentDirectoryIsReadAfresh()
{
    givenFolder(u"otra"_s);
    const QString before = currentDirectory();

    QVERIFY(QDir::setCurrent(under(u"otra"_s)));

    QCOMPARE(currentDirectory(), before + u"\\otra"_s);
}

void PathsTest::currentDirectoryOfTheRootIsOneBackslash()
{
    QVERIFY(QDir::setCurrent(u"/"_s));

    QCOMPARE(currentDirectory(), u"\\"_s);
}

void PathsTest::bothSeparatorsAndDoubledOnesAreOne_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("backslashes") << u"\\Empresa00012\\CLIENTES.MDB"_s;
    QTest::newRow("slashes") << u"/Empresa00012/CLIENTES.MDB"_s;
    QTest::newRow("mixed") << u"\\Empresa00012/CLIENTES.MDB"_s;
    QTest::newRow("doubled backslash") << u"\\\\Empresa00012\\\\CLIENTES.MDB"_s;
    QTest::newRow("doubled slash") << u"//Empresa00012//CLIENTES.MDB"_s;
    QTest::newRow("both in a row") << u"\\/Empresa00012/\\CLIENTES.MDB"_s;
}

void PathsTest::bothSeparatorsAndDoubledOnesAreOne()
{
    QFETCH(QString, path);
    givenFolder(u"Empresa00012"_s);
    givenFile(u"Empresa00012/CLIENTES.MDB"_s);

    QCOMPARE(nativePath(currentDirectory() + path), under(u"Empresa00012/CLIENTES.MDB"_s));
}

void PathsTest::exactNameStandsBeforeOtherCases()
{
    givenFile(u"CLIENTES.MDB"_s);
    givenFile(u"Clientes.mdb"_s);

    QCOMPARE(nativePath(u"Clientes.mdb"_s), under(u"Clientes.mdb"_s));
}

void PathsTest::otherCaseIsFoundPartByPart()
{
    givenFolder(u"EMPRESA00012"_s);
    givenFile(u"EMPRESA00012/Clientes.mdb"_s);

    QCOMPARE(nativePath(currentDirectory() + u"\\Empresa00012\\CLIENTES.MDB"_s),
             under(u"EMPRESA00012/Clientes.mdb"_s));
}

void PathsTest::accentsAndEneHaveCasesToo()
{
    givenFile(u"Compañía Álvarez.mdb"_s);

    QCOMPARE(nativePath(u"COMPAÑÍA ÁLVAREZ.MDB"_s), under(u"Compañía Álvarez.mdb"_s));
}

void PathsTest::firstInSortedOrderIsTaken()
{
    givenFile(u"zonas.mdb"_s);
    givenFile(u"Zonas.mdb"_s);
    givenFile(u"ZOnas.mdb"_s);

    QCOMPARE(nativePath(u"ZONAS.MDB"_s), under(u"ZOnas.mdb"_s));
}

void PathsTest::missingFileKeepsItsNameInTheFolderThatIsThere()
{
    givenFolder(u"EMPRESA00012"_s);

    QCOMPARE(nativePath(u"Empresa00012\\Zonas.MDB"_s), under(u"EMPRESA00012/Zonas.MDB"_s));
}

void PathsTest::missingFolderKeepsItsName()
{
    QCOMPARE(nativePath(u"Empresa00099\\sub\\ZONAS.MDB"_s), under(u"Empresa00099/sub/ZONAS.MDB"_s));
}

void PathsTest::relativePathCountsFromTheCurrentDirectory()
{
    givenFile(u"TELEFONOS DE CLIENTES.MDB"_s);

    QCOMPARE(nativePath(u"telefonos de clientes.mdb"_s), under(u"TELEFONOS DE CLIENTES.MDB"_s));
}

void PathsTest::relativePathFollowsTheCurrentDirectory()
{
    givenFolder(u"otra"_s);

    QVERIFY(QDir::setCurrent(under(u"otra"_s)));

    QCOMPARE(nativePath(u"a.mdb"_s), under(u"otra/a.mdb"_s));
}

void PathsTest::twoSpellingsAndALinkGiveOneName()
{
    givenFile(u"Clientes.mdb"_s);
    QVERIFY(QFile::link(under(u"Clientes.mdb"_s), under(u"enlace.mdb"_s)));

    QCOMPARE(nativePath(u"CLIENTES.MDB"_s), under(u"Clientes.mdb"_s));
    QCOMPARE(nativePath(u"enlace.mdb"_s), under(u"Clientes.mdb"_s));
    QCOMPARE(nativePath(u"ENLACE.MDB"_s), under(u"Clientes.mdb"_s));
}

void PathsTest::linkedFolderGivesTheRealName()
{
    givenFolder(u"real"_s);
    QVERIFY(QFile::link(under(u"real"_s), under(u"enlace"_s)));

    QCOMPARE(nativePath(u"ENLACE\\nuevo.mdb"_s), under(u"real/nuevo.mdb"_s));
}

void PathsTest::linkToNowhereKeepsItsName()
{
    QVERIFY(QFile::link(under(u"nada"_s), under(u"Enlace.mdb"_s)));

    QCOMPARE(nativePath(u"ENLACE.MDB"_s), under(u"Enlace.mdb"_s));
}

void PathsTest::dotsAreResolved()
{
    givenFolder(u"Uno"_s);
    givenFile(u"dos.mdb"_s);

    QCOMPARE(nativePath(u".\\uno\\..\\.\\DOS.MDB"_s), under(u"dos.mdb"_s));
    QCOMPARE(nativePath(u"falta\\..\\DOS.MDB"_s), under(u"dos.mdb"_s));
}

void PathsTest::folderAboveALinkIsThatOfItsTarget()
{
    givenFolder(u"a/b"_s);
    givenFile(u"a/x.mdb"_s);
    QVERIFY(QFile::link(under(u"a/b"_s), under(u"enlace"_s)));

    QCOMPARE(nativePath(u"enlace\\..\\X.MDB"_s), under(u"a/x.mdb"_s));
}

void PathsTest::folderAboveTheRootIsTheRoot()
{
    QCOMPARE(nativePath(u"\\..\\.."_s), u"/"_s);
}

void PathsTest::emptyPathIsTheCurrentDirectory()
{
    QCOMPARE(nativePath(u""_s), m_root);
}

void PathsTest::rootIsTheRoot()
{
    QCOMPARE(nativePath(u"\\"_s), u"/"_s);
    QCOMPARE(nativePath(u"\\no hay nada aquí.mdb"_s), u"/no hay nada aquí.mdb"_s);
}

void PathsTest::hiddenFileIsFoundInAnotherCase()
{
    givenFile(u".Oculto"_s);

    QCOMPARE(nativePath(u".OCULTO"_s), under(u".Oculto"_s));
}

void PathsTest::separatorAtTheEndIsDropped()
{
    givenFolder(u"Empresa00012"_s);

    QCOMPARE(nativePath(u"Empresa00012\\"_s), under(u"Empresa00012"_s));
}

void PathsTest::pathThroughAFileKeepsItsName()
{
    givenFile(u"fichero"_s);

    QCOMPARE(nativePath(u"FICHERO\\a.mdb"_s), under(u"fichero/a.mdb"_s));
}

void PathsTest::programFormHasBackslashes()
{
    QCOMPARE(programPath(u"/srv/datos/Empresa00012"_s), u"\\srv\\datos\\Empresa00012"_s);
}

void PathsTest::programFormComesBack()
{
    givenFile(u"a.mdb"_s);

    QCOMPARE(nativePath(programPath(under(u"a.mdb"_s))), under(u"a.mdb"_s));
}

QTEST_GUILESS_MAIN(PathsTest)
#include "tst_paths.moc"
