// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/window/combolist.h"
#include "platform/window/flexgrid.h"
#include "platform/window/multilinebox.h"
#include "platform/window/textbox.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"
#include "support/failingcalls.h"

#include <QMap>

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;
using testsupport::FailingCalls;

/// What the window or the stores hold, part by part: a step that fails may spoil its own part and no other.
using Parts = QMap<QString, QStringList>;

/// Makes every step of the window's procedures fail in turn and checks that the rest is done.
class ClientSkippingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { f.reset(); }

    void readLosesNoMoreThanThePartOfTheFailingStep();
    void readWithEveryStepFailingStillRebuildsTheArticleList();
    void columnThatFailsLosesItsFieldAlone_data();
    void columnThatFailsLosesItsFieldAlone();
    void savingANewClientLosesNoMoreThanThePartOfTheFailingStep();
    void savingAKnownClientLosesNoMoreThanThePartOfTheFailingStep();
    void savingWithEveryStepFailingStillHandsTheAccountOver();
    void emptyingWithEveryStepFailingStillEmpties();
    void nextCodeWithEveryStepFailingIsStillProposed();
    void loadersWithEveryStepFailingEmptyTheDescription();
    void deletionWithAFailingStepEmptiesTheRowOrLeavesItWhole();
    void everyProcedureEndsOverStoresThatAreClosed();
    void everyProcedureEndsOverStoresThatNeverOpened();

private:
    Parts windowParts() const;
    Parts storedParts(const QString& code) const;
    void fillWindow(const QString& code, const QString& mark);
    static int differing(const Parts& one, const Parts& other);

    std::optional<ClientFixture> f;
};

void ClientSkippingTest::init()
{
    f.emplace();
    f->addClient(u"C1"_s, u"UNO"_s);
    f->addShipping(u"C1"_s, u"Mayor"_s, u"1"_s);
    f->addShipping(u"C1"_s, u"Norte"_s, u"0"_s);
    f->addBank(u"C1"_s, u"111"_s);
    f->addTelephone(u"C1"_s, u"911"_s);
    f->addTelephone(u"C1"_s, u"912"_s);
    f->addConcept(u"C1"_s, u"ART1"_s, 1, u"Contrato"_s);
    f->addConsultation(1, u"C1"_s, u"tema"_s);
    f->open();
}

Parts ClientSkippingTest::windowParts() const
{
    Parts parts;
    for (const QString& name : {u"Text49"_s, u"Text51"_s, u"Text8"_s, u"Text60"_s})
        parts[u"fields"_s] += f->text(name);
    for (const QString& name : {u"vsFlexGrid1"_s, u"vsFlexGrid2"_s, u"vsFlexGrid4"_s, u"vsFlexGrid6"_s}) {
        for (int row = 1; row < f->grid(name)->rows(); ++row)
            parts[name] += f->line(name, row).join(u'|');
    }
    for (int row = 1; row < 50; ++row)
        parts[u"vsFlexGrid3"_s] += f->line(u"vsFlexGrid3"_s, row).join(u'|');
    parts[u"number"_s] += f->text(u"Text10"_s);
    const QList<QTreeWidgetItem*> nodes =
        f->control<platform::TreeView>(u"TreeView1"_s)->findItems({}, Qt::MatchContains | Qt::MatchRecursive);
    for (const QTreeWidgetItem* node : nodes)
        parts[u"tree"_s] += node->text(0);
    return parts;
}

Parts ClientSkippingTest::storedParts(const QString& code) const
{
    const auto rows = [&code](const platform::dao::Database& store, const QString& sql) {
        QStringList found = ClientFixture::rows(store, sql.arg(code));
        for (QString& row : found)
            row.replace(code, u"<code>"_s);
        return found;
    };
    Parts parts;
    parts[u"client"_s] =
        rows(BDCLIENTES,
             u"SELECT CliCodigo, CliNombre, CliCif, Notas, AgruparAlbaranes, CliAplicarTasaPtoVerde FROM "
             "ClientesTabla WHERE CliCodigo='%1'"_s);
    parts[u"shipping"_s] =
        rows(BDCLIENTES, u"SELECT * FROM CLIDIRENVIOS WHERE CLIENVICODIGO='%1' ORDER BY CLIENVIDIRECCION"_s);
    parts[u"banks"_s] = rows(
        BDCLIENTES, u"SELECT * FROM CLIBANCOSDISP WHERE CLIBANCOSCODIGO='%1' ORDER BY CLIBANCOSCUENTA"_s);
    parts[u"telephones"_s] =
        rows(BDTELEFONOS, u"SELECT * FROM TELEFON WHERE TELECODIGO='%1' ORDER BY TELETELEFONO"_s);
    return parts;
}

void ClientSkippingTest::fillWindow(const QString& code, const QString& mark)
{
    const auto cells = [this](const QString& grid, int row, const QStringList& texts) {
        for (int col = 0; col < texts.size(); ++col)
            f->grid(grid)->setTextMatrix(row, col, texts.at(col));
    };
    f->box(u"Text49"_s)->setText(code);
    f->box(u"Text51"_s)->setText(u"NOMBRE"_s + mark);
    f->box(u"Text8"_s)->setText(u"CIF"_s + mark);
    f->control<platform::MultiLineBox>(u"Text60"_s)->setText(u"nota"_s + mark);
    cells(u"vsFlexGrid1"_s, 1, {u"Mayor"_s, u"28"_s, u"Madrid"_s + mark, u"Debidos"_s, u"Seur"_s, u"1"_s});
    cells(u"vsFlexGrid1"_s, 2, {u"Norte"_s, u"29"_s, u"Getafe"_s + mark, u"Pagados"_s, u"MRW"_s, u"0"_s});
    cells(u"vsFlexGrid2"_s, 1, {u"Banco"_s + mark, u"0082"_s, u"12"_s, u"07"_s, u"111"_s, u"572"_s, u"1"_s});
    cells(u"vsFlexGrid3"_s, 1, {u"ART1"_s, u"Contrato"_s});
    cells(u"vsFlexGrid4"_s, 1, {u"911"_s, u"12"_s, u"01 Voz"_s, u"Marta"_s + mark});
}

int ClientSkippingTest::differing(const Parts& one, const Parts& other)
{
    int count = 0;
    for (auto part = one.cbegin(); part != one.cend(); ++part)
        count += part.value() != other.value(part.key());
    return count;
}

void ClientSkippingTest::readLosesNoMoreThanThePartOfTheFailingStep()
{
    constexpr int kHeadTest = 3; // Index, Seek, NoMatch: the failing test counts as "not found"
    f->box(u"Text49"_s)->setText(u"C1"_s);
    FailingCalls calls;
    f->window().LeerClientes();
    const int count = calls.count();
    const Parts full = windowParts();
    QVERIFY(count > 100);

    for (int n = 1; n <= count; ++n) {
        calls.restart();
        f->window().limpiaclientes();
        f->box(u"Text49"_s)->setText(u"C1"_s);
        calls.failNth(n);
        f->window().LeerClientes();

        const QByteArray step = QByteArray::number(n);
        if (n == kHeadTest)
            QCOMPARE(f->text(u"Text51"_s), QString());
        else
            QVERIFY2(differing(full, windowParts()) <= 1, step.constData());
        const QString article = f->cell(u"vsFlexGrid3"_s, 1, 0);
        QVERIFY2(f->control<platform::ComboList>(u"Combo3"_s)->listCount() == (article.isEmpty() ? 0 : 1),
                 step.constData());
    }
    QVERIFY(f->messages.isEmpty());
}

void ClientSkippingTest::readWithEveryStepFailingStillRebuildsTheArticleList()
{
    f->grid(u"vsFlexGrid3"_s)->setTextMatrix(1, 0, u"ART1"_s);
    f->box(u"Text49"_s)->setText(u"C1"_s);
    FailingCalls calls;
    calls.failAll();

    f->window().LeerClientes();

    QCOMPARE(f->control<platform::ComboList>(u"Combo3"_s)->listCount(), 1);
    QVERIFY(f->messages.isEmpty());
}

void ClientSkippingTest::columnThatFailsLosesItsFieldAlone_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("part");

    QTest::newRow("name") << u"CliNombre"_s << u"fields"_s;
    QTest::newRow("address of a line") << u"CLIENVIDIRECCION"_s << u"vsFlexGrid1"_s;
    QTest::newRow("code of a bank line") << u"CLIBANCOSENTIDAD"_s << u""_s; // Null all the same
    QTest::newRow("account") << u"CLIBANCOSCUENTA"_s << u"vsFlexGrid2"_s;
    QTest::newRow("telephone") << u"TELETELEFONO"_s << u"vsFlexGrid4"_s;
    QTest::newRow("number of a consultation") << u"ORDEN"_s << u"tree"_s;
}

void ClientSkippingTest::columnThatFailsLosesItsFieldAlone()
{
    QFETCH(const QString, column);
    QFETCH(const QString, part);
    f->box(u"Text49"_s)->setText(u"C1"_s);
    f->window().LeerClientes();
    Parts full = windowParts();
    f->window().limpiaclientes();
    f->box(u"Text49"_s)->setText(u"C1"_s);
    FailingCalls calls;
    calls.failColumn(column);

    f->window().LeerClientes();

    Parts read = windowParts();
    if (!part.isEmpty())
        QVERIFY(full.value(part) != read.value(part));
    full.remove(part);
    read.remove(part);
    QCOMPARE(read, full);
}

void ClientSkippingTest::savingANewClientLosesNoMoreThanThePartOfTheFailingStep()
{
    FailingCalls calls;
    fillWindow(u"N000"_s, u"-1"_s);
    calls.restart();
    f->window().EscribeCliente();
    const int count = calls.count();
    const Parts full = storedParts(u"N000"_s);
    QVERIFY(count > 100);

    for (int n = 1; n <= count; ++n) {
        const QString code = u"N%1"_s.arg(n, 3, 10, QLatin1Char('0'));
        fillWindow(code, u"-1"_s);
        CUENTANOMBRE.clear();
        calls.failNth(n);
        f->window().EscribeCliente();

        calls.restart();
        QVERIFY2(differing(full, storedParts(code)) <= 1, qPrintable(code));
        QCOMPARE(CUENTANOMBRE, u"NOMBRE-1"_s);
    }
    QVERIFY(f->messages.isEmpty());
}

void ClientSkippingTest::savingAKnownClientLosesNoMoreThanThePartOfTheFailingStep()
{
    FailingCalls calls;
    fillWindow(u"K000"_s, u"-1"_s);
    f->window().EscribeCliente();
    fillWindow(u"K000"_s, u"-2"_s);
    calls.restart();
    f->window().EscribeCliente();
    const int count = calls.count();
    const Parts full = storedParts(u"K000"_s);

    for (int n = 1; n <= count; ++n) {
        const QString code = u"K%1"_s.arg(n, 3, 10, QLatin1Char('0'));
        calls.restart();
        fillWindow(code, u"-1"_s);
        f->window().EscribeCliente();
        fillWindow(code, u"-2"_s);
        calls.failNth(n);
        f->window().EscribeCliente();

        calls.restart();
        QVERIFY2(differing(full, storedParts(code)) <= 1, qPrintable(code));
        QCOMPARE(CUENTANOMBRE, u"NOMBRE-2"_s);
    }
    QVERIFY(f->messages.isEmpty());
}

void ClientSkippingTest::savingWithEveryStepFailingStillHandsTheAccountOver()
{
    fillWindow(u"N1"_s, u", S.L."_s);
    f->box(u"Text9"_s)->setText(u"430"_s);
    FailingCalls calls;
    calls.failAll();

    f->window().EscribeCliente();

    QCOMPARE(CUENTACODIGO, u"430"_s);
    QCOMPARE(CUENTANOMBRE, u"NOMBRE  S.L."_s);
}

void ClientSkippingTest::emptyingWithEveryStepFailingStillEmpties()
{
    fillWindow(u"N1"_s, u"-1"_s);
    FailingCalls calls;
    calls.failAll();

    f->window().limpiaclientes();

    QCOMPARE(f->text(u"Text49"_s) + f->text(u"Text51"_s) + f->text(u"Text60"_s), QString());
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), QString());
    QCOMPARE(f->focused(), u"Text49"_s);
    QCOMPARE(f->text(u"Text10"_s), u"1"_s); // the failing test of the empty table counts as passed
}

void ClientSkippingTest::nextCodeWithEveryStepFailingIsStillProposed()
{
    FailingCalls calls;
    calls.failAll();

    f->window().proximocliente();

    QCOMPARE(f->text(u"Text49"_s), u"0000000000"_s);
    QCOMPARE(f->focused(), u"Text51"_s);
}

void ClientSkippingTest::loadersWithEveryStepFailingEmptyTheDescription()
{
    for (const QString& name : {u"Text3"_s, u"Text25"_s, u"Text26"_s})
        f->box(name)->setText(u"left over"_s);
    FailingCalls calls;
    calls.failAll();

    f->window().LEERREPRESENTANTES();
    f->window().LEERZONAS();
    f->window().LEERTIPCLIENTES();

    for (const QString& name : {u"Text3"_s, u"Text25"_s, u"Text26"_s})
        QCOMPARE(f->text(name), QString());
}

void ClientSkippingTest::deletionWithAFailingStepEmptiesTheRowOrLeavesItWhole()
{
    FailingCalls calls;
    for (int n = 1; n <= 4; ++n) { // Index, Seek, NoMatch, Delete
        calls.restart();
        f->enterCode(u"C1"_s);
        f->grid(u"vsFlexGrid1"_s)->setRow(1);
        const QStringList whole = f->line(u"vsFlexGrid1"_s, 1);
        calls.failNth(n);
        f->window().borraunalinea();

        calls.restart();
        const QStringList line = f->line(u"vsFlexGrid1"_s, 1);
        QVERIFY2(line == whole || line.join(QString()).isEmpty(), QByteArray::number(n).constData());
        if (f->rows(BDCLIENTES, u"SELECT * FROM CLIDIRENVIOS WHERE CLIENVIDIRECCION='Mayor'"_s).isEmpty())
            f->addShipping(u"C1"_s, u"Mayor"_s, u"1"_s);
        f->window().limpiaclientes();
    }
    QVERIFY(f->messages.isEmpty());
}

void ClientSkippingTest::everyProcedureEndsOverStoresThatAreClosed()
{
    for (platform::dao::Database* store : {&BDCLIENTES, &BDTELEFONOS, &BDASISTENCIAS, &BDZONAS, &BDTIPOS})
        store->Close();
    fillWindow(u"N1"_s, u"-1"_s);

    f->window().EscribeCliente();
    f->window().LeerClientes();
    f->window().BORRAUNALINEATELEFON();
    f->window().BORRAUNALINEACYC();
    f->clickItem(u"NUEVA"_s);

    QVERIFY(f->messages.isEmpty());
    QCOMPARE(f->focused(), u"Text51"_s);
}

void ClientSkippingTest::everyProcedureEndsOverStoresThatNeverOpened()
{
    resetProgramState();
    NUMEMPRESA = u"00000"_s;
    fillWindow(u"N1"_s, u"-1"_s);

    f->window().EscribeCliente();
    f->window().LeerClientes();
    f->window().borraunalinea();
    f->window().BORRAUNALINEABANCOS();
    f->clickItem(u"NUEVA"_s);
    f->click(u"Command6"_s);

    QVERIFY(f->messages.isEmpty());
}

QTEST_MAIN(ClientSkippingTest)
#include "tst_clientskipping.moc"
