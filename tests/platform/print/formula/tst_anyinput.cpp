// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever text comes, the language answers with a value, no value, or one fault inside the text.
#include "platform/print/formula/formulafixture.h"
#include "platform/print/formula/parser.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform::print::formula;

class AnyInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deepNestingIsRefused_data();
    void deepNestingIsRefused();
    void longTextIsRefused();
    void nestingWithinTheLimitIsTaken();
    void faultLiesWithinTheText();
    void parsingTwiceGivesTheSame();
    void rangeAgreesWithItsTwoComparisons();
};

namespace {

/// A text of random tokens, always the same for one seed: broken now and then, often nearly right.
QString soup(quint32 seed)
{
    static const QStringList tokens{
        u"1"_s,          u"2.5"_s,   u"\"a\""_s, u"'b'"_s,       u"{Z.C}"_s, u"{Z.N}"_s,     u"{@F}"_s,
        u"("_s,          u")"_s,     u"["_s,     u"]"_s,         u","_s,     u";"_s,         u"+"_s,
        u"-"_s,          u"*"_s,     u"/"_s,     u"\\"_s,        u"%"_s,     u"^"_s,         u"&"_s,
        u"="_s,          u"<>"_s,    u"<"_s,     u">="_s,        u":="_s,    u"if"_s,        u"then"_s,
        u"else"_s,       u"and"_s,   u"or"_s,    u"not"_s,       u"in"_s,    u"to"_s,        u"to_"_s,
        u"upto"_s,       u"mod"_s,   u"True"_s,  u"NumberVar"_s, u"Local"_s, u"StringVar"_s, u"x"_s,
        u"y"_s,          u"Left("_s, u"Date("_s, u"IsNull("_s,   u"Sum("_s,  u"Minimum("_s,  u"ToText("_s,
        u"PageNumber"_s, u"//"_s,    u"\n"_s,    u"{"_s,         u"\""_s,    u"ñ"_s,         u"¿"_s,
        u"{?p}"_s};
    QRandomGenerator random(seed);
    QString text;
    for (int i = random.bounded(1, 24); i > 0; --i)
        text += tokens[random.bounded(static_cast<int>(tokens.size()))] +
                (random.bounded(4) == 0 ? u""_s : u" "_s);
    return text;
}

} // namespace

void AnyInputTest::deepNestingIsRefused_data()
{
    QTest::addColumn<QString>("text");
    const int times = 4'000;
    QTest::newRow("parentheses") << u"("_s.repeated(times) + u"1"_s + u")"_s.repeated(times);
    QTest::newRow("lists") << u"1 in "_s + u"["_s.repeated(times);
    QTest::newRow("not") << u"not "_s.repeated(times) + u"True"_s;
    QTest::newRow("signs") << u"-"_s.repeated(times) + u"1"_s;
    QTest::newRow("calls") << u"Abs("_s.repeated(times) + u"1"_s + u")"_s.repeated(times);
    QTest::newRow("conditions") << u"if True then "_s.repeated(times) + u"1"_s;
    QTest::newRow("assignments") << u"NumberVar x; "_s + u"x := "_s.repeated(times) + u"1"_s;
    QTest::newRow("declarations") << u"NumberVar x := "_s.repeated(times) + u"1"_s;
    QTest::newRow("a long sum") << u"1 + "_s.repeated(times) + u"1"_s;
    QTest::newRow("subscripts") << u"\"a\""_s + u"[1"_s.repeated(times);
    QTest::newRow("many subscripts") << u"\"a\""_s + u"[1]"_s.repeated(times);
    QTest::newRow("many powers") << u"1"_s + u"^1"_s.repeated(times);
}

void AnyInputTest::deepNestingIsRefused()
{
    QFETCH(const QString, text);

    const Formula formula(text);

    QVERIFY(formula.fault());
    QCOMPARE(formula.fault()->text, u"la fórmula es demasiado complicada"_s);
}

void AnyInputTest::longTextIsRefused()
{
    const Formula formula(QString(kMaxFormulaLength + 1, u' '));

    QCOMPARE(formula.fault()->text, u"la fórmula es demasiado larga"_s);
}

void AnyInputTest::nestingWithinTheLimitIsTaken()
{
    FormulaFixture report;

    QCOMPARE(report.run(u"("_s.repeated(90) + u"1"_s + u")"_s.repeated(90)), u"1"_s);
}

void AnyInputTest::faultLiesWithinTheText()
{
    FormulaFixture report;
    report.givenColumn(u"Z.C"_s, Type::Text, u"algo"_s);
    report.givenColumn(u"Z.N"_s, Type::Number, 3.0);
    report.givenFormula(u"F"_s, u"{Z.N} * 2"_s);
    for (quint32 seed = 1; seed <= 20'000; ++seed) {
        const QString text = soup(seed);
        Formula formula(text);
        formula.bind(report);
        const Outcome outcome = formula.fault() ? Outcome{{}, formula.fault()} : formula.evaluate(report);
        if (!outcome.fault)
            continue;

        const Position place = outcome.fault->position;
        const QStringList lines = text.split(u'\n');
        QVERIFY2(place.line >= 1 && place.line <= lines.size(), qPrintable(text));
        QVERIFY2(place.column >= 1 && place.column <= lines[place.line - 1].size() + 1, qPrintable(text));
        QVERIFY2(!outcome.fault->text.isEmpty(), qPrintable(text));
    }
}

void AnyInputTest::parsingTwiceGivesTheSame()
{
    for (quint32 seed = 1; seed <= 2'000; ++seed) {
        FormulaFixture first;
        FormulaFixture second;
        QCOMPARE(first.run(soup(seed)), second.run(soup(seed)));
    }
}

void AnyInputTest::rangeAgreesWithItsTwoComparisons()
{
    const QStringList texts{u""_s,   u" "_s,  u"a"_s, u"A"_s, u"a "_s, u"á"_s,
                            u"ch"_s, u"cz"_s, u"ñ"_s, u"9"_s, u"10"_s};
    FormulaFixture report;
    for (const QString& value : texts) {
        for (const QString& from : texts) {
            for (const QString& to : texts) {
                const QString formula = u"('%1' in '%2' to '%3') = ('%1' >= '%2' and '%1' <= '%3')"_s;
                QCOMPARE(report.run(formula.arg(value, from, to)), u"True"_s);
            }
        }
    }
}

QTEST_GUILESS_MAIN(AnyInputTest)
#include "tst_anyinput.moc"
