// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The two procedures behind the lookup's list: one loads the grid from a query and notes where each first
// letter begins, the other moves the grid to the first row that begins with what the user has typed. The
// query sorts, the grid never does. What they leave behind is program-wide and outlives the window.

#include "platform/dao/dao.h"
#include "platform/window/cellarray.h"

#include <QString>

#include <array>
#include <cstdint>
#include <memory>

namespace platform {
class FlexGrid;
}

/// Rows by the code of a first letter, 1 to 255; 0 for a letter without an entry. Another code fails with 9.
class IndiceLetras
{
public:
    [[nodiscard]] std::int32_t at(int code) const;
    void set(int code, std::int32_t row);
    void erase() { m_rows.fill(0); }

private:
    std::array<std::int32_t, 255> m_rows{};
};

/// The rows of a query as the grid shows them; nothing is copied. A tick written in the grid stays in here.
class FilasRejilla final : public platform::CellArray
{
public:
    explicit FilasRejilla(platform::dao::RowArray rows);

    [[nodiscard]] int columns() const override;
    [[nodiscard]] int rows() const override;
    [[nodiscard]] QString text(int column, int row) const override;
    void setText(int column, int row, const QString& text) override;
    /// 94 for a Null, 9 outside the rows.
    [[nodiscard]] QString value(int column, int row) const;

private:
    platform::dao::RowArray m_rows;
};

extern IndiceLetras INDICELETRAS;
extern std::shared_ptr<FilasRejilla> DATOSREJILLA; // behind the grid after a load
extern int REGISTROSREJILLA;                       // record count of the last load that found rows

/// Loads `busi` with the rows of a query and indexes them by the first letter of a column, counted from 0;
/// answers the record count less 1. A query that fails or finds nothing leaves the grid and the count as they
/// were, and the index empty. Skip mode.
double CARGAREJILLA(platform::FlexGrid& busi, const platform::dao::Database& base, const QString& consulta,
                    std::uint8_t columna);

/// Moves `busi` to the first row, from the current one on within the letter's stretch, whose cell in
/// `columna` begins with `texto`, case ignored. Without one the grid stays. Skip mode.
void BUSCAREJILLA(platform::FlexGrid& busi, const QString& texto, std::uint8_t columna);

/// Headings and column widths for the fields of a query, as a load gives them.
void ponColumnas(platform::FlexGrid& busi, const platform::dao::Recordset& consulta);

/// Puts the three variables back to what they are when the process starts. For tests.
void olvidaRejilla();
