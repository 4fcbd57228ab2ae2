// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The lookup window: the rows of the kind in `TIPOBUSQUEDA`, a box to find one in them, and the choice of
// one. One object is one lookup. Its procedures run in skip mode and report nothing.

#include "lookup/kinds.h"
#include "platform/dao/dao.h"
#include "platform/window/form.h"

#include <cstdint>
#include <memory>

class FilasRejilla;

namespace lookup {
class FittedColumns;
}

namespace Ui {
class LISEM;
}

class LISEM : public platform::Form
{
    Q_OBJECT

public:
    explicit LISEM(QWidget* parent = nullptr);
    ~LISEM() override;

    /// Loads the grid anew with the kind's full list, and writes its caption with the count.
    void LEERLISTA();
    /// Fills the families of articles; the selection of the first one loads the list.
    void LEERFAMILIAS();
    /// Hands the code of the current row to the caller and closes the window. Kind 111 and the heading choose
    /// nothing.
    void ELIGEFILA();

protected:
    void onLoad() override;
    void onResize() override;
    void onFirstShown() override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    /// The data control that shows the first list of clients.
    struct DataControl
    {
        QString databaseName;
        QString recordSource;
    };

    void setUpControls();
    void connectEvents();
    [[nodiscard]] lookup::Request request() const;
    void showOrder(bool visible);

    // lisemlists.cpp
    void showFirstClients();
    void refresh(const DataControl& datos);
    void leaveTheTickAlone();
    void writeCaption(QStringView caption);
    void searchTyped();
    void showFound(platform::dao::Recordset& found);
    void textChanged();
    void textKey(int key);

    // lisemchoice.cpp
    void leave();
    [[nodiscard]] QString tickedFormula() const;
    [[nodiscard]] bool isChecked(int row) const;
    void showCellTip();

    std::unique_ptr<Ui::LISEM> ui;
    std::uint8_t FILTRADA = 0;                  ///< 1 while the grid shows the result of a typed search
    double ULTIMAFILA = 0;                      ///< record count less 1 of the last load
    std::shared_ptr<FilasRejilla> m_foundRows;  ///< behind the grid after a typed search
    lookup::FittedColumns* m_columns = nullptr; ///< owned by the grid
    bool m_familiesRead = false;
};
