// SPDX-License-Identifier: GPL-3.0-or-later

// Texts typed to break a query, in every place where the program puts a text of the user's into one: whatever
// they say, they select rows of their own table or fail as a query, and no store changes by a byte.

#include "lookup/hostiletexts.h"
#include "platform/core/failurenumbers.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/storefixture.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/tempdataroot.h"

#include <QSet>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::dao::Database;
using platform::dao::Recordset;

namespace {

constexpr int kTexts = 10'000;
constexpr int kRowsEach = 20;

/// A query with a place for what the user typed.
struct Place
{
    const char* name;
    Database* base;
    QStringView table; ///< whose columns it gives; empty for a single column
    QStringView before;
    QStringView after;
};

// As the windows build them.
const Place kPlaces[] = {
    {"consultations of a client", &BDASISTENCIAS, u"CONS",
     u"SELECT CONS.* From CONS WHERE (((CONS.CLICONSULTA)='", u"'))"},
    {"concepts of a client", &BDCLIENTES, u"clientescyctabla",
     u"SELECT clientescyctabla.* From clientescyctabla WHERE (((clientescyctabla.clientescyccliente)='",
     u"')) "},
    {"telephones of a client", &BDTELEFONOS, u"TELEFON",
     u"SELECT TELEFON.* From TELEFON WHERE (((TELEFON.TELECODIGOEMPRESA)='00012') AND "
     u"((TELEFON.TELECODIGO)='",
     u"'))"},
    {"client of a telephone",
     &BDTELEFONOS,
     {},
     u"SELECT TELECODIGO From TELEFON WHERE TELECODIGOEMPRESA='00012' AND TELETELEFONO='",
     u"'"},
    {"company of the telephones",
     &BDTELEFONOS,
     {},
     u"SELECT TELECODIGO From TELEFON WHERE TELECODIGOEMPRESA='",
     u"' AND TELETELEFONO='911'"},
    {"receipt of an invoice",
     &BDCLIENTES,
     {},
     u"SELECT FACTURASLineas.FACTURAS2DocuVa From FACTURASLineas WHERE (((FACTURASLineas.FACTURAS2Numero)=",
     u") AND ((FACTURASLineas.FACTURAS2Linea)=1) AND ((FACTURASLineas.FACTURAS2Canal)=''))"},
    {"a whole query", &BDCLIENTES, {}, u"", u""},
};

/// What a query may fail with.
const QSet<int> kQueryFailures{platform::kTypeMismatch,          platform::kTooFewParameters,
                               platform::kConstructNotSupported, platform::kSyntaxError,
                               platform::kInputTableNotFound,    platform::kUndefinedFunction,
                               platform::kTextAfterEnd,          platform::kInvalidOperation,
                               platform::kInvalidProcedureCall,  platform::kOverflow};

} // namespace

class TypedTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void noTextInAQueryChangesAStore();
    void noTextInAKeyChangesAStore();
    void ordinaryTextsFindTheirRows();

private:
    [[nodiscard]] QMap<QString, QByteArray> files() const { return storetest::filesBelow(m_root->path()); }
    void tryText(const Place& place, const QString& text);

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
    int m_answered = 0; ///< queries that were run
    int m_refused = 0;
};

void TypedTextsTest::initTestCase()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    resetProgramState();
    RUTAEMPRESA = m_root->companyPath();
    storetest::bringUp();
    for (int row = 0; row < kRowsEach; ++row) {
        const QString code = u"C%1"_s.arg(row);
        storetest::addRow(RUTAEMPRESA + u"ASISTENCIAS.MDB"_s, u"CONS"_s,
                          {{u"ORDEN", static_cast<double>(row)}, {u"CLICONSULTA", code}});
        storetest::addRow(RUTAEMPRESA + u"Clientes.mdb"_s, u"ClientesTabla"_s, {{u"CliCodigo", code}});
        storetest::addRow(
            RUTAEMPRESA + u"Clientes.mdb"_s, u"clientescyctabla"_s,
            {{u"clientescycarticulo", u"A"_s}, {u"clientescyccliente", code}, {u"clientescylineas", 1.0}});
        storetest::addRow(u"TELEFONOS DE CLIENTES.MDB"_s, u"TELEFON"_s,
                          {{u"TELECODIGOEMPRESA", u"00012"_s},
                           {u"TELECODIGO", code},
                           {u"TELETELEFONO", QString::number(911 + row)}});
    }
}

void TypedTextsTest::cleanupTestCase()
{
    resetProgramState();
    m_messages.reset();
    m_root.reset();
}

void TypedTextsTest::tryText(const Place& place, const QString& text)
{
    const QString query = place.before.toString() + text + place.after.toString();
    Recordset rows;
    const int failure =
        support::failureOf([&] { rows = place.base->OpenRecordset(query, platform::dao::dbOpenDynaset); });
    (failure == 0 ? m_answered : m_refused) += 1;
    if (failure != 0) {
        QVERIFY2(kQueryFailures.contains(failure),
                 qPrintable(QString::number(failure) + u": "_s + query.left(500)));
        return;
    }
    if (!place.table.isEmpty()) {
        const int columns = place.base->TableDefs().Item(place.table.toString()).Fields().Count();
        QVERIFY2(rows.Fields().Count() == columns, qPrintable(query.left(500)));
    }
    rows.Close();
}

void TypedTextsTest::noTextInAQueryChangesAStore()
{
    lookuptest::HostileTexts texts(1, {u"CONS"_s, u"ClientesTabla"_s, u"TELEFON"_s, u"clientescyctabla"_s,
                                       u"CliCodigo"_s, u"TELECODIGO"_s, u"store_metadata"_s,
                                       u"sqlite_master"_s, m_root->path(u"otra.mdb"_s)});
    const auto before = files();

    for (int count = 0; count < kTexts && !QTest::currentTestFailed(); ++count) {
        const QString text = texts.next();
        for (const Place& place : kPlaces)
            tryText(place, text);
        if (count % 1000 == 999)
            QVERIFY(files() == before);
    }

    QVERIFY(files() == before);
    QVERIFY(m_messages->isEmpty());
    qInfo("%d queries run, %d refused", m_answered, m_refused);
    QVERIFY(m_answered > kTexts / 10);
    QVERIFY(m_refused > kTexts / 10);
}

void TypedTextsTest::noTextInAKeyChangesAStore()
{
    lookuptest::HostileTexts texts(2, {u"CONS"_s, u"ClientesTabla"_s});
    const auto before = files();
    RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
    RSTELEFONOS.setIndex(u"TELEINDICE"_s);
    RSCONSULTAS.setIndex(u"CONnum"_s);

    for (int count = 0; count < kTexts / 10; ++count) {
        const QString text = texts.next();
        const int clients = support::failureOf([&] { RSCLIENTES.Seek(u"=", text); });
        QCOMPARE(clients, 0);
        const int telephones = support::failureOf([&] { RSTELEFONOS.Seek(u"=", u"00012"_s, text); });
        QCOMPARE(telephones, 0);
        const int index = support::failureOf([&] { RSCLIENTES.setIndex(text); });
        QVERIFY2(index != 0, qPrintable(text.left(100)));
        RSCLIENTES.setIndex(u"CliCodigoIndice"_s);
        const int consultations = support::failureOf([&] { RSCONSULTAS.Seek(u"=", text, text); });
        QVERIFY2(consultations == 0 || consultations == platform::kConversionError ||
                     consultations == platform::kTypeMismatch || consultations == platform::kOverflow,
                 qPrintable(QString::number(consultations)));
    }

    QVERIFY(files() == before);
}

void TypedTextsTest::ordinaryTextsFindTheirRows()
{
    for (const Place& place : kPlaces) {
        if (place.table.isEmpty())
            continue;
        const QString query = place.before.toString() + u"C7"_s + place.after.toString();
        Recordset rows = place.base->OpenRecordset(query, platform::dao::dbOpenDynaset);
        QCOMPARE(rows.RecordCount(), 1);
    }
}

QTEST_GUILESS_MAIN(TypedTextsTest)
#include "tst_typedtexts.moc"
