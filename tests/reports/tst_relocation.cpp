// SPDX-License-Identifier: GPL-3.0-or-later
// Where a run points the tables of the report file and of its subreports.
#include "reports/drivenwindow.h"
#include "reports/recordingengine.h"

#include "shell/globalsat.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace reporttest;

class RelocationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_driven = std::make_unique<DrivenWindow>(); }
    void cleanup() { m_driven.reset(); }

    void report888MovesTableZeroAlone();
    void report725MovesTablesZeroAndTwo();
    void gapInTheListLeavesThatTable();
    void tableZeroIsMovedEvenToNowhere();

    void scanMovesTablesToTheCompany_data();
    void scanMovesTablesToTheCompany();
    void tableThatCannotBeReadKeepsItsPlace();
    void scanReadsAndWritesWithDifferentRecordSizes();

    void lastSubreportOfASectionIsMovedForEach();
    void onlyReport1MovesSubreports();

private:
    std::unique_ptr<DrivenWindow> m_driven;
};

void RelocationTest::report888MovesTableZeroAlone()
{
    m_driven->requested(888);
    BASEINFORME = kCompanyFolder + u"ASISTENCIAS.MDB"_s;

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             QStringList{u"PESetNthTableLocation(1, 0, 258, \"C:\\Q\\Empresa00012\\ASISTENCIAS.MDB\")"_s});
}

void RelocationTest::report725MovesTablesZeroAndTwo()
{
    m_driven->requested(725);
    BASEINFORME2 = BASEINFORME;

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             (QStringList{u"PESetNthTableLocation(1, 0, 258, \"C:\\Q\\Empresa00012\\CLIENTES.MDB\")"_s,
                          u"PESetNthTableLocation(1, 2, 258, \"C:\\Q\\Empresa00012\\CLIENTES.MDB\")"_s}));
}

void RelocationTest::gapInTheListLeavesThatTable()
{
    m_driven->requested(525);
    BASEINFORME3 = u"  "_s;
    BASEINFORME7 = u"C:\\siete.mdb"_s;

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s).size(), 2);
    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s).last(),
             u"PESetNthTableLocation(1, 7, 258, \"C:\\siete.mdb\")"_s);
}

void RelocationTest::tableZeroIsMovedEvenToNowhere()
{
    m_driven->requested(525);
    BASEINFORME = QString();

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             QStringList{u"PESetNthTableLocation(1, 0, 258, \"\")"_s});
}

void RelocationTest::scanMovesTablesToTheCompany_data()
{
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("moved");
    QTest::newRow("year of the nineties") << u"D:\\datos\\facturas1999.mdb"_s << u"facturas.mdb"_s;
    QTest::newRow("year of this century") << u"D:\\datos\\facturas2003.mdb"_s << u"facturas.mdb"_s;
    QTest::newRow("no year") << u"D:\\datos\\CLIENTES.MDB"_s << u"CLIENTES.MDB"_s;
    QTest::newRow("last 200 wins over 199") << u"D:\\f2001-1998-2002.mdb"_s << u"f2001-1998-.mdb"_s;
    QTest::newRow("200 wins even before 199") << u"D:\\f2001-1998.mdb"_s << u"f-1998.mdb"_s;
    QTest::newRow("year in the folder stays out") << u"D:\\2003\\f.mdb"_s << u"f.mdb"_s;
    QTest::newRow("no backslash") << u"f1999.mdb"_s << u"f.mdb"_s;
}

void RelocationTest::scanMovesTablesToTheCompany()
{
    QFETCH(QString, found);
    QFETCH(QString, moved);
    m_driven->requested(2);
    engineAnswers().tableLocations = {found};

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             QStringList{u"PESetNthTableLocation(1, 0, 258, \""_s + kCompanyFolder + moved + u"\")"_s});
}

void RelocationTest::tableThatCannotBeReadKeepsItsPlace()
{
    m_driven->requested(3);
    engineAnswers().tableLocations = {u"a.mdb"_s, u"b.mdb"_s};
    engineAnswers().unreadableTables = {{0, 0}};

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             QStringList{u"PESetNthTableLocation(1, 1, 258, \""_s + kCompanyFolder + u"b.mdb\")"_s});
}

void RelocationTest::scanReadsAndWritesWithDifferentRecordSizes()
{
    m_driven->requested(4);
    engineAnswers().tableLocations = {u"a.mdb"_s};

    m_driven->preview();

    QCOMPARE(callsNamed(u"PEGetNthTableLocation"_s), QStringList{u"PEGetNthTableLocation(1, 0, 1026)"_s});
    QVERIFY(callsNamed(u"PESetNthTableLocation"_s).first().startsWith(u"PESetNthTableLocation(1, 0, 258"_s));
}

void RelocationTest::lastSubreportOfASectionIsMovedForEach()
{
    m_driven->requested(1);
    engineAnswers().subreportsBySection = {{}, {u"primero"_s, u"segundo"_s}};

    m_driven->preview();

    QCOMPARE(callsNamed(u"PEOpenSubreport"_s),
             (QStringList{u"PEOpenSubreport(1, \"segundo\")"_s, u"PEOpenSubreport(1, \"segundo\")"_s}));
    QCOMPARE(callsNamed(u"PESetNthTableLocation"_s),
             (QStringList{2, u"PESetNthTableLocation(102, 0, 258, \""_s + kCompanyFolder +
                                 u"RECIBOSCARTERA.MDB\")"_s}));
    QCOMPARE(callsNamed(u"PEGetSubreportInfo"_s).first(), u"PEGetSubreportInfo(1, 201, 137)"_s);
}

void RelocationTest::onlyReport1MovesSubreports()
{
    m_driven->requested(2);
    engineAnswers().subreportsBySection = {{u"primero"_s}};

    m_driven->preview();

    QVERIFY(callsNamed(u"PEGetNSections"_s).isEmpty());
}

QTEST_MAIN(RelocationTest)
#include "tst_relocation.moc"
