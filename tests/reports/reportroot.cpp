// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/reportroot.h"

#include "platform/system/paths.h"
#include "platform/window/combolist.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"
#include "stores/storefixture.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using platform::print::PreviewWindow;
using reports::LISTA;

namespace reporttest {

namespace {

using namespace platform::dao;

constexpr int kClients = 40;
constexpr int kMostConcepts = 3;
constexpr int kWait = 20000; // milliseconds

QString padded(int number, int width)
{
    return u"%1"_s.arg(number, width, 10, QChar(u'0'));
}

void addRow(Recordset& rows, storetest::RowValues values)
{
    rows.AddNew();
    for (const auto& [column, value] : values)
        rows[QStringView(column)].setValue(value);
    rows.Update();
}

/// Zones and types in turn, every fourth client without a type; the road runs against the codes.
void fillClients()
{
    const QStringList names{u"Peña"_s, u"Íñiguez"_s, u"Zurita"_s, u"Ávila"_s, u"Güell"_s};
    for (int i = 1; i <= kClients; ++i) {
        const int type = i % 4;
        addRow(RSCLIENTES, {{u"CliCodigo", padded(i, 10)},
                            {u"CliNombre", names[i % names.size()] + u' ' + padded(i, 2)},
                            {u"CliCodPostal", padded(4900 - i * 7 % 50, 5)},
                            {u"CliCodPostalLocali", u"Almería"_s},
                            {u"ZonaCodigo", padded(i % 3 + 1, 10)},
                            {u"TipoClienteCodigo", type == 0 ? QString() : padded(type, 4)}});
    }
}

/// From none to three concepts a client; one that has ended for every fifth.
void fillConcepts()
{
    for (int i = 1; i <= kClients; ++i) {
        const QString client = padded(i, 10);
        for (int line = 1; line <= i % (kMostConcepts + 1); ++line)
            addRow(RSCYC, {{u"clientescycarticulo", u"CAL"_s + padded(line, 2)},
                           {u"clientescyccliente", client},
                           {u"clientescycdescrip", u"Caldera del Año %1"_s.arg(line)},
                           {u"clientescycunidades", static_cast<double>(line)},
                           {u"clientescycprecio", 10.5},
                           {u"clientescylineas", static_cast<double>(line)}});
        if (i % 5 == 0)
            addRow(RSCYC, {{u"clientescycarticulo", u"BAJA"_s},
                           {u"clientescyccliente", client},
                           {u"clientescycfecbaja", u"01/02/2024"_s},
                           {u"clientescylineas", 9.0}});
    }
}

/// Seven consultations in March, April and May of three years each.
void fillConsultations()
{
    int number = 0;
    for (const int year : {2022, 2023, 2024}) {
        for (const int month : {3, 4, 5}) {
            for (int day = 1; day <= 7; ++day) {
                ++number;
                const QString date = QDate(year, month, day).toString(u"dd/MM/yyyy"_s);
                addRow(RSCONSULTAS, {{u"ORDEN", static_cast<double>(number)},
                                     {u"CLICONSULTA", padded(number % 9 + 1, 10)},
                                     {u"TEMA", u"Asunto "_s + padded(number, 3)},
                                     {u"FEINICIO", date},
                                     {u"FEFINAL", date},
                                     {u"TECNICO", u"Íñigo"_s},
                                     {u"ESTADO", day == 1 ? u"01 Abierta"_s : u"02 Cerrada"_s}});
            }
        }
    }
}

QString textOf(const Recordset& rows, QStringView column)
{
    const platform::Value value = rows[column].Value();
    return platform::isNull(value) ? QString() : platform::asText(value);
}

} // namespace

ReportRoot::ReportRoot()
{
    const QDir shipped(QString::fromUtf8(ORVANE_REPORTS_DIR));
    for (const QString& name : shipped.entryList({u"*.rpt"_s}))
        QFile::copy(shipped.filePath(name), m_root.path(name));
    RUTAEMPRESA = m_root.companyPath();
    storetest::bringUp();
    fillClients();
    fillConcepts();
    fillConsultations();
}

ReportRoot::~ReportRoot()
{
    resetProgramState();
}

QList<Client> ReportRoot::clients() const
{
    QList<Client> found;
    for (Recordset rows = BDCLIENTES.OpenRecordset(u"ClientesTabla"_s, dbOpenTable); !rows.EOF_();
         rows.MoveNext())
        found.append({textOf(rows, u"CliCodigo"), textOf(rows, u"CliNombre"), textOf(rows, u"CliCodPostal"),
                      textOf(rows, u"ZonaCodigo"), textOf(rows, u"TipoClienteCodigo")});
    std::sort(found.begin(), found.end(), [](const Client& a, const Client& b) { return a.code < b.code; });
    return found;
}

QStringList ReportRoot::articlesOf(const QString& client) const
{
    QStringList found;
    for (Recordset rows = BDCLIENTES.OpenRecordset(u"clientescyctabla"_s, dbOpenTable); !rows.EOF_();
         rows.MoveNext()) {
        if (textOf(rows, u"clientescyccliente") == client && textOf(rows, u"clientescycfecbaja").isEmpty())
            found.append(textOf(rows, u"clientescycarticulo"));
    }
    found.sort();
    return found;
}

QList<Consultation> ReportRoot::consultations() const
{
    QList<Consultation> found;
    for (Recordset rows = BDASISTENCIAS.OpenRecordset(u"CONS"_s, dbOpenTable); !rows.EOF_(); rows.MoveNext())
        found.append({textOf(rows, u"TEMA"), textOf(rows, u"FEINICIO")});
    return found;
}

void requestReport(int number)
{
    const bool isSummary = number == 888;
    const QString folder = platform::currentDirectory();
    NUMINFORME = number;
    FICHEROINFORME = folder + (isSummary       ? u"\\consultatec.rpt"_s
                               : number == 725 ? u"\\conservacion.rpt"_s
                               : number == 525 ? u"\\clientes.rpt"_s
                                               : u"\\clientestipo.rpt"_s);
    BASEINFORME = RUTAEMPRESA + (isSummary ? u"ASISTENCIAS.MDB"_s : u"CLIENTES.MDB"_s);
    if (number == 725)
        BASEINFORME2 = RUTAEMPRESA + u"CLIENTES.MDB"_s;
    TITULOINFORME = isSummary       ? u"Resumen gestión del S.A.T."_s
                    : number == 725 ? u"Albaranes de Mantenimiento"_s
                                    : u"Clientes"_s;
}

void typeInto(const LISTA& window, const char* box, const QString& text)
{
    auto& field = control<platform::TextBox>(window, box);
    QTest::mouseClick(&field, Qt::LeftButton);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
}

void chooseEntry(const LISTA& window, const char* list, int entry)
{
    auto& combo = control<platform::ComboList>(window, list);
    combo.setFocus();
    QTest::keyClick(&combo, Qt::Key_Home);
    for (int step = 0; step < entry; ++step)
        QTest::keyClick(&combo, Qt::Key_Down);
}

void press(const LISTA& window, const char* button)
{
    QTest::mouseClick(&control<QPushButton>(window, button), Qt::LeftButton);
}

QList<PreviewWindow*> previews()
{
    QList<PreviewWindow*> found;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* preview = qobject_cast<PreviewWindow*>(widget); preview && preview->isVisible())
            found.append(preview);
    }
    return found;
}

PreviewWindow* visualize(const LISTA& window)
{
    const QList<PreviewWindow*> before = previews();
    press(window, "Command1");
    for (PreviewWindow* preview : previews()) {
        if (!before.contains(preview))
            return preview;
    }
    return nullptr;
}

QStringList pagesOf(const PreviewWindow* preview)
{
    if (preview == nullptr)
        return {};
    const QAction* cancel = preview->findChild<QAction*>(u"cancelar"_s);
    if (!QTest::qWaitFor([cancel] { return !cancel->isEnabled(); }, kWait))
        return {};
    QWidget* page = preview->findChild<QScrollArea*>()->widget();
    const int pages = preview->findChild<QSpinBox*>(u"pagina"_s)->maximum();
    QTest::keyClick(page, Qt::Key_Home);
    QStringList texts{page->accessibleDescription().simplified()};
    while (texts.size() < pages) {
        QTest::keyClick(page, Qt::Key_PageDown);
        texts.append(page->accessibleDescription().simplified());
    }
    return texts;
}

QString pdfText(const QString& path)
{
    QProcess text;
    text.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    text.waitForFinished();
    return QString::fromUtf8(text.readAllStandardOutput()).replace(u'\f', u'|').simplified();
}

} // namespace reporttest
