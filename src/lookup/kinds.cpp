// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/kinds.h"

#include <algorithm>
#include <array>

namespace lookup {

namespace {

// Places in the texts where a value of the moment goes, as it stands.
constexpr QStringView kTextPlace = u"<texto>";
constexpr QStringView kFamilyPlace = u"<familia>";
constexpr QStringView kTypePlace = u"<tipo>";
constexpr QStringView kChannelPlace = u"<canal>"; // the suite's work channel, which this program never sets

constexpr QStringView kAllFamilies = u"(Inc"; // beginning of "(Incluir todas las familias)"
constexpr qsizetype kFamilyWidth = 4;

struct List
{
    int kind;
    QStringView caption;
    Store store;
    QStringView sql; ///< empty: the texts are told below by variant
};
constexpr std::array kLists{
    List{3, u"  Códigos Postales", Store::Postal,
         u"SELECT CPOSTAL as Codigo, LOCALI as Localidad FROM POSTA ORDER BY LOCALI"},
    List{9, u"  Búsqueda de zonas", Store::Zones,
         u"SELECT ZONCODIGO AS Codigo, ZONDESCRIPCION as Zonas FROM ZONATAB ORDER BY ZONDESCRIPCION"},
    List{11, u"  Búsqueda de Artículos", Store::Articles, {}},
    List{111, u"  Búsqueda de Artículos", Store::Articles, {}},
    List{15, u"  Tipos de Cliente", Store::Types,
         u"SELECT TIPOCODIGO as Codigo, TIPODESCRIPCION as 'Tipo de Cliente' FROM TIPOCLI ORDER BY "
         u"TIPODESCRIPCION"},
    List{17, u"  Búsqueda de Representantes", Store::Representatives,
         u"SELECT REPCODIGO as Codigo, REPDESCRI as Representante FROM REPTABLA ORDER BY REPDESCRI"},
    List{20, u"  Búsqueda de Clientes", Store::Clients, {}},
};

struct ArticleTexts
{
    bool hideObsolete;
    bool oneFamily;
    QStringView list; ///< kind 111 has `kTickColumn` behind its SELECT
    QStringView search;
};
constexpr QStringView kSelect = u"SELECT ";
constexpr QStringView kTickColumn = u"'' as S,";
constexpr std::array kArticleTexts{
    ArticleTexts{
        false, false,
        u"SELECT ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA ORDER BY DESCRIPCION",
        u"SELECT ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
        u"WHERE DESCRIPCION LIKE '*<texto>*' ORDER BY DESCRIPCION"},
    ArticleTexts{false, true,
                 u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                 u"WHERE FAMILIA = '<familia>' ORDER BY DESCRIPCION",
                 u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                 u"WHERE FAMILIA = '<familia>' AND DESCRIPCION LIKE '*<texto>*' ORDER BY DESCRIPCION"},
    ArticleTexts{true, false,
                 u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                 u"WHERE TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) ORDER BY DESCRIPCION",
                 u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                 u"WHERE TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) "
                 u"AND DESCRIPCION LIKE '*<texto>*' ORDER BY DESCRIPCION"},
    ArticleTexts{true, true,
                 u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                 u"WHERE (TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) "
                 u"AND FAMILIA = '<familia>' ORDER BY DESCRIPCION",
                 u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                 u"WHERE (TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) "
                 u"AND FAMILIA = '<familia>' AND DESCRIPCION LIKE '*<texto>*' ORDER BY DESCRIPCION"},
};

struct ClientTexts
{
    bool byType;
    bool checked;
    QStringView list;
};
constexpr std::array kClientTexts{
    ClientTexts{false, false,
                u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad "
                u"FROM CLIENTESTABLA ORDER BY CLINOMBRE"},
    ClientTexts{false, true,
                u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad "
                u"FROM CLIENTESTABLA ORDER BY CLICODPOSTALLOCALI"},
    ClientTexts{true, false,
                u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad "
                u"FROM CLIENTESTABLA WHERE TIPOCLIENTECODIGO='<tipo>' ORDER BY CLINOMBRE"},
    ClientTexts{true, true,
                u"SELECT CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CliCodPostalLocali as Localidad "
                u"FROM CLIENTESTABLA WHERE TIPOCLIENTECODIGO='<tipo>' ORDER BY CLIDIRECCION"},
};

struct Search
{
    int kind;
    Store store;
    QStringView sql;
    QStringView checkedSql; ///< with `Check1` ticked; empty: the same
};
constexpr std::array kSearches{
    Search{1,
           Store::None,
           u"SELECT MENUMEMPRESA as Num, MENOMBRE as Empresa FROM EMP WHERE MENOMBRE LIKE '*<texto>*' ORDER "
           u"BY MENOMBRE",
           {}}, // company number
    Search{2,
           Store::None,
           u"SELECT ALMCODIGO as Num, ALMDESCRI as Almacen FROM ALMACEN WHERE ALMDESCRI LIKE '*<texto>*' "
           u"ORDER BY ALMDESCRI",
           {}}, // warehouse
    Search{3,
           Store::Postal,
           u"SELECT CPOSTAL as Codigo, LOCALI as Localidad FROM POSTA WHERE LOCALI LIKE '*<texto>*' ORDER "
           u"BY LOCALI",
           {}}, // postal code
    Search{4,
           Store::None,
           u"SELECT MONCODIGO AS Codigo, MONDESCRIPCION as Moneda FROM MONEDATAB WHERE MONDESCRIPCION LIKE "
           u"'*<texto>*' ORDER BY MONDESCRIPCION",
           {}}, // currency
    Search{5,
           Store::None,
           u"SELECT FABCODIGO AS Codigo, FABDESCRIPCION as Fabricantes FROM FABRICA WHERE FABDESCRIPCION "
           u"LIKE '*<texto>*' ORDER BY FABDESCRIPCION",
           {}}, // maker
    Search{6,
           Store::None,
           u"SELECT ZCOD as Codigo, ZDEL as Administracion, ZADM as Delegacion FROM DELEG WHERE ZDEL LIKE "
           u"'*<texto>*' ORDER BY ZDEL",
           {}}, // tax office
    Search{7,
           Store::None,
           u"SELECT ENTCODIGO AS Codigo, ENTDESCRI as Banco, ENTCUENTA as Cuenta FROM ENTIDAD WHERE "
           u"ENTDESCRI LIKE '*<texto>*' ORDER BY ENTDESCRI",
           {}}, // bank
    Search{8,
           Store::None,
           u"SELECT FORMCODIGO AS Codigo, FORMDESCRI as 'Forma de pago' FROM FORMASPAGO WHERE LIKE "
           u"'*<texto>*' ORDER BY FORMDESCRI",
           {}}, // payment form
    Search{9,
           Store::Zones,
           u"SELECT ZONCODIGO AS Codigo, ZONDESCRIPCION as Zonas FROM ZONATAB WHERE ZONDESCRIPCION LIKE "
           u"'*<texto>*' ORDER BY ZONDESCRIPCION",
           {}}, // zone
    Search{10,
           Store::None,
           u"SELECT FAMICODIGO AS Codigo, FAMIDESCRIPCION as Familia FROM FAMI WHERE FAMIDESCRIPCION LIKE "
           u"'*<texto>*' ORDER BY FAMIDESCRIPCION",
           {}}, // family
    Search{15,
           Store::Types,
           u"SELECT TIPOCODIGO as Codigo, TIPODESCRIPCION as 'Tipo de Cliente' FROM TIPOCLI WHERE "
           u"TIPODESCRIPCION LIKE '*<texto>*' ORDER BY TIPODESCRIPCION",
           {}}, // client type
    Search{16,
           Store::None,
           u"SELECT CARCODIGO AS Codigo, CARDESCRIPCION as 'Nombre de la cartera' FROM CarteraTabla WHERE "
           u"CARDESCRIPCION LIKE '*<texto>*' ORDER BY CARDESCRIPCION",
           {}}, // portfolio
    Search{17,
           Store::Representatives,
           u"SELECT REPCODIGO as Codigo, REPDESCRI as Representante FROM REPTABLA WHERE REPDESCRI LIKE "
           u"'*<texto>*' ORDER BY REPDESCRI",
           {}}, // representative
    Search{18,
           Store::None,
           u"SELECT IDICODIGO AS codigo, IDIDESCRIP as Idioma FROM IdiomasTabla WHERE IDIDESCRIP LIKE "
           u"'*<texto>*' ORDER BY IDIDESCRIP",
           {}}, // language
    Search{21,
           Store::None,
           u"SELECT PROVCODIGO as Codigo, PROVNOMBRE as Proveedor, PROVLOCALIDAD as Localidad FROM "
           u"ProveedoresTabla WHERE PROVNOMBRE LIKE '*<texto>*' ORDER BY PROVNOMBRE",
           {}}, // supplier
    Search{22, Store::None,
           u"SELECT PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha FROM "
           u"PresupuestoTabla WHERE PRECOMCanal ='<canal>' AND PRECOMNOMBRECLI LIKE '*<texto>*' ORDER BY "
           u"PRECOMNombrecli",
           u"SELECT PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha FROM "
           u"PresupuestoTabla WHERE PRECOMCanal ='<canal>' AND PRECOMNOMBRECLI LIKE '*<texto>*' ORDER BY "
           u"PRECOMNumero DESC"}, // quotation
    Search{23,
           Store::None,
           u"SELECT PROVCODIGO as Codigo,PROVNOMBRE as Transportista,PROVLOCALIDAD as Localidad FROM "
           u"ProveedoresTabla WHERE ProvTransportista = '1' AND PROVNOMBRE LIKE '*<texto>*' ORDER BY "
           u"PROVNOMBRE",
           {}}, // carrier
    Search{24,
           Store::None,
           u"SELECT ESCANCODIGO as Codigo, ESCANDESCRI as Escandallo FROM ESCANTABLA WHERE ESCANDESCRI LIKE "
           u"'*<texto>*' ORDER BY ESCANDESCRI",
           {}}, // breakdown
    Search{25, Store::None,
           u"SELECT PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha FROM "
           u"PedidosTabla WHERE PEDIDOSCanal ='<canal>' AND PEDIDOSNombrecli LIKE '*<texto>*' ORDER BY "
           u"PEDIDOSNombrecli",
           u"SELECT PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha FROM "
           u"PedidosTabla WHERE PEDIDOSCanal ='<canal>' AND PEDIDOSNombrecli LIKE '*<texto>*' ORDER BY "
           u"PEDIDOSNumero DESC"}, // order
    Search{26, Store::None,
           u"SELECT ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as Fecha FROM "
           u"AlbaranesTabla WHERE ALBARANCanal ='<canal>' AND ALBARANNombrecli LIKE '*<texto>*' ORDER BY "
           u"ALBARANNombrecli",
           u"SELECT ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as FEcha FROM "
           u"AlbaranesTabla WHERE ALBARANCanal ='<canal>' AND ALBARANNombrecli LIKE '*<texto>*' ORDER BY "
           u"ALBARANNumero DESC"}, // delivery note
    Search{27, Store::None,
           u"SELECT FACTURANumero as Numero, FACTURANombrecli as Cliente, FACTURAFecha as Fecha, "
           u"FACTURATotal as Importe From FacturaTabla Where FACTURACanal ='<canal>' AND FACTURANombrecli "
           u"LIKE '*<texto>*' ORDER BY FACTURANombrecli ",
           u"SELECT FACTURANumero as Numero, FACTURANombrecli as CLiente, FACTURAFecha as Fecha, "
           u"FACTURATotal as Importe From FacturaTabla Where FACTURACanal ='<canal>' AND FACTURANombrecli "
           u"LIKE '*<texto>*' ORDER BY FACTURANumero DESC "}, // invoice
    Search{28, Store::None,
           u"SELECT COMPRASPEDIDOSNumero as Numero, COMPRASPEDIDOSNombrecli as Proveedor, "
           u"ComprasPEDIDOSNumerosudocu as S-Pedido FROM COMPRASPedidosTabla WHERE COMPRASPEDIDOSCanal "
           u"='<canal>' AND COMPRASPEDIDOSNombrecli LIKE '*<texto>*' ORDER BY COMPRASPEDIDOSNombrecli",
           u"SELECT COMPRASPEDIDOSNumero as Numero, COMPRASPEDIDOSNombrecli as Proveedor, "
           u"ComprasPEDIDOSNumerosudocu as S-Pedido FROM COMPRASPedidosTabla WHERE COMPRASPEDIDOSCanal "
           u"='<canal>' AND COMPRASPEDIDOSNombrecli LIKE '*<texto>*' ORDER BY COMPRASPEDIDOSNombrecli "
           u"DESC"}, // purchase order
    Search{29, Store::None,
           u"SELECT COMPRASALBARANNumero as Numero, COMPRASALBARANNombrecli as Proveedor, "
           u"ComprasAlbaranNumerosudocu as S-Albaran FROM COMPRASALBARANESTabla WHERE COMPRASALBARANCanal "
           u"='<canal>' AND COMPRASALBARANNombrecli LIKE '*<texto>*' ORDER BY COMPRASALBARANNombrecli",
           u"SELECT COMPRASALBARANNumero as Numero, COMPRASALBARANNombrecli as Proveedor, "
           u"ComprasAlbaranNumerosudocu as S-Albaran FROM COMPRASALBARANESTabla WHERE COMPRASALBARANCanal "
           u"='<canal>' AND COMPRASALBARANNombrecli LIKE '*<texto>*' ORDER BY ComprasAlbaranNumerosudocu "
           u"DESC"}, // purchase delivery note
    Search{30, Store::None,
           u"SELECT COMPRASFACTURANumero as Numero, COMPRASFACTURANombrecli as Proveedor, "
           u"ComprasFACTURANumerosudocu as S-Factura FROM COMPRASFACTURATabla WHERE COMPRASFACTURACanal "
           u"='<canal>' AND COMPRASFACTURANombrecli LIKE '*<texto>*' ORDER BY COMPRASFACTURANombrecli",
           u"SELECT COMPRASFACTURANumero as Numero, COMPRASFACTURANombrecli as Proveedor, "
           u"ComprasFACTURANumerosudocu as S-Factura FROM COMPRASFACTURATabla WHERE COMPRASFACTURACanal "
           u"='<canal>' AND COMPRASFACTURANombrecli LIKE '*<texto>*' ORDER BY ComprasFACTURANumerosudocu "
           u"DESC"}, // purchase invoice
    Search{31,
           Store::None,
           u"SELECT TIPOSCODIGO as Codigo, TIPOSDESCRI as Operacion FROM TIPOSGTS WHERE TIPOSDESCRI LIKE "
           u"'*<texto>*' ORDER BY TIPOSDESCRI",
           {}}, // operation type
    Search{40,
           Store::None,
           u"SELECT numcuenta as Cuenta, titulodelacuenta as Descripcion FROM cta WHERE TITULODELACUENTA "
           u"LIKE '*<texto>*' ORDER BY TITULODELACUENTA",
           {}}, // account
    Search{41,
           Store::None,
           u"SELECT ECOMERCEFAMICODIGO as Codigo, ECOMERCEFAMIDESCRIPCION as Descripcion FROM "
           u"ECOMERCEFAMITABLA WHERE ECOMERCEFAMIDESCRIPCION LIKE '*<texto>*' ORDER BY "
           u"ECOMERCEFAMIDESCRIPCION",
           {}}, // web family
    Search{333, Store::None,
           u"SELECT ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, "
           u"ACUCARTERAFECHARECIBO as Fecha FROM ACUCARTERATABLA WHERE ACUCARTERADESCRICLIENTE LIKE "
           u"'*<texto>*' ORDER BY int(ACUCARTERANUMRECIBO)",
           u"SELECT ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, "
           u"ACUCARTERAFECHARECIBO as Fecha FROM ACUCARTERATABLA WHERE ACUCARTERADESCRICLIENTE LIKE "
           u"'*<texto>*' ORDER BY int(ACUCARTERANUMRECIBO)DESC"}, // receipt
    Search{20, Store::Clients,
           u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CLICODPOSTALLOCALI as Localidad "
           u"FROM CLIENTESTABLA WHERE CLINOMBRE LIKE '*<texto>*' ORDER BY CLINOMBRE",
           u"SELECT CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CLICODPOSTALLOCALI as Localidad "
           u"FROM CLIENTESTABLA WHERE CLIDIRECCION LIKE '*<texto>*' ORDER BY CLIDIRECCION"}, // client
};

constexpr std::array kChoices{
    Choice{.kind = 1, .reachesCaller = false},
    Choice{.kind = 2},
    Choice{.kind = 3, .reachesCaller = false, .index = u"CPNU", .on = IndexTarget::Postal},
    Choice{.kind = 4},
    Choice{.kind = 5, .index = u"FABINDICE"},
    Choice{.kind = 6, .index = u"DELNUN"},
    Choice{.kind = 7, .index = u"ENTIDADINDICE"},
    Choice{.kind = 8},
    Choice{.kind = 9, .reachesCaller = false, .index = u"ZONASINDICE", .on = IndexTarget::Zones},
    Choice{.kind = 10, .index = u"FAMIINDICE"},
    Choice{.kind = 11, .index = u"ARTCODIGOINDICE", .on = IndexTarget::Articles},
    Choice{.kind = 15, .index = u"TIPOINDICE", .on = IndexTarget::Types},
    Choice{.kind = 16, .index = u"CARCODIGOINDICE"},
    Choice{.kind = 17, .index = u"REPINDICE", .on = IndexTarget::Representatives},
    Choice{.kind = 18, .index = u"IDICODIGOINDICE"},
    Choice{.kind = 20, .index = u"CLICODIGOINDICE", .on = IndexTarget::Clients},
    Choice{.kind = 21, .index = u"PROVCODIGOINDICE"},
    Choice{.kind = 22, .index = u"PresupuestoNumIndice"},
    Choice{.kind = 23, .index = u"PROVCODIGOINDICE"},
    Choice{.kind = 24, .index = u"ESCANINDICENUM"},
    Choice{.kind = 25, .index = u"PedidosNumIndice"},
    Choice{.kind = 26, .index = u"AlbaranesNumIndice"},
    Choice{.kind = 27, .index = u"FACTURANumIndice"},
    Choice{.kind = 28, .index = u"COMPRASPedidosNumIndice"},
    Choice{.kind = 29, .index = u"COMPRASALBARANESNumIndice"},
    Choice{.kind = 30, .index = u"COMPRASFACTURANumIndice"},
    Choice{.kind = 31, .index = u"TIPOSGTSINDICE"},
    Choice{.kind = 40, .reachesCaller = false, .index = u"INDcta"},
    Choice{.kind = 41, .index = u"ECOMERCEFAMIINDICE"},
    Choice{.kind = 333, .index = u"ACUCARTERAINDICERECIBO"},
    Choice{.kind = 444, .clearsFirst = false, .index = u"REMESAINDICE"},
};

/// Entry of a table for a kind; null when it has none.
template <typename Table>
auto entryOf(const Table& table, double kind) noexcept -> const typename Table::value_type*
{
    const auto found =
        std::find_if(table.begin(), table.end(), [kind](const auto& entry) { return entry.kind == kind; });
    return found == table.end() ? nullptr : &*found;
}

QString filled(QStringView sql, const Request& request, const QString& text)
{
    QString whole = sql.toString();
    whole.replace(kChannelPlace.toString(), QString());
    whole.replace(kFamilyPlace.toString(), request.family.left(kFamilyWidth));
    whole.replace(kTypePlace.toString(), request.clientType);
    // Last, so that a text that looks like one of the places stays what it is.
    return whole.replace(kTextPlace.toString(), text);
}

const ArticleTexts& articleTexts(const Request& request)
{
    const bool oneFamily = request.family.left(kFamilyWidth) != kAllFamilies;
    return *std::find_if(kArticleTexts.begin(), kArticleTexts.end(), [&](const ArticleTexts& texts) {
        return texts.hideObsolete == request.hideObsolete && texts.oneFamily == oneFamily;
    });
}

QString articleList(const Request& request)
{
    QString sql = filled(articleTexts(request).list, request, {});
    if (request.kind == kArticlesToTick)
        sql.insert(kSelect.size(), kTickColumn.toString());
    return sql;
}

QString clientList(const Request& request)
{
    const auto texts = std::find_if(kClientTexts.begin(), kClientTexts.end(), [&](const ClientTexts& entry) {
        return entry.byType != request.clientType.isEmpty() && entry.checked == request.checked;
    });
    return filled(texts->list, request, {});
}

} // namespace

bool hasFullList(double kind) noexcept
{
    return entryOf(kLists, kind) != nullptr;
}

FullList fullList(const Request& request)
{
    const List* list = entryOf(kLists, request.kind);
    if (list == nullptr)
        return {};
    if (listsArticles(request.kind))
        return {list->caption, list->store, articleList(request)};
    if (request.kind == kClients)
        return {list->caption, list->store, clientList(request)};
    return {list->caption, list->store, list->sql.toString()};
}

TypedSearch typedSearch(const Request& request, const QString& text)
{
    if (listsArticles(request.kind))
        return {Store::Articles, filled(articleTexts(request).search, request, text)};
    const Search* search = entryOf(kSearches, request.kind);
    if (search == nullptr)
        return {};
    const bool checked = request.checked && !search->checkedSql.isEmpty();
    return {search->store, filled(checked ? search->checkedSql : search->sql, request, text)};
}

const Choice* choiceOf(double kind) noexcept
{
    return entryOf(kChoices, kind);
}

bool listsArticles(double kind) noexcept
{
    return kind == kArticles || kind == kArticlesToTick;
}

bool ordersByNumber(double kind) noexcept
{
    constexpr std::array kKinds{22, 25, 26, 27, 28, 29, 30, 333};
    return std::any_of(kKinds.begin(), kKinds.end(), [kind](int each) { return each == kind; });
}

} // namespace lookup
