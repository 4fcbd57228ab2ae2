// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/window/flexgrid.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class ClientLineSaveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->open();
    }
    void cleanup() { f.reset(); }

    void shippingLineTakesTheCodeAsTypedAndTheAddressTrimmed();
    void shippingLinesUnderACodeWithABlankAreNotFoundAgain();
    void shippingCellsGoIntoTheirColumns();
    void bankCellsGoIntoTheirColumns();
    void bankAccountThatIsNoNumberKeepsTheColumn();
    void telephoneCellsGoIntoTheirColumns();
    void telephoneIsStoredUnderTheTrimmedCompany();
    void lineWithAnEmptyKeyIsNotSaved();
    void changedKeyAddsARecordAndKeepsTheOldOne();
    void unchangedKeyChangesItsRecord();
    void commercialNameOfAnAddressIsNotTouched();
    void lastLineIsMergedTwiceWithTheSameResult();
    void surplusRecordOnTheLastLineIsMergedAgain();
    void savingDeletesNoLine();
    void lineThatTheStoreRefusesLeavesTheOthers();

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

void ClientLineSaveTest::shippingLineTakesTheCodeAsTypedAndTheAddressTrimmed()
{
    givenFields(u"C1 "_s, u"UNO"_s);
    givenLine(u"vsFlexGrid1"_s, 1, {u"  Mayor 3 "_s});

    f->window().EscribeCliente();

    QCOMPARE(shipping(), QStringList(u"C1 |Mayor 3"_s));
}

void ClientLineSaveTest::shippingLinesUnderACodeWithABlankAreNotFoundAgain()
{
    givenFields(u"C1 "_s, u"UNO"_s);
    givenLine(u"vsFlexGrid1"_s, 1, {u"Mayor"_s});
    f->window().EscribeCliente();
    f->window().limpiaclientes();

    f->enterCode(u"C1"_s);

    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), QString());
}

void ClientLineSaveTest::shippingCellsGoIntoTheirColumns()
{
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid1"_s, 1,
              {u"Mayor"_s, u" 28 "_s, u" Madrid "_s, u" Debidos"_s, u" Seur "_s, u"1"_s});
    givenLine(u"vsFlexGrid1"_s, 2, {u"Norte"_s});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT * FROM CLIDIRENVIOS ORDER BY CLIENVIDIRECCION"_s),
             QStringList({u"C1|Mayor| 28 | Madrid |Debidos| Seur |1|(null)"_s, u"C1|Norte|||||0|(null)"_s}));
}

void ClientLineSaveTest::bankCellsGoIntoTheirColumns()
{
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid2"_s, 1,
              {u" Banco"_s, u"0082"_s, u" 12"_s, u" 7"_s, u" 123 "_s, u"572,5"_s, u"1"_s});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT * FROM CLIBANCOSDISP"_s),
             QStringList(u"C1| Banco|0082| 12|7|123|572,5|1"_s));
}

void ClientLineSaveTest::bankAccountThatIsNoNumberKeepsTheColumn()
{
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid2"_s, 1, {u"Banco"_s, {}, {}, {}, u"123"_s, u"sin cuenta"_s});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES,
                     u"SELECT CLIBANCOSBANCO, CLIBANCOSCONTABLE, CLIBANCOSACTIVA FROM CLIBANCOSDISP"_s),
             QStringList(u"Banco|(null)|0"_s));
}

void ClientLineSaveTest::telephoneCellsGoIntoTheirColumns()
{
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid4"_s, 3, {u" 911 "_s, u" 12"_s, u"01 Voz"_s, u" Marta "_s});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDTELEFONOS, u"SELECT * FROM TELEFON"_s),
             QStringList(u"00012|C1|911| 12|01 Voz|Marta"_s));
}

void ClientLineSaveTest::telephoneIsStoredUnderTheTrimmedCompany()
{
    NUMEMPRESA = u"12   "_s;
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid4"_s, 1, {u"911"_s});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDTELEFONOS, u"SELECT TELECODIGOEMPRESA FROM TELEFON"_s), QStringList(u"12"_s));
}

void ClientLineSaveTest::lineWithAnEmptyKeyIsNotSaved()
{
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid1"_s, 1, {u"  "_s, u"28001"_s, u"Madrid"_s});
    givenLine(u"vsFlexGrid2"_s, 1, {u"Banco"_s, u"0082"_s});
    givenLine(u"vsFlexGrid4"_s, 1, {{}, u"12"_s});

    f->window().EscribeCliente();

    QCOMPARE(shipping(), QStringList());
    QCOMPARE(f->rows(BDCLIENTES, u"SELECT * FROM CLIBANCOSDISP"_s), QStringList());
    QCOMPARE(f->rows(BDTELEFONOS, u"SELECT * FROM TELEFON"_s), QStringList());
    QVERIFY(f->messages.isEmpty());
}

void ClientLineSaveTest::changedKeyAddsARecordAndKeepsTheOldOne()
{
    f->addClient(u"C1"_s);
    f->addShipping(u"C1"_s, u"Antigua"_s);
    f->enterCode(u"C1"_s);
    givenLine(u"vsFlexGrid1"_s, 1, {u"Nueva"_s});

    f->window().EscribeCliente();

    QCOMPARE(shipping(), QStringList({u"C1|Antigua"_s, u"C1|Nueva"_s}));
}

void ClientLineSaveTest::unchangedKeyChangesItsRecord()
{
    f->addClient(u"C1"_s);
    f->addBank(u"C1"_s, u"123"_s);
    f->enterCode(u"C1"_s);
    givenLine(u"vsFlexGrid2"_s, 1, {u"Otro banco"_s});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CLIBANCOSBANCO, CLIBANCOSCUENTA FROM CLIBANCOSDISP"_s),
             QStringList(u"Otro banco|123"_s));
}

void ClientLineSaveTest::commercialNameOfAnAddressIsNotTouched()
{
    f->addClient(u"C1"_s);
    f->add(BDCLIENTES, u"CLIDIRENVIOS"_s,
           {{u"CLIENVICODIGO", u"C1"_s},
            {u"CLIENVIDIRECCION", u"Mayor"_s},
            {u"CLIENVINOMCOMERCIAL", u"Tienda"_s}});
    f->enterCode(u"C1"_s);

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CLIENVINOMCOMERCIAL FROM CLIDIRENVIOS"_s),
             QStringList(u"Tienda"_s));
}

void ClientLineSaveTest::lastLineIsMergedTwiceWithTheSameResult()
{
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid1"_s, 14, {u"Última"_s, u"28001"_s});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CLIENVIDIRECCION, CLIENVICPOSTAL FROM CLIDIRENVIOS"_s),
             QStringList(u"Última|28001"_s));
}

void ClientLineSaveTest::surplusRecordOnTheLastLineIsMergedAgain()
{
    f->addClient(u"C1"_s);
    for (int number = 1; number <= 16; ++number)
        f->addShipping(u"C1"_s, u"Calle %1"_s.arg(number, 2, 10, QLatin1Char('0')), u"0"_s);
    f->enterCode(u"C1"_s);
    f->grid(u"vsFlexGrid1"_s)->setTextMatrix(14, 2, u"Madrid"_s);

    f->window().EscribeCliente();

    QCOMPARE(
        f->rows(BDCLIENTES, u"SELECT CLIENVIDIRECCION FROM CLIDIRENVIOS WHERE CLIENVILOCALIDAD='Madrid'"_s),
        QStringList(u"Calle 16"_s));
    QCOMPARE(shipping().size(), 16);
}

void ClientLineSaveTest::savingDeletesNoLine()
{
    f->addClient(u"C1"_s);
    f->addTelephone(u"C1"_s, u"911"_s);
    f->enterCode(u"C1"_s);
    f->grid(u"vsFlexGrid4"_s)->setRangeText({});

    f->window().EscribeCliente();

    QCOMPARE(f->rows(BDTELEFONOS, u"SELECT TELETELEFONO FROM TELEFON"_s), QStringList(u"911"_s));
}

void ClientLineSaveTest::lineThatTheStoreRefusesLeavesTheOthers()
{
    givenFields(u"C1"_s, u"UNO"_s);
    givenLine(u"vsFlexGrid1"_s, 1, {QString(36, u'x')}); // longer than its column: a key of Null is refused
    givenLine(u"vsFlexGrid1"_s, 2, {u"Mayor"_s});

    f->window().EscribeCliente();

    QCOMPARE(shipping(), QStringList(u"C1|Mayor"_s));
}

QTEST_MAIN(ClientLineSaveTest)
#include "tst_clientlinesave.moc"
