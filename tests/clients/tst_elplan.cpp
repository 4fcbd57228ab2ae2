// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/elplan.h"

#include "shell/globalsat.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class ElPlanTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void emptyAccountLeavesTheNameAsTheWindowGaveIt();
    void blankAccountCountsAsEmpty();
    void onlyTheFirstCommaOfTheNameBecomesABlank();
    void onlyTheFirstCommaOfTheAddressBecomesABlank();
    void textsWithoutCommaStay();
    void lineHasItsFieldsInTheirPlaces();
    void telephoneAndFaxStayOutOfTheLine();
    void everyStatementIsTriedAlthoughTheTablesAreUnbound();
};

void ElPlanTest::init()
{
    resetProgramState();
    CUENTACODIGO = u"430123"_s;
    CUENTANOMBRE = u"A, B, C"_s;
    CUENTADIRECCION = u"Mayor, 3, 2"_s;
    CUENTACPOSTAL = u"28001"_s;
    CUENTALOCALIDAD = u"Madrid"_s;
    CUENTANIF = u"B12345678"_s;
}

void ElPlanTest::emptyAccountLeavesTheNameAsTheWindowGaveIt()
{
    CUENTACODIGO.clear();

    ESCRIBIRCUENTA();

    QCOMPARE(CUENTANOMBRE, u"A, B, C"_s);
    QCOMPARE(CUENTADIRECCION, u"Mayor, 3, 2"_s);
}

void ElPlanTest::blankAccountCountsAsEmpty()
{
    CUENTACODIGO = u"   "_s;

    ESCRIBIRCUENTA();

    QCOMPARE(CUENTANOMBRE, u"A, B, C"_s);
}

void ElPlanTest::onlyTheFirstCommaOfTheNameBecomesABlank()
{
    ESCRIBIRCUENTA();

    QCOMPARE(CUENTANOMBRE, u"A  B, C"_s);
}

void ElPlanTest::onlyTheFirstCommaOfTheAddressBecomesABlank()
{
    ESCRIBIRCUENTA();

    QCOMPARE(CUENTADIRECCION, u"Mayor  3, 2"_s);
}

void ElPlanTest::textsWithoutCommaStay()
{
    CUENTANOMBRE = u"Talleres Peña"_s;
    CUENTADIRECCION.clear();

    ESCRIBIRCUENTA();

    QCOMPARE(CUENTANOMBRE, u"Talleres Peña"_s);
    QCOMPARE(CUENTADIRECCION, QString());
}

void ElPlanTest::lineHasItsFieldsInTheirPlaces()
{
    CUENTANOMBRE = u"Talleres"_s;
    CUENTADIRECCION = u"Mayor 3"_s;

    const QStringList fields = accountLine().split(u',');

    QCOMPARE(fields.size(), 45);
    QCOMPARE(fields.mid(0, 13),
             QStringList({u"430123"_s, u"Talleres"_s, u"4300"_s, u"0"_s, u"0"_s, u"5"_s, u"A"_s,
                          u"B12345678"_s, u"Mayor 3"_s, u"Madrid"_s, u""_s, u""_s, u"28001"_s}));
    QCOMPARE(fields.mid(13), QStringList(32, u"0"_s));
}

void ElPlanTest::telephoneAndFaxStayOutOfTheLine()
{
    CUENTATELEFONO = u"911111111"_s;
    CUENTAFAX = u"922222222"_s;

    const QString line = accountLine();

    QVERIFY(!line.contains(CUENTATELEFONO));
    QVERIFY(!line.contains(CUENTAFAX));
}

void ElPlanTest::everyStatementIsTriedAlthoughTheTablesAreUnbound()
{
    ESCRIBIRCUENTA();

    // The commas go in statements that stand behind those that fail.
    QVERIFY(!CUENTANOMBRE.startsWith(u"A,"));
    QVERIFY(!CUENTADIRECCION.startsWith(u"Mayor,"));
}

QTEST_GUILESS_MAIN(ElPlanTest)
#include "tst_elplan.moc"
