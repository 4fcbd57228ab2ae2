// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/window/flexgrid.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class ClientWriteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->open();
    }
    void cleanup() { f.reset(); }

    void everyFieldGoesIntoItsColumn();
    void columnsWithoutAFieldKeepWhatTheyHold();
    void bothTickColumnsBecomeOneWhateverTheyHeld();
    void anEmptyFieldWritesTheEmptyText();
    void fieldsGoAsTyped();
    void valueTooLongForItsColumnIsDroppedAlone();
    void accountThatIsNoNumberKeepsTheColumn_data();
    void accountThatIsNoNumberKeepsTheColumn();
    void emptyCodeWritesNoRecordAndStillHandsTheAccountOver();
    void blankCodeWritesNoRecord();
    void codeIsSoughtTrimmedAndWrittenAsTyped();
    void accountVariablesAreCutToTheirWidths();
    void savingTouchesNoTableOfPrices();
    void savingShowsNothing();

private:
    void givenFields(const QString& code, const QString& name)
    {
        f->box(u"Text49"_s)->setText(code);
        f->box(u"Text51"_s)->setText(name);
    }
    void givenLine(const QString& grid, int row, const QStringList& cells)
    {
        for (int col = 0; col < cells.size(); ++col)
            f->grid(grid)->setTextMatrix(row, col, cells.at(col));
    }
    QStringList clients(const QString& columns) const
    {
        return ClientFixture::rows(BDCLIENTES,
                                   u"SELECT "_s + columns + u" FROM ClientesTabla ORDER BY CliCodigo"_s);
    }
    QStringList shipping() const
    {
        return ClientFixture::rows(BDCLIENTES,
                                   u"SELECT CLIENVICODIGO, CLIENVIDIRECCION FROM CLIDIRENVIOS ORDER BY "
                                   "CLIENVIDIRECCION"_s);
    }

    std::optional<ClientFixture> f;
};

void ClientWriteTest::everyFieldGoesIntoItsColumn()
{
    const QStringList fields{u"Text51"_s, u"Text8"_s,  u"Text4"_s,  u"Text5"_s,  u"Text6"_s,
                             u"Text1"_s,  u"Text2"_s,  u"Text7"_s,  u"Text20"_s, u"Text3"_s,
                             u"Text21"_s, u"Text25"_s, u"Text27"_s, u"Text26"_s, u"Text40"_s};
    givenFields(u"0000000005"_s, {});
    for (int i = 0; i < fields.size(); ++i)
        f->box(fields.at(i))->setText(u"v%1"_s.arg(i));
    f->box(u"Text9"_s)->setText(u"4305"_s);
    f->type(u"Text60"_s, u"nota"_s);

    f->window().EscribeCliente();

    QCOMPARE(
        clients(u"CliCodigo, CliNombre, CliCif, CliPGC, CliDireccion, CliCodPostal, CliCodPostalLocali, "
                "CliCodPostalProvin, CliCodPostalPais, CliEMail, RepresentanteCodigo, RepresentanteDesc, "
                "ZonaCodigo, ZonaDesc, TipoClienteCodigo, TipoClienteDesc, CliNomComercial, Notas"_s),
        QStringList(u"0000000005|v0|v1|4305|v2|v3|v4|v5|v6|v7|v8|v9|v10|v11|v12|v13|v14|nota"_s));
}

void ClientWriteTest::columnsWithoutAFieldKeepWhatTheyHold()
{
    f->add(BDCLIENTES, u"ClientesTabla"_s,
           {{u"CliCodigo", u"C1"_s},
            {u"DescuentoComercial1", 5.5},
            {u"CliFormaPagoCodigo", u"CONT"_s},
            {u"PolizaCreditoNum", u"P-1"_s},
            {u"AvisosPedido", u"avisar"_s},
            {u"CLITARIFA", u"2"_s}});
    givenFields(u"C1"_s, u"UNO"_s);

    f->window().EscribeCliente();

    QCOMPARE(
        clients(
            u"CliNombre, DescuentoComercial1, CliFormaPagoCodigo, PolizaCreditoNum, AvisosPedido, CLITARIFA, "
            "CliFax"_s),
        QStringList(u"UNO|5,5|CONT|P-1|avisar|2|(null)"_s));
}

void ClientWriteTest::bothTickColumnsBecomeOneWhateverTheyHeld()
{
    f->add(BDCLIENTES, u"ClientesTabla"_s,
           {{u"CliCodigo", u"C1"_s}, {u"AgruparAlbaranes", u"0"_s}, {u"CliAplicarTasaPtoVerde", u"0"_s}});
    givenFields(u"C1"_s, {});

    f->window().EscribeCliente();

    QCOMPARE(clients(u"AgruparAlbaranes, CliAplicarTasaPtoVerde"_s), QStringList(u"1|1"_s));
}

void ClientWriteTest::anEmptyFieldWritesTheEmptyText()
{
    f->add(BDCLIENTES, u"ClientesTabla"_s, {{u"CliCodigo", u"C1"_s}, {u"CliEMail", u"a@b.es"_s}});
    givenFields(u"C1"_s, u"UNO"_s);

    f->window().EscribeCliente();

    QCOMPARE(clients(u"CliEMail, CliCif"_s), QStringList(u"|"_s));
}

void ClientWriteTest::fieldsGoAsTyped()
{
    givenFields(u"C1"_s, u"  UNO  "_s);

    f->window().EscribeCliente();

    QCOMPARE(clients(u"CliNombre"_s), QStringList(u"  UNO  "_s));
}

void ClientWriteTest::valueTooLongForItsColumnIsDroppedAlone()
{
    f->addClient(u"C1"_s, u"ANTES"_s);
    givenFields(u"C1"_s, QString(40, u'N')); // the field takes 50, the column 35
    f->box(u"Text8"_s)->setText(u"B1"_s);

    f->window().EscribeCliente();

    QCOMPARE(clients(u"CliNombre, CliCif"_s), QStringList(u"ANTES|B1"_s));
}

void ClientWriteTest::accountThatIsNoNumberKeepsTheColumn_data()
{
    QTest::addColumn<QString>("typed");

    QTest::newRow("empty") << u""_s;
    QTest::newRow("letters") << u"CUENTA"_s;
}

void ClientWriteTest::accountThatIsNoNumberKeepsTheColumn()
{
    QFETCH(const QString, typed);
    f->add(BDCLIENTES, u"ClientesTabla"_s, {{u"CliCodigo", u"C1"_s}, {u"CliPGC", 43001.0}});
    givenFields(u"C1"_s, u"UNO"_s);
    f->box(u"Text9"_s)->setText(typed);

    f->window().EscribeCliente();

    QCOMPARE(clients(u"CliNombre, CliPGC"_s), QStringList(u"UNO|43001"_s));
}

void ClientWriteTest::emptyCodeWritesNoRecordAndStillHandsTheAccountOver()
{
    givenFields({}, u"A, B, C"_s);
    f->box(u"Text9"_s)->setText(u"430"_s);
    givenLine(u"vsFlexGrid1"_s, 1, {u"Mayor"_s});
    givenLine(u"vsFlexGrid4"_s, 1, {u"911"_s});

    f->window().EscribeCliente();

    QCOMPARE(clients(u"CliCodigo"_s), QStringList());
    QCOMPARE(shipping(), QStringList());
    QCOMPARE(f->rows(BDTELEFONOS, u"SELECT * FROM TELEFON"_s), QStringList());
    QCOMPARE(CUENTANOMBRE, u"A  B, C"_s);
    QCOMPARE(CUENTACODIGO, u"430"_s);
}

void ClientWriteTest::blankCodeWritesNoRecord()
{
    givenFields(u"   "_s, u"UNO"_s);

    f->window().EscribeCliente();

    QCOMPARE(clients(u"CliCodigo"_s), QStringList());
}

void ClientWriteTest::codeIsSoughtTrimmedAndWrittenAsTyped()
{
    f->addClient(u"C1"_s, u"ANTES"_s);
    givenFields(u"C1 "_s, u"DESPUÉS"_s);

    f->window().EscribeCliente();

    QCOMPARE(clients(u"CliCodigo, CliNombre"_s), QStringList(u"C1 |DESPUÉS"_s));
}

void ClientWriteTest::accountVariablesAreCutToTheirWidths()
{
    givenFields(u"C1"_s, QString(50, u'n'));
    f->box(u"Text4"_s)->setText(QString(35, u'd'));
    f->box(u"Text5"_s)->setText(u"28001"_s);
    f->box(u"Text6"_s)->setText(QString(35, u'l'));
    f->box(u"Text8"_s)->setText(u"B12345678901"_s);
    f->box(u"Text9"_s)->setText(u" 4301 "_s);

    f->window().EscribeCliente();

    QCOMPARE(CUENTACODIGO, u" 4301 "_s);
    QCOMPARE(CUENTANOMBRE, QString(35, u'n'));
    QCOMPARE(CUENTADIRECCION, QString(35, u'd'));
    QCOMPARE(CUENTACPOSTAL, u"28001"_s);
    QCOMPARE(CUENTALOCALIDAD, QString(35, u'l'));
    QCOMPARE(CUENTANIF, u"B123456789"_s);
    QCOMPARE(CUENTATELEFONO, QString());
    QCOMPARE(CUENTAFAX, QString());
}

void ClientWriteTest::savingTouchesNoTableOfPrices()
{
    f->add(BDCLIENTES, u"TarifasCliente"_s, {{u"TariCodCliente", u"C1"_s}, {u"TariCodArticul", u"A"_s}});
    givenFields(u"C1"_s, u"UNO"_s);

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT TariCodCliente, TariCodArticul FROM TarifasCliente"_s),
             QStringList(u"C1|A"_s));
}

void ClientWriteTest::savingShowsNothing()
{
    givenFields(u"C1"_s, QString(50, u'n'));
    f->box(u"Text9"_s)->setText(u"no"_s);

    f->window().EscribeCliente();

    QVERIFY(f->messages.isEmpty());
}

QTEST_MAIN(ClientWriteTest)
#include "tst_clientwrite.moc"
