// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The texts with which the lookup asks for rows, with "sal" as the text searched, and what they mean.

#include <QStringView>

#include <array>

namespace lookupqueries {

struct Query
{
    const char* name;
    QStringView text;
    QStringView items; ///< "column as alias", parted by ", "
    QStringView table;
    QStringView where; ///< every operator in its parentheses
    QStringView order;
};

inline constexpr std::array<Query, 51> kAccepted{{
    {"list 3", u"SELECT CPOSTAL as Codigo, LOCALI as Localidad FROM POSTA ORDER BY LOCALI",
     u"CPOSTAL as Codigo, LOCALI as Localidad", u"POSTA", u"", u"LOCALI"},
    {"list 9", u"SELECT ZONCODIGO AS Codigo, ZONDESCRIPCION as Zonas FROM ZONATAB ORDER BY ZONDESCRIPCION",
     u"ZONCODIGO as Codigo, ZONDESCRIPCION as Zonas", u"ZONATAB", u"", u"ZONDESCRIPCION"},
    {"list 15",
     u"SELECT TIPOCODIGO as Codigo, TIPODESCRIPCION as 'Tipo de Cliente' FROM TIPOCLI ORDER BY "
     u"TIPODESCRIPCION",
     u"TIPOCODIGO as Codigo, TIPODESCRIPCION as Tipo de Cliente", u"TIPOCLI", u"", u"TIPODESCRIPCION"},
    {"list 17", u"SELECT REPCODIGO as Codigo, REPDESCRI as Representante FROM REPTABLA ORDER BY REPDESCRI",
     u"REPCODIGO as Codigo, REPDESCRI as Representante", u"REPTABLA", u"", u"REPDESCRI"},
    {"list 11, all articles, all families",
     u"SELECT ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA ORDER BY DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA", u"", u"DESCRIPCION"},
    {"list 111, all articles, all families",
     u"SELECT '' as S,ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA ORDER BY "
     u"DESCRIPCION",
     u"'' as S, ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA", u"", u"DESCRIPCION"},
    {"list 11, all articles, one family",
     u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE FAMILIA = '0001' "
     u"ORDER BY DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA", u"(FAMILIA = '0001')",
     u"DESCRIPCION"},
    {"list 111, all articles, one family",
     u"SELECT '' as S,ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE FAMILIA = "
     u"'0001' ORDER BY DESCRIPCION",
     u"'' as S, ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA", u"(FAMILIA = '0001')",
     u"DESCRIPCION"},
    {"list 11, obsolete hidden, all families",
     u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
     u"TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) ORDER BY DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA",
     u"((TipoArticuloObsoleto = '0') OR ISNULL(TipoArticuloObsoleto))", u"DESCRIPCION"},
    {"list 111, obsolete hidden, all families",
     u"SELECT '' as S,ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
     u"TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) ORDER BY DESCRIPCION",
     u"'' as S, ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA",
     u"((TipoArticuloObsoleto = '0') OR ISNULL(TipoArticuloObsoleto))", u"DESCRIPCION"},
    {"list 11, obsolete hidden, one family",
     u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
     u"(TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) AND FAMILIA = '0001' ORDER BY "
     u"DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA",
     u"(((TipoArticuloObsoleto = '0') OR ISNULL(TipoArticuloObsoleto)) AND (FAMILIA = '0001'))",
     u"DESCRIPCION"},
    {"list 111, obsolete hidden, one family",
     u"SELECT '' as S,ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
     u"(TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) AND FAMILIA = '0001' ORDER BY "
     u"DESCRIPCION",
     u"'' as S, ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA",
     u"(((TipoArticuloObsoleto = '0') OR ISNULL(TipoArticuloObsoleto)) AND (FAMILIA = '0001'))",
     u"DESCRIPCION"},
    {"list 20, all types, unchecked",
     u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad FROM "
     u"CLIENTESTABLA ORDER BY CLINOMBRE",
     u"CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad", u"CLIENTESTABLA", u"",
     u"CLINOMBRE"},
    {"list 20, all types, checked",
     u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad FROM "
     u"CLIENTESTABLA ORDER BY CLICODPOSTALLOCALI",
     u"CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad", u"CLIENTESTABLA", u"",
     u"CLICODPOSTALLOCALI"},
    {"list 20, one type, unchecked",
     u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad FROM "
     u"CLIENTESTABLA WHERE TIPOCLIENTECODIGO='02' ORDER BY CLINOMBRE",
     u"CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad", u"CLIENTESTABLA",
     u"(TIPOCLIENTECODIGO = '02')", u"CLINOMBRE"},
    {"list 20, one type, checked",
     u"SELECT CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CliCodPostalLocali as Localidad FROM "
     u"CLIENTESTABLA WHERE TIPOCLIENTECODIGO='02' ORDER BY CLIDIRECCION",
     u"CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CliCodPostalLocali as Localidad", u"CLIENTESTABLA",
     u"(TIPOCLIENTECODIGO = '02')", u"CLIDIRECCION"},
    {"search 1",
     u"SELECT MENUMEMPRESA as Num, MENOMBRE as Empresa FROM EMP WHERE MENOMBRE LIKE '*sal*' ORDER BY "
     u"MENOMBRE",
     u"MENUMEMPRESA as Num, MENOMBRE as Empresa", u"EMP", u"(MENOMBRE LIKE '*sal*')", u"MENOMBRE"},
    {"search 2",
     u"SELECT ALMCODIGO as Num, ALMDESCRI as Almacen FROM ALMACEN WHERE ALMDESCRI LIKE '*sal*' ORDER BY "
     u"ALMDESCRI",
     u"ALMCODIGO as Num, ALMDESCRI as Almacen", u"ALMACEN", u"(ALMDESCRI LIKE '*sal*')", u"ALMDESCRI"},
    {"search 3",
     u"SELECT CPOSTAL as Codigo, LOCALI as Localidad FROM POSTA WHERE LOCALI LIKE '*sal*' ORDER BY "
     u"LOCALI",
     u"CPOSTAL as Codigo, LOCALI as Localidad", u"POSTA", u"(LOCALI LIKE '*sal*')", u"LOCALI"},
    {"search 4",
     u"SELECT MONCODIGO AS Codigo, MONDESCRIPCION as Moneda FROM MONEDATAB WHERE MONDESCRIPCION LIKE "
     u"'*sal*' ORDER BY MONDESCRIPCION",
     u"MONCODIGO as Codigo, MONDESCRIPCION as Moneda", u"MONEDATAB", u"(MONDESCRIPCION LIKE '*sal*')",
     u"MONDESCRIPCION"},
    {"search 5",
     u"SELECT FABCODIGO AS Codigo, FABDESCRIPCION as Fabricantes FROM FABRICA WHERE FABDESCRIPCION LIKE "
     u"'*sal*' ORDER BY FABDESCRIPCION",
     u"FABCODIGO as Codigo, FABDESCRIPCION as Fabricantes", u"FABRICA", u"(FABDESCRIPCION LIKE '*sal*')",
     u"FABDESCRIPCION"},
    {"search 6",
     u"SELECT ZCOD as Codigo, ZDEL as Administracion, ZADM as Delegacion FROM DELEG WHERE ZDEL LIKE "
     u"'*sal*' ORDER BY ZDEL",
     u"ZCOD as Codigo, ZDEL as Administracion, ZADM as Delegacion", u"DELEG", u"(ZDEL LIKE '*sal*')",
     u"ZDEL"},
    {"search 7",
     u"SELECT ENTCODIGO AS Codigo, ENTDESCRI as Banco, ENTCUENTA as Cuenta FROM ENTIDAD WHERE ENTDESCRI "
     u"LIKE '*sal*' ORDER BY ENTDESCRI",
     u"ENTCODIGO as Codigo, ENTDESCRI as Banco, ENTCUENTA as Cuenta", u"ENTIDAD", u"(ENTDESCRI LIKE '*sal*')",
     u"ENTDESCRI"},
    {"search 9",
     u"SELECT ZONCODIGO AS Codigo, ZONDESCRIPCION as Zonas FROM ZONATAB WHERE ZONDESCRIPCION LIKE "
     u"'*sal*' ORDER BY ZONDESCRIPCION",
     u"ZONCODIGO as Codigo, ZONDESCRIPCION as Zonas", u"ZONATAB", u"(ZONDESCRIPCION LIKE '*sal*')",
     u"ZONDESCRIPCION"},
    {"search 10",
     u"SELECT FAMICODIGO AS Codigo, FAMIDESCRIPCION as Familia FROM FAMI WHERE FAMIDESCRIPCION LIKE "
     u"'*sal*' ORDER BY FAMIDESCRIPCION",
     u"FAMICODIGO as Codigo, FAMIDESCRIPCION as Familia", u"FAMI", u"(FAMIDESCRIPCION LIKE '*sal*')",
     u"FAMIDESCRIPCION"},
    {"search 11, 111, all families",
     u"SELECT ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE DESCRIPCION LIKE "
     u"'*sal*' ORDER BY DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA", u"(DESCRIPCION LIKE '*sal*')",
     u"DESCRIPCION"},
    {"search 11, 111, one family",
     u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE FAMILIA = '0001' "
     u"AND DESCRIPCION LIKE '*sal*' ORDER BY DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA",
     u"((FAMILIA = '0001') AND (DESCRIPCION LIKE '*sal*'))", u"DESCRIPCION"},
    {"search 11, 111, obsolete hidden, all families",
     u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
     u"TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) AND DESCRIPCION LIKE '*sal*' ORDER BY "
     u"DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA",
     u"((TipoArticuloObsoleto = '0') OR (ISNULL(TipoArticuloObsoleto) AND (DESCRIPCION LIKE '*sal*')))",
     u"DESCRIPCION"},
    {"search 11, 111, obsolete hidden, one family",
     u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
     u"(TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) AND FAMILIA = '0001' AND "
     u"DESCRIPCION LIKE '*sal*' ORDER BY DESCRIPCION",
     u"ARTCODIGO as Codigo, DESCRIPCION as Articulo", u"ARTICULOSTABLA",
     u"((((TipoArticuloObsoleto = '0') OR ISNULL(TipoArticuloObsoleto)) AND (FAMILIA = '0001')) AND "
     u"(DESCRIPCION LIKE '*sal*'))",
     u"DESCRIPCION"},
    {"search 15",
     u"SELECT TIPOCODIGO as Codigo, TIPODESCRIPCION as 'Tipo de Cliente' FROM TIPOCLI WHERE "
     u"TIPODESCRIPCION LIKE '*sal*' ORDER BY TIPODESCRIPCION",
     u"TIPOCODIGO as Codigo, TIPODESCRIPCION as Tipo de Cliente", u"TIPOCLI",
     u"(TIPODESCRIPCION LIKE '*sal*')", u"TIPODESCRIPCION"},
    {"search 16",
     u"SELECT CARCODIGO AS Codigo, CARDESCRIPCION as 'Nombre de la cartera' FROM CarteraTabla WHERE "
     u"CARDESCRIPCION LIKE '*sal*' ORDER BY CARDESCRIPCION",
     u"CARCODIGO as Codigo, CARDESCRIPCION as Nombre de la cartera", u"CarteraTabla",
     u"(CARDESCRIPCION LIKE '*sal*')", u"CARDESCRIPCION"},
    {"search 17",
     u"SELECT REPCODIGO as Codigo, REPDESCRI as Representante FROM REPTABLA WHERE REPDESCRI LIKE "
     u"'*sal*' ORDER BY REPDESCRI",
     u"REPCODIGO as Codigo, REPDESCRI as Representante", u"REPTABLA", u"(REPDESCRI LIKE '*sal*')",
     u"REPDESCRI"},
    {"search 18",
     u"SELECT IDICODIGO AS codigo, IDIDESCRIP as Idioma FROM IdiomasTabla WHERE IDIDESCRIP LIKE '*sal*' "
     u"ORDER BY IDIDESCRIP",
     u"IDICODIGO as codigo, IDIDESCRIP as Idioma", u"IdiomasTabla", u"(IDIDESCRIP LIKE '*sal*')",
     u"IDIDESCRIP"},
    {"search 20, unchecked",
     u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CLICODPOSTALLOCALI as Localidad FROM "
     u"CLIENTESTABLA WHERE CLINOMBRE LIKE '*sal*' ORDER BY CLINOMBRE",
     u"CLICODIGO as Codigo, CLINOMBRE as Cliente, CLICODPOSTALLOCALI as Localidad", u"CLIENTESTABLA",
     u"(CLINOMBRE LIKE '*sal*')", u"CLINOMBRE"},
    {"search 20, checked",
     u"SELECT CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CLICODPOSTALLOCALI as Localidad FROM "
     u"CLIENTESTABLA WHERE CLIDIRECCION LIKE '*sal*' ORDER BY CLIDIRECCION",
     u"CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CLICODPOSTALLOCALI as Localidad", u"CLIENTESTABLA",
     u"(CLIDIRECCION LIKE '*sal*')", u"CLIDIRECCION"},
    {"search 21",
     u"SELECT PROVCODIGO as Codigo, PROVNOMBRE as Proveedor, PROVLOCALIDAD as Localidad FROM "
     u"ProveedoresTabla WHERE PROVNOMBRE LIKE '*sal*' ORDER BY PROVNOMBRE",
     u"PROVCODIGO as Codigo, PROVNOMBRE as Proveedor, PROVLOCALIDAD as Localidad", u"ProveedoresTabla",
     u"(PROVNOMBRE LIKE '*sal*')", u"PROVNOMBRE"},
    {"search 22",
     u"SELECT PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha FROM "
     u"PresupuestoTabla WHERE PRECOMCanal ='' AND PRECOMNOMBRECLI LIKE '*sal*' ORDER BY PRECOMNombrecli",
     u"PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha", u"PresupuestoTabla",
     u"((PRECOMCanal = '') AND (PRECOMNOMBRECLI LIKE '*sal*'))", u"PRECOMNombrecli"},
    {"search 22, by number",
     u"SELECT PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha FROM "
     u"PresupuestoTabla WHERE PRECOMCanal ='' AND PRECOMNOMBRECLI LIKE '*sal*' ORDER BY PRECOMNumero "
     u"DESC",
     u"PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha", u"PresupuestoTabla",
     u"((PRECOMCanal = '') AND (PRECOMNOMBRECLI LIKE '*sal*'))", u"PRECOMNumero DESC"},
    {"search 23",
     u"SELECT PROVCODIGO as Codigo,PROVNOMBRE as Transportista,PROVLOCALIDAD as Localidad FROM "
     u"ProveedoresTabla WHERE ProvTransportista = '1' AND PROVNOMBRE LIKE '*sal*' ORDER BY PROVNOMBRE",
     u"PROVCODIGO as Codigo, PROVNOMBRE as Transportista, PROVLOCALIDAD as Localidad", u"ProveedoresTabla",
     u"((ProvTransportista = '1') AND (PROVNOMBRE LIKE '*sal*'))", u"PROVNOMBRE"},
    {"search 24",
     u"SELECT ESCANCODIGO as Codigo, ESCANDESCRI as Escandallo FROM ESCANTABLA WHERE ESCANDESCRI LIKE "
     u"'*sal*' ORDER BY ESCANDESCRI",
     u"ESCANCODIGO as Codigo, ESCANDESCRI as Escandallo", u"ESCANTABLA", u"(ESCANDESCRI LIKE '*sal*')",
     u"ESCANDESCRI"},
    {"search 25",
     u"SELECT PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha FROM "
     u"PedidosTabla WHERE PEDIDOSCanal ='' AND PEDIDOSNombrecli LIKE '*sal*' ORDER BY PEDIDOSNombrecli",
     u"PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha", u"PedidosTabla",
     u"((PEDIDOSCanal = '') AND (PEDIDOSNombrecli LIKE '*sal*'))", u"PEDIDOSNombrecli"},
    {"search 25, by number",
     u"SELECT PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha FROM "
     u"PedidosTabla WHERE PEDIDOSCanal ='' AND PEDIDOSNombrecli LIKE '*sal*' ORDER BY PEDIDOSNumero DESC",
     u"PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha", u"PedidosTabla",
     u"((PEDIDOSCanal = '') AND (PEDIDOSNombrecli LIKE '*sal*'))", u"PEDIDOSNumero DESC"},
    {"search 26",
     u"SELECT ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as Fecha FROM "
     u"AlbaranesTabla WHERE ALBARANCanal ='' AND ALBARANNombrecli LIKE '*sal*' ORDER BY ALBARANNombrecli",
     u"ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as Fecha", u"AlbaranesTabla",
     u"((ALBARANCanal = '') AND (ALBARANNombrecli LIKE '*sal*'))", u"ALBARANNombrecli"},
    {"search 26, by number",
     u"SELECT ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as FEcha FROM "
     u"AlbaranesTabla WHERE ALBARANCanal ='' AND ALBARANNombrecli LIKE '*sal*' ORDER BY ALBARANNumero "
     u"DESC",
     u"ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as FEcha", u"AlbaranesTabla",
     u"((ALBARANCanal = '') AND (ALBARANNombrecli LIKE '*sal*'))", u"ALBARANNumero DESC"},
    {"search 27",
     u"SELECT FACTURANumero as Numero, FACTURANombrecli as Cliente, FACTURAFecha as Fecha, FACTURATotal "
     u"as Importe From FacturaTabla Where FACTURACanal ='' AND FACTURANombrecli LIKE '*sal*' ORDER BY "
     u"FACTURANombrecli ",
     u"FACTURANumero as Numero, FACTURANombrecli as Cliente, FACTURAFecha as Fecha, FACTURATotal as "
     u"Importe",
     u"FacturaTabla", u"((FACTURACanal = '') AND (FACTURANombrecli LIKE '*sal*'))", u"FACTURANombrecli"},
    {"search 27, by number",
     u"SELECT FACTURANumero as Numero, FACTURANombrecli as CLiente, FACTURAFecha as Fecha, FACTURATotal "
     u"as Importe From FacturaTabla Where FACTURACanal ='' AND FACTURANombrecli LIKE '*sal*' ORDER BY "
     u"FACTURANumero DESC ",
     u"FACTURANumero as Numero, FACTURANombrecli as CLiente, FACTURAFecha as Fecha, FACTURATotal as "
     u"Importe",
     u"FacturaTabla", u"((FACTURACanal = '') AND (FACTURANombrecli LIKE '*sal*'))", u"FACTURANumero DESC"},
    {"search 31",
     u"SELECT TIPOSCODIGO as Codigo, TIPOSDESCRI as Operacion FROM TIPOSGTS WHERE TIPOSDESCRI LIKE "
     u"'*sal*' ORDER BY TIPOSDESCRI",
     u"TIPOSCODIGO as Codigo, TIPOSDESCRI as Operacion", u"TIPOSGTS", u"(TIPOSDESCRI LIKE '*sal*')",
     u"TIPOSDESCRI"},
    {"search 40",
     u"SELECT numcuenta as Cuenta, titulodelacuenta as Descripcion FROM cta WHERE TITULODELACUENTA LIKE "
     u"'*sal*' ORDER BY TITULODELACUENTA",
     u"numcuenta as Cuenta, titulodelacuenta as Descripcion", u"cta", u"(TITULODELACUENTA LIKE '*sal*')",
     u"TITULODELACUENTA"},
    {"search 41",
     u"SELECT ECOMERCEFAMICODIGO as Codigo, ECOMERCEFAMIDESCRIPCION as Descripcion FROM "
     u"ECOMERCEFAMITABLA WHERE ECOMERCEFAMIDESCRIPCION LIKE '*sal*' ORDER BY ECOMERCEFAMIDESCRIPCION",
     u"ECOMERCEFAMICODIGO as Codigo, ECOMERCEFAMIDESCRIPCION as Descripcion", u"ECOMERCEFAMITABLA",
     u"(ECOMERCEFAMIDESCRIPCION LIKE '*sal*')", u"ECOMERCEFAMIDESCRIPCION"},
    {"search 333",
     u"SELECT ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, ACUCARTERAFECHARECIBO "
     u"as Fecha FROM ACUCARTERATABLA WHERE ACUCARTERADESCRICLIENTE LIKE '*sal*' ORDER BY "
     u"int(ACUCARTERANUMRECIBO)",
     u"ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, ACUCARTERAFECHARECIBO as Fecha",
     u"ACUCARTERATABLA", u"(ACUCARTERADESCRICLIENTE LIKE '*sal*')", u"int(ACUCARTERANUMRECIBO)"},
    {"search 333, by number",
     u"SELECT ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, ACUCARTERAFECHARECIBO "
     u"as Fecha FROM ACUCARTERATABLA WHERE ACUCARTERADESCRICLIENTE LIKE '*sal*' ORDER BY "
     u"int(ACUCARTERANUMRECIBO)DESC",
     u"ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, ACUCARTERAFECHARECIBO as Fecha",
     u"ACUCARTERATABLA", u"(ACUCARTERADESCRICLIENTE LIKE '*sal*')", u"int(ACUCARTERANUMRECIBO) DESC"},
}};

struct RefusedQuery
{
    const char* name;
    QStringView text;
};

/// Texts that are wrong as they stand and stay so.
inline constexpr std::array<RefusedQuery, 7> kRefused{{
    {"search 8",
     u"SELECT FORMCODIGO AS Codigo, FORMDESCRI as 'Forma de pago' FROM FORMASPAGO WHERE LIKE '*sal*' "
     u"ORDER BY FORMDESCRI"},
    {"search 28",
     u"SELECT COMPRASPEDIDOSNumero as Numero, COMPRASPEDIDOSNombrecli as Proveedor, "
     u"ComprasPEDIDOSNumerosudocu as S-Pedido FROM COMPRASPedidosTabla WHERE COMPRASPEDIDOSCanal ='' "
     u"AND COMPRASPEDIDOSNombrecli LIKE '*sal*' ORDER BY COMPRASPEDIDOSNombrecli"},
    {"search 28, by number",
     u"SELECT COMPRASPEDIDOSNumero as Numero, COMPRASPEDIDOSNombrecli as Proveedor, "
     u"ComprasPEDIDOSNumerosudocu as S-Pedido FROM COMPRASPedidosTabla WHERE COMPRASPEDIDOSCanal ='' "
     u"AND COMPRASPEDIDOSNombrecli LIKE '*sal*' ORDER BY COMPRASPEDIDOSNombrecli DESC"},
    {"search 29",
     u"SELECT COMPRASALBARANNumero as Numero, COMPRASALBARANNombrecli as Proveedor, "
     u"ComprasAlbaranNumerosudocu as S-Albaran FROM COMPRASALBARANESTabla WHERE COMPRASALBARANCanal ='' "
     u"AND COMPRASALBARANNombrecli LIKE '*sal*' ORDER BY COMPRASALBARANNombrecli"},
    {"search 29, by number",
     u"SELECT COMPRASALBARANNumero as Numero, COMPRASALBARANNombrecli as Proveedor, "
     u"ComprasAlbaranNumerosudocu as S-Albaran FROM COMPRASALBARANESTabla WHERE COMPRASALBARANCanal ='' "
     u"AND COMPRASALBARANNombrecli LIKE '*sal*' ORDER BY ComprasAlbaranNumerosudocu DESC"},
    {"search 30",
     u"SELECT COMPRASFACTURANumero as Numero, COMPRASFACTURANombrecli as Proveedor, "
     u"ComprasFACTURANumerosudocu as S-Factura FROM COMPRASFACTURATabla WHERE COMPRASFACTURACanal ='' "
     u"AND COMPRASFACTURANombrecli LIKE '*sal*' ORDER BY COMPRASFACTURANombrecli"},
    {"search 30, by number",
     u"SELECT COMPRASFACTURANumero as Numero, COMPRASFACTURANombrecli as Proveedor, "
     u"ComprasFACTURANumerosudocu as S-Factura FROM COMPRASFACTURATabla WHERE COMPRASFACTURACanal ='' "
     u"AND COMPRASFACTURANombrecli LIKE '*sal*' ORDER BY ComprasFACTURANumerosudocu DESC"},
}};

} // namespace lookupqueries
