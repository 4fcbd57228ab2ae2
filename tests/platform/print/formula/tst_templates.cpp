// SPDX-License-Identifier: GPL-3.0-or-later
// The selection formulas that the report window builds, over rows that they must take and leave.
#include "platform/print/formula/formulafixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform::print::formula;

class TemplatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowIsTakenOrLeft_data();
    void rowIsTakenOrLeft();
};

namespace {

/// Values of the row by column; a value without content is a null.
using Record = QList<std::pair<QString, Value>>;

const QString kYes = u"True"_s;
const QString kNo = u"False"_s;
const QString kNone = u"∅"_s;

Value text(const QString& content)
{
    return content;
}

Value date(int year, int month, int day)
{
    return toDate(QDate(year, month, day));
}

Value moment(int year, int month, int day, int hour)
{
    return toDateTime(QDateTime(QDate(year, month, day), QTime(hour, 0), Qt::UTC));
}

QString header(const QString& column)
{
    return u"DateVar FECHA;NumberVar Dia;NumberVar Mes;NumberVar Any;Dia:= val(mid(%1,1,2)); Mes:= "
           "val(mid(%1,4,2));Any:= val(mid(%1,7,4));"_s.arg(column);
}

void row(const char* name, const QString& formula, const Record& record, const QString& result)
{
    QTest::newRow(name) << formula << record << result;
}

void rangeRows()
{
    const QString zones =
        u"{ClientesTabla.ZonaCodigo} in '0000000001' to '9999999999'"_s + QChar(0) + QChar(0);
    const QString zone = u"ClientesTabla.ZonaCodigo"_s;
    row("59 first zone", zones, {{zone, text(u"0000000001"_s)}}, kYes);
    row("59 a zone within", zones, {{zone, text(u"0000000012"_s)}}, kYes);
    row("59 no zone", zones, {{zone, text(u""_s)}}, kNo);
    row("59 a zone with a letter", zones, {{zone, text(u"A1"_s)}}, kNo);
    row("59 a null zone", zones, {{zone, {}}}, kNone);
    const QString shortZones = u"{ClientesTabla.ZonaCodigo} in '1' to '9'"_s;
    row("60 short bounds leave full codes out", shortZones, {{zone, text(u"0000000001"_s)}}, kNo);
    row("60 short bounds compare as text", shortZones, {{zone, text(u"5"_s)}}, kYes);
    row("61 an apostrophe typed", u"{ClientesTabla.ZonaCodigo} in 'O'B' to 'Z'"_s, {{zone, text(u"P"_s)}},
        u"E10 1:34"_s);
    row("62 client code", u"{ClientesTabla.CliCodigo} in '0000000001' to '9999999999'"_s,
        {{u"ClientesTabla.CliCodigo"_s, text(u"0000000007"_s)}}, kYes);
    const QString types = u"{ClientesTabla.TipoClienteCodigo} in '0001' to '9999'"_s;
    row("62 client type", types, {{u"ClientesTabla.TipoClienteCodigo"_s, text(u"0002"_s)}}, kYes);
    row("62 no client type", types, {{u"ClientesTabla.TipoClienteCodigo"_s, text(u""_s)}}, kNo);
}

void monthRows()
{
    const QString month = u"Mid ({CONS.FEINICIO},4,2) = \"03\""_s + QChar(0);
    const QString start = u"CONS.FEINICIO"_s;
    row("63 the month", month, {{start, text(u"15/03/2024"_s)}}, kYes);
    row("63 the month of another year", month, {{start, text(u"15/03/2019"_s)}}, kYes);
    row("63 another month", month, {{start, text(u"15/04/2024"_s)}}, kNo);
    row("63 a short date", month, {{start, text(u"5/3/2024"_s)}}, kNo);
    row("63 no date", month, {{start, text(u""_s)}}, kNo);
    row("63 a null date", month, {{start, {}}}, kNone);
}

void documentRows()
{
    struct Report
    {
        const char* name;
        QString number;
        QString channel;
    };
    const QList<Report> reports{
        {"64 report 1", u"FacturaTabla.FACTURANumero"_s, u"FacturaTabla.FACTURACanal"_s},
        {"64 report 2", u"AlbaranesTabla.ALBARANNumero"_s, u"AlbaranesTabla.ALBARANCanal"_s},
        {"64 report 3", u"PEDIDOSTabla.PEDIDOSNumero"_s, u"PEDIDOSTabla.PEDIDOSCanal"_s},
        {"64 report 4", u"PresupuestoTabla.PRECOMNumero"_s, u"PresupuestoTabla.PRECOMCanal"_s},
        {"64 report 5", u"ComprasPedidosTabla.ComprasPedidosNumero"_s,
         u"ComprasPedidosTabla.ComprasPedidosCanal"_s},
        {"64 report 7", u"ComprasAlbaranesTabla.COMPRASALBARANNumero"_s,
         u"ComprasAlbaranesTabla.COMPRASALBARANCanal"_s},
        {"64 report 8", u"ComprasFacturaTabla.COMPRASFacturaNumero"_s,
         u"ComprasFacturaTabla.COMPRASFacturaCanal"_s},
    };
    for (const Report& report : reports) {
        const QString formula = u"{%1} in 0 to 0 AND {%2} = ''"_s.arg(report.number, report.channel);
        QTest::addRow("%s, taken", report.name)
            << formula << Record{{report.number, 0.0}, {report.channel, text(u""_s)}} << kYes;
        QTest::addRow("%s, left", report.name)
            << formula << Record{{report.number, 9.0}, {report.channel, text(u""_s)}} << kNo;
    }
    const QString plain = u"{FacturaTabla.FACTURANumero} in 0 to 0 AND {FacturaTabla.FACTURACanal} = ''"_s;
    const QString warranty =
        u"{extendido.extendocumento} ='FACT' OR ISNULL({extendido.extendocumento})= TRUE AND "_s;
    const auto record = [](const Value& document, double number) {
        return Record{{u"extendido.extendocumento"_s, document},
                      {u"FacturaTabla.FACTURANumero"_s, number},
                      {u"FacturaTabla.FACTURACanal"_s, text(u""_s)}};
    };
    row("65 And binds before Or", warranty + plain, record(text(u"FACT"_s), 9), kYes);
    row("65 another document", warranty + plain, record(text(u"X"_s), 0), kNo);
    row("65 a null document ends it", warranty + plain, record({}, 0), kNone);
    const QString order =
        u"{extendido.extendocumento} ='PEDI' AND {PEDIDOSTabla.PEDIDOSNumero} in 0 to 0 AND "
        "{PEDIDOSTabla.PEDIDOSCanal} = ''"_s;
    row("66 order of the guarantees file", order,
        {{u"extendido.extendocumento"_s, text(u"PEDI"_s)},
         {u"PEDIDOSTabla.PEDIDOSNumero"_s, 0.0},
         {u"PEDIDOSTabla.PEDIDOSCanal"_s, text(u""_s)}},
        kYes);
}

void dateRows()
{
    const QString issued = u"FacturaTabla.FACTURAFecha"_s;
    const QString body = u"fecha:= Date (Any,Mes ,Dia);fecha in DateTime (2024 , 03 , 01,00, 00, 00) to "
                         "DateTime (2024 , 03 , 31,00, 00, 00)"_s;
    const QString invoices = header(u"{FacturaTabla.FACTURAFecha}"_s) + body;
    row("67 first day", invoices, {{issued, text(u"01/03/2024"_s)}}, kYes);
    row("67 last day", invoices, {{issued, text(u"31/03/2024"_s)}}, kYes);
    row("67 the day after", invoices, {{issued, text(u"01/04/2024"_s)}}, kNo);
    row("67 no date", invoices, {{issued, text(u""_s)}}, kNo);
    row("67 an impossible date", invoices, {{issued, text(u"31/02/2024"_s)}},
        u"E13 1:%1"_s.arg(header(u"{FacturaTabla.FACTURAFecha}"_s).size() + 9));
    const QString warranty =
        u"{extendido.extendocumento} ='FACT' OR ISNULL({extendido.extendocumento})= TRUE AND "_s;
    row("68 a declaration can't follow And", warranty + invoices, {{issued, text(u"01/03/2024"_s)}},
        u"E10 1:%1"_s.arg(warranty.size() + 1));

    struct Report
    {
        const char* name;
        QString column;
    };
    const QList<Report> reports{{"69 report 2", u"ALBARANESTabla.ALBARANFecha"_s},
                                {"69 report 3", u"PEDIDOSTabla.PEDIDOSFecha"_s},
                                {"69 report 4", u"PresupuestoTabla.PRECOMFecha"_s},
                                {"69 report 5", u"COMPRASPEDIDOSTabla.COMPRASPEDIDOSFecha"_s},
                                {"69 report 7", u"COMPRASAlbaranesTabla.COMPRASAlbaranFecha"_s},
                                {"69 report 8", u"ComprasFacturaTabla.COMPRASFacturaFecha"_s}};
    for (const Report& report : reports) {
        const QString days = u"{%1} in [\"30/12/2023\", \"31/12/2023\", \"01/01/2024\"]"_s.arg(report.column);
        QTest::addRow("%s, a listed day", report.name)
            << days << Record{{report.column, text(u"31/12/2023"_s)}} << kYes;
        QTest::addRow("%s, another day", report.name)
            << days << Record{{report.column, text(u"02/01/2024"_s)}} << kNo;
        QTest::addRow("%s, one day", report.name) << u"{%1} in [\"01/03/2024\"]"_s.arg(report.column)
                                                  << Record{{report.column, text(u"01/03/2024"_s)}} << kYes;
        QTest::addRow("70 %s, reversed", report.name)
            << u"{%1} in [\"01/03/2024\", ]"_s.arg(report.column)
            << Record{{report.column, text(u"01/03/2024"_s)}} << u"E10 1:%1"_s.arg(report.column.size() + 22);
    }
}

void portfolioRows()
{
    const QString table = u"ACUCARTERATABLA."_s;
    const QString due =
        u"{ACUCARTERATABLA.ACUCARTERAVENCIMIENTO} in DateTime(2024,03,01,00,00,00) to DateTime "
        "(2024,03,31,00,00,00) and  {ACUCARTERATABLA.ACUCARTERACODIGO} in '0001' to '9999' AND "
        "ISNULL({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) = True"_s;
    const auto entry = [&table](const Value& day, const Value& remittance) {
        return Record{{table + u"ACUCARTERAVENCIMIENTO"_s, day},
                      {table + u"ACUCARTERACODIGO"_s, text(u"0005"_s)},
                      {table + u"ACUCARTERARNUMREMESAS"_s, remittance}};
    };
    row("71 midnight of the last day", due, entry(moment(2024, 3, 31, 0), {}), kYes);
    row("71 later on the last day", due, entry(moment(2024, 3, 31, 9), {}), kNo);
    row("71 with a remittance", due, entry(moment(2024, 3, 31, 0), text(u"0001"_s)), kNo);
    const Record remitted{{table + u"ACUCARTERARNUMREMESAS"_s, text(u"0013"_s)},
                          {table + u"ACUCARTERABANCO"_s, text(u""_s)}};
    row("72 remittance within",
        u"val({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) in 12 to 15 AND "
        "{ACUCARTERATABLA.ACUCARTERABANCO}=''"_s,
        remitted, kYes);
    row("72 boxes left empty",
        u"val({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) in  to  AND "
        "{ACUCARTERATABLA.ACUCARTERABANCO}=''"_s,
        remitted, u"E10 1:50"_s);
    const Record receipt{{table + u"ACUCARTERANUMRECIBO"_s, text(u"7"_s)}};
    row("73 receipt within", u"val({ACUCARTERATABLA.ACUCARTERANUMRECIBO}) in 5 to 9"_s, receipt, kYes);
    row("73 chained receipt", u"val({ACUCARTERATABLA.ACUCARTERANUMRECIBO}) in 7 to 7"_s, receipt, kYes);
    row("74 receipt by date",
        u"{ACUCARTERATABLA.ACUCARTERAFECHARECIBO} in DateTime (2024,03,01) to DateTime "
        "(2024,03,31)"_s,
        {{table + u"ACUCARTERAFECHARECIBO"_s, moment(2024, 3, 15, 0)}}, kYes);
    row("75 remittance by bank",
        u"{ACUCARTERATABLA.ACUCARTERABANCO} in '0001' to '0001' AND {REMESAS.REMESAFECHA} "
        "in DateTime (2024,03,01) to DateTime (2024,03,31)"_s,
        {{table + u"ACUCARTERABANCO"_s, text(u"0001"_s)}, {u"REMESAS.REMESAFECHA"_s, date(2024, 3, 31)}},
        kYes);
}

void commissionRows()
{
    const QString formula =
        header(u"{FacturaTabla.FACTURAFecha}"_s) +
        u"fecha:= Date(Any,Mes ,Dia);fecha in Date(2024 , 03 , 01) to Date(2024 , 03 , 31)And "
        "{COMISIONESTAB.COMISIONESDOCUMENTO}='FACT' and val({facturatabla.facturanumrepre}) in %1 to %2"_s;
    const Record record{{u"FacturaTabla.FACTURAFecha"_s, text(u"15/03/2024"_s)},
                        {u"COMISIONESTAB.COMISIONESDOCUMENTO"_s, text(u"FACT"_s)},
                        {u"facturatabla.facturanumrepre"_s, text(u"0007"_s)}};
    row("76 commission within", formula.arg(u"1"_s, u"9999"_s), record, kYes);
    row("76 boxes that are no numbers", formula.arg(u""_s, u"0"_s), record,
        u"E10 1:%1"_s.arg(formula.indexOf(u"to %2"_s) - 1));
}

void accountingRows()
{
    const auto balance = [](const QString& account, const QString& title) {
        return Record{{u"BALANCES.NATURALEZA"_s, text(u"21"_s)},
                      {u"BALANCES.CTA"_s, text(account)},
                      {u"BALANCES.DESCRIP"_s, text(title)}};
    };
    const QString balances = u"{BALANCES.NATURALEZA} in '21' to '22' AND %1{BALANCES.DESCRIP}<>'DEBE' AND "
                             "{BALANCES.DESCRIP}<>'HABER'"_s;
    const QString totals = balances.arg(u"length({BALANCES.CTA})=0 AND "_s);
    row("77 a total", totals, balance(u""_s, u"Total"_s), kYes);
    row("77 an account", totals, balance(u"430"_s, u"Total"_s), kNo);
    row("77 an account, option 1", balances.arg(QString()), balance(u"430"_s, u"Total"_s), kYes);
    row("77 the heading", totals, balance(u""_s, u"DEBE"_s), kNo);

    const QString dates =
        header(u"{lineaapunte.fechaasiento}"_s) + u"fecha:= Date (Any,Mes ,Dia);fecha in "_s;
    const QString entries =
        dates + u"DateTime (2024 , 01 , 01,00, 00, 00) to DateTime (2024 , 12 , 31,00, 00, 00) AND "
                "{lineaapunte.numeroasiento}>='000001' and {lineaapunte.numeroasiento}<='000099' AND "
                "{lineaapunte.cuentaasiento}={cta.numcuenta}"_s;
    const Record entry{{u"lineaapunte.fechaasiento"_s, text(u"15/06/2024"_s)},
                       {u"lineaapunte.numeroasiento"_s, text(u"000050"_s)},
                       {u"lineaapunte.cuentaasiento"_s, text(u"430000012"_s)},
                       {u"cta.numcuenta"_s, text(u"430000012"_s)}};
    row("78 entry within", entries, entry, kYes);
    const QString without = dates + u"DateTime ( ,  , ,00, 00, 00) to DateTime ( ,  , ,00, 00, 00)"_s;
    row("78 without parameters", without, entry, u"E10 1:%1"_s.arg(dates.size() + 12));

    const QString account = u"mid({lineaapunte.cuentaasiento},1,4) in '4300'"_s;
    row("79 an account of the group", account, {{u"lineaapunte.cuentaasiento"_s, text(u"430000012"_s)}},
        kYes);
    row("79 another account", account, {{u"lineaapunte.cuentaasiento"_s, text(u"570000001"_s)}}, kNo);
}

void lookupRows()
{
    const QString ticks = u"{clientescyctabla.clientescycarticulo} in [\"CAL01\", \"CAL02\"] and "
                          "{clientescyctabla.clientescycfecbaja} in [\"\", \"  /  /\"]"_s;
    const auto concept_ = [](const QString& ended) {
        return Record{{u"clientescyctabla.clientescycarticulo"_s, text(u"CAL02"_s)},
                      {u"clientescyctabla.clientescycfecbaja"_s, text(ended)}};
    };
    row("80 in force", ticks, concept_(u""_s), kYes);
    row("80 in force, the date's mask left", ticks, concept_(u"  /  /"_s), kYes);
    row("80 ended", ticks, concept_(u"01/02/2024"_s), kNo);
    row("80 no ticks",
        u"{clientescyctabla.clientescycarticulo} in [] and {clientescyctabla.clientescycfecbaja} in "
        "[\"\", \"  /  /\"]"_s,
        concept_(u""_s), kNo);
}

Type typeOf(const Value& value)
{
    if (std::holds_alternative<double>(value))
        return Type::Number;
    if (std::holds_alternative<Date>(value))
        return Type::Date;
    return std::holds_alternative<DateTime>(value) ? Type::DateTime : Type::Text;
}

} // namespace

void TemplatesTest::rowIsTakenOrLeft_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Record>("record");
    QTest::addColumn<QString>("result");
    rangeRows();
    monthRows();
    documentRows();
    dateRows();
    portfolioRows();
    commissionRows();
    accountingRows();
    lookupRows();
}

void TemplatesTest::rowIsTakenOrLeft()
{
    QFETCH(const QString, text);
    QFETCH(const Record, record);
    QFETCH(const QString, result);
    FormulaFixture report;
    for (const auto& [field, value] : record)
        report.givenColumn(field, typeOf(value), value);

    QCOMPARE(report.run(text), result);
}

QTEST_GUILESS_MAIN(TemplatesTest)
#include "tst_templates.moc"
