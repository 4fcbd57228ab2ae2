// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/buscar.h"

#include "lookup/lookupfixture.h"
#include "platform/core/failure.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"
#include "support/messagerecorder.h"

#include <QRandomGenerator>
#include <QtTest>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;
using lookuptest::LookupFixture;
using lookuptest::Rows;
using platform::FlexGrid;

namespace {

constexpr int kColumn = 1;

const QString& clientList()
{
    static const QString kList =
        u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente, CliCodPostalLocali as Localidad "
        u"FROM CLIENTESTABLA ORDER BY CLINOMBRE"_s;
    return kList;
}

QString codeOf(int number)
{
    return QString::number(number).rightJustified(10, u'0');
}

Rows named(const QStringList& names)
{
    Rows rows;
    for (const QString& name : names)
        rows.append({codeOf(static_cast<int>(rows.size()) + 1), name, u"Jaca"_s});
    return rows;
}

/// The code of a text's first letter as the rule reads it; 0 when it has none.
int letterOf(const QString& text)
{
    try {
        return platform::Asc(platform::UCase(text.left(1)));
    } catch (const platform::Failure&) {
        return 0;
    }
}

/// The rule of the typed search, word for word, over plain texts: row r is `cells[r]`, row 0 the heading.
struct Transcription
{
    QStringList cells;
    std::array<int, 256> entries{};
    int row = 1;

    void buildIndex()
    {
        entries.fill(0);
        for (int record = 1; record < cells.size() - 1; ++record) {
            const int code = letterOf(cells[record + 1]);
            if (code >= 1 && code <= 255 && entries.at(static_cast<std::size_t>(code)) == 0)
                entries.at(static_cast<std::size_t>(code)) = record;
        }
    }

    void search(const QString& text)
    {
        const int code = letterOf(text);
        if (code == 0 || entries.at(static_cast<std::size_t>(code)) == 0)
            return;
        int next = 0;
        for (int above = code + 1; above <= 255 && next == 0; ++above)
            next = entries.at(static_cast<std::size_t>(above));
        int limit = static_cast<int>(cells.size()) - 1;
        if (next != 0) {
            row = std::max(row, entries.at(static_cast<std::size_t>(code)));
            limit = next;
        }
        for (int each = row; each <= limit; ++each) {
            if (platform::UCase(cells[each].left(text.size())) == platform::UCase(text)) {
                row = each;
                return;
            }
        }
    }
};

/// Names and typings with all that may go wrong in them.
QString randomText(QRandomGenerator& random, int longest)
{
    static const QString kLetters = u"aAáÁbBcChHlLnNñÑçÇzZ 1.'*ÿŸßΩжк"_s;
    QString text;
    const int length = random.bounded(longest + 1);
    for (int i = 0; i < length; ++i)
        text += kLetters[random.bounded(static_cast<int>(kLetters.size()))];
    return text;
}

} // namespace

class BuscarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headingsAreTheAliases();
    void shortFieldsAreNarrowAndLongOnesShareTheGrid();
    void theFieldNamedSIsATickOf300();
    void theAnswerIsTheCountLessOne();
    void aQueryThatFailsLeavesGridAndCount();
    void aQueryWithoutRowsLeavesGridAndCount();
    void theIndexIsEmptiedEvenWhenTheQueryFails();
    void theFirstRecordHasNoEntry();
    void nullAndEmptyNamesHaveNoEntry();
    void aColumnThatTheQueryDoesNotHaveIsTold();
    void theGridShowsTheArrayItself();
    void aLetterWithoutAnEntryLeavesTheGrid();
    void theTextMovesToTheFirstRowThatBeginsWithIt();
    void caseIsIgnored();
    void aSecondLetterGoesOnFromTheRow();
    void aTextCorrectedBackwardsDoesNotGoBack();
    void theLastLetterSearchesToTheEnd();
    void aFoundRowComesToTheTop();
    void textsWithoutACodeDoNotMove_data();
    void textsWithoutACodeDoNotMove();
    void anIndexOfAnotherListDoesNoHarm();
    void codesOutside1To255AreRefused();
    void theSearchIsTheRuleOnRandomLists();
};

void BuscarTest::headingsAreTheAliases()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s}));
    FlexGrid grid;

    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    QCOMPARE(grid.heading(0), u"Codigo"_s);
    QCOMPARE(grid.heading(1), u"Cliente"_s);
    QCOMPARE(grid.heading(2), u"Localidad"_s);
}

void BuscarTest::shortFieldsAreNarrowAndLongOnesShareTheGrid()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s}));
    FlexGrid grid;

    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    QCOMPARE(grid.colWidth(0), 1000);
    QCOMPARE(grid.colWidth(1), static_cast<int>(std::nearbyint((grid.widthTwips() / 3.0 - 1) * 1.75)));
    QCOMPARE(grid.colWidth(2), grid.colWidth(1));
}

void BuscarTest::theFieldNamedSIsATickOf300()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s}));
    FlexGrid grid;

    CARGAREJILLA(grid, BDCLIENTES, u"SELECT '' as S,CLICODIGO as Codigo FROM CLIENTESTABLA"_s, kColumn);

    QCOMPARE(grid.column(0).kind, platform::CellKind::Boolean);
    QCOMPARE(grid.colWidth(0), 300);
    QVERIFY(!grid.isTickedAt(1, 0));
}

void BuscarTest::theAnswerIsTheCountLessOne()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s, u"Carla"_s}));
    FlexGrid grid;

    QCOMPARE(CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn), 2.0);
    QCOMPARE(REGISTROSREJILLA, 3);
}

void BuscarTest::aQueryThatFailsLeavesGridAndCount()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    CARGAREJILLA(grid, BDCLIENTES, u"SELECT nada FROM CLIENTESTABLA"_s, kColumn);

    QCOMPARE(grid.rows(), 3);
    QCOMPARE(grid.textMatrix(2, 1), u"Berta"_s);
    QCOMPARE(REGISTROSREJILLA, 2);
}

void BuscarTest::aQueryWithoutRowsLeavesGridAndCount()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    CARGAREJILLA(grid, BDCLIENTES, u"SELECT CLICODIGO FROM CLIENTESTABLA WHERE CLICODIGO='X'"_s, kColumn);

    QCOMPARE(grid.rows(), 3);
    QCOMPARE(REGISTROSREJILLA, 2);
}

void BuscarTest::theIndexIsEmptiedEvenWhenTheQueryFails()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);
    QCOMPARE(INDICELETRAS.at('B'), 1);

    CARGAREJILLA(grid, platform::dao::Database(), clientList(), kColumn);

    QCOMPARE(INDICELETRAS.at('B'), 0);
    QVERIFY(DATOSREJILLA == nullptr);
}

void BuscarTest::theFirstRecordHasNoEntry()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Ángel"_s, u"Berta"_s}));
    FlexGrid grid;

    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    QCOMPARE(INDICELETRAS.at('A'), 0);
    QCOMPARE(INDICELETRAS.at(0xC1), 1); // Á
    QCOMPARE(INDICELETRAS.at('B'), 2);
}

void BuscarTest::nullAndEmptyNamesHaveNoEntry()
{
    LookupFixture fixture;
    fixture.givenClients(named({QString(), QString(), u""_s, u""_s, u"Zoe"_s}));
    FlexGrid grid;

    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    for (int code = 1; code <= 255; ++code)
        QCOMPARE(INDICELETRAS.at(code), code == 'Z' ? 4 : 0);
}

void BuscarTest::aColumnThatTheQueryDoesNotHaveIsTold()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s}));
    const testsupport::MessageRecorder messages;
    FlexGrid grid;

    const double answer = CARGAREJILLA(grid, BDCLIENTES, u"SELECT CLICODIGO FROM CLIENTESTABLA"_s, kColumn);

    QCOMPARE(messages.texts(),
             QStringList{u"Intentando ordenar por un campo no introducido en la consulta"_s});
    QCOMPARE(answer, 1.0);
    QCOMPARE(REGISTROSREJILLA, 0);
    QCOMPARE(grid.rows(), 3);
}

void BuscarTest::theGridShowsTheArrayItself()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    DATOSREJILLA->setText(1, 0, u"Otra"_s);

    QCOMPARE(grid.textMatrix(1, 1), u"Otra"_s);
}

void BuscarTest::aLetterWithoutAnEntryLeavesTheGrid()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s, u"Carla"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);
    grid.setRow(2);

    BUSCAREJILLA(grid, u"X"_s, kColumn);

    QCOMPARE(grid.row(), 2);
}

void BuscarTest::theTextMovesToTheFirstRowThatBeginsWithIt()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Luz"_s, u"Llorens"_s, u"Nadal"_s, u"Ñíguez"_s, u"Ñu"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    BUSCAREJILLA(grid, u"ÑU"_s, kColumn);

    QCOMPARE(grid.textMatrix(grid.row(), 1), u"Ñu"_s);
}

void BuscarTest::caseIsIgnored()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"CHACÓN"_s, u"Dos"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    BUSCAREJILLA(grid, u"chacó"_s, kColumn);

    QCOMPARE(grid.row(), 2);
}

void BuscarTest::aSecondLetterGoesOnFromTheRow()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Ma"_s, u"Me"_s, u"Mi"_s, u"Oca"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    BUSCAREJILLA(grid, u"m"_s, kColumn);
    QCOMPARE(grid.row(), 2);
    BUSCAREJILLA(grid, u"mi"_s, kColumn);

    QCOMPARE(grid.row(), 4);
}

void BuscarTest::aTextCorrectedBackwardsDoesNotGoBack()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Ma"_s, u"Me"_s, u"Mi"_s, u"Oca"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);
    BUSCAREJILLA(grid, u"mi"_s, kColumn);

    BUSCAREJILLA(grid, u"m"_s, kColumn);

    QCOMPARE(grid.row(), 4);
}

void BuscarTest::theLastLetterSearchesToTheEnd()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Za"_s, u"Ze"_s, u"Zo"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    BUSCAREJILLA(grid, u"ZO"_s, kColumn);

    QCOMPARE(grid.row(), 4);
}

void BuscarTest::aFoundRowComesToTheTop()
{
    LookupFixture fixture;
    QStringList names{u"Ana"_s};
    for (int i = 0; i < 300; ++i)
        names.append(u"B%1"_s.arg(i, 3, 10, QChar(u'0')));
    names.append(u"C"_s);
    fixture.givenClients(named(names));
    fixture.open(15);
    FlexGrid& grid = fixture.busi();
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);

    BUSCAREJILLA(grid, u"B15"_s, kColumn);

    QCOMPARE(grid.row(), 152);
    QCOMPARE(grid.topRow(), 152);
}

void BuscarTest::textsWithoutACodeDoNotMove_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("another alphabet") << u"Жук"_s;
    QTest::newRow("beyond the first plane") << u"😀"_s;
    QTest::newRow("nothing") << QString();
    QTest::newRow("code 0") << QString(QChar(u'\0'));
}

void BuscarTest::textsWithoutACodeDoNotMove()
{
    QFETCH(QString, text);
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s, u"Жук"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);
    grid.setRow(2);

    BUSCAREJILLA(grid, text, kColumn);

    QCOMPARE(grid.row(), 2);
}

void BuscarTest::anIndexOfAnotherListDoesNoHarm()
{
    LookupFixture fixture;
    fixture.givenClients(named({u"Ana"_s, u"Berta"_s, u"Carla"_s, u"Delia"_s, u"Eva"_s}));
    FlexGrid grid;
    CARGAREJILLA(grid, BDCLIENTES, clientList(), kColumn);
    grid.setRows(2);
    grid.setRow(1);

    BUSCAREJILLA(grid, u"D"_s, kColumn);

    QCOMPARE(grid.row(), 1);
}

void BuscarTest::codesOutside1To255AreRefused()
{
    for (const int code : {0, -1, 256})
        QVERIFY_THROWS_EXCEPTION(platform::Failure, static_cast<void>(INDICELETRAS.at(code)));
}

void BuscarTest::theSearchIsTheRuleOnRandomLists()
{
    constexpr int kLists = 40;
    constexpr int kTypings = 60;
    QRandomGenerator random(20030119);
    LookupFixture fixture;
    Rows rows;
    for (int each = 0; each < kLists; ++each) {
        const int count = random.bounded(25);
        for (int i = 0; i < count; ++i)
            rows.append({codeOf(static_cast<int>(rows.size()) + 1),
                         random.bounded(10) == 0 ? QString() : randomText(random, 4), QString::number(each)});
    }
    fixture.givenClients(rows);

    for (int each = 0; each < kLists; ++each) {
        FlexGrid grid;
        grid.setRows(1);
        CARGAREJILLA(grid, BDCLIENTES,
                     u"SELECT CLICODIGO as Codigo, CLINOMBRE as Cliente FROM CLIENTESTABLA "
                     u"WHERE CLICODPOSTALLOCALI='%1' ORDER BY CLINOMBRE"_s.arg(each),
                     kColumn);
        Transcription rule;
        for (int row = 0; row < grid.rows(); ++row)
            rule.cells.append(grid.textMatrix(row, kColumn));
        rule.buildIndex();
        rule.row = grid.row();
        for (int code = 1; code <= 255; ++code)
            QCOMPARE(INDICELETRAS.at(code), rule.entries.at(static_cast<std::size_t>(code)));
        for (int typing = 0; typing < kTypings; ++typing) {
            const QString text = randomText(random, 3);
            BUSCAREJILLA(grid, text, kColumn);
            rule.search(text);
            QVERIFY2(grid.row() == rule.row, qUtf8Printable(rule.cells.join(u'|') + u" <- "_s + text));
        }
    }
}

QTEST_MAIN(BuscarTest)
#include "tst_buscar.moc"
