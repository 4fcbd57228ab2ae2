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

class KindsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fullListsAreToTheLetter_data();
    void fullListsAreToTheLetter();
    void articleListsAreToTheLetter_data();
    void articleListsAreToTheLetter();
    void clientListsAreToTheLetter_data();
    void clientListsAreToTheLetter();
    void kindsWithoutAnEntryHaveNoList_data();
    void kindsWithoutAnEntryHaveNoList();
    void onlyFourCharactersOfTheFamilyCount();
    void choicesLeaveTheirIndex_data();
    void choicesLeaveTheirIndex();
    void choicesThatDoNotReachTheCaller();
    void onlyKind444DoesNotClearFirst();
    void kindsThatDoNotExistChooseNothing_data();
    void kindsThatDoNotExistChooseNothing();
    void kindsInOrderOfNumber();
};

void KindsTest::fullListsAreToTheLetter_data()
{
    QTest::addColumn<double>("kind");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("sql");
    QTest::newRow("kind 3")
        << 3.0 << text(u"  Códigos Postales")
        << text(u"SELECT CPOSTAL as Codigo, LOCALI as Localidad FROM POSTA ORDER BY LOCALI");
    QTest::newRow("kind 9")
        << 9.0 << text(u"  Búsqueda de zonas")
        << text(u"SELECT ZONCODIGO AS Codigo, ZONDESCRIPCION as Zonas FROM ZONATAB ORDER BY "
                u"ZONDESCRIPCION");
    QTest::newRow("kind 15")
        << 15.0 << text(u"  Tipos de Cliente")
        << text(u"SELECT TIPOCODIGO as Codigo, TIPODESCRIPCION as 'Tipo de Cliente' FROM TIPOCLI "
                u"ORDER BY TIPODESCRIPCION");
    QTest::newRow("kind 17")
        << 17.0 << text(u"  Búsqueda de Representantes")
        << text(u"SELECT REPCODIGO as Codigo, REPDESCRI as Representante FROM REPTABLA ORDER BY "
                u"REPDESCRI");
}

void KindsTest::fullListsAreToTheLetter()
{
    QFETCH(double, kind);
    QFETCH(QString, caption);
    QFETCH(QString, sql);

    QVERIFY(lookup::hasFullList(kind));
    QCOMPARE(text(lookup::fullList(requestOf(kind)).caption), caption);
    QCOMPARE(lookup::fullList(requestOf(kind)).sql, sql);
}

void KindsTest::articleListsAreToTheLetter_data()
{
    QTest::addColumn<bool>("hideObsolete");
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("kind11");
    QTest::addColumn<QString>("kind111");
    QTest::newRow("obsolete shown, all families")
        << false << text(u"(Incluir todas las familias)")
        << text(u"SELECT ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA ORDER BY "
                u"DESCRIPCION")
        << text(u"SELECT '' as S,ARTCODIGO AS Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                u"ORDER BY DESCRIPCION");
    QTest::newRow("obsolete shown, one family")
        << false << text(u"0003.-Ascensores")
        << text(u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
                u"FAMILIA = '0003' ORDER BY DESCRIPCION")
        << text(u"SELECT '' as S,ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                u"WHERE FAMILIA = '0003' ORDER BY DESCRIPCION");
    QTest::newRow("obsolete hidden, all families")
        << true << text(u"(Incluir todas las familias)")
        << text(u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
                u"TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) ORDER BY DESCRIPCION")
        << text(u"SELECT '' as S,ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                u"WHERE TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto) ORDER BY "
                u"DESCRIPCION");
    QTest::newRow("obsolete hidden, one family")
        << true << text(u"0003.-Ascensores")
        << text(u"SELECT ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA WHERE "
                u"(TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) AND FAMILIA = '0003' "
                u"ORDER BY DESCRIPCION")
        << text(u"SELECT '' as S,ARTCODIGO as Codigo, DESCRIPCION as Articulo FROM ARTICULOSTABLA "
                u"WHERE (TipoArticuloObsoleto = '0' OR ISNULL(TipoArticuloObsoleto)) AND FAMILIA = "
                u"'0003' ORDER BY DESCRIPCION");
}

void KindsTest::articleListsAreToTheLetter()
{
    QFETCH(bool, hideObsolete);
    QFETCH(QString, family);
    QFETCH(QString, kind11);
    QFETCH(QString, kind111);
    Request request = requestOf(11);
    request.hideObsolete = hideObsolete;
    request.family = family;

    QCOMPARE(lookup::fullList(request).sql, kind11);
    request.kind = 111;
    QCOMPARE(lookup::fullList(request).sql, kind111);
    QCOMPARE(text(lookup::fullList(request).caption), text(u"  Búsqueda de Artículos"));
}

void KindsTest::clientListsAreToTheLetter_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("sql");
    QTest::newRow("no type, unchecked")
        << text(u"") << false
        << text(u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad "
                u"FROM CLIENTESTABLA ORDER BY CLINOMBRE");
    QTest::newRow("no type, checked")
        << text(u"") << true
        << text(u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad "
                u"FROM CLIENTESTABLA ORDER BY CLICODPOSTALLOCALI");
    QTest::newRow("one type, unchecked")
        << text(u"0002") << false
        << text(u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad "
                u"FROM CLIENTESTABLA WHERE TIPOCLIENTECODIGO='0002' ORDER BY CLINOMBRE");
    QTest::newRow("one type, checked")
        << text(u"0002") << true
        << text(u"SELECT CLICODIGO as Codigo, CLIDIRECCION as Domicilio, CliCodPostalLocali as "
                u"Localidad FROM CLIENTESTABLA WHERE TIPOCLIENTECODIGO='0002' ORDER BY CLIDIRECCION");
}

void KindsTest::clientListsAreToTheLetter()
{
    QFETCH(QString, type);
    QFETCH(bool, checked);
    QFETCH(QString, sql);
    Request request = requestOf(20, checked);
    request.clientType = type;

    QCOMPARE(lookup::fullList(request).sql, sql);
    QCOMPARE(text(lookup::fullList(request).caption), text(u"  Búsqueda de Clientes"));
}

void KindsTest::kindsWithoutAnEntryHaveNoList_data()
{
    QTest::addColumn<double>("kind");
    for (const double kind : {0.0, 1.0, 7.0, 12.0, 16.0, 22.0, 27.0, 30.0, 333.0, 444.0, 3.5, -1.0})
        QTest::addRow("kind %g", kind) << kind;
}

void KindsTest::kindsWithoutAnEntryHaveNoList()
{
    QFETCH(double, kind);

    QVERIFY(!lookup::hasFullList(kind));
    QVERIFY(lookup::fullList(requestOf(kind)).sql.isEmpty());
}

void KindsTest::onlyFourCharactersOfTheFamilyCount()
{
    Request request = requestOf(11);
    request.family = text(u"12");

    QVERIFY(lookup::fullList(request).sql.contains(u"FAMILIA = '12'"));
}

void KindsTest::choicesLeaveTheirIndex_data()
{
    QTest::addColumn<double>("kind");
    QTest::addColumn<QString>("index");
    QTest::newRow("kind 3") << 3.0 << text(u"CPNU");
    QTest::newRow("kind 9") << 9.0 << text(u"ZONASINDICE");
    QTest::newRow("kind 11") << 11.0 << text(u"ARTCODIGOINDICE");
    QTest::newRow("kind 15") << 15.0 << text(u"TIPOINDICE");
    QTest::newRow("kind 17") << 17.0 << text(u"REPINDICE");
    QTest::newRow("kind 20") << 20.0 << text(u"CLICODIGOINDICE");
    QTest::newRow("kind 5") << 5.0 << text(u"FABINDICE");
    QTest::newRow("kind 6") << 6.0 << text(u"DELNUN");
    QTest::newRow("kind 7") << 7.0 << text(u"ENTIDADINDICE");
    QTest::newRow("kind 10") << 10.0 << text(u"FAMIINDICE");
    QTest::newRow("kind 16") << 16.0 << text(u"CARCODIGOINDICE");
    QTest::newRow("kind 18") << 18.0 << text(u"IDICODIGOINDICE");
    QTest::newRow("kind 21") << 21.0 << text(u"PROVCODIGOINDICE");
    QTest::newRow("kind 22") << 22.0 << text(u"PresupuestoNumIndice");
    QTest::newRow("kind 23") << 23.0 << text(u"PROVCODIGOINDICE");
    QTest::newRow("kind 24") << 24.0 << text(u"ESCANINDICENUM");
    QTest::newRow("kind 25") << 25.0 << text(u"PedidosNumIndice");
    QTest::newRow("kind 26") << 26.0 << text(u"AlbaranesNumIndice");
    QTest::newRow("kind 27") << 27.0 << text(u"FACTURANumIndice");
    QTest::newRow("kind 28") << 28.0 << text(u"COMPRASPedidosNumIndice");
    QTest::newRow("kind 29") << 29.0 << text(u"COMPRASALBARANESNumIndice");
    QTest::newRow("kind 30") << 30.0 << text(u"COMPRASFACTURANumIndice");
    QTest::newRow("kind 31") << 31.0 << text(u"TIPOSGTSINDICE");
    QTest::newRow("kind 40") << 40.0 << text(u"INDcta");
    QTest::newRow("kind 41") << 41.0 << text(u"ECOMERCEFAMIINDICE");
    QTest::newRow("kind 333") << 333.0 << text(u"ACUCARTERAINDICERECIBO");
    QTest::newRow("kind 444") << 444.0 << text(u"REMESAINDICE");
    QTest::newRow("kind 1") << 1.0 << QString();
    QTest::newRow("kind 2") << 2.0 << QString();
    QTest::newRow("kind 4") << 4.0 << QString();
    QTest::newRow("kind 8") << 8.0 << QString();
}

void KindsTest::choicesLeaveTheirIndex()
{
    QFETCH(double, kind);
    QFETCH(QString, index);

    QVERIFY(lookup::choiceOf(kind) != nullptr);
    QCOMPARE(text(lookup::choiceOf(kind)->index), index);
}

void KindsTest::choicesThatDoNotReachTheCaller()
{
    QList<int> kinds;
    for (int kind = 0; kind < 500; ++kind) {
        const lookup::Choice* choice = lookup::choiceOf(kind);
        if (choice != nullptr && !choice->reachesCaller)
            kinds.append(kind);
    }

    QCOMPARE(kinds, (QList<int>{1, 3, 9, 40}));
}

void KindsTest::onlyKind444DoesNotClearFirst()
{
    QList<int> kinds;
    for (int kind = 0; kind < 500; ++kind) {
        const lookup::Choice* choice = lookup::choiceOf(kind);
        if (choice != nullptr && !choice->clearsFirst)
            kinds.append(kind);
    }

    QCOMPARE(kinds, QList<int>{444});
}

void KindsTest::kindsThatDoNotExistChooseNothing_data()
{
    QTest::addColumn<double>("kind");
    for (const double kind : {12.0, 13.0, 14.0, 19.0, 111.0, 0.0})
        QTest::addRow("kind %g", kind) << kind;
}

void KindsTest::kindsThatDoNotExistChooseNothing()
{
    QFETCH(double, kind);

    QVERIFY(lookup::choiceOf(kind) == nullptr);
}

void KindsTest::kindsInOrderOfNumber()
{
    QList<int> kinds;
    for (int kind = 0; kind < 500; ++kind) {
        if (lookup::ordersByNumber(kind))
            kinds.append(kind);
    }

    QCOMPARE(kinds, (QList<int>{22, 25, 26, 27, 28, 29, 30, 333}));
}

QTEST_GUILESS_MAIN(KindsTest)
#include "tst_kinds.moc"
