// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/system/paths.h"
#include "platform/window/formhelpers.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class FieldRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->open();
    }
    void cleanup() { f.reset(); }

    void leavingACodeFieldFillsDigitsToItsLimit_data();
    void leavingACodeFieldFillsDigitsToItsLimit();
    void fieldTakesNoMoreThanItsLimit();
    void leavingAnEmptyCodeStillReads();
    void codeWithABlankInsideStaysAsTyped();
    void zoneInTheStoreFillsCodeAndDescription();
    void zoneNotInTheStoreEmptiesTheDescriptionAndKeepsTheCode();
    void leavingAnEmptyZoneEmptiesTheDescription();
    void typeInTheStoreFillsCodeAndDescription();
    void typeNotInTheStoreEmptiesTheDescription();
    void leavingAnEmptyTypeKeepsTheDescription();
    void descriptionOfARepresentativeAlwaysGoes();
    void leavingAnEmptyRepresentativeKeepsItsDescription();
    void leavingTheRepresentativeClearsTheLookupsResult();
    void accountIsProposedFromTheCode_data();
    void accountIsProposedFromTheCode();
    void accountThatIsThereStays();
    void proposedAccountStaysWhenTheCodeChanges();
    void enteringTheLocalityEmptiesLocalityAndProvince();
    void enteringTheLocalityWithoutAPostalCodeKeepsBoth();
    void whatIsTypedInTheLocalityAfterwardsStays();
    void enteringTheLocalitySetsThePointerBack();
    void postalCodeSoughtIsKept();
    void enteringTheNameWithoutACodeGoesBackToTheCode();
    void enteringTheNameWithACodeStays();
    void savedLocalityIsTheEmptiedOne();
    void postalCodeInAnOpenStoreFillsLocalityAndProvince();
    void postalCodeMissingInAnOpenStoreEmptiesThem();
    void representativeInAnOpenStoreFillsItsDescription();

private:
    /// A store of one table with an index over its first column, which the suite may open one day.
    static platform::dao::Database storeWith(const QString& table, const QString& index,
                                             const QStringList& columns);

    std::optional<ClientFixture> f;
};

void FieldRulesTest::leavingACodeFieldFillsDigitsToItsLimit_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("result");

    QTest::newRow("client") << u"Text49"_s << u"123"_s << u"0000000123"_s;
    QTest::newRow("client with zeros typed") << u"Text49"_s << u"0007"_s << u"0000000007"_s;
    QTest::newRow("client of letters") << u"Text49"_s << u"A1"_s << u"A1"_s;
    QTest::newRow("representative") << u"Text20"_s << u"12"_s << u"0012"_s;
    QTest::newRow("zone") << u"Text21"_s << u"1"_s << u"0000000001"_s;
    QTest::newRow("zone of letters") << u"Text21"_s << u"N"_s << u"N"_s;
    QTest::newRow("type") << u"Text27"_s << u"3"_s << u"0003"_s;
}

void FieldRulesTest::leavingACodeFieldFillsDigitsToItsLimit()
{
    QFETCH(const QString, field);
    QFETCH(const QString, typed);
    f->type(field, typed);

    f->click(u"Text2"_s);

    QTEST(f->text(field), "result");
}

void FieldRulesTest::fieldTakesNoMoreThanItsLimit()
{
    f->type(u"Text20"_s, u"00012"_s);

    QCOMPARE(f->text(u"Text20"_s), u"0001"_s);
}

void FieldRulesTest::leavingAnEmptyCodeStillReads()
{
    f->addClient(u""_s, u"SIN CÓDIGO"_s);
    f->click(u"Text49"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text51"_s), u"SIN CÓDIGO"_s);
}

void FieldRulesTest::codeWithABlankInsideStaysAsTyped()
{
    f->type(u"Text49"_s, u"12 3"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text49"_s), u"12 3"_s);
}

void FieldRulesTest::zoneInTheStoreFillsCodeAndDescription()
{
    f->add(BDZONAS, u"ZONATAB"_s, {{u"ZONCODIGO", u"Nte"_s}, {u"ZONDESCRIPCION", u"NORTE"_s}});
    f->type(u"Text21"_s, u"NTE"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text21"_s), u"Nte"_s);
    QCOMPARE(f->text(u"Text25"_s), u"NORTE"_s);
}

void FieldRulesTest::zoneNotInTheStoreEmptiesTheDescriptionAndKeepsTheCode()
{
    f->box(u"Text25"_s)->setText(u"NORTE"_s);
    f->type(u"Text21"_s, u"77"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text21"_s), u"0000000077"_s);
    QCOMPARE(f->text(u"Text25"_s), QString());
}

void FieldRulesTest::leavingAnEmptyZoneEmptiesTheDescription()
{
    f->box(u"Text25"_s)->setText(u"NORTE"_s);
    f->click(u"Text21"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text25"_s), QString());
}

void FieldRulesTest::typeInTheStoreFillsCodeAndDescription()
{
    f->add(BDTIPOS, u"TIPOCLI"_s, {{u"TIPOCODIGO", u"0003"_s}, {u"TIPODESCRIPCION", u"MAYORISTA"_s}});
    f->type(u"Text27"_s, u"3"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text27"_s), u"0003"_s);
    QCOMPARE(f->text(u"Text26"_s), u"MAYORISTA"_s);
}

void FieldRulesTest::typeNotInTheStoreEmptiesTheDescription()
{
    f->box(u"Text26"_s)->setText(u"MAYORISTA"_s);
    f->type(u"Text27"_s, u"9"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text26"_s), QString());
}

void FieldRulesTest::leavingAnEmptyTypeKeepsTheDescription()
{
    f->box(u"Text26"_s)->setText(u"MAYORISTA"_s);
    f->click(u"Text27"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text26"_s), u"MAYORISTA"_s);
}

void FieldRulesTest::descriptionOfARepresentativeAlwaysGoes()
{
    f->box(u"Text3"_s)->setText(u"PÉREZ"_s);
    f->type(u"Text20"_s, u"12"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text20"_s), u"0012"_s);
    QCOMPARE(f->text(u"Text3"_s), QString());
}

void FieldRulesTest::leavingAnEmptyRepresentativeKeepsItsDescription()
{
    f->box(u"Text3"_s)->setText(u"PÉREZ"_s);
    f->click(u"Text20"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text3"_s), u"PÉREZ"_s);
}

void FieldRulesTest::leavingTheRepresentativeClearsTheLookupsResult()
{
    f->click(u"Text20"_s);
    RESULTADOBUSQUEDA = u"0000000001"_s;

    f->click(u"Text2"_s);

    QCOMPARE(RESULTADOBUSQUEDA, QString());
}

void FieldRulesTest::accountIsProposedFromTheCode_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("account");

    QTest::newRow("digits without their zeros") << u"0000000123"_s << u"430123"_s;
    QTest::newRow("letters give none") << u"C100"_s << u""_s;
    QTest::newRow("zero gives none") << u"0000000000"_s << u""_s;
    QTest::newRow("no code gives none") << u""_s << u""_s;
    QTest::newRow("ten digits") << u"9999999999"_s << u"4309999999999"_s;
}

void FieldRulesTest::accountIsProposedFromTheCode()
{
    QFETCH(const QString, code);
    f->box(u"Text49"_s)->setText(code);

    f->click(u"Text9"_s);

    QTEST(f->text(u"Text9"_s), "account");
}

void FieldRulesTest::accountThatIsThereStays()
{
    f->box(u"Text49"_s)->setText(u"0000000123"_s);
    f->box(u"Text9"_s)->setText(u"4300077"_s);

    f->click(u"Text9"_s);

    QCOMPARE(f->text(u"Text9"_s), u"4300077"_s);
}

void FieldRulesTest::proposedAccountStaysWhenTheCodeChanges()
{
    f->box(u"Text49"_s)->setText(u"0000000123"_s);
    f->click(u"Text9"_s);
    f->click(u"Text2"_s);
    f->box(u"Text49"_s)->setText(u"0000000124"_s);

    f->click(u"Text9"_s);

    QCOMPARE(f->text(u"Text9"_s), u"430123"_s);
}

void FieldRulesTest::enteringTheLocalityEmptiesLocalityAndProvince()
{
    f->box(u"Text5"_s)->setText(u"28001"_s);
    f->box(u"Text6"_s)->setText(u"Madrid"_s);
    f->box(u"Text1"_s)->setText(u"Madrid"_s);

    f->click(u"Text6"_s);

    QCOMPARE(f->text(u"Text6"_s), QString());
    QCOMPARE(f->text(u"Text1"_s), QString());
    QCOMPARE(f->text(u"Text5"_s), u"28001"_s);
    QCOMPARE(f->focused(), u"Text6"_s);
}

void FieldRulesTest::enteringTheLocalityWithoutAPostalCodeKeepsBoth()
{
    f->box(u"Text6"_s)->setText(u"Madrid"_s);
    f->box(u"Text1"_s)->setText(u"Comunidad"_s);

    f->click(u"Text6"_s);

    QCOMPARE(f->text(u"Text6"_s), u"Madrid"_s);
    QCOMPARE(f->text(u"Text1"_s), u"Comunidad"_s);
}

void FieldRulesTest::whatIsTypedInTheLocalityAfterwardsStays()
{
    f->box(u"Text5"_s)->setText(u"28001"_s);

    f->type(u"Text6"_s, u"Getafe"_s);
    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text6"_s), u"Getafe"_s);
}

void FieldRulesTest::enteringTheLocalitySetsThePointerBack()
{
    f->box(u"Text5"_s)->setText(u"28001"_s);
    platform::setMousePointer(&f->window(), platform::kBusyPointer);

    f->click(u"Text6"_s);

    QCOMPARE(platform::mousePointer(&f->window()), platform::kDefaultPointer);
}

void FieldRulesTest::postalCodeSoughtIsKept()
{
    f->box(u"Text5"_s)->setText(u" 2800"_s);

    f->click(u"Text6"_s);

    QCOMPARE(CPOSTALBUSCADO, u"2800"_s);
    QCOMPARE(f->text(u"Text5"_s), u"2800"_s);
}

void FieldRulesTest::enteringTheNameWithoutACodeGoesBackToTheCode()
{
    f->click(u"Text51"_s);

    QCOMPARE(f->focused(), u"Text49"_s);
}

void FieldRulesTest::enteringTheNameWithACodeStays()
{
    f->type(u"Text49"_s, u"C1"_s);

    f->click(u"Text51"_s);

    QCOMPARE(f->focused(), u"Text51"_s);
}

void FieldRulesTest::savedLocalityIsTheEmptiedOne()
{
    f->add(BDCLIENTES, u"ClientesTabla"_s,
           {{u"CliCodigo", u"C1"_s},
            {u"CliCodPostal", u"28001"_s},
            {u"CliCodPostalLocali", u"Madrid"_s},
            {u"CliCodPostalProvin", u"Madrid"_s}});
    f->enterCode(u"C1"_s);
    f->click(u"Text6"_s);

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CliCodPostalLocali, CliCodPostalProvin FROM ClientesTabla"_s),
             QStringList(u"|"_s));
}

platform::dao::Database FieldRulesTest::storeWith(const QString& table, const QString& index,
                                                  const QStringList& columns)
{
    using namespace platform::dao;
    Database store = DBEngine().Workspaces(0).CreateDatabase(platform::currentDirectory() + u"\\Suite.mdb"_s,
                                                             kSpanishLocale, dbVersion40);
    TableDef definition = store.CreateTableDef(table);
    for (const QString& column : columns)
        definition.Fields().Append(definition.CreateField(column, dbText, 35));
    Index primary = definition.CreateIndex(index);
    primary.setPrimary(true);
    primary.setUnique(true);
    primary.Fields().Append(primary.CreateField(columns.first()));
    definition.Indexes().Append(primary);
    store.TableDefs().Append(definition);
    return store;
}

void FieldRulesTest::postalCodeInAnOpenStoreFillsLocalityAndProvince()
{
    BDPOSTAL = storeWith(u"POSTA"_s, u"CPNU"_s, {u"CPOSTAL"_s, u"LOCALI"_s, u"LOPROVI"_s});
    f->add(BDPOSTAL, u"POSTA"_s,
           {{u"CPOSTAL", u"28901"_s}, {u"LOCALI", u"Getafe"_s}, {u"LOPROVI", u"Madrid"_s}});
    RSPOSTAL = BDPOSTAL.OpenRecordset(u"POSTA"_s, platform::dao::dbOpenTable);
    f->box(u"Text5"_s)->setText(u"28901"_s);

    f->click(u"Text6"_s);

    QCOMPARE(f->text(u"Text6"_s), u"Getafe"_s);
    QCOMPARE(f->text(u"Text1"_s), u"Madrid"_s);
    QCOMPARE(f->focused(), u"Text1"_s);
}

void FieldRulesTest::postalCodeMissingInAnOpenStoreEmptiesThem()
{
    BDPOSTAL = storeWith(u"POSTA"_s, u"CPNU"_s, {u"CPOSTAL"_s, u"LOCALI"_s, u"LOPROVI"_s});
    RSPOSTAL = BDPOSTAL.OpenRecordset(u"POSTA"_s, platform::dao::dbOpenTable);
    f->box(u"Text5"_s)->setText(u"28901"_s);
    f->box(u"Text1"_s)->setText(u"Madrid"_s);

    f->click(u"Text6"_s);

    QCOMPARE(f->text(u"Text1"_s), QString());
    QCOMPARE(f->focused(), u"Text6"_s);
}

void FieldRulesTest::representativeInAnOpenStoreFillsItsDescription()
{
    platform::dao::Database store =
        storeWith(u"REPTABLA"_s, u"REPINDICE"_s, {u"REPCODIGO"_s, u"REPDESCRI"_s});
    f->add(store, u"REPTABLA"_s, {{u"REPCODIGO", u"0012"_s}, {u"REPDESCRI", u"PÉREZ"_s}});
    RSREPRESENTANTES = store.OpenRecordset(u"REPTABLA"_s, platform::dao::dbOpenTable);
    f->type(u"Text20"_s, u"12"_s);

    f->click(u"Text2"_s);

    QCOMPARE(f->text(u"Text3"_s), u"PÉREZ"_s);
}

QTEST_MAIN(FieldRulesTest)
#include "tst_fieldrules.moc"
