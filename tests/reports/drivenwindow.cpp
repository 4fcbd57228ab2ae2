// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/drivenwindow.h"

#include "platform/print/output/printers.h"
#include "reports/recordingengine.h"
#include "shell/globalsat.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

using namespace platform;
using namespace Qt::StringLiterals;
using reports::LISTA;

namespace reporttest {

DrivenWindow::DrivenWindow()
{
    QCoreApplication::setApplicationVersion(u"3.32.3009"_s);
    resetProgramState();
    resetRecordingEngine();
    setPrinterSource([] {
        return PrinterList{{{u"Oficina"_s, u"PostScript"_s, u"P1"_s}, {u"Taller"_s, u"PCL"_s, u"P2"_s}}, 1};
    });
    RUTAEMPRESA = kCompanyFolder;
}

DrivenWindow::~DrivenWindow()
{
    m_window.reset();
    setPrinterSource({});
}

LISTA& DrivenWindow::requested(double report)
{
    NUMINFORME = report;
    FICHEROINFORME = u"C:\\Q\\informe.rpt"_s;
    TITULOINFORME = u"Título"_s;
    BASEINFORME = kCompanyFolder + u"CLIENTES.MDB"_s;
    m_window = std::make_unique<LISTA>();
    m_window->showModeless();
    recordedCalls().clear();
    return *m_window;
}

LISTA& DrivenWindow::active(double report)
{
    requested(report);
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the report window does not become active");
    return *m_window;
}

void DrivenWindow::preview()
{
    QTest::mouseClick(&control<QPushButton>("Command1"), Qt::LeftButton);
}

void DrivenWindow::print()
{
    QTest::mouseClick(&control<QPushButton>("Command2"), Qt::LeftButton);
}

QStringList callsNamed(const QString& pattern)
{
    return recordedCalls().filter(QRegularExpression(u"^"_s + pattern + u"\\("_s));
}

} // namespace reporttest
