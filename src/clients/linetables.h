// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The detail tables of a client, grid column by store column, and what they look like in their grids.

#include "assistance/gridcolumns.h"
#include "clients/detaillines.h"

#include <array>

/// Page of `SSTab1`.
inline constexpr int kIdentificationPage = 0;
inline constexpr int kAdditionalPage = 1;
inline constexpr int kConceptsPage = 2;

inline constexpr int kShippingTickCol = 5;
inline constexpr int kBankTickCol = 6;

inline constexpr std::array kShippingColumns{
    // vsFlexGrid1, CLIDIRENVIOS
    LineColumn{0, u"CLIENVIDIRECCION", CellWriting::Trimmed},
    LineColumn{1, u"CLIENVICPOSTAL", CellWriting::AsItStands},
    LineColumn{2, u"CLIENVILOCALIDAD", CellWriting::AsItStands},
    LineColumn{3, u"CLIENVIPORTES", CellWriting::Trimmed},
    LineColumn{4, u"CLIENVITRANSPORTISTA", CellWriting::AsItStands},
    LineColumn{kShippingTickCol, u"CLIENVIACTIVA", CellWriting::Tick},
};

inline constexpr std::array kBankColumns{
    // vsFlexGrid2, CLIBANCOSDISP
    LineColumn{0, u"CLIBANCOSBANCO", CellWriting::AsItStands},
    LineColumn{1, u"CLIBANCOSENTIDAD", CellWriting::AsItStands},
    LineColumn{2, u"CLIBANCOSSUCURSAL", CellWriting::AsItStands},
    LineColumn{3, u"CLIBANCOSDIGITO", CellWriting::Trimmed},
    LineColumn{4, u"CLIBANCOSCUENTA", CellWriting::Trimmed},
    LineColumn{5, u"CLIBANCOSCONTABLE", CellWriting::AsItStands},
    LineColumn{kBankTickCol, u"CLIBANCOSACTIVA", CellWriting::Tick},
};

inline constexpr std::array kTelephoneColumns{
    // vsFlexGrid4, TELEFON
    LineColumn{0, u"TELETELEFONO", CellWriting::Trimmed},
    LineColumn{1, u"TELEEXTENSION", CellWriting::AsItStands},
    LineColumn{2, u"TELEFAX", CellWriting::AsItStands}, // the list item whole, such as "01 Voz"
    LineColumn{3, u"TELECONTACTO", CellWriting::Trimmed},
};

LineTable shippingLines(platform::FlexGrid& vsFlexGrid1);
LineTable bankLines(platform::FlexGrid& vsFlexGrid2);
LineTable telephoneLines(platform::FlexGrid& vsFlexGrid4);

inline constexpr std::array kShippingGrid{
    GridColumn{.heading = u"Dirección", .widthTwips = 2175, .editLimit = 35},
    GridColumn{.heading = u"C. Postal", .widthTwips = 765, .list = u"|..."},
    GridColumn{.heading = u"Localidad", .widthTwips = 2055, .editLimit = 35},
    GridColumn{.heading = u"Portes", .widthTwips = 780, .list = u"Debidos|Pagados"},
    GridColumn{.heading = u"Transportista", .widthTwips = 1500, .editLimit = 35},
    GridColumn{.heading = u"Pred.", .widthTwips = 100, .kind = platform::CellKind::Boolean},
};

inline constexpr std::array kBankGrid{
    GridColumn{.heading = u"Banco", .widthTwips = 2300, .editLimit = 35},
    GridColumn{.heading = u"Entidad", .widthTwips = 800, .editLimit = 4},
    GridColumn{.heading = u"Sucursal", .widthTwips = 800, .editLimit = 4},
    GridColumn{.heading = u"D.C.", .widthTwips = 600, .editLimit = 2},
    GridColumn{.heading = u"Cuenta", .widthTwips = 1300, .editLimit = 10},
    GridColumn{.heading = u"Cuenta Contab.", .widthTwips = 1400},
    GridColumn{.heading = u"Pred.", .widthTwips = 100, .kind = platform::CellKind::Boolean},
};

inline constexpr std::array kTelephoneGrid{
    GridColumn{.heading = u"Telefono", .widthTwips = 1500, .editLimit = 15},
    GridColumn{.heading = u"Extensión", .widthTwips = 1000, .editLimit = 5},
    GridColumn{
        .heading = u"Tipo", .widthTwips = 1200, .editLimit = 15, .list = u"01 Voz|02 Datos|03 Fax|04 Móvil"},
    GridColumn{.heading = u"Pers. de Contacto o Departamento", .editLimit = 35},
};
