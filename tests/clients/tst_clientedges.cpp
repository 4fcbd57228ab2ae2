// SPDX-License-Identifier: GPL-3.0-or-later

// What the client window says and takes, field by field, and two stations over one client.

#include "clients/clientfixture.h"

#include "clients/elplan.h"
#include "platform/window/listbar.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"
#include "support/failingcalls.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class ClientEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->open();
    }
    void cleanup() { f.reset(); }

    void fieldTakesNoMoreThanItsLimit_data();
    void fieldTakesNoMoreThanItsLimit();
    void fieldBearsItsLabel_data();
    void fieldBearsItsLabel();
    void panelsBearTheirCaptions();
    void gridsTellHowALineIsDeleted();
    void tabWalksTheFieldsInTheirOrder();
    void sideBarHasItsFourItems();
    void codeIsReadTrimmed();
    void emptyingEmptiesEveryField();
    void deleteAndListAskForNoReport();
    void secondSaveOverwritesTheFirst();
    void saveOfAnotherStationStandsInTheColumnsWithoutAField();
    void handingTheAccountOverTouchesNoStore();

private:
    static QString stored(const QString& columns)
    {
        return ClientFixture::rows(BDCLIENTES, u"SELECT "_s + columns + u" FROM ClientesTabla"_s).value(0);
    }
    /// What another station's save does to the one client.
    static void saveElsewhere(const QString& column, const QString& value)
    {
        using namespace platform::dao;
        Database store = DBEngine().Workspaces(0).OpenDatabase(RUTAEMPRESA + u"Clientes.mdb"_s);
        Recordset rows = store.OpenRecordset(u"ClientesTabla"_s, dbOpenTable);
        rows.Edit();
        rows[column].setValue(value);
        rows.Update();
        store.Close();
    }

    std::optional<ClientFixture> f;
};

namespace {

/// Fields of one line in the order of the tab key.
const QStringList kFields{u"Text49"_s, u"Text51"_s, u"Text8"_s,  u"Text9"_s,  u"Text4"_s,  u"Text5"_s,
                          u"Text6"_s,  u"Text1"_s,  u"Text2"_s,  u"Text7"_s,  u"Text40"_s, u"Text20"_s,
                          u"Text3"_s,  u"Text21"_s, u"Text25"_s, u"Text27"_s, u"Text26"_s};

} // namespace

void ClientEdgesTest::fieldTakesNoMoreThanItsLimit_data()
{
    QTest::addColumn<int>("limit");

    const QList<int> limits{10, 50, 12, 15, 35, 5, 35, 35, 35, 50, 50, 4, 50, 10, 50, 4, 50};
    for (int i = 0; i < kFields.size(); ++i)
        QTest::newRow(qPrintable(kFields.at(i))) << limits.at(i);
    QTest::newRow("Text14") << 10;
}

void ClientEdgesTest::fieldTakesNoMoreThanItsLimit()
{
    QFETCH(int, limit);
    platform::TextBox* box = f->box(QString::fromLatin1(QTest::currentDataTag()));
    box->clear();

    QTest::keyClicks(box, QString(limit + 1, u'x'));

    QCOMPARE(box->text(), QString(limit, u'x'));
}

void ClientEdgesTest::fieldBearsItsLabel_data()
{
    QTest::addColumn<QString>("label");

    QTest::newRow("Text49") << u"Código"_s;
    QTest::newRow("Text51") << u"Nombre"_s;
    QTest::newRow("Text14") << u"Telef.:"_s;
    QTest::newRow("Text8") << u"Cif:"_s;
    QTest::newRow("Text9") << u"Cta. Contable"_s;
    QTest::newRow("Text4") << u"Dirección:"_s;
    QTest::newRow("Text5") << u"Código Postal:"_s;
    QTest::newRow("Text1") << u"Provincia"_s;
    QTest::newRow("Text2") << u"Pais"_s;
    QTest::newRow("Text7") << u"E-mail:"_s;
    QTest::newRow("Text40") << u"Nom. Comer."_s;
    QTest::newRow("Text20") << u"Representante:"_s;
    QTest::newRow("Text21") << u"Zona:"_s;
    QTest::newRow("Text27") << u"Tipo de Cliente:"_s;
    QTest::newRow("Text33") << u"Orden Geográfico:"_s;
}

void ClientEdgesTest::fieldBearsItsLabel()
{
    const QWidget* field = f->box(QString::fromLatin1(QTest::currentDataTag()));
    QString text;
    for (const QLabel* label : f->window().findChildren<QLabel*>()) {
        if (label->buddy() == field)
            text = label->text();
    }

    QTEST(text, "label");
}

void ClientEdgesTest::panelsBearTheirCaptions()
{
    QStringList captions;
    for (const QString& name : {u"panelEnvios"_s, u"panelDomiciliaciones"_s, u"panelNotas"_s})
        captions += f->control<QGroupBox>(name)->title();

    QCOMPARE(captions, QStringList({u"  Direcciones de envío:"_s, u"  Domiciliaciones"_s, u"   Notas"_s}));
}

void ClientEdgesTest::gridsTellHowALineIsDeleted()
{
    QCOMPARE(f->control<QWidget>(u"vsFlexGrid4"_s)->toolTip(),
             u"Para borrar una línea,  haga click con el botón derecho del ratón y seleccione la opción de "
             "eliminar"_s);
    QCOMPARE(f->control<QWidget>(u"vsFlexGrid1"_s)->toolTip(),
             u"Para eliminar una línea haga click en esta con el botón derecho del ratón"_s);
}

void ClientEdgesTest::tabWalksTheFieldsInTheirOrder()
{
    f->type(u"Text49"_s, u"A1"_s); // without a code the name sends the focus back

    QStringList visited{f->focused()};
    while (visited.size() < kFields.size()) {
        f->press(Qt::Key_Tab);
        visited += f->focused();
    }

    QCOMPARE(visited, kFields);
}

void ClientEdgesTest::sideBarHasItsFourItems()
{
    const auto* bar = f->control<platform::ListBar>(u"SSListBar1"_s);
    QStringList captions;
    for (const QAbstractButton* item : bar->findChildren<QAbstractButton*>())
        captions += item->text();

    QCOMPARE(bar->keys(), QStringList({u"NUEVA"_s, u"GRABAR"_s, u"CORREO"_s, u"SALIR"_s}));
    QCOMPARE(captions, QStringList({u"&Nuevo"_s, u"&Grabar"_s, u"Correo"_s, u"&Salir"_s}));
}

void ClientEdgesTest::codeIsReadTrimmed()
{
    f->addClient(u"A1"_s, u"UNO"_s);
    f->box(u"Text49"_s)->setText(u" A1 "_s);

    f->window().LeerClientes();

    QCOMPARE(f->text(u"Text49"_s), u"A1"_s);
    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
}

void ClientEdgesTest::emptyingEmptiesEveryField()
{
    for (const QString& name : kFields)
        f->box(name)->setText(u"9"_s);
    f->type(u"Text60"_s, u"nota"_s);

    f->window().limpiaclientes();

    for (const QString& name : kFields)
        QCOMPARE(f->text(name), QString());
    QCOMPARE(f->text(u"Text60"_s), QString());
}

void ClientEdgesTest::deleteAndListAskForNoReport()
{
    for (QString* variable : {&TITULOINFORME, &FICHEROINFORME, &BASEINFORME})
        *variable = u"before"_s;

    f->click(u"Command3"_s);
    f->click(u"Command4"_s);

    for (const QString& variable : {TITULOINFORME, FICHEROINFORME, BASEINFORME})
        QCOMPARE(variable, u"before"_s);
}

void ClientEdgesTest::secondSaveOverwritesTheFirst()
{
    f->addClient(u"A1"_s, u"ANTES"_s);
    f->enterCode(u"A1"_s);
    saveElsewhere(u"CliNombre"_s, u"LA OTRA"_s);
    f->type(u"Text8"_s, u"B12"_s);

    f->click(u"Command2"_s);

    QCOMPARE(stored(u"CliNombre, CliCif"_s), u"ANTES|B12"_s);
    QVERIFY(f->messages.isEmpty());
}

void ClientEdgesTest::saveOfAnotherStationStandsInTheColumnsWithoutAField()
{
    f->addClient(u"A1"_s, u"ANTES"_s);
    f->enterCode(u"A1"_s);
    saveElsewhere(u"CliFormaPagoCodigo"_s, u"CONT"_s);

    f->click(u"Command2"_s);

    QCOMPARE(stored(u"CliNombre, CliFormaPagoCodigo"_s), u"ANTES|CONT"_s);
}

void ClientEdgesTest::handingTheAccountOverTouchesNoStore()
{
    f->addClient(u"A1"_s, u"UNO"_s);
    CUENTACODIGO = u"430123"_s;
    CUENTANOMBRE = u"UNO"_s;
    const testsupport::FailingCalls calls;

    ESCRIBIRCUENTA();

    // Calls on the routine's own tables, which nothing binds, aren't counted.
    QCOMPARE(calls.count(), 0);
}

QTEST_MAIN(ClientEdgesTest)
#include "tst_clientedges.moc"
