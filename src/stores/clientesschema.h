// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The clients store: clients, their shipping addresses, bank accounts, periodic concepts and prices.

#include "stores/schema.h"

namespace stores {

using platform::dao::dbDouble;
using platform::dao::dbMemo;
using platform::dao::dbText;

inline constexpr std::array kClientesTablaColumns{
    ColumnSchema{u"CliCodigo", dbText, 10},
    ColumnSchema{u"CliNombre", dbText, 35},
    ColumnSchema{u"CliCif", dbText, 12},
    ColumnSchema{u"CliEMail", dbText, 50},
    ColumnSchema{u"CliPGC", dbDouble},
    ColumnSchema{u"CLITARIFA", dbText, 1},
    ColumnSchema{u"CliFax", dbText, 15},
    ColumnSchema{u"CliDireccion", dbText, 35},
    ColumnSchema{u"CliCodPostal", dbText, 5},
    ColumnSchema{u"CliCodPostalLocali", dbText, 35},
    ColumnSchema{u"CliCodPostalProvin", dbText, 35},
    ColumnSchema{u"CliCodPostalPais", dbText, 35},
    ColumnSchema{u"CliTelefonoAdicional", dbText, 15},
    ColumnSchema{u"CliFaxPedidos", dbText, 15},
    ColumnSchema{u"CLICODIdioma", dbText, 4},
    ColumnSchema{u"CLIDESIdioma", dbText, 35},
    ColumnSchema{u"RepresentanteCodigo", dbText, 4},
    ColumnSchema{u"RepresentanteDesc", dbText, 35},
    ColumnSchema{u"CliIVA", dbDouble},
    ColumnSchema{u"CliIRPF", dbDouble},
    ColumnSchema{u"ZonaCodigo", dbText, 10},
    ColumnSchema{u"ZonaDesc", dbText, 35},
    ColumnSchema{u"TipoClienteCodigo", dbText, 4},
    ColumnSchema{u"TipoClienteDesc", dbText, 35},
    ColumnSchema{u"CliNomComercial", dbText, 50},
    ColumnSchema{u"CliPersonaCont", dbText, 50},
    ColumnSchema{u"DescuentoComercial1", dbDouble},
    ColumnSchema{u"DescuentoComercial2", dbDouble},
    ColumnSchema{u"CliDescuentoProntoPago", dbDouble},
    ColumnSchema{u"CliGastosFinancieros", dbDouble},
    ColumnSchema{u"CliFormaPagoCodigo", dbText, 4},
    ColumnSchema{u"CliFormaPagoDesc", dbText, 35},
    ColumnSchema{u"CliNumeroPlazos", dbDouble},
    ColumnSchema{u"CliDiasEntrePagos", dbDouble},
    ColumnSchema{u"CliFechaFacturaPrimerPago", dbDouble},
    ColumnSchema{u"CliDiaPrimerPago", dbDouble},
    ColumnSchema{u"CliDiaSegundoPago", dbDouble},
    ColumnSchema{u"AvisosPedido", dbMemo},
    ColumnSchema{u"Notas", dbMemo},
    ColumnSchema{u"CliFechaVacInicio", dbText, 10},
    ColumnSchema{u"CliFechaVacFin", dbText, 10},
    ColumnSchema{u"PolizaCreditoNum", dbText, 20},
    ColumnSchema{u"CliImporteCredito", dbDouble},
    ColumnSchema{u"AgruparAlbaranes", dbText, 1},
    ColumnSchema{u"CliAplicarTasaPtoVerde", dbText, 1},
    ColumnSchema{u"CliDivisaCodigo", dbText, 4},
    ColumnSchema{u"CliDivisaDesc", dbText, 35},
    ColumnSchema{u"CliDivisaClasifIVA", dbDouble},
    ColumnSchema{u"CliExento", dbText, 1},
    ColumnSchema{u"CliExentoIRPF", dbText, 1},
    ColumnSchema{u"CliTarifaPropia", dbText, 1},
    ColumnSchema{u"CliCuentaVentas", dbText, 1},
};
inline constexpr std::array kClientesTablaIndexes{
    IndexSchema{u"CliCodigoIndice", true, true, {u"CliCodigo"}},
    IndexSchema{u"CliNombreIndice", false, false, {u"CliNombre"}},
    IndexSchema{u"CliNifIndice", false, false, {u"CliCif"}},
};
inline constexpr TableSchema kClientesTabla{u"ClientesTabla", kClientesTablaColumns, kClientesTablaIndexes};

inline constexpr std::array kClidirenviosColumns{
    ColumnSchema{u"CLIENVICODIGO", dbText, 10}, ColumnSchema{u"CLIENVIDIRECCION", dbText, 35},
    ColumnSchema{u"CLIENVICPOSTAL", dbText, 5}, ColumnSchema{u"CLIENVILOCALIDAD", dbText, 35},
    ColumnSchema{u"CLIENVIPORTES", dbText, 7},  ColumnSchema{u"CLIENVITRANSPORTISTA", dbText, 35},
    ColumnSchema{u"CLIENVIACTIVA", dbText, 1},  ColumnSchema{u"CLIENVINOMCOMERCIAL", dbText, 35},
};
inline constexpr std::array kClidirenviosIndexes{
    IndexSchema{u"CLIEVNIOSINDICE", true, true, {u"CLIENVICODIGO", u"CLIENVIDIRECCION"}},
};
inline constexpr TableSchema kClidirenvios{u"CLIDIRENVIOS", kClidirenviosColumns, kClidirenviosIndexes};

inline constexpr std::array kClibancosdispColumns{
    ColumnSchema{u"CLIBANCOSCODIGO", dbText, 10}, ColumnSchema{u"CLIBANCOSBANCO", dbText, 35},
    ColumnSchema{u"CLIBANCOSENTIDAD", dbText, 4}, ColumnSchema{u"CLIBANCOSSUCURSAL", dbText, 4},
    ColumnSchema{u"CLIBANCOSDIGITO", dbText, 2},  ColumnSchema{u"CLIBANCOSCUENTA", dbText, 10},
    ColumnSchema{u"CLIBANCOSCONTABLE", dbDouble}, ColumnSchema{u"CLIBANCOSACTIVA", dbText, 1},
};
inline constexpr std::array kClibancosdispIndexes{
    IndexSchema{u"CLIBANCOSINDICE", true, true, {u"CLIBANCOSCODIGO", u"CLIBANCOSCUENTA"}},
};
inline constexpr TableSchema kClibancosdisp{u"CLIBANCOSDISP", kClibancosdispColumns, kClibancosdispIndexes};

inline constexpr std::array kClientescyctablaColumns{
    ColumnSchema{u"clientescycarticulo", dbText, 10}, ColumnSchema{u"clientescyccliente", dbText, 10},
    ColumnSchema{u"clientescycdescrip", dbText, 50},  ColumnSchema{u"clientescycfecinic", dbText, 10},
    ColumnSchema{u"clientescycfecvcto", dbText, 10},  ColumnSchema{u"clientescycfecbaja", dbText, 10},
    ColumnSchema{u"clientescycT", dbText, 1},         ColumnSchema{u"clientescycPE", dbText, 2},
    ColumnSchema{u"clientescycEM", dbText, 2},        ColumnSchema{u"clientescycunidades", dbDouble},
    ColumnSchema{u"clientescycprecio", dbDouble},     ColumnSchema{u"clientescycIM", dbText, 2},
    ColumnSchema{u"clientescycRE", dbText, 2},        ColumnSchema{u"clientescyccausa", dbMemo},
    ColumnSchema{u"clientescynumserie", dbText, 25},  ColumnSchema{u"clientescylineas", dbDouble},
};
inline constexpr std::array kClientescyctablaIndexes{
    IndexSchema{u"clientescyccodigoindice",
                true,
                true,
                {u"clientescycarticulo", u"clientescyccliente", u"clientescylineas"}},
};
inline constexpr TableSchema kClientescyctabla{u"clientescyctabla", kClientescyctablaColumns,
                                               kClientescyctablaIndexes};

inline constexpr std::array kTarifasClienteColumns{
    ColumnSchema{u"TariCodCliente", dbText, 10}, ColumnSchema{u"TariCodArticul", dbText, 10},
    ColumnSchema{u"TariDesArticul", dbText, 50}, ColumnSchema{u"TariTar1", dbDouble},
    ColumnSchema{u"TariTar2", dbDouble},         ColumnSchema{u"TariTar3", dbDouble},
    ColumnSchema{u"TariTar4", dbDouble},         ColumnSchema{u"TariTar5", dbDouble},
};
inline constexpr std::array kTarifasClienteIndexes{
    IndexSchema{u"TariIndice", true, true, {u"TariCodCliente", u"TariCodArticul"}},
};
inline constexpr TableSchema kTarifasCliente{u"TarifasCliente", kTarifasClienteColumns,
                                             kTarifasClienteIndexes};

inline constexpr std::array kClientesTables{kClientesTabla, kClidirenvios, kClibancosdisp, kClientescyctabla};
inline constexpr StoreSchema kClientesStore{u"Clientes.mdb", Place::CompanyFolder, platform::dao::dbVersion40,
                                            kClientesTables};

} // namespace stores
