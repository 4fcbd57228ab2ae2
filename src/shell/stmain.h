// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The main window: a band along the top of the screen. Its load is the start of the run, its unload the end.
// It starts the commands and holds no logic of its own beyond that.

#include "platform/window/combolist.h"
#include "shell/launch.h"

#include <QMainWindow>
#include <QString>

#include <functional>
#include <memory>

namespace Ui {
class STMAIN;
}

/// The windows that the commands show and the engine that the end of the run closes. `main.cpp` sets them,
/// tests answer them. An empty one fails with 91, as anything that nothing has bound.
struct STMAINLinks
{
    std::function<void(QWidget* parent)> showClimantModal;
    std::function<void(QWidget* parent)> showLista;
    std::function<void(QWidget* parent)> showListaModal;
    std::function<void()> closePrintEngine;
};

class STMAIN : public QMainWindow
{
    Q_OBJECT

public:
    STMAIN(QString commandLine, STMAINLinks links, QWidget* parent = nullptr);
    ~STMAIN() override;

    /// The whole start sequence: shows the window, tests the command line (and ends the process if it breaks
    /// the contract), opens the catalogue and brings up the stores. Skip mode.
    void load();
    /// Closes recordsets and databases through the shrinking collections, closes the print engine and ends
    /// the process. Skip mode.
    void unload();

    QString EMPRESACOMBO; ///< first five characters of the company shown, where it isn't the one launched

    // stmaincompany.cpp

    /// Fills the company combo, selects the launched company and disables both combos. Skip mode.
    void DEUNAEMPRESA();
    /// Builds `RUTAEMPRESA` and brings up the six stores. Skip mode.
    void ABREEMPRESA();

    // stmainleelongi.cpp

    /// Sets the index of a table that nothing has bound, so it fails at its first statement and does nothing:
    /// failures of that statement pass to the caller.
    void leelongi();

    // stmaincommands.cpp

    void A002_Click(); ///< client file. Failures pass to the caller
    void A001_Click(); ///< end of the run. Failures pass to the caller
    void resu_Click(); ///< summary report, modeless. Failures pass to the caller
    void revi_Click(); ///< revision report, modal. Skip mode
    /// A click on the tool bar, by the tool's name; unknown names do nothing. Skip mode.
    void barrasup_Click(const QString& tool);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // stmainbuild.cpp
    void buildToolBar();
    platform::ComboList* addCombo(const QString& name, const QString& label, const QString& hint);
    void connectEvents();

    // stmain.cpp

    void placeWindow();
    [[nodiscard]] shell::BandPlacement placement() const;
    /// Counts a width that isn't the band's; false once the same one has come too often.
    [[nodiscard]] bool mayAskForWidth();
    void fillExercises();
    void openCatalogue();
    void resized();

    // stmaincompany.cpp
    void fillCompanies();
    void selectCompany();

    QString m_commandLine;
    STMAINLinks m_links;
    std::unique_ptr<Ui::STMAIN> ui;
    platform::ComboList* m_companies = nullptr; ///< named `Idioma`: the tool of that name holds the companies
    platform::ComboList* m_exercises = nullptr;
    int m_refusedWidth = -1;
    int m_refusals = 0;
};
