// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/kinds.h"

#include <QtTest>

using lookup::Request;

namespace {

QString text(QStringView literal)
{
    return literal.toString();
}

Request requestOf(double kind, bool checked = false)
{
    Request request;
    request.kind = kind;
    request.checked = checked;
    request.family = text(u"(Incluir todas las familias)");
    return request;
}

} // namespace

class KindSearchesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void searchesAreToTheLetter_data();
    void searchesAreToTheLetter();
    void articleSearchesAreToTheLetter_data();
    void articleSearchesAreToTheLetter();
    void theTextGoesInAsTyped();
    void aTextThatLooksLikeAPlaceStaysItself();
    void theChannelIsInsertedEmpty();
};

void KindSearchesTest::searchesAreToTheLetter_data()
{
    QTest::addColumn<double>("kind");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("sql");
    QTest::newRow("kind 1")
        << 1.0 << false
        << text(u"SELECT MENUMEMPRESA as Num, MENOMBRE as Empresa FROM EMP WHERE MENOMBRE LIKE "
                u"'*peña*' ORDER BY MENOMBRE");
    QTest::newRow("kind 2")
        << 2.0 << false
        << text(u"SELECT ALMCODIGO as Num, ALMDESCRI as Almacen FROM ALMACEN WHERE ALMDESCRI LIKE "
                u"'*peña*' ORDER BY ALMDESCRI");
    QTest::newRow("kind 3")
        << 3.0 << false
        << text(u"SELECT CPOSTAL as Codigo, LOCALI as Localidad FROM POSTA WHERE LOCALI LIKE '*peña*' "
                u"ORDER BY LOCALI");
    QTest::newRow("kind 4")
        << 4.0 << false
        << text(u"SELECT MONCODIGO AS Codigo, MONDESCRIPCION as Moneda FROM MONEDATAB WHERE "
                u"MONDESCRIPCION LIKE '*peña*' ORDER BY MONDESCRIPCION");
    QTest::newRow("kind 5")
        << 5.0 << false
        << text(u"SELECT FABCODIGO AS Codigo, FABDESCRIPCION as Fabricantes FROM FABRICA WHERE "
                u"FABDESCRIPCION LIKE '*peña*' ORDER BY FABDESCRIPCION");
    QTest::newRow("kind 6")
        << 6.0 << false
        << text(u"SELECT ZCOD as Codigo, ZDEL as Administracion, ZADM as Delegacion FROM DELEG WHERE "
                u"ZDEL LIKE '*peña*' ORDER BY ZDEL");
    QTest::newRow("kind 7")
        << 7.0 << false
        << text(u"SELECT ENTCODIGO AS Codigo, ENTDESCRI as Banco, ENTCUENTA as Cuenta FROM ENTIDAD "
                u"WHERE ENTDESCRI LIKE '*peña*' ORDER BY ENTDESCRI");
    QTest::newRow("kind 8")
        << 8.0 << false
        << text(u"SELECT FORMCODIGO AS Codigo, FORMDESCRI as 'Forma de pago' FROM FORMASPAGO WHERE "
                u"LIKE '*peña*' ORDER BY FORMDESCRI");
    QTest::newRow("kind 9") << 9.0 << false
                            << text(u"SELECT ZONCODIGO AS Codigo, ZONDESCRIPCION as Zonas FROM ZONATAB WHERE "
                                    u"ZONDESCRIPCION LIKE '*peña*' ORDER BY ZONDESCRIPCION");
    QTest::newRow("kind 10")
        << 10.0 << false
        << text(u"SELECT FAMICODIGO AS Codigo, FAMIDESCRIPCION as Familia FROM FAMI WHERE "
                u"FAMIDESCRIPCION LIKE '*peña*' ORDER BY FAMIDESCRIPCION");
    QTest::newRow("kind 15")
        << 15.0 << false
        << text(u"SELECT TIPOCODIGO as Codigo, TIPODESCRIPCION as 'Tipo de Cliente' FROM TIPOCLI "
                u"WHERE TIPODESCRIPCION LIKE '*peña*' ORDER BY TIPODESCRIPCION");
    QTest::newRow("kind 16")
        << 16.0 << false
        << text(u"SELECT CARCODIGO AS Codigo, CARDESCRIPCION as 'Nombre de la cartera' FROM "
                u"CarteraTabla WHERE CARDESCRIPCION LIKE '*peña*' ORDER BY CARDESCRIPCION");
    QTest::newRow("kind 17")
        << 17.0 << false
        << text(u"SELECT REPCODIGO as Codigo, REPDESCRI as Representante FROM REPTABLA WHERE "
                u"REPDESCRI LIKE '*peña*' ORDER BY REPDESCRI");
    QTest::newRow("kind 18")
        << 18.0 << false
        << text(u"SELECT IDICODIGO AS codigo, IDIDESCRIP as Idioma FROM IdiomasTabla WHERE IDIDESCRIP "
                u"LIKE '*peña*' ORDER BY IDIDESCRIP");
    QTest::newRow("kind 21")
        << 21.0 << false
        << text(u"SELECT PROVCODIGO as Codigo, PROVNOMBRE as Proveedor, PROVLOCALIDAD as Localidad "
                u"FROM ProveedoresTabla WHERE PROVNOMBRE LIKE '*peña*' ORDER BY PROVNOMBRE");
    QTest::newRow("kind 22")
        << 22.0 << false
        << text(u"SELECT PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha "
                u"FROM PresupuestoTabla WHERE PRECOMCanal ='' AND PRECOMNOMBRECLI LIKE '*peña*' ORDER "
                u"BY PRECOMNombrecli");
    QTest::newRow("kind 22, checked")
        << 22.0 << true
        << text(u"SELECT PRECOMNumero as Numero, PRECOMNombrecli as Cliente, PRECOMFecha as Fecha "
                u"FROM PresupuestoTabla WHERE PRECOMCanal ='' AND PRECOMNOMBRECLI LIKE '*peña*' ORDER "
                u"BY PRECOMNumero DESC");
    QTest::newRow("kind 23")
        << 23.0 << false
        << text(u"SELECT PROVCODIGO as Codigo,PROVNOMBRE as Transportista,PROVLOCALIDAD as Localidad "
                u"FROM ProveedoresTabla WHERE ProvTransportista = '1' AND PROVNOMBRE LIKE '*peña*' "
                u"ORDER BY PROVNOMBRE");
    QTest::newRow("kind 24")
        << 24.0 << false
        << text(u"SELECT ESCANCODIGO as Codigo, ESCANDESCRI as Escandallo FROM ESCANTABLA WHERE "
                u"ESCANDESCRI LIKE '*peña*' ORDER BY ESCANDESCRI");
    QTest::newRow("kind 25")
        << 25.0 << false
        << text(u"SELECT PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha "
                u"FROM PedidosTabla WHERE PEDIDOSCanal ='' AND PEDIDOSNombrecli LIKE '*peña*' ORDER "
                u"BY PEDIDOSNombrecli");
    QTest::newRow("kind 25, checked")
        << 25.0 << true
        << text(u"SELECT PEDIDOSNumero as Numero, PEDIDOSNombrecli as Cliente, PEDIDOSFecha as Fecha "
                u"FROM PedidosTabla WHERE PEDIDOSCanal ='' AND PEDIDOSNombrecli LIKE '*peña*' ORDER "
                u"BY PEDIDOSNumero DESC");
    QTest::newRow("kind 26")
        << 26.0 << false
        << text(u"SELECT ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as Fecha "
                u"FROM AlbaranesTabla WHERE ALBARANCanal ='' AND ALBARANNombrecli LIKE '*peña*' ORDER "
                u"BY ALBARANNombrecli");
    QTest::newRow("kind 26, checked")
        << 26.0 << true
        << text(u"SELECT ALBARANNumero as Numero, ALBARANNombrecli as Cliente, ALBARANFecha as FEcha "
                u"FROM AlbaranesTabla WHERE ALBARANCanal ='' AND ALBARANNombrecli LIKE '*peña*' ORDER "
                u"BY ALBARANNumero DESC");
    QTest::newRow("kind 27")
        << 27.0 << false
        << text(u"SELECT FACTURANumero as Numero, FACTURANombrecli as Cliente, FACTURAFecha as Fecha, "
                u"FACTURATotal as Importe From FacturaTabla Where FACTURACanal ='' AND "
                u"FACTURANombrecli LIKE '*peña*' ORDER BY FACTURANombrecli ");
    QTest::newRow("kind 27, checked")
        << 27.0 << true
        << text(u"SELECT FACTURANumero as Numero, FACTURANombrecli as CLiente, FACTURAFecha as Fecha, "
                u"FACTURATotal as Importe From FacturaTabla Where FACTURACanal ='' AND "
                u"FACTURANombrecli LIKE '*peña*' ORDER BY FACTURANumero DESC ");
    QTest::newRow("kind 28")
        << 28.0 << false
        << text(u"SELECT COMPRASPEDIDOSNumero as Numero, COMPRASPEDIDOSNombrecli as Proveedor, "
                u"ComprasPEDIDOSNumerosudocu as S-Pedido FROM COMPRASPedidosTabla WHERE "
                u"COMPRASPEDIDOSCanal ='' AND COMPRASPEDIDOSNombrecli LIKE '*peña*' ORDER BY "
                u"COMPRASPEDIDOSNombrecli");
    QTest::newRow("kind 28, checked")
        << 28.0 << true
        << text(u"SELECT COMPRASPEDIDOSNumero as Numero, COMPRASPEDIDOSNombrecli as Proveedor, "
                u"ComprasPEDIDOSNumerosudocu as S-Pedido FROM COMPRASPedidosTabla WHERE "
                u"COMPRASPEDIDOSCanal ='' AND COMPRASPEDIDOSNombrecli LIKE '*peña*' ORDER BY "
                u"COMPRASPEDIDOSNombrecli DESC");
    QTest::newRow("kind 29")
        << 29.0 << false
        << text(u"SELECT COMPRASALBARANNumero as Numero, COMPRASALBARANNombrecli as Proveedor, "
                u"ComprasAlbaranNumerosudocu as S-Albaran FROM COMPRASALBARANESTabla WHERE "
                u"COMPRASALBARANCanal ='' AND COMPRASALBARANNombrecli LIKE '*peña*' ORDER BY "
                u"COMPRASALBARANNombrecli");
    QTest::newRow("kind 29, checked")
        << 29.0 << true
        << text(u"SELECT COMPRASALBARANNumero as Numero, COMPRASALBARANNombrecli as Proveedor, "
                u"ComprasAlbaranNumerosudocu as S-Albaran FROM COMPRASALBARANESTabla WHERE "
                u"COMPRASALBARANCanal ='' AND COMPRASALBARANNombrecli LIKE '*peña*' ORDER BY "
                u"ComprasAlbaranNumerosudocu DESC");
    QTest::newRow("kind 30")
        << 30.0 << false
        << text(u"SELECT COMPRASFACTURANumero as Numero, COMPRASFACTURANombrecli as Proveedor, "
                u"ComprasFACTURANumerosudocu as S-Factura FROM COMPRASFACTURATabla WHERE "
                u"COMPRASFACTURACanal ='' AND COMPRASFACTURANombrecli LIKE '*peña*' ORDER BY "
                u"COMPRASFACTURANombrecli");
    QTest::newRow("kind 30, checked")
        << 30.0 << true
        << text(u"SELECT COMPRASFACTURANumero as Numero, COMPRASFACTURANombrecli as Proveedor, "
                u"ComprasFACTURANumerosudocu as S-Factura FROM COMPRASFACTURATabla WHERE "
                u"COMPRASFACTURACanal ='' AND COMPRASFACTURANombrecli LIKE '*peña*' ORDER BY "
                u"ComprasFACTURANumerosudocu DESC");
    QTest::newRow("kind 31")
        << 31.0 << false
        << text(u"SELECT TIPOSCODIGO as Codigo, TIPOSDESCRI as Operacion FROM TIPOSGTS WHERE "
                u"TIPOSDESCRI LIKE '*peña*' ORDER BY TIPOSDESCRI");
    QTest::newRow("kind 40")
        << 40.0 << false
        << text(u"SELECT numcuenta as Cuenta, titulodelacuenta as Descripcion FROM cta WHERE "
                u"TITULODELACUENTA LIKE '*peña*' ORDER BY TITULODELACUENTA");
    QTest::newRow("kind 41")
        << 41.0 << false
        << text(u"SELECT ECOMERCEFAMICODIGO as Codigo, ECOMERCEFAMIDESCRIPCION as Descripcion FROM "
                u"ECOMERCEFAMITABLA WHERE ECOMERCEFAMIDESCRIPCION LIKE '*peña*' ORDER BY "
                u"ECOMERCEFAMIDESCRIPCION");
    QTest::newRow("kind 333")
        << 333.0 << false
        << text(u"SELECT ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, "
                u"ACUCARTERAFECHARECIBO as Fecha FROM ACUCARTERATABLA WHERE ACUCARTERADESCRICLIENTE "
                u"LIKE '*peña*' ORDER BY int(ACUCARTERANUMRECIBO)");
    QTest::newRow("kind 333, checked")
        << 333.0 << true
        << text(u"SELECT ACUCARTERANUMRECIBO as Numero, ACUCARTERADESCRICLIENTE as Cliente, "
                u"ACUCARTERAFECHARECIBO as Fecha FROM ACUCARTERATABLA WHERE ACUCARTERADESCRICLIENTE "
                u"LIKE '*peña*' ORDER BY int(ACUCARTERANUMRECIBO)DESC");
    QTest::newRow("kind 20")
        << 20.0 << false
        << text(u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CLICODPOSTALLOCALI as Localidad "
                u"FROM CLIENTESTABLA WHERE CLINOMBRE LIKE '*peña*' ORDER BY CLINOMBRE");
    QTest::newRow("kind 20, checked")
        << 20.0 << true
        << text(u"SELECT CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CLICODPOSTALLOCALI as "
                u"Localidad FROM CLIENTESTABLA WHERE CLIDIRECCION LIKE '*peña*' ORDER BY CLIDIRECCION");
}

void KindSearchesTest::searchesAreToTheLetter()
{
    QFETCH(double, kind);
    QFETCH(bool, checked);
    QFETCH(QString, sql);

    QCOMPARE(lookup::typedSearch(requestOf(kind, checked), text(u"peña")).sql, sql);
}

void KindSearchesTest::articleSearchesAreToTheLetter_data()
{
    QTest::addColumn<bool>("hideObsolete");
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("sql");
    QTest::newRow("all families")
        << false << text(u"(Incluir todas las familias)")
        << text(u"SELECT ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
                u"DESCRIPCION LIKE '*peña*' ORDER BY DESCRIPCION");
    QTest::newRow("one family")
        << false << text(u"0003.-Ascensores")
        << text(u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
                u"FAMILIA = '0003' AND DESCRIPCION LIKE '*peña*' ORDER BY DESCRIPCION");
    QTest::newRow("obsolete hidden, all families")
        << true << text(u"(Incluir todas las familias)")
        << text(u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
                u"TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) AND DESCRIPCION LIKE "
                u"'*peña*' ORDER BY DESCRIPCION");
    QTest::newRow("obsolete hidden, one family")
        << true << text(u"0003.-Ascensores")
        << text(u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
                u"(TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) AND FAMILIA = '0003' "
                u"AND DESCRIPCION LIKE '*peña*' ORDER BY DESCRIPCION");
}

void KindSearchesTest::articleSearchesAreToTheLetter()
{
    QFETCH(bool, hideObsolete);
    QFETCH(QString, family);
    QFETCH(QString, sql);
    Request request = requestOf(11);
    request.hideObsolete = hideObsolete;
    request.family = family;

    QCOMPARE(lookup::typedSearch(request, text(u"peña")).sql, sql);
    request.kind = 111;
    QCOMPARE(lookup::typedSearch(request, text(u"peña")).sql, sql);
}

void KindSearchesTest::theTextGoesInAsTyped()
{
    const QString sql = lookup::typedSearch(requestOf(9), text(u"O'Neil *[a-z]; --")).sql;

    QVERIFY2(sql.contains(u"LIKE '*O'Neil *[a-z]; --*'"), qUtf8Printable(sql));
}

void KindSearchesTest::aTextThatLooksLikeAPlaceStaysItself()
{
    const QString sql = lookup::typedSearch(requestOf(22), text(u"<canal><familia><texto>")).sql;

    QVERIFY2(sql.contains(u"'*<canal><familia><texto>*'"), qUtf8Printable(sql));
}

void KindSearchesTest::theChannelIsInsertedEmpty()
{
    QVERIFY(lookup::typedSearch(requestOf(25), text(u"a")).sql.contains(u"PEDIDOSCanal ='' AND"));
}

QTEST_GUILESS_MAIN(KindSearchesTest)
#include "tst_kindsearches.moc"
