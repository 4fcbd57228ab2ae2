// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/system/clock.h"
#include "platform/window/flexgrid.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

namespace {

constexpr int kClients = 30;
constexpr int kConsultations = 40;

QString code(int client)
{
    return u"%1"_s.arg(client, 10, 10, QLatin1Char('0'));
}

QString telephone(int client)
{
    return u"91%1"_s.arg(client, 7, 10, QLatin1Char('0'));
}

} // namespace

/// One long session at the window, by keys and mouse alone; in the end the stores are compared row by row
/// with what the session must have left.
class WorkingDayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void clientsAreFoundByCodeLookupAndTelephone();
    void linesAreAddedChangedTickedAndDeleted();
    void consultationsAreOpenedAnsweredClosedAndReopened();
    void storesHoldWhatTheDayLeft();

private:
    void bring(int client);
    void changeLines(int client);
    [[nodiscard]] QTreeWidgetItem* node(int number) const;
    void clickNode(int number);
    void chooseState(const QString& state);

    std::unique_ptr<ClientFixture> f;
    QStringList m_clients;
    QStringList m_addresses;
    QStringList m_accounts;
    QStringList m_telephones;
    QStringList m_consultations;
};

void WorkingDayTest::initTestCase()
{
    f = std::make_unique<ClientFixture>();
    for (int client = 1; client <= kClients; ++client) {
        f->addClient(code(client), u"CLIENTE %1"_s.arg(client));
        f->addShipping(code(client), u"Almacén %1"_s.arg(client), u"1"_s);
        f->addShipping(code(client), u"Tienda %1"_s.arg(client), u"0"_s);
        f->addBank(code(client), u"1000%1"_s.arg(client, 6, 10, QLatin1Char('0')));
        f->addTelephone(code(client), telephone(client));
    }
    f->open();
}

void WorkingDayTest::cleanupTestCase()
{
    f.reset();
}

/// The three roads to a client, taken in turn.
void WorkingDayTest::bring(int client)
{
    switch (client % 3) {
    case 0:
        f->enterCode(QString::number(client));
        break;
    case 1:
        f->answerLookup(code(client));
        f->click(u"Picture3"_s);
        f->answerLookup(QString());
        break;
    default:
        f->type(u"Text14"_s, telephone(client));
        f->press(Qt::Key_Return);
        break;
    }
}

void WorkingDayTest::clientsAreFoundByCodeLookupAndTelephone()
{
    for (int client = 1; client <= kClients; ++client) {
        RESULTADOBUSQUEDA.clear();
        f->click(u"Text49"_s);
        bring(client);

        QCOMPARE(f->text(u"Text49"_s), code(client));
        QCOMPARE(f->text(u"Text51"_s), u"CLIENTE %1"_s.arg(client));
        QCOMPARE(f->cell(u"vsFlexGrid1"_s, 2, 0), u"Tienda %1"_s.arg(client));
        QCOMPARE(f->cell(u"vsFlexGrid1"_s, 3, 0), QString());
        QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), telephone(client));
    }
}

/// By the client's number: a line added, a cell changed, the tick moved, a line deleted. Every client gets a
/// telephone.
void WorkingDayTest::changeLines(int client)
{
    f->typeCell(u"vsFlexGrid4"_s, 2, 0, u"600%1"_s.arg(client));
    f->typeCell(u"vsFlexGrid4"_s, 2, 3, u"Taller"_s);
    switch (client % 4) {
    case 0:
        f->typeCell(u"vsFlexGrid1"_s, 3, 0, u"Nave %1"_s.arg(client));
        break;
    case 1:
        f->typeCell(u"vsFlexGrid2"_s, 1, 0, u"Banco %1"_s.arg(client));
        break;
    case 2:
        f->tickCell(u"vsFlexGrid1"_s, 2, 5);
        break;
    default:
        f->clickCell(u"vsFlexGrid1"_s, 1, 0);
        f->chooseInLineMenu(u"vsFlexGrid1"_s, 1, 0, u"eliminar"_s);
        break;
    }
}

void WorkingDayTest::linesAreAddedChangedTickedAndDeleted()
{
    for (int client = 1; client <= kClients; ++client) {
        RESULTADOBUSQUEDA.clear();
        f->click(u"Text49"_s);
        bring(client);
        f->type(u"Text8"_s, u"B%1"_s.arg(client));
        changeLines(client);
        if (client % 2 == 0)
            f->clickItem(u"GRABAR"_s);
        else
            f->click(u"Command2"_s);

        QCOMPARE(f->text(u"Text51"_s), QString());
        m_clients += u"%1|CLIENTE %2|B%2|1|1"_s.arg(code(client)).arg(client);
        m_telephones += u"%1|600%2||Taller"_s.arg(code(client)).arg(client);
        m_telephones += u"%1|%2||"_s.arg(code(client), telephone(client));
        const int kind = client % 4;
        if (kind != 3)
            m_addresses += u"%1|Almacén %2|%3"_s.arg(code(client)).arg(client).arg(kind == 2 ? 0 : 1);
        if (kind == 0)
            m_addresses += u"%1|Nave %2|0"_s.arg(code(client)).arg(client);
        m_addresses += u"%1|Tienda %2|%3"_s.arg(code(client)).arg(client).arg(kind == 2 ? 1 : 0);
        m_accounts += u"%1|%2|1000%3"_s.arg(code(client), kind == 1 ? u"Banco %1"_s.arg(client) : QString())
                          .arg(client, 6, 10, QLatin1Char('0'));
    }
}

/// The node of a consultation, by the number that its text begins with.
QTreeWidgetItem* WorkingDayTest::node(int number) const
{
    const QList<QTreeWidgetItem*> found =
        f->control<platform::TreeView>(u"TreeView1"_s)
            ->findItems(code(number), Qt::MatchStartsWith | Qt::MatchRecursive);
    return found.isEmpty() ? nullptr : found.first();
}

void WorkingDayTest::clickNode(int number)
{
    auto* tree = f->control<platform::TreeView>(u"TreeView1"_s);
    tree->expandAll();
    tree->scrollToItem(node(number));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(node(number)).center());
}

void WorkingDayTest::chooseState(const QString& state)
{
    f->grid(u"vsFlexGrid6"_s)->setTextMatrix(1, 5, state);
}

/// Consultation n is of client n modulo 30. Every other one is answered and closed, every fourth reopened
/// after that.
void WorkingDayTest::consultationsAreOpenedAnsweredClosedAndReopened()
{
    for (int number = 1; number <= kConsultations; ++number) {
        RESULTADOBUSQUEDA.clear();
        f->click(u"Text49"_s);
        bring((number - 1) % kClients + 1);
        QCOMPARE(f->text(u"Text10"_s), code(number));
        f->showPage(3);
        f->type(u"Text11"_s, u"Tema %1"_s.arg(number));
        f->type(u"Text12"_s, u"Pregunta %1"_s.arg(number));
        f->clock.advance(60);
        f->click(u"Command6"_s);
        QString end = platform::now().toString(u"hh:mm:ss"_s);
        const QString begin = platform::now().addSecs(-60).toString(u"hh:mm:ss"_s);
        QString answer;
        QString state = u"01 Abierta"_s;
        if (number % 2 == 0) {
            clickNode(number);
            QCOMPARE(f->text(u"Text11"_s), u"Tema %1"_s.arg(number));
            answer = u"Respuesta %1"_s.arg(number);
            f->type(u"Text13"_s, answer);
            state = u"02 Cerrada"_s;
            chooseState(state);
            f->clock.advance(300);
            f->click(u"Command6"_s);
            QCOMPARE(node(number)->parent()->text(0), u"Consultas Cerradas"_s);
        }
        if (number % 4 == 0) {
            clickNode(number);
            QCOMPARE(f->text(u"Text13"_s), answer);
            state = u"01 Abierta"_s;
            chooseState(state);
            f->click(u"Command6"_s);
            QCOMPARE(node(number)->parent()->text(0), u"Consultas Pendientes"_s);
        }
        if (number % 2 == 0)
            end = platform::now().toString(u"hh:mm:ss"_s);
        m_consultations += u"%1|%2|Tema %1|20/11/2026|%3|%4|Pregunta %1|%5|ana|%6|01 No"_s.arg(
            QString::number(number), code((number - 1) % kClients + 1), begin, end, answer, state);
    }
}

void WorkingDayTest::storesHoldWhatTheDayLeft()
{
    QCOMPARE(f->rows(BDCLIENTES,
                     u"SELECT CliCodigo, CliNombre, CliCif, AgruparAlbaranes, CliAplicarTasaPtoVerde FROM "
                     "ClientesTabla ORDER BY CliCodigo"_s),
             m_clients);
    QCOMPARE(f->rows(BDCLIENTES,
                     u"SELECT CLIENVICODIGO, CLIENVIDIRECCION, CLIENVIACTIVA FROM CLIDIRENVIOS ORDER BY "
                     "CLIENVICODIGO, CLIENVIDIRECCION"_s),
             m_addresses);
    QCOMPARE(f->rows(BDCLIENTES,
                     u"SELECT CLIBANCOSCODIGO, CLIBANCOSBANCO, CLIBANCOSCUENTA FROM CLIBANCOSDISP ORDER BY "
                     "CLIBANCOSCODIGO"_s),
             m_accounts);
    QCOMPARE(f->rows(BDTELEFONOS,
                     u"SELECT TELECODIGO, TELETELEFONO, TELEEXTENSION, TELECONTACTO FROM TELEFON ORDER BY "
                     "TELECODIGO, TELETELEFONO"_s),
             m_telephones);
    QCOMPARE(f->rows(BDASISTENCIAS,
                     u"SELECT ORDEN, CLICONSULTA, TEMA, FEINICIO, HOINICIO, HOFINAL, DESCRIPCION, "
                     "SOLUCION, TECNICO, ESTADO, conpublicable FROM CONS ORDER BY ORDEN"_s),
             m_consultations);
    QVERIFY(f->messages.isEmpty());
}

QTEST_MAIN(WorkingDayTest)
#include "tst_workingday.moc"
