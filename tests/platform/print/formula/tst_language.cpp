// SPDX-License-Identifier: GPL-3.0-or-later
// The formula language, case by case: binding of operators, texts, ranges, variables, dates, nulls,
// functions.
#include "platform/print/formula/formulafixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform::print::formula;

class LanguageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formulaGivesItsValue_data();
    void formulaGivesItsValue();
    void capitalsCountWhereTheDefinitionAsksForIt();
    void nullsReadAsEmptyWhereTheDefinitionAsksForIt();
    void globalVariableKeepsItsValueForTheNextRecord();
    void localVariableStartsAfreshForEachRecord();
    void globalVariableOfTwoTypesIsRefused();
    void emptyFormulaIsNoFormula_data();
    void emptyFormulaIsNoFormula();
    void settingTheSameTextTwiceGivesTheSameResult();
    void faultReadsWithNameLineAndColumn();
};

namespace {

void row(const char* name, const QString& formula, const QString& result)
{
    QTest::newRow(name) << formula << result;
}

void operatorRows()
{
    row("1 value of the last step", u"10 + 20; \"Hola\""_s, u"Hola"_s);
    row("2 times binds before plus", u"2 + 3 * 4"_s, u"14"_s);
    row("2 parentheses bind first", u"(2 + 3) * 4"_s, u"20"_s);
    row("3 power binds before the sign", u"-2 ^ 2"_s, u"-4"_s);
    row("4 integer division", u"7 \\ 2"_s, u"3"_s);
    row("4 division goes left to right", u"8 / 4 / 2"_s, u"1"_s);
    row("5 plus binds before Mod's left side is done", u"7 Mod 4 + 1"_s, u"4"_s);
    row("6 percent", u"10 % 40"_s, u"25"_s);
    row("7 a number joined to a text", u"\"a\" & 5"_s, u"a5,00"_s);
    row("8 a number added to a text", u"\"a\" + 5"_s, u"E11 1:5"_s);
    row("13 both ends belong to a range", u"5 in 2 to 5"_s, u"True"_s);
    row("14 to_ leaves the end out", u"5 in 2 to_ 5"_s, u"False"_s);
    row("14 _to leaves the start out", u"2 in 2 _to 5"_s, u"False"_s);
    row("15 upto", u"5 in upto 5"_s, u"True"_s);
    row("15 upto_ leaves the end out", u"5 in upto_ 5"_s, u"False"_s);
    row("15 upfrom_ leaves the start out", u"5 in upfrom_ 5"_s, u"False"_s);
    row("16 ranges stand in a list", u"7 in [1, 5 to 9]"_s, u"True"_s);
    row("17 nothing is in an empty list", u"3 in []"_s, u"False"_s);
    row("18 a list with a lone comma", u"\"b\" in [\"a\",]"_s, u"E10 1:13"_s);
    row("25 not binds after equals", u"not 1 = 2 and True"_s, u"True"_s);
    row("26 and binds before or", u"True or False and False"_s, u"True"_s);
    row("29 last step of a parenthesis", u"(1; 2; 3;)"_s, u"3"_s);
    row("55 division by zero", u"1 / 0"_s, u"E13 1:3"_s);
    row("58 a number beside a text", u"5 = \"5\""_s, u"E11 1:3"_s);
    row("58 the operand is missing", u"1 +"_s, u"E10 1:4"_s);
    row("power takes a negative exponent", u"2 ^ -1"_s, u"0.5"_s);
    row("xor", u"True xor True"_s, u"False"_s);
    row("imp", u"False imp False"_s, u"True"_s);
    row("eqv", u"False eqv False"_s, u"True"_s);
    row("and stops at False", u"False and 1 / 0 = 1"_s, u"False"_s);
    row("or stops at True", u"True or 1 / 0 = 1"_s, u"True"_s);
    row("result out of bounds", u"10 ^ 400"_s, u"E13 1:4"_s);
    row("leading zeros are digits", u"01 + 1"_s, u"2"_s);
    row("a declaration is no operand", u"True and NumberVar x"_s, u"E10 1:10"_s);
    row("a range is no value", u"1 to 5"_s, u"E11 1:3"_s);
    row("unknown character", u"1 ¿ 2"_s, u"E10 1:3"_s);
    row("the second line counts from one", u"1 +\n\n  )"_s, u"E10 3:3"_s);
}

void textRows()
{
    row("9 doubled double quote", u"\"O\"\"B\""_s, u"O\"B"_s);
    row("9 doubled single quote", u"'O''B'"_s, u"O'B"_s);
    row("10 doubled quote within a name", u"\"Smith\"\"Jones\""_s, u"Smith\"Jones"_s);
    row("11 a character by its position", u"\"hello\"[2]"_s, u"e"_s);
    row("11 a character from the end", u"\"hello\"[-5]"_s, u"h"_s);
    row("12 a slice", u"\"604-555\"[1 to 3]"_s, u"604"_s);
    row("12 a slice from the end", u"\"abcdef\"[-3 to -1]"_s, u"def"_s);
    row("19 a text within a text", u"\"BOB\" in UpperCase(\"Bobby\")"_s, u"True"_s);
    row("20 capitals don't count", u"\"ana\" = \"ANA\""_s, u"True"_s);
    row("21 ñ comes after n", u"\"cana\" < \"caña\""_s, u"True"_s);
    row("21 ñ comes before o", u"\"caña\" < \"caz\""_s, u"True"_s);
    row("22 letters come after digits", u"\"A1\" > \"9999\""_s, u"True"_s);
    row("23 digits compare as characters", u"\"10\" in \"1\" to \"9\""_s, u"True"_s);
    row("24 the empty text lies before all", u"\"\" in \"0000000001\" to \"9999999999\""_s, u"False"_s);
    row("blanks at the end count", u"\"a\" = \"a \""_s, u"False"_s);
    row("accents are told apart", u"\"cana\" = \"caná\""_s, u"False"_s);
    row("position 0 of a text", u"\"abc\"[0]"_s, u"E13 1:6"_s);
    row("position past the end", u"\"abc\"[9]"_s, u""_s);
    row("a quote is missing", u"1 + \"abc"_s, u"E10 1:5"_s);
}

void choiceAndVariableRows()
{
    row("27 If without Else gives an empty text", u"if 1 > 2 then \"x\""_s, u""_s);
    row("27 If without Else gives 0", u"if 1 > 2 then 5"_s, u"0"_s);
    row("28 no semicolon before Else", u"if True then \"a\"; else \"b\""_s, u"E10 1:19"_s);
    row("30 a variable starts at 0", u"NumberVar x; x := x + 1; x"_s, u"1"_s);
    row("31 a variable must be declared", u"x := 1"_s, u"E11 1:1"_s);
    row("32 a function's name is no variable", u"NumberVar Left; 1"_s, u"E10 1:11"_s);
    row("33 a number variable takes no text", u"numbervar x; x := \"1\""_s, u"E11 1:19"_s);
    row("34 a comment ends with its line", u"// nada\n5"_s, u"5"_s);
    row("36 the text ends at the first zero", u"5"_s + QChar(0) + u")))"_s, u"5"_s);
    row("IIf chooses", u"IIf(1 = 1, \"a\", \"b\")"_s, u"a"_s);
    row("branches of two types", u"if True then 1 else \"a\""_s, u"E11 1:21"_s);
    row("Any, Mes and Dia are free names", u"NumberVar Any; NumberVar Mes; NumberVar Dia := 3; Dia"_s,
        u"3"_s);
    row("keyword as a variable", u"NumberVar To; 1"_s, u"E10 1:11"_s);
}

void functionRows()
{
    row("37 Val stops at a comma", u"Val(\"12,50\")"_s, u"12"_s);
    row("37 Val skips blanks and stops at a letter", u"Val(\" 7.5kg\")"_s, u"7.5"_s);
    row("37 Val of no number", u"Val(\"abc\")"_s, u"0"_s);
    row("38 ToNumber reads the Spanish form", u"ToNumber(\"1.234,50\")"_s, u"1234.5"_s);
    row("38 ToNumber of no number", u"ToNumber(\"doce\")"_s, u"E13 1:1"_s);
    row("39 Mid past the end", u"Mid(\"abc\",5)"_s, u""_s);
    row("39 Mid from 0", u"Mid(\"abc\",0,1)"_s, u"E13 1:1"_s);
    row("40 Left past the end", u"Left(\"ab\",5)"_s, u"ab"_s);
    row("40 Right", u"Right(\"abc\",2)"_s, u"bc"_s);
    row("41 Trim", u"Length(Trim(\"  a \"))"_s, u"1"_s);
    row("42 ToText of a number", u"ToText(1234.5)"_s, u"1.234,50"_s);
    row("43 ToText without decimals", u"ToText(12345,0)"_s, u"12.345"_s);
    row("43 ToText without a thousands mark", u"ToText(12345,0,\"\")"_s, u"12345"_s);
    row("44 ToText of a date", u"ToText(Date(2024,3,5),\"dd/MM/yyyy\")"_s, u"05/03/2024"_s);
    row("54 Round on the decimal form", u"Round(2.345,2)"_s, u"2.35"_s);
    row("54 Round half away from zero", u"Round(-2.5)"_s, u"-3"_s);
    row("56 InStr without regard to case", u"InStr(\"revisión\",\"SIÓN\")"_s, u"5"_s);
    row("56 MonthName", u"MonthName(3)"_s, u"marzo"_s);
    row("names don't regard case", u"LENGTH(\"abc\")"_s, u"3"_s);
    row("wrong number of arguments", u"Left(\"abc\")"_s, u"E11 1:1"_s);
    row("unknown function", u"Nada(1)"_s, u"E11 1:1"_s);
    row("least of a list", u"Minimum([3, 1, 2])"_s, u"1"_s);
    row("greatest of a range", u"Maximum(3 to 9)"_s, u"9"_s);
    row("greatest of an open range", u"Maximum(upfrom 3)"_s, u"E13 1:1"_s);
    row("ProperCase", u"ProperCase(\"maría del mar\")"_s, u"María Del Mar"_s);
    row("Replace", u"Replace(\"a.b.c\",\".\",\"\")"_s, u"abc"_s);
    row("Chr and Asc share the stores' codes", u"Asc(Chr(241))"_s, u"241"_s);
    row("a negative length", u"Left(\"abc\",-1)"_s, u"E13 1:1"_s);
    row("text without end", u"Length(ReplicateString(\"abcdefghij\",1000000))"_s, u"E13 1:8"_s);
    row("Int goes down", u"Int(-1.5)"_s, u"-2"_s);
    row("Truncate goes to zero", u"Truncate(-1.5)"_s, u"-1"_s);
    row("IsNumeric", u"IsNumeric(\"1.234,5\") and not IsNumeric(\"1.2\")"_s, u"True"_s);
    row("folder of a table", u"CarpetaTabla(12)"_s, u"Empresa00012"_s);
}

void dateRows()
{
    row("45 a day after the 29th of February", u"Date(2024,2,29) + 1"_s, u"01/03/2024"_s);
    row("46 days between dates", u"Date(2024,3,1) - Date(2024,2,1)"_s, u"29"_s);
    row("47 an impossible date", u"Date(2023,2,29)"_s, u"E13 1:1"_s);
    row("48 the null date lies before all", u"Date(0,0,0) < Date(1900,1,1)"_s, u"True"_s);
    row("49 a date is its midnight", u"Date(2024,3,5) = DateTime(2024,3,5,0,0,0)"_s, u"True"_s);
    row("50 the last day of a range counts whole",
        u"DateTime(2024,3,5,10,0,0) in Date(2024,3,1) to Date(2024,3,5)"_s, u"True"_s);
    row("the last moment of a range is exact",
        u"DateTime(2024,3,5,10,0,0) in DateTime(2024,3,1) to DateTime(2024,3,5)"_s, u"False"_s);
    row("the null date prints empty", u"Date(0,0,0) & \"|\""_s, u"|"_s);
    row("a month later on a short month", u"DateAdd(\"m\",1,Date(2024,1,31))"_s, u"29/02/2024"_s);
    row("months between", u"DateDiff(\"m\",Date(2023,12,31),Date(2024,2,1))"_s, u"2"_s);
    row("Sunday is the first day", u"DayOfWeek(Date(2024,3,3))"_s, u"1"_s);
    row("weekday by name", u"WeekdayName(4)"_s, u"miércoles"_s);
    row("date from its text", u"Date(\"5/3/2024\")"_s, u"05/03/2024"_s);
    row("hour of a moment", u"Hour(DateTime(2024,3,5,10,20,30))"_s, u"10"_s);
    row("long pattern", u"ToText(Date(2024,3,5),\"dddd, d 'de' MMMM 'de' yyyy\")"_s,
        u"martes, 5 de marzo de 2024"_s);
    row("a day and a half later", u"DateTime(2024,3,5,12,0,0) + 1.5"_s, u"07/03/2024 00:00:00"_s);
    row("past the calendar", u"Date(9999,12,31) + 1"_s, u"E13 1:18"_s);
}

void nullRows()
{
    row("51 IsNull tells", u"IsNull({Z.C})"_s, u"True"_s);
    row("51 a null before IsNull ends the evaluation", u"{Z.C} = \"\" or IsNull({Z.C})"_s, u"∅"_s);
    row("52 IsNull first", u"IsNull({Z.C}) or {Z.C} = \"\""_s, u"True"_s);
    row("53 a null number", u"{Z.N} + 1"_s, u"∅"_s);
    row("57 column names don't regard case", u"{z.d} = {Z.D}"_s, u"True"_s);
    row("57 an unknown column", u"{Z.NADA} = 1"_s, u"E9 1:1"_s);
    row("a parameter is no field", u"{?Mes} = 1"_s, u"E10 1:1"_s);
    row("totals take a field", u"Sum({Z.N})"_s, u"42"_s);
    row("totals of a text", u"Sum({Z.C})"_s, u"E11 1:5"_s);
    row("totals by something that is no group", u"Count({Z.C},{Z.N})"_s, u"E11 1:13"_s);
}

} // namespace

void LanguageTest::formulaGivesItsValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    operatorRows();
    textRows();
    choiceAndVariableRows();
    functionRows();
    dateRows();
    nullRows();
}

void LanguageTest::formulaGivesItsValue()
{
    QFETCH(const QString, text);
    QFETCH(const QString, result);
    FormulaFixture report;
    report.givenColumn(u"Z.C"_s, Type::Text);
    report.givenColumn(u"Z.N"_s, Type::Number);
    report.givenColumn(u"Z.D"_s, Type::Text, u"algo"_s);

    QCOMPARE(report.run(text), result);
}

void LanguageTest::capitalsCountWhereTheDefinitionAsksForIt()
{
    FormulaFixture report;
    report.givenOptions({.caseSensitive = true, .nullsAsEmpty = false});

    QCOMPARE(report.run(u"\"ana\" = \"ANA\""_s), u"False"_s);
    QCOMPARE(report.run(u"\"BOB\" in \"Bobby\""_s), u"False"_s);
}

void LanguageTest::nullsReadAsEmptyWhereTheDefinitionAsksForIt()
{
    FormulaFixture report;
    report.givenOptions({.caseSensitive = false, .nullsAsEmpty = true});
    report.givenColumn(u"Z.C"_s, Type::Text);
    report.givenColumn(u"Z.N"_s, Type::Number);

    QCOMPARE(report.run(u"{Z.C} = \"\" and {Z.N} = 0"_s), u"True"_s);
    QCOMPARE(report.run(u"IsNull({Z.C})"_s), u"True"_s);
}

void LanguageTest::globalVariableKeepsItsValueForTheNextRecord()
{
    FormulaFixture report;

    QCOMPARE(report.run(u"NumberVar x; x := x + 1; x"_s), u"1"_s);
    QCOMPARE(report.run(u"NumberVar x; x := x + 1; x"_s), u"2"_s);
}

void LanguageTest::localVariableStartsAfreshForEachRecord()
{
    FormulaFixture report;

    QCOMPARE(report.run(u"Local NumberVar x; x := x + 1; x"_s), u"1"_s);
    QCOMPARE(report.run(u"Local NumberVar x; x := x + 1; x"_s), u"1"_s);
}

void LanguageTest::globalVariableOfTwoTypesIsRefused()
{
    FormulaFixture report;

    QCOMPARE(report.run(u"NumberVar x; x"_s), u"0"_s);
    QCOMPARE(report.run(u"StringVar x; x"_s), u"E11 1:1"_s);
}

void LanguageTest::emptyFormulaIsNoFormula_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("35 no text") << QString();
    QTest::newRow("35 a lone zero character") << QString(QChar(0));
    QTest::newRow("blanks") << u"  \n "_s;
    QTest::newRow("a comment") << u"// nada"_s;
}

void LanguageTest::emptyFormulaIsNoFormula()
{
    QFETCH(const QString, text);

    const Formula formula(text);

    QVERIFY(formula.isEmpty());
    QVERIFY(!formula.fault());
}

void LanguageTest::settingTheSameTextTwiceGivesTheSameResult()
{
    const QString text = u"StringVar YO; YO:=\"Desde el 01/03/2024 hasta el 31/03/2024\""_s; // case 82
    FormulaFixture report;

    QCOMPARE(report.run(text), u"Desde el 01/03/2024 hasta el 31/03/2024"_s);
    QCOMPARE(report.run(text), u"Desde el 01/03/2024 hasta el 31/03/2024"_s);
}

void LanguageTest::faultReadsWithNameLineAndColumn()
{
    const Formula formula(u"\"b\" in [\"a\",]"_s);

    QCOMPARE(describe(u"selección"_s, *formula.fault()), u"selección, 1:13: se esperaba un valor"_s);
}

QTEST_GUILESS_MAIN(LanguageTest)
#include "tst_language.moc"
