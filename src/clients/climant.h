// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The client window: one client at a time, with its lines, concepts and consultations. It works directly on
// the held recordsets; what is on the screen is all the state there is, and no mark tells a changed client
// from one just read.
//
// Its procedures take nothing, return nothing and run in skip mode, but for the few where it is said
// otherwise.

#include "platform/window/form.h"

#include <memory>

class QMenu;
namespace Ui {
class climant;
}
namespace platform {
class FlexGrid;
class TextBox;
} // namespace platform
namespace platform::dao {
class Recordset;
}

class climant : public platform::Form
{
    Q_OBJECT

public:
    explicit climant(QWidget* parent = nullptr);
    ~climant() override;

    /// Which grid of page 1 the line menu was opened from: 1 is yes, 0 no.
    int LINEAENVIOS = 0;
    int LINEABANCOS = 0;

    // clientrecord.cpp
    /// Brings the client of `Text49` to the window. A code that isn't in the store leaves every field as it
    /// is.
    void LeerClientes();
    /// Merges the window into the store, table after table. Without a code nothing is stored but the
    /// account's link.
    void EscribeCliente();
    /// Empties fields and grids and gives the focus to the code.
    void limpiaclientes();

    // linegrids.cpp
    void DIBUJAREJAS();
    /// The three delete the line where the grid's cursor stands, at once. A line that isn't in the store
    /// stays.
    void borraunalinea();
    void BORRAUNALINEABANCOS();
    void BORRAUNALINEATELEFON();

    // concepts.cpp
    /// Deletes the first line that the store has of the article under the cursor.
    void BORRAUNALINEACYC();

    // fieldrules.cpp
    /// The three fill the description of a coded field, or empty it when the code isn't there.
    void LEERTIPCLIENTES();
    void LEERZONAS();
    void LEERREPRESENTANTES();

    // search.cpp
    /// Proposes the next client code, without zero fill.
    void proximocliente();

protected:
    void onLoad() override;
    void onFirstShown() override;

private:
    // climant.cpp
    void setUpControls();
    void connectEvents();
    void connectFields();
    void connectGrids();
    void connectCommands();
    void connectPictures();
    void formKeyDown(int key);
    void Command1_Click();
    void Command2_Click();
    void SSListBar1_ItemClick(const QString& key);

    // clientrecord.cpp
    void readFields();
    void readTelephones();
    void fillArticleList();
    void writeFields();
    void writeAccount();

    // linegrids.cpp
    void keepOneTick(platform::FlexGrid& grid, int row, int col, int tickCol);
    void vsFlexGrid1_CellButtonClick(int col); // failures pass to the event's handler
    void vsFlexGrid1_MouseDown(Qt::MouseButton button, QPoint place);
    void vsFlexGrid2_MouseDown(Qt::MouseButton button, QPoint place);
    void showLineMenu(Qt::MouseButton button, QPoint place);
    void eliminar_Click();

    // concepts.cpp
    void readConcepts();
    void writeConcepts();
    void drawConceptGrid();
    void vsFlexGrid3_CellButtonClick(int col); // failures pass to the event's handler

    // fieldrules.cpp
    void fillWithZeros(platform::TextBox& field);
    void Text49_GotFocus();
    void Text49_LostFocus();
    void Text49_KeyPress(int key);
    void Text51_GotFocus();
    void Text9_GotFocus();
    void Text6_GotFocus();
    void Text20_LostFocus();
    void Text21_LostFocus();
    void Text27_LostFocus();

    // search.cpp
    void Text14_KeyPress(int key);
    void searchTelephone();
    void Picture1_Click();
    void Picture2_Click();
    void Picture3_Click();
    void Picture4_Click();
    void Picture5_Click();
    void sendMail();

    std::unique_ptr<Ui::climant> ui;
    QMenu* m_menucli = nullptr;
};
