// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/regime.h"
#include "platform/print/output/printers.h"
#include "platform/system/paths.h"
#include "platform/text/textfunctions.h"
#include "platform/window/formhelpers.h"
#include "reports/catalogue.h"
#include "reports/enginetext.h"
#include "reports/lista.h"
#include "shell/globalsat.h"
#include "ui_lista.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace platform;
using namespace Qt::StringLiterals;

namespace reports {

namespace {

constexpr std::array kScannedReports{kInvoices, kDeliveryNotes, kOrders, kBudgets};
constexpr std::array kReportsWithFormulas{kInvoices,       kDeliveryNotes,         kOrders,     kBudgets,
                                          kPurchaseOrders, kPurchaseDeliveryNotes, kCommissions};

constexpr int kContract = 102;
constexpr int kDueDates = 99999;

// No part of the system gives the exercise a value.
const QString kEjercicio;

template <std::size_t N>
bool isOneOf(double number, const std::array<int, N>& numbers)
{
    return std::any_of(numbers.begin(), numbers.end(),
                       [number](int wanted) { return static_cast<double>(wanted) == number; });
}

PEWindowOptions previewOptions()
{
    PEWindowOptions options;
    options.hasNavigationControls = 1;
    options.hasCancelButton = 1;
    options.hasPrintButton = 1;
    options.hasExportButton = 1;
    options.hasZoomControl = 1;
    options.hasProgressControls = 1;
    options.hasPrintSetupButton = 1;
    return options;
}

/// The file name without the year of an exercise, a four-digit run that begins with the last "200", else the
/// last "199".
QString withoutExerciseYear(const QString& name)
{
    qsizetype at = InStrRev(name, u"200");
    if (at == 0)
        at = InStrRev(name, u"199");
    if (at == 0)
        return name;
    return Left(name, at - 1) + kEjercicio + Mid(name, at + 4);
}

struct FormulaField
{
    int report;
    const char* name;
    const char* variable;
};

constexpr std::array kFormulaFields{
    FormulaField{kInvoices, "FESYS", "YO"},       FormulaField{kDeliveryNotes, "FESYS", "YO"},
    FormulaField{kOrders, "FESYS", "YO"},         FormulaField{kBudgets, "FESYS", "YO"},
    FormulaField{kPurchaseOrders, "FESYS", "YO"}, FormulaField{kPurchaseDeliveryNotes, "FESYS", "YO"},
    FormulaField{kCommissions, "fechas", "YO"},   FormulaField{kContract, "CONTRATO", "YO"},
    FormulaField{kContract, "TITULAR", "YO"},     FormulaField{kContract, "DOMICILIO", "YO"},
    FormulaField{kContract, "LOCALIDAD", "YO"},   FormulaField{kContract, "NIF", "YO"},
    FormulaField{kDueDates, "VENCI1", "VENDO1"},  FormulaField{kDueDates, "VENCI2", "VENDO2"},
    FormulaField{kDueDates, "VENCI3", "VENDO3"},  FormulaField{kDueDates, "VENCI4", "VENDO4"},
    FormulaField{kDueDates, "VENCI5", "VENDO5"},
};

/// The tables from 1 on that a request may point elsewhere; an empty text leaves one as the report file has
/// it.
const std::array kNumberedBases{&BASEINFORME1, &BASEINFORME2, &BASEINFORME3, &BASEINFORME4,
                                &BASEINFORME5, &BASEINFORME6, &BASEINFORME7};

} // namespace

void LISTA::LANZAINFORME()
{
    attempt([&] { setMousePointer(this, kBusyPointer); });
    // A chained receipt runs once more: the chain unticks the box that asks for it.
    while (runRequest()) {
    }
    attempt([&] { setMousePointer(this, kDefaultPointer); });
}

bool LISTA::runRequest()
{
    const PEWindowOptions options = previewOptions();
    double copies = 1;
    attempt([&] { copies = Val(ui->Combo1->text()); });
    attempt([&] { m_IMPRESORADRIVER = currentPrinter().DriverName; });
    attempt([&] { m_IMPRESORANOMBRE = currentPrinter().DeviceName; });
    attempt([&] { m_IMPRESORAPUERTO = currentPrinter().Port; });
    PEJob job = 0;
    attempt([&] { job = PEOpenPrintJob(enginePath(FICHEROINFORME)); });
    if (isOneOf(NUMINFORME, kScannedReports))
        relocateByScan(job);
    else
        relocateByList(job);
    if (NUMINFORME == kInvoices)
        relocateSubreports(job);
    attempt([&] {
        PESelectPrinter(job, engineText(m_IMPRESORADRIVER), engineText(m_IMPRESORANOMBRE),
                        engineText(m_IMPRESORAPUERTO), nullptr);
    });
    attempt([&] { VISUALIZA(job); });
    if (isOneOf(NUMINFORME, kReportsWithFormulas))
        attempt([&] { FORMULASINFORME(job); });
    // Only blanks count as nothing: the zero that ends a formula is content.
    if (!Trim(FORMULAINFORME).isEmpty())
        attempt([&] { PESetGroupSelectionFormula(job, engineText(FORMULAINFORME)); });
    if (!Trim(FORMULAINFORME).isEmpty())
        attempt([&] { PESetSelectionFormula(job, engineText(FORMULAINFORME)); });
    if (MODOSALIDA == 1)
        startPreview(job, options);
    return MODOSALIDA == 2 && startPrint(job, copies);
}

void LISTA::relocateByScan(PEJob job)
{
    m_writeLocation.StructSize = 258;
    const std::int16_t tables = PEGetNTables(job);
    for (std::int16_t table = 0; table < tables; ++table) {
        std::fill_n(m_readLocation.Location, sizeof m_readLocation.Location, '\0');
        m_readLocation.StructSize = 1026;
        if (PEGetNthTableLocation(job, table, &m_readLocation) != 1)
            continue;
        const QString location =
            Trim(fromEngineField(m_readLocation.Location, sizeof m_readLocation.Location));
        const QString name = withoutExerciseYear(Mid(location, InStrRev(location, u"\\") + 1));
        fillEngineField(m_writeLocation.Location, sizeof m_writeLocation.Location, RUTAEMPRESA + name);
        PESetNthTableLocation(job, table, &m_writeLocation);
    }
}

void LISTA::relocateByList(PEJob job)
{
    m_writeLocation.StructSize = 258;
    fillEngineField(m_writeLocation.Location, sizeof m_writeLocation.Location, BASEINFORME);
    PESetNthTableLocation(job, 0, &m_writeLocation);
    std::int16_t table = 0;
    for (const QString* base : kNumberedBases) {
        ++table;
        if (Trim(*base).isEmpty())
            continue;
        fillEngineField(m_writeLocation.Location, sizeof m_writeLocation.Location, *base);
        PESetNthTableLocation(job, table, &m_writeLocation);
    }
}

void LISTA::relocateSubreports(PEJob job)
{
    PESubreportInfo info;
    const std::int16_t sections = PEGetNSections(job);
    for (std::int16_t section = 0; section < sections; ++section) {
        const std::int16_t code = PEGetSectionCode(job, section);
        const std::int16_t count = PEGetNSubreportsInSection(job, code);
        for (std::int16_t pass = 0; pass < count; ++pass) {
            // Always the last one of the section, as often as it has subreports.
            const std::int32_t handle =
                PEGetNthSubreportInSection(job, code, static_cast<std::int16_t>(count - 1));
            PEGetSubreportInfo(job, handle, &info);
            const QString name = fromEngineField(info.name, sizeof info.name);
            const PEJob subjob = PEOpenSubreport(job, engineText(name));
            fillEngineField(m_writeLocation.Location, sizeof m_writeLocation.Location,
                            RUTAEMPRESA + u"RECIBOSCARTERA.MDB"_s);
            PESetNthTableLocation(subjob, 0, &m_writeLocation);
        }
    }
}

void LISTA::startPreview(PEJob job, const PEWindowOptions& options)
{
    PESetWindowOptions(job, &options);
    PEOutputToWindow(job, engineText(TITULOINFORME), 50, 50, 600, 600, 0, nullptr);
    PEGetErrorCode(job);
    if (PEStartPrintJob(job, 0) == 0)
        PEGetErrorCode(job);
}

bool LISTA::startPrint(PEJob job, double copies)
{
    PESelectPrinter(job, engineText(m_IMPRESORADRIVER), engineText(m_IMPRESORANOMBRE),
                    engineText(m_IMPRESORAPUERTO), nullptr);
    PEOutputToPrinter(job, 1);
    PEPrintOptions options;
    options.nReportCopies = 1;
    options.collation = 2;
    if (copies != 0) {
        options.nReportCopies = static_cast<std::uint16_t>(copies);
        options.collation = 2;
        PESetPrintOptions(job, &options);
    }
    PEStartPrintJob(job, 0);
    if (!ui->Check1->isChecked())
        return false;
    chainReceipts();
    return true;
}

void LISTA::chainReceipts()
{
    NUMINFORME = kReceipts;
    FICHEROINFORME = Trim(programPath(QCoreApplication::applicationDirPath())) + u"\\recibo.rpt"_s;
    BASEINFORME = RUTAEMPRESA + u"RECIBOSCARTERA.MDB"_s;
    BASEINFORME1 = RUTAEMPRESA + u"imagenes.MDB"_s;
    BASEINFORME2 = RUTAEMPRESA + u"facturas"_s + kEjercicio + u".MDB"_s;
    BASEINFORME3 = RUTAEMPRESA + u"CLIENTES.MDB"_s;
    TITULOINFORME = u"Impresión de Recibos"_s;
    RECIBOENCADENADO = 1;
    ui->Check1->setChecked(false);
}

void LISTA::FORMULASINFORME(PEJob job)
{
    QString value;
    if (NUMINFORME == kCommissions)
        value = u"Desde el "_s + FormatDate(ui->DTPicker1->date()) + u" hasta el "_s +
                FormatDate(ui->DTPicker2->date());
    for (const FormulaField& field : kFormulaFields) {
        if (static_cast<double>(field.report) != NUMINFORME)
            continue;
        const QString variable = QString::fromLatin1(field.variable);
        const QString text = u"StringVar "_s + variable + u"; "_s + variable + u":=\""_s + value + u"\""_s;
        const EngineText name = engineText(QString::fromLatin1(field.name));
        if (PESetFormula(job, name, engineText(text)) != 1)
            return;
        PESetFormula(job, name, engineText(text));
    }
}

QString LISTA::TEXTOERRORIMPRESION(PEJob job) const
{
    PEGetErrorCode(job);
    char buffer[] = " ";
    PEGetHandleString(nullptr, buffer, 0);
    return QString::fromLatin1(buffer);
}

} // namespace reports
