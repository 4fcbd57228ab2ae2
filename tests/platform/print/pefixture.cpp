// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/pefixture.h"

#include "platform/print/engine.h"
#include "platform/print/output/printers.h"
#include "platform/print/storefixture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPrinter>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace platform::print {

PeFixture::PeFixture()
{
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= 100; ++i)
        rows.push_back({u"%1"_s.arg(i, 3, 10, QChar(u'0')), u"Peña %1"_s.arg(i)});
    givenTable(m_template.filePath(u"CLIENTES.MDB"_s), u"CLI"_s, {u"COD"_s, u"NOMBRE"_s}, rows);
    givenTable(m_template.filePath(u"ZONAS.MDB"_s), u"ZON"_s, {u"COD"_s}, {{u"001"_s}});
}

void PeFixture::openEngine()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QDir(m_folder->path()).mkdir(u"Empresa00012"_s);
    for (const QString& folder : {u""_s, u"Empresa00012/"_s}) {
        for (const QString& name : {u"CLIENTES.MDB"_s, u"ZONAS.MDB"_s})
            QFile::copy(m_template.filePath(name), m_folder->filePath(folder + name));
    }
    setEngineClock([] { return QDateTime(QDate(2024, 3, 5), QTime(10, 0)); });
    setPrinterSource([] { return PrinterList{{{u"Láser"_s, u"drv"_s, u"p1"_s}}, 0}; });
    const QString output = m_folder->filePath(u"impreso.pdf"_s);
    setPrinterSetup([output](QPrinter& printer, const PrintRequest&) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(output);
        return true;
    });
    PEOpenEngine();
}

void PeFixture::closeEngine()
{
    PECloseEngine();
    setPrinterSetup({});
    setPrinterSource({});
    setEngineClock({});
}

PEJob PeFixture::openReport(const QString& elements, const QByteArray& expression)
{
    QFile file(m_folder->filePath(u"prueba.rpt"_s));
    if (!file.open(QIODevice::WriteOnly))
        return 0;
    file.write(
        "<informe version=\"1\" nombre=\"Prueba\"><pagina papel=\"A5\"/>"
        "<tabla n=\"0\" alias=\"CLI\" fichero=\"CLIENTES.MDB\"/>" +
        elements.toUtf8() +
        "<formula nombre=\"FESYS\">\"\"</formula>"
        "<seccion tipo=\"detalle\" alto=\"10\"><campo x=\"0\" y=\"0\" ancho=\"90\" alto=\"5\" expr=\"" +
        expression + "\"/></seccion></informe>");
    file.close();
    return PEOpenPrintJob(path(u"prueba.rpt"_s).constData());
}

PreviewWindow* PeFixture::preview()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<PreviewWindow*>(widget))
            return window;
    }
    return nullptr;
}

QString PeFixture::pdfText(const QString& name) const
{
    QProcess text;
    text.start(u"pdftotext"_s, {u"-layout"_s, m_folder->filePath(name), u"-"_s});
    text.waitForFinished();
    return QString::fromUtf8(text.readAllStandardOutput()).simplified();
}

} // namespace platform::print
