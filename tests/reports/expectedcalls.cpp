// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/expectedcalls.h"

#include "platform/system/paths.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reporttest {

namespace {

/// A stretch of a run on one job, and the same stretch when the file didn't open and the job is 0.
struct Stretch
{
    ExpectedCalls calls;
    QStringList onJobZero = {};
};

enum class Tables { Scan, List };

struct ReportCalls
{
    int report;
    Tables tables;
    QStringView formula;      ///< null: none is sent
    QStringView formulaField; ///< "name", "text" as arguments; empty: none is set
};

constexpr QStringView kNoFormula;
constexpr QStringView kFesys = u"\"FESYS\", \"StringVar YO; YO:=\"\"\"";

constexpr ReportCalls kReports[] = {
    {1, Tables::Scan, u"{FacturaTabla.FACTURANumero} in 0 to 0 AND {FacturaTabla.FACTURACanal} = ''", kFesys},
    {2, Tables::Scan, u"{AlbaranesTabla.ALBARANNumero} in 0 to 0 AND {AlbaranesTabla.ALBARANCanal} = ''",
     kFesys},
    {3, Tables::Scan, u"{PEDIDOSTabla.PEDIDOSNumero} in 0 to 0 AND {PEDIDOSTabla.PEDIDOSCanal} = ''", kFesys},
    {4, Tables::Scan, u"{PresupuestoTabla.PRECOMNumero} in 0 to 0 AND {PresupuestoTabla.PRECOMCanal} = ''",
     kFesys},
    {5, Tables::List,
     u"{ComprasPedidosTabla.ComprasPedidosNumero} in 0 to 0 AND "
     u"{ComprasPedidosTabla.ComprasPedidosCanal} = ''",
     kFesys},
    {6,
     Tables::List,
     u"{ACUCARTERATABLA.ACUCARTERABANCO} in '0001' to '0001' AND {REMESAS.REMESAFECHA} in DateTime "
     u"(2026,11,20) to DateTime (2026,11,20)",
     {}},
    {7, Tables::List,
     u"{ComprasAlbaranesTabla.COMPRASALBARANNumero} in 0 to 0 AND "
     u"{ComprasAlbaranesTabla.COMPRASALBARANCanal} = ''",
     kFesys},
    {8,
     Tables::List,
     u"{ComprasFacturaTabla.COMPRASFacturaNumero} in 0 to 0 AND "
     u"{ComprasFacturaTabla.COMPRASFacturaCanal} = ''",
     {}},
    {333, Tables::List, u"val({ACUCARTERATABLA.ACUCARTERANUMRECIBO}) in  to ", {}},
    {444,
     Tables::List,
     u"val({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) in  to  AND {ACUCARTERATABLA.ACUCARTERABANCO}=''",
     {}},
    {525, Tables::List, u"{ClientesTabla.CliCodigo} in '0000000001' to '9999999999'", {}},
    {662,
     Tables::List,
     u"{ACUCARTERATABLA.ACUCARTERAVENCIMIENTO} in DateTime(2026,11,20,00,00,00) to DateTime "
     u"(2026,11,20,00,00,00) and  {ACUCARTERATABLA.ACUCARTERACODIGO} in '0001' to '9999' AND "
     u"ISNULL({ACUCARTERATABLA.ACUCARTERARNUMREMESAS}) = True",
     {}},
    {725, Tables::List, u"{ClientesTabla.ZonaCodigo} in '0000000001' to '9999999999'", {}},
    {726, Tables::List,
     u"DateVar FECHA;NumberVar Dia;NumberVar Mes;NumberVar Any;Dia:= "
     u"val(mid({FacturaTabla.FACTURAFecha},1,2)); Mes:= val(mid({FacturaTabla.FACTURAFecha},4,2));Any:= "
     u"val(mid({FacturaTabla.FACTURAFecha},7,4));fecha:= Date(Any,Mes ,Dia);fecha in Date(2026 , 11 , 20) to "
     u"Date(2026 , 11 , 20)And {COMISIONESTAB.COMISIONESDOCUMENTO}='FACT' and "
     u"val({facturatabla.facturanumrepre}) in 1 to 9999",
     u"\"fechas\", \"StringVar YO; YO:=\"Desde el 20/11/2026 hasta el 20/11/2026\"\""},
    {888, Tables::List, u"Mid ({CONS.FEINICIO},4,2) = \"11\"", {}},
    {1099, Tables::List, u"{ClientesTabla.CliCodigo} = '0000000007'", {}},
    {5001,
     Tables::List,
     u"{BALANCES.NATURALEZA} in '21' to '22' AND length({BALANCES.CTA})=0 AND {BALANCES.DESCRIP}<>'DEBE' AND "
     u"{BALANCES.DESCRIP}<>'HABER'",
     {}},
    {5002,
     Tables::List,
     u"DateVar FECHA;NumberVar Dia;NumberVar Mes;NumberVar Any;Dia:= "
     u"val(mid({lineaapunte.fechaasiento},1,2)); Mes:= val(mid({lineaapunte.fechaasiento},4,2));Any:= "
     u"val(mid({lineaapunte.fechaasiento},7,4));fecha:= Date (Any,Mes ,Dia);fecha in DateTime ( ,  , ,00, "
     u"00, 00) to DateTime ( ,  , ,00, 00, 00)",
     {}},
    {5003, Tables::List, u"", {}},
    {8881, Tables::List, kNoFormula, {}},
    {8888, Tables::List, u"{ClientesTabla.TipoClienteCodigo} in '0001' to '9999'", {}},
    {4711, Tables::List, kNoFormula, {}},
};

const ReportCalls& callsOf(int report)
{
    return *std::find_if(std::begin(kReports), std::end(kReports),
                         [report](const ReportCalls& row) { return row.report == report; });
}

/// Sets a table to a file of the company.
QString setTable(int job, int table, const QString& file)
{
    return u"PESetNthTableLocation(%1, %2, 258, \"C:\\Q\\Empresa00012\\%3\")"_s.arg(job).arg(table).arg(file);
}

Stretch tablesByScan()
{
    return {{
                {u"PEGetNTables(1)"_s, 4, {}},
                {u"PEGetNthTableLocation(1, 0, 1026)"_s, 1, {}},
                {setTable(1, 0, u"facturas.mdb"_s)},
                {u"PEGetNthTableLocation(1, 1, 1026)"_s, 1, {}},
                {setTable(1, 1, u"CLIENTES.MDB"_s)},
            },
            {u"PEGetNTables(0)"_s}};
}

/// Report 888 has one table to move, the others the first and the third.
Stretch tablesByList(int report)
{
    Stretch stretch{{{setTable(1, 0, u"CLIENTES.MDB"_s)}}, {setTable(0, 0, u"CLIENTES.MDB"_s)}};
    if (report != 888) {
        stretch.calls.append({setTable(1, 2, u"CLIENTES.MDB"_s)});
        stretch.onJobZero.append(setTable(0, 2, u"CLIENTES.MDB"_s));
    }
    return stretch;
}

/// Three sections: without a subreport, with two, with one. A section whose code isn't known has none. The
/// record keeps the name that it held when it can't be filled, and a subreport that doesn't open is job 0.
Stretch subreports()
{
    const QString receipts = u"RECIBOSCARTERA.MDB"_s;
    const QString nothing = u"PEGetNSubreportsInSection(1, 0)"_s;
    const QString unknown = u"PEGetSubreportInfo(1, 0, 137)"_s;
    const QString nameless = u"PEOpenSubreport(1, \"\")"_s;
    const QString second = u"PEOpenSubreport(1, \"segundo\")"_s;
    return {
        {
            {u"PEGetNSections(1)"_s, 18, {}},

            {u"PEGetSectionCode(1, 0)"_s, 1, {nothing}},
            {u"PEGetNSubreportsInSection(1, 100)"_s},

            {u"PEGetSectionCode(1, 1)"_s, 9, {nothing}},
            {u"PEGetNSubreportsInSection(1, 200)"_s, 8, {}},
            {u"PEGetNthSubreportInSection(1, 200, 1)"_s, 3, {unknown, nameless, setTable(0, 0, receipts)}},
            {u"PEGetSubreportInfo(1, 201, 137)"_s, 2, {nameless, setTable(0, 0, receipts)}},
            {second, 1, {setTable(0, 0, receipts)}},
            {setTable(102, 0, receipts)},
            {u"PEGetNthSubreportInSection(1, 200, 1)"_s, 1, {unknown}},
            {u"PEGetSubreportInfo(1, 201, 137)"_s},
            {second, 1, {setTable(0, 0, receipts)}},
            {setTable(102, 0, receipts)},

            {u"PEGetSectionCode(1, 2)"_s, 5, {nothing}},
            {u"PEGetNSubreportsInSection(1, 300)"_s, 4, {}},
            {u"PEGetNthSubreportInSection(1, 300, 0)"_s, 3, {unknown, second, setTable(102, 0, receipts)}},
            {u"PEGetSubreportInfo(1, 300, 137)"_s, 2, {second, setTable(102, 0, receipts)}},
            {u"PEOpenSubreport(1, \"tercero\")"_s, 1, {setTable(0, 0, receipts)}},
            {setTable(103, 0, receipts)},
        },
        {u"PEGetNSections(0)"_s}};
}

/// Driver, device and port of the chosen printer.
QString selectPrinter(int job)
{
    return u"PESelectPrinter(%1, \"PCL\", \"Taller\", \"P2\", none)"_s.arg(job);
}

/// The formula goes once by itself, then, after the formula fields, for both roles.
Stretch formulas(int job, QStringView formula, QStringView field)
{
    const auto with = [](const char* name, int number, QStringView arguments) {
        return u"%1(%2, %3)"_s.arg(QLatin1String(name)).arg(number).arg(arguments);
    };
    const QString text = u'"' + formula.toString() + u'"';
    Stretch stretch;
    if (!formula.isNull()) {
        stretch.calls.append({with("PESetGroupSelectionFormula", job, text)});
        stretch.onJobZero.append(with("PESetGroupSelectionFormula", 0, text));
    }
    if (!field.isEmpty()) {
        stretch.calls.append({with("PESetFormula", job, field), 1, {}}); // a refusal leaves at once
        stretch.calls.append({with("PESetFormula", job, field)});
        stretch.onJobZero.append(with("PESetFormula", 0, field));
    }
    if (!formula.isNull()) {
        stretch.calls.append({with("PESetGroupSelectionFormula", job, text)});
        stretch.calls.append({with("PESetSelectionFormula", job, text)});
        stretch.onJobZero.append(with("PESetGroupSelectionFormula", 0, text));
        stretch.onJobZero.append(with("PESetSelectionFormula", 0, text));
    }
    return stretch;
}

Stretch toWindow(const QString& title)
{
    const QString output = u"PEOutputToWindow(%1, \"%2\", 50, 50, 600, 600, 0, 0)"_s;
    return {{
                {u"PESetWindowOptions(1, 26, 001111101010)"_s},
                {output.arg(1).arg(title)},
                {u"PEGetErrorCode(1)"_s},
                {u"PEStartPrintJob(1, 0)"_s, 0, {u"PEGetErrorCode(1)"_s}},
            },
            {
                u"PESetWindowOptions(0, 26, 001111101010)"_s,
                output.arg(0).arg(title),
                u"PEGetErrorCode(0)"_s,
                u"PEStartPrintJob(0, 0)"_s,
                u"PEGetErrorCode(0)"_s,
            }};
}

Stretch toPrinter(int job)
{
    return {{
                {selectPrinter(job)},
                {u"PEOutputToPrinter(%1, 1)"_s.arg(job)},
                {u"PESetPrintOptions(%1, 10, 0, 0, 1, 2)"_s.arg(job)},
                {u"PEStartPrintJob(%1, 0)"_s.arg(job)},
            },
            {
                selectPrinter(0),
                u"PEOutputToPrinter(0, 1)"_s,
                u"PESetPrintOptions(0, 10, 0, 0, 1, 2)"_s,
                u"PEStartPrintJob(0, 0)"_s,
            }};
}

/// The opening of a file and all that follows on its job.
ExpectedCalls opened(const QString& file, const QList<Stretch>& stretches)
{
    ExpectedCalls calls;
    QStringList onJobZero = {};
    for (const Stretch& stretch : stretches) {
        calls.append(stretch.calls);
        onJobZero.append(stretch.onJobZero);
    }
    calls.prepend({u"PEOpenPrintJob(\"%1\")"_s.arg(file), calls.size(), onJobZero});
    return calls;
}

/// The receipts of the invoices, on a job of their own.
ExpectedCalls receipts()
{
    const QString folder = platform::programPath(QCoreApplication::applicationDirPath());
    Stretch tables;
    const QStringList files{u"RECIBOSCARTERA.MDB"_s, u"imagenes.MDB"_s, u"facturas.MDB"_s, u"CLIENTES.MDB"_s};
    for (int table = 0; table < 4; ++table) {
        tables.calls.append({setTable(2, table, files[table])});
        tables.onJobZero.append(setTable(0, table, files[table]));
    }
    return opened(folder + u"\\recibo.rpt"_s,
                  {tables, {{{selectPrinter(2)}}, {selectPrinter(0)}}, formulas(2, u"", {}), toPrinter(2)});
}

} // namespace

ExpectedCalls expectedCalls(int report, Output output)
{
    const ReportCalls& row = callsOf(report);
    QList<Stretch> stretches;
    stretches.append(row.tables == Tables::Scan ? tablesByScan() : tablesByList(report));
    if (report == 1)
        stretches.append(subreports());
    stretches.append({{{selectPrinter(1)}}, {selectPrinter(0)}});
    stretches.append(formulas(1, row.formula, row.formulaField));
    const QString title = report == 726 ? u"Liquidación de comisiones"_s : u"Título"_s;
    stretches.append(output == Output::Window ? toWindow(title) : toPrinter(1));
    ExpectedCalls calls = opened(u"C:\\Q\\informe.rpt"_s, stretches);
    if (output == Output::PrinterWithReceipts)
        calls.append(receipts());
    return calls;
}

QList<int> expectedReports()
{
    QList<int> reports;
    for (const ReportCalls& row : kReports)
        reports.append(row.report);
    return reports;
}

QStringList namesOf(const ExpectedCalls& calls)
{
    QStringList names;
    for (const ExpectedCall& expected : calls)
        names.append(expected.call);
    return names;
}

QStringList namesAfterFailure(const ExpectedCalls& calls, qsizetype failing)
{
    const ExpectedCall& failed = calls.at(failing);
    const QStringList usual = namesOf(calls);
    return usual.first(failing + 1) + failed.instead + usual.sliced(failing + 1 + failed.dropped);
}

} // namespace reporttest
