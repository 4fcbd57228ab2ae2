// SPDX-License-Identifier: GPL-3.0-or-later
// FORMULASINFORME: the named formula fields of a report file.
#include "reports/drivenwindow.h"
#include "reports/recordingengine.h"

#include "shell/globalsat.h"

#include <QDateEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace reporttest;

class FormulaFieldsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_driven = std::make_unique<DrivenWindow>(); }
    void cleanup() { m_driven.reset(); }

    void formulaFieldsAreSetTwice();
    void refusedFormulaFieldEndsThem();
    void refusalOfTheSecondCallGoesOn();
    void commissionsPrintTheirPeriod();
    void contractAndDueDatesHaveFieldsThatNoRunSets_data();
    void contractAndDueDatesHaveFieldsThatNoRunSets();
    void reportsWithoutFieldsSetNone();

private:
    std::unique_ptr<DrivenWindow> m_driven;
};

void FormulaFieldsTest::formulaFieldsAreSetTwice()
{
    m_driven->requested(5);

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetFormula"_s),
             (QStringList{2, u"PESetFormula(1, \"FESYS\", \"StringVar YO; YO:=\"\"\")"_s}));
}

void FormulaFieldsTest::refusedFormulaFieldEndsThem()
{
    m_driven->requested(7);
    engineAnswers().failing = u"PESetFormula"_s;

    m_driven->preview();

    QCOMPARE(callsNamed(u"PESetFormula"_s).size(), 1);
    QCOMPARE(callsNamed(u"PEStartPrintJob"_s).size(), 1);
}

void FormulaFieldsTest::refusalOfTheSecondCallGoesOn()
{
    m_driven->requested(102);
    engineAnswers().failingCall = 1;

    m_driven->window().FORMULASINFORME(1);

    QCOMPARE(recordedCalls().size(), 10);
}

void FormulaFieldsTest::commissionsPrintTheirPeriod()
{
    m_driven->requested(726);
    m_driven->control<QDateEdit>("DTPicker1").setDate(QDate(2026, 1, 2));

    m_driven->preview();

    QCOMPARE(
        callsNamed(u"PESetFormula"_s).first(),
        u"PESetFormula(1, \"fechas\", \"StringVar YO; YO:=\"Desde el 02/01/2026 hasta el 20/11/2026\"\")"_s);
}

void FormulaFieldsTest::contractAndDueDatesHaveFieldsThatNoRunSets_data()
{
    QTest::addColumn<double>("report");
    QTest::addColumn<QStringList>("fields");
    const QString yo = u"\"StringVar YO; YO:=\"\"\""_s;
    QTest::newRow("102") << 102.0
                         << QStringList{u"\"CONTRATO\", "_s + yo, u"\"TITULAR\", "_s + yo,
                                        u"\"DOMICILIO\", "_s + yo, u"\"LOCALIDAD\", "_s + yo,
                                        u"\"NIF\", "_s + yo};
    QTest::newRow("99999") << 99999.0
                           << QStringList{u"\"VENCI1\", \"StringVar VENDO1; VENDO1:=\"\"\""_s,
                                          u"\"VENCI2\", \"StringVar VENDO2; VENDO2:=\"\"\""_s,
                                          u"\"VENCI3\", \"StringVar VENDO3; VENDO3:=\"\"\""_s,
                                          u"\"VENCI4\", \"StringVar VENDO4; VENDO4:=\"\"\""_s,
                                          u"\"VENCI5\", \"StringVar VENDO5; VENDO5:=\"\"\""_s};
}

void FormulaFieldsTest::contractAndDueDatesHaveFieldsThatNoRunSets()
{
    QFETCH(double, report);
    QFETCH(QStringList, fields);
    m_driven->requested(report);
    m_driven->preview();
    QVERIFY(callsNamed(u"PESetFormula"_s).isEmpty());

    m_driven->window().FORMULASINFORME(1);

    QStringList expected;
    for (const QString& field : fields)
        expected += QStringList{2, u"PESetFormula(1, "_s + field + u')'};
    QCOMPARE(callsNamed(u"PESetFormula"_s), expected);
}

void FormulaFieldsTest::reportsWithoutFieldsSetNone()
{
    for (const double report : {6.0, 8.0, 333.0, 525.0}) {
        m_driven->requested(report);
        m_driven->preview();
        QVERIFY(callsNamed(u"PESetFormula"_s).isEmpty());
    }
}

QTEST_MAIN(FormulaFieldsTest)
#include "tst_formulafields.moc"
