// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The page of consultations of the client window: one consultation in its fields, and the tree of those of
// the client. It works on `RSCONSULTAS` and on the few controls of the window that it is given; it knows
// nothing else of the window. Every procedure runs in skip mode and shows no message.

#include <QWidget>

#include <memory>

namespace Ui {
class consultas;
}
namespace platform {
class ComboList;
class FlexGrid;
class TabPages;
class TextBox;
} // namespace platform

/// Controls of the client window that the page's procedures use. Borrowed; they live as long as the page.
struct ClientControls
{
    platform::TextBox* Text49 = nullptr;       // code of the client
    platform::FlexGrid* vsFlexGrid4 = nullptr; // telephones
    platform::TabPages* SSTab1 = nullptr;      // pages of the window
};

class ConsultasPage : public QWidget
{
    Q_OBJECT

public:
    explicit ConsultasPage(QWidget* parent = nullptr);
    ~ConsultasPage() override;

    /// To be called once, before any procedure.
    void setClientControls(const ClientControls& controls) { m_client = controls; }

    [[nodiscard]] platform::TextBox& Text10() const;   // Código
    [[nodiscard]] platform::ComboList& Combo3() const; // Artículo:

    /// 1: the page shows a consultation that was read. 0: it was prepared for a new one.
    int CONSULTALEIDA = 0;

    // consultaspage.cpp
    /// Headings, widths and lists of `vsFlexGrid6`.
    void drawGrid();

    // consultationrecord.cpp
    /// Shows the consultation of the tree's selected node. Without a match the page stays as it was.
    void leerconsulas();
    /// Writes the page to the store, then clears it. Keeps the number of a consultation that was read; a new
    /// one whose number is taken gets the count of the table plus 1.
    void GUARDARCONSULTAS();
    /// Deletes every consultation of the client. No command calls it.
    void BORRACONSULTAS();
    /// Clears the page, proposes the next number, and brings the page of consultations up.
    void limpiaconsultas();

    // consultationtree.cpp
    /// Rebuilds the tree for the client in `Text49`.
    void leeconsultree();
    /// Prepares the page for a new consultation of the client just read.
    void LEEOLASCONSULTASCLI();

private:
    void connectEvents();

    // consultaspage.cpp
    void Command6_Click();
    void Command7_Click();

    // consultationrecord.cpp
    void writeGridColumns();
    void readGridColumns();
    void clearGrid();
    void proposeNumber();
    void fillNumber();

    // consultationtree.cpp
    void setTreeImages();
    void TreeView1_NodeClick(int image);
    void prepareGrid();
    void proposeNumberAfterRead();

    std::unique_ptr<Ui::consultas> ui;
    ClientControls m_client;
};
