// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The one window through which every report leaves. It offers the parameters of the report asked for in
// `NUMINFORME`, and drives the print engine. All procedures run in skip mode; none shows a failure.

#include "platform/print/pe.h"
#include "platform/window/form.h"
#include "reports/selectionformula.h"

#include <memory>

namespace Ui {
class LISTA;
}

namespace reports {

class LISTA : public platform::Form
{
    Q_OBJECT

public:
    explicit LISTA(QWidget* parent = nullptr);
    ~LISTA() override;

    double MODOSALIDA = 0;       // 0 idle, 1 window, 2 printer
    double RECIBOENCADENADO = 0; // 1 while receipts are chained after an invoice
    QString FORMULAINFORME;      // left by VISUALIZA, with the zero characters that end it

    // lanzainforme.cpp
    /// Runs the request once: opens a job, points its tables at the company, sends the formulas, starts the
    /// output. The job stays open until the window is unloaded.
    void LANZAINFORME();
    /// Sends the named formula fields; the first refusal ends it.
    void FORMULASINFORME(PEJob job);
    /// The engine's text for an error. Nothing asks for it, and with its empty handle it is always one blank.
    [[nodiscard]] QString TEXTOERRORIMPRESION(PEJob job) const;

    // visualiza.cpp
    /// Builds the selection formula of the request and sends it as group formula.
    void VISUALIZA(PEJob job);

    // printertree.cpp
    /// The printer chosen in the tree becomes the program's, and a message says so.
    void chooseSelectedPrinter();

    // pages.cpp
    void turnToDates();
    void turnToNumbers();
    /// Opens the lookup of the report for the first or the second range box.
    void pickFirst();
    void pickSecond();
    /// Puts the two range boxes in order by their leading numbers.
    void checkRange();

protected:
    void onLoad() override;
    void onFirstShown() override;
    void onUnload() override;

private:
    // lista.cpp
    void connectEvents();
    void showParameters();
    void fillMonths();
    void runToWindow();
    void runToPrinter();
    void itemChosen(const QString& key);

    // lanzainforme.cpp
    [[nodiscard]] bool runRequest();
    void relocateByScan(PEJob job);
    void relocateByList(PEJob job);
    void relocateSubreports(PEJob job);
    void startPreview(PEJob job, const PEWindowOptions& options);
    [[nodiscard]] bool startPrint(PEJob job, double copies);
    void chainReceipts();

    // visualiza.cpp
    [[nodiscard]] FormulaChoices choices();

    // printertree.cpp
    void fillPrinterTree();
    /// Names the program's printer above the tree.
    void showPresentPrinter();

    // pages.cpp
    void clearBlankBox(int box);
    [[nodiscard]] bool pick();

    std::unique_ptr<Ui::LISTA> ui;
    QString m_IMPRESORADRIVER;
    QString m_IMPRESORANOMBRE;
    QString m_IMPRESORAPUERTO;
    PETableLocation m_readLocation;  ///< `StructSize` 1026
    PETableLocation m_writeLocation; ///< `StructSize` 258
};

/// Shows the report window for the request set in the program-wide variables and returns when it is unloaded.
/// While it is already up it comes to the front as it is, and the call fails with 400.
void MuestraLISTAModal(QWidget* parent);
/// The same without waiting; a window that is already up comes to the front.
void MuestraLISTA(QWidget* parent);

} // namespace reports
