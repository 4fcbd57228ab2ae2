// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The articles store: the catalogue that periodic concepts refer to.

#include "stores/schema.h"

namespace stores {

using platform::dao::dbDouble;
using platform::dao::dbMemo;
using platform::dao::dbText;

inline constexpr std::array kArticulosTablaColumns{
    ColumnSchema{u"ArtCodigo", dbText, 10},
    ColumnSchema{u"CodigoAlternativo", dbText, 35},
    ColumnSchema{u"Descripcion", dbText, 50},
    ColumnSchema{u"Detalles", dbMemo},
    ColumnSchema{u"Familia", dbText, 4},
    ColumnSchema{u"DescripcionFamilia", dbText, 35},
    ColumnSchema{u"TipoIVA", dbText, 4},
    ColumnSchema{u"DescripcionIVA", dbText, 35},
    ColumnSchema{u"MedioCoste", dbDouble},
    ColumnSchema{u"UltCompra", dbText, 10},
    ColumnSchema{u"StockMin", dbDouble},
    ColumnSchema{u"StockMax", dbDouble},
    ColumnSchema{u"Stock", dbDouble},
    ColumnSchema{u"StockVenta", dbDouble},
    ColumnSchema{u"Unidad", dbDouble},
    ColumnSchema{u"Volumen", dbDouble},
    ColumnSchema{u"Lote", dbDouble},
    ColumnSchema{u"UnidadLote", dbDouble},
    ColumnSchema{u"Peso", dbDouble},
    ColumnSchema{u"TasaPtoVerde", dbDouble},
    ColumnSchema{u"Imagen", dbMemo},
    ColumnSchema{u"TarifaPrecioVenta1", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta2", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta3", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta4", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta5", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta6", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta7", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta8", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta9", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta10", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta11", dbDouble},
    ColumnSchema{u"TarifaPrecioVenta12", dbDouble},
    ColumnSchema{u"NumerosSerie", dbText, 1},
    ColumnSchema{u"ControlStockNumSerie", dbText, 1},
    ColumnSchema{u"EsLotes", dbText, 1},
    ColumnSchema{u"ControlFechaCaducidad", dbText, 1},
    ColumnSchema{u"DiasFechaCaducidad", dbText, 4},
    ColumnSchema{u"TipoMateriaPrima", dbText, 1},
    ColumnSchema{u"TipoEsServicio", dbText, 1},
    ColumnSchema{u"TipoArticuloObsoleto", dbText, 1},
    ColumnSchema{u"FabricDiasGarantia", dbDouble},
    ColumnSchema{u"FabricCodigo", dbText, 4},
    ColumnSchema{u"FabricDescripcion", dbText, 35},
    ColumnSchema{u"FabricFecAlta", dbText, 10},
    ColumnSchema{u"FabricFecBaja", dbText, 10},
    ColumnSchema{u"ProveedorCodigo", dbText, 10},
    ColumnSchema{u"ProveedorNombre", dbText, 35},
    ColumnSchema{u"TPVPrecio", dbDouble},
    ColumnSchema{u"TPVDescuento", dbDouble},
    ColumnSchema{u"EsFacturaPeriodica", dbText, 1},
    ColumnSchema{u"FacturaFijo", dbText, 1},
    ColumnSchema{u"FacturaActualizarImporte", dbText, 1},
    ColumnSchema{u"FacturaVariable", dbText, 1},
    ColumnSchema{u"FacturaTabla", dbText, 1},
    ColumnSchema{u"IniFactMesOrigen", dbDouble},
    ColumnSchema{u"FacturaMesOrigen", dbText, 2},
    ColumnSchema{u"CuentaVentas", dbDouble},
    ColumnSchema{u"CuentaCompras", dbDouble},
    ColumnSchema{u"PublicableWeb", dbText, 1},
    ColumnSchema{u"ExclusivaPublicableWeb", dbText, 1},
    ColumnSchema{u"ImagenArticulo", dbMemo},
    ColumnSchema{u"CampoUsuario1", dbMemo},
    ColumnSchema{u"CampoUsuario2", dbMemo},
    ColumnSchema{u"CampoUsuario3", dbMemo},
    ColumnSchema{u"CampoUsuario4", dbMemo},
    ColumnSchema{u"CampoUsuario5", dbMemo},
    ColumnSchema{u"CampoUsuario6", dbMemo},
    ColumnSchema{u"CampoUsuario7", dbMemo},
    ColumnSchema{u"CampoUsuario8", dbMemo},
    ColumnSchema{u"CampoTextoLibre1", dbText, 35},
    ColumnSchema{u"CampoTextoLibre2", dbText, 35},
    ColumnSchema{u"CampoTextoLibre3", dbText, 35},
    ColumnSchema{u"CampoTextoLibre4", dbText, 35},
    ColumnSchema{u"CampoTextoLibre5", dbText, 35},
    ColumnSchema{u"CampoNumeroLibre1", dbDouble},
    ColumnSchema{u"CampoNumeroLibre2", dbDouble},
    ColumnSchema{u"CampoNumeroLibre3", dbDouble},
    ColumnSchema{u"CampoNumeroLibre4", dbDouble},
    ColumnSchema{u"CampoNumeroLibre5", dbDouble},
    ColumnSchema{u"ARTICODIGOBARRAS", dbText, 10},
    ColumnSchema{u"ARTIDIGITOCONTROLBARRAS", dbText, 1},
    ColumnSchema{u"ARTICULOCODIGODEBARRAS", dbText, 12},
};
inline constexpr std::array kArticulosTablaIndexes{
    IndexSchema{u"ArtCodigoIndice", true, true, {u"ArtCodigo"}},
    IndexSchema{u"ArtCodigoAltIndice", false, false, {u"CodigoAlternativo"}},
    IndexSchema{u"ArtDescripcionIndice", false, false, {u"Descripcion"}},
};
inline constexpr TableSchema kArticulosTabla{u"ArticulosTabla", kArticulosTablaColumns,
                                             kArticulosTablaIndexes};

inline constexpr std::array kArticulosTables{kArticulosTabla};
inline constexpr StoreSchema kArticulosStore{u"ARTICULOS.MDB", Place::CompanyFolder,
                                             platform::dao::dbVersion40, kArticulosTables};

} // namespace stores
