// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of pages, looked at through the texts that stand on each page.
#include "platform/print/definition/read_xml.h"
#include "platform/print/output/exports.h"
#include "platform/print/problem.h"
#include "platform/print/storefixture.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class PagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void detailsFillThePagesInOrder();
    void pageFooterKnowsTheExactTotal();
    void groupHeaderNeedsRoomForItsFirstDetail();
    void wholeGroupMovesWhereItFits();
    void lastDetailGoesWithAFooterThatWouldStandAlone();
    void newPageBeforeAddsNoEmptyFirstPage();
    void newPageAfterAddsNoEmptyLastPage();
    void repeatedHeaderComesOnEachPage();
    void footerShowsTheValuesOfItsOwnGroup();
    void footerStandsAtTheFootOfTheBody();
    void suppressedTakesNoRoom();
    void growingTextPushesDownWhatLiesBelow();
    void longTextIsCutBetweenLines();
    void whatCantBeCutIsClippedOnce();
    void groupCountsItsOwnPages();
    void withoutRecordsTheNoDataSectionComes();
    void withoutThatSectionTheEngineSaysIt();
    void repeatedValueIsLeftBlank();
    void variableCountsInPrintOrderOnly();
    void subreportPrintsItsOwnRecords();
    void subreportsSideBySideBeginAtTheSameHeight();
    void textStandsInForAMissingPicture();
    void sectionOfATallEmptyFieldCountsAsEmpty();
    void fieldThatFailsPrintsEmptyAndCountsOnce();
    void numberTooWideForItsPlaceShowsHashes();
    void tooSmallAPageIsRefused();
    void pdfHoldsPagesAndText();
    void csvHoldsOneLineForEachRecord();

private:
    /// Pages of a report over table T (fields G, N#, MEMO): 30 rows in groups of 10, on pages whose body is
    /// 100 mm.
    QStringList pages(const QString& elements, int rows = 30);

    QTemporaryDir m_folder;
    std::unique_ptr<Document> m_document;
};

void PagesTest::initTestCase()
{
    QString longText;
    for (int i = 1; i <= 60; ++i)
        longText += u"linea%1\n"_s.arg(i);
    std::vector<std::vector<Value>> rows;
    rows.reserve(30);
    for (int i = 0; i < 30; ++i)
        rows.push_back({u"g%1"_s.arg(i / 10 + 1), i + 1.0, i == 0 ? longText.trimmed() : u"corto"_s});
    givenTable(m_folder.filePath(u"T.MDB"_s), u"T"_s, {u"G"_s, u"N#"_s, u"MEMO+"_s}, rows);
}

QStringList PagesTest::pages(const QString& elements, int rows)
{
    const QString xml =
        u"<informe version=\"1\" nombre=\"P\"><pagina papel=\"100 x 130\" margenes=\"10 5 10 5\"/>"
        "<estilo id=\"n\" letra=\"DejaVu Sans\" cuerpo=\"8\"/>"
        "<tabla n=\"0\" alias=\"T\" fichero=\"T.MDB\"/>"
        "<seleccion><![CDATA[{T.N} <= %1]]></seleccion>"
        "<seccion tipo=\"pie-pagina\" alto=\"10\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"5\" "
        "expr=\"'p' &amp; ToText(PageNumber,0) &amp; '/' &amp; ToText(TotalPageCount,0)\"/></seccion>"
        "%2</informe>"_s.arg(rows)
            .arg(elements);
    const ReadReport read = readReport(xml.toUtf8());
    if (!read.report)
        qFatal("%s", qPrintable(read.faults.front().text));
    m_document = std::make_unique<Document>(std::make_unique<Report>(*read.report), m_folder.path(),
                                            QDateTime(QDate(2024, 3, 5), QTime(10, 0)));
    m_document->start(
        {m_folder.filePath(u"T.MDB"_s)},
        std::vector<TablePaths>(read.report->subreports.size(), {m_folder.filePath(u"T.MDB"_s)}));
    m_document->makeAllPages();
    QStringList texts;
    for (int page = 0; page < m_document->pageCount(); ++page)
        texts += m_document->pageText(page).replace(u'\n', u' ');
    return texts;
}

namespace {

QString section(const QString& attributes, const QString& expression, double height = 10)
{
    return u"<seccion %1 alto=\"%2\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"5\" estilo=\"n\" expr=\"%3\"/></seccion>"_s
        .arg(attributes)
        .arg(height)
        .arg(expression);
}

QString detail(const QString& expression = u"ToText({T.N},0)"_s)
{
    return section(u"tipo=\"detalle\""_s, expression);
}

const QString kGroup = u"<grupo n=\"1\" campo=\"{T.G}\" %1/>"_s;

} // namespace

void PagesTest::detailsFillThePagesInOrder()
{
    QCOMPARE(pages(detail(), 12), (QStringList{u"1 2 3 4 5 6 7 8 9 10 p1/2"_s, u"11 12 p2/2"_s}));
}

void PagesTest::pageFooterKnowsTheExactTotal()
{
    QCOMPARE(pages(detail(), 10), QStringList{u"1 2 3 4 5 6 7 8 9 10 p1/1"_s});
}

void PagesTest::groupHeaderNeedsRoomForItsFirstDetail()
{
    const QString header = section(u"tipo=\"cabecera-grupo\" grupo=\"1\""_s, u"{T.G}"_s, 8);
    // The first header and ten details take 108 mm; with the second header none of its details would fit.
    QCOMPARE(pages(kGroup.arg(QString()) + header + detail(), 11),
             (QStringList{u"g1 1 2 3 4 5 6 7 8 9 p1/2"_s, u"10 g2 11 p2/2"_s}));
    // A short last row leaves 12 mm: room for the header but not for the detail below it.
    const QString high = section(u"tipo=\"detalle\""_s, u"ToText({T.N},0)"_s, 9);
    QCOMPARE(pages(kGroup.arg(QString()) + header + high, 11).at(1), u"g2 11 p2/2"_s);
}

void PagesTest::wholeGroupMovesWhereItFits()
{
    const QString small =
        u"<seccion tipo=\"detalle\" alto=\"6\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"5\" "
        "estilo=\"n\" expr=\"ToText({T.N},0)\"/></seccion>"_s;
    const QString header = section(u"tipo=\"cabecera-grupo\" grupo=\"1\""_s, u"{T.G}"_s, 8);
    QCOMPARE(pages(kGroup.arg(u"junto=\"todo\""_s) + header + small, 15),
             (QStringList{u"g1 1 2 3 4 5 6 7 8 9 10 p1/2"_s, u"g2 11 12 13 14 15 p2/2"_s}));
    QCOMPARE(pages(kGroup.arg(u"junto=\"todo\""_s) + header + small, 13),
             (QStringList{u"g1 1 2 3 4 5 6 7 8 9 10 g2 11 12 13 p1/1"_s}));
    QCOMPARE(pages(kGroup.arg(u"junto=\"todo\""_s) + header + small, 20),
             (QStringList{u"g1 1 2 3 4 5 6 7 8 9 10 p1/2"_s, u"g2 11 12 13 14 15 16 17 18 19 20 p2/2"_s}));
}

void PagesTest::lastDetailGoesWithAFooterThatWouldStandAlone()
{
    const QString footer = section(u"tipo=\"pie-grupo\" grupo=\"1\""_s, u"'fin'"_s);
    QCOMPARE(pages(kGroup.arg(QString()) + detail() + footer, 10),
             (QStringList{u"1 2 3 4 5 6 7 8 9 p1/2"_s, u"10 fin p2/2"_s}));
}

void PagesTest::newPageBeforeAddsNoEmptyFirstPage()
{
    QCOMPARE(pages(kGroup.arg(u"pagina-nueva=\"antes\""_s) + detail(), 11),
             (QStringList{u"1 2 3 4 5 6 7 8 9 10 p1/2"_s, u"11 p2/2"_s}));
}

void PagesTest::newPageAfterAddsNoEmptyLastPage()
{
    QCOMPARE(pages(section(u"tipo=\"detalle\" pagina-nueva=\"despues\""_s, u"ToText({T.N},0)"_s), 2),
             (QStringList{u"1 p1/2"_s, u"2 p2/2"_s}));
}

void PagesTest::repeatedHeaderComesOnEachPage()
{
    const QString header = section(u"tipo=\"cabecera-grupo\" grupo=\"1\" repetir=\"si\""_s,
                                   u"{T.G} &amp; IIf(InRepeatedGroupHeader,'*','')"_s, 20);
    QCOMPARE(pages(kGroup.arg(QString()) + header + detail(), 10),
             (QStringList{u"g1 1 2 3 4 5 6 7 8 p1/2"_s, u"g1* 9 10 p2/2"_s}));
}

void PagesTest::footerShowsTheValuesOfItsOwnGroup()
{
    const QString footer =
        section(u"tipo=\"pie-grupo\" grupo=\"1\""_s, u"{T.G} &amp; '=' &amp; ToText(Sum({T.N},{T.G}),0)"_s);
    const QStringList texts = pages(kGroup.arg(QString()) + detail() + footer, 20);
    QVERIFY(texts.join(u' ').contains(u"10 g1=55"_s));
    QVERIFY(texts.join(u' ').contains(u"20 g2=155"_s));
}

void PagesTest::footerStandsAtTheFootOfTheBody()
{
    pages(kGroup.arg(QString()) + detail() +
              section(u"tipo=\"pie-grupo\" grupo=\"1\" al-pie=\"si\""_s, u"'fin'"_s),
          3);
    QCOMPARE(m_document->pageCount(), 1);
    QCOMPARE(pages(kGroup.arg(QString()) + detail() +
                       section(u"tipo=\"pie-grupo\" grupo=\"1\" al-pie=\"si\""_s, u"'fin'"_s),
                   11)
                 .size(),
             3);
}

void PagesTest::suppressedTakesNoRoom()
{
    const QString even = section(u"tipo=\"detalle\" suprimir=\"{T.N} Mod 2 = 1\""_s, u"ToText({T.N},0)"_s);
    QCOMPARE(pages(even, 20), QStringList{u"2 4 6 8 10 12 14 16 18 20 p1/1"_s});
}

void PagesTest::growingTextPushesDownWhatLiesBelow()
{
    const QString grows =
        u"<seccion tipo=\"detalle\" alto=\"10\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"4\" "
        "estilo=\"n\" expr=\"{T.MEMO}\" crece=\"si\"/><texto x=\"0\" y=\"5\" ancho=\"20\" alto=\"4\" "
        "estilo=\"n\">debajo</texto></seccion>"_s;
    const QStringList texts = pages(grows, 1);
    QVERIFY(texts.size() > 1);
    QVERIFY(m_document->isComplete());
}

void PagesTest::longTextIsCutBetweenLines()
{
    const QString grows =
        u"<seccion tipo=\"detalle\" alto=\"5\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"4\" "
        "estilo=\"n\" expr=\"{T.MEMO}\" crece=\"si\"/></seccion>"_s;
    const QStringList texts = pages(grows, 2);
    QCOMPARE(texts.size(), 3);
    QVERIFY(texts[0].startsWith(u"linea1 "_s) && texts[0].endsWith(u"linea30 p1/3"_s));
    QVERIFY(texts[1].startsWith(u"linea31 "_s) && texts[1].endsWith(u"linea60 p2/3"_s));
    QCOMPARE(texts[2], u"corto p3/3"_s);
}

void PagesTest::whatCantBeCutIsClippedOnce()
{
    const QString box =
        u"<seccion tipo=\"detalle\" alto=\"250\"><caja x=\"0\" y=\"0\" ancho=\"50\" alto=\"240\"/></seccion>"_s;
    QCOMPARE(pages(box, 1).size(), 3);
}

void PagesTest::groupCountsItsOwnPages()
{
    const QString header =
        section(u"tipo=\"cabecera-grupo\" grupo=\"1\" repetir=\"si\""_s,
                u"'Hoja ' &amp; ToText(GroupPageNumber,0) &amp; ' de ' &amp; ToText(GroupPageCount,0)"_s, 50);
    const QStringList texts =
        pages(kGroup.arg(u"pagina-nueva=\"antes\" reinicia-hoja=\"si\""_s) + header + detail(), 20);
    QCOMPARE(texts.size(), 4);
    QVERIFY(texts[0].startsWith(u"Hoja 1 de 2"_s));
    QVERIFY(texts[1].startsWith(u"Hoja 2 de 2"_s));
    QVERIFY(texts[2].startsWith(u"Hoja 1 de 2"_s));
    QVERIFY(texts[3].endsWith(u"p4/4"_s));
}

void PagesTest::withoutRecordsTheNoDataSectionComes()
{
    QCOMPARE(pages(detail() + section(u"tipo=\"sin-datos\""_s, u"'Nada.'"_s), 0),
             QStringList{u"Nada. p1/1"_s});
}

void PagesTest::withoutThatSectionTheEngineSaysIt()
{
    QCOMPARE(pages(detail(), 0), QStringList{u"No hay datos para la selección. p1/1"_s});
}

void PagesTest::repeatedValueIsLeftBlank()
{
    const QString once =
        u"<seccion tipo=\"detalle\" alto=\"4\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"4\" estilo=\"n\" "
        "expr=\"{T.G}\" repetidos=\"no\"/></seccion>"_s;
    QCOMPARE(pages(once, 12), QStringList{u"g1 g2 p1/1"_s});
}

void PagesTest::variableCountsInPrintOrderOnly()
{
    QCOMPARE(pages(detail(u"NumberVar x; x := x + 1; ToText(x,0)"_s), 12),
             (QStringList{u"1 2 3 4 5 6 7 8 9 10 p1/2"_s, u"11 12 p2/2"_s}));
    // A second look at the first page gives the same.
    QVERIFY(m_document->pageText(0).startsWith(u"1\n2"_s));
}

void PagesTest::subreportPrintsItsOwnRecords()
{
    const QString inner =
        u"<definicion nombre=\"S\"><tabla n=\"0\" alias=\"U\" fichero=\"@0\" nombre=\"T\"/>"
        "<vinculo campo=\"{U.G}\" con=\"{T.G}\"/><seccion tipo=\"detalle\" alto=\"3\">"
        "<campo x=\"0\" y=\"0\" ancho=\"20\" alto=\"3\" estilo=\"n\" expr=\"'s' &amp; ToText({U.N},0)\"/>"
        "</seccion></definicion>"_s;
    const QString header =
        u"<seccion tipo=\"cabecera-grupo\" grupo=\"1\" alto=\"0\"><subinforme nombre=\"S\" x=\"5\" "
        "y=\"0\" ancho=\"50\"/></seccion>"_s;
    const QStringList texts = pages(kGroup.arg(QString()) + header + detail() + inner, 11);
    QVERIFY(texts[0].startsWith(u"s1 s2 s3 s4 s5 s6 s7 s8 s9 s10 1 2"_s));
}

/// Four rows each, 10 mm high: side by side two such details fit on a page, one below the other a single one.
void PagesTest::subreportsSideBySideBeginAtTheSameHeight()
{
    const QString places =
        u"<seccion tipo=\"detalle\" alto=\"1\"><subinforme nombre=\"A\" x=\"0\" y=\"0\" ancho=\"40\"/>"
        "<subinforme nombre=\"B\" x=\"45\" y=\"0\" ancho=\"40\"/></seccion>"_s;
    const QString rows =
        u"<definicion nombre=\"%1\"><tabla n=\"0\" alias=\"T\" fichero=\"@0\"/>"
        "<vinculo campo=\"{T.G}\" con=\"{T.G}\"/><seleccion><![CDATA[{T.N} <= 4]]></seleccion>%2</definicion>"_s;
    const QString four = section(u"tipo=\"detalle\""_s, u"ToText({T.N},0)"_s);

    QCOMPARE(pages(places + rows.arg(u"A"_s, four) + rows.arg(u"B"_s, four), 2),
             QStringList{u"1 2 3 4 1 2 3 4 1 2 3 4 1 2 3 4 p1/1"_s});
}

void PagesTest::textStandsInForAMissingPicture()
{
    const QString letterhead =
        u"<seccion tipo=\"cabecera-pagina\" alto=\"10\"><imagen x=\"0\" y=\"0\" ancho=\"30\" alto=\"8\" "
        "fichero=\"membrete.png\" opcional=\"si\" estilo=\"n\">Casa {T.G}</imagen></seccion>"_s;
    QCOMPARE(pages(letterhead + detail(), 1), QStringList{u"Casa g1 1 p1/1"_s});

    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QVERIFY(picture.save(m_folder.filePath(u"membrete.png"_s)));

    QCOMPARE(pages(letterhead + detail(), 1), QStringList{u"1 p1/1"_s});
}

void PagesTest::sectionOfATallEmptyFieldCountsAsEmpty()
{
    const QString tall =
        u"<seccion tipo=\"detalle\" alto=\"50\" suprimir-vacia=\"si\"><campo x=\"0\" y=\"0\" ancho=\"60\" "
        "alto=\"40\" estilo=\"n\" expr=\"''\"/></seccion>"_s;

    QCOMPARE(pages(detail() + tall, 3), QStringList{u"1 2 3 p1/1"_s});
}

void PagesTest::fieldThatFailsPrintsEmptyAndCountsOnce()
{
    QCOMPARE(pages(detail(u"ToText(6 / ({T.N} - 1),0)"_s), 3), QStringList{u"6 3 p1/1"_s});
    QVERIFY(!m_document->pageText(0).isEmpty());
    QCOMPARE(m_document->notes(), u"1 registros con datos no válidos"_s);
}

void PagesTest::numberTooWideForItsPlaceShowsHashes()
{
    const auto field = [](const QString& attributes) {
        return u"<seccion tipo=\"detalle\" alto=\"8\"><campo x=\"0\" y=\"0\" ancho=\"10\" alto=\"4\" "
               "estilo=\"n\" %1/></seccion>"_s.arg(attributes);
    };

    QCOMPARE(pages(field(u"expr=\"1234\""_s), 1), QStringList{u"1.234 p1/1"_s});
    QCOMPARE(pages(field(u"expr=\"123456789\""_s), 1), QStringList{u"#### p1/1"_s});
    QCOMPARE(pages(field(u"expr=\"123456789\" crece=\"si\""_s), 1), QStringList{u"123.45 6.789 p1/1"_s});
    QCOMPARE(pages(field(u"expr=\"'123456789'\""_s), 1), QStringList{u"123456789 p1/1"_s});
}

void PagesTest::tooSmallAPageIsRefused()
{
    int code = 0;
    try {
        pages(detail() + section(u"tipo=\"cabecera-pagina\""_s, u"'x'"_s, 90));
    } catch (const Problem& problem) {
        code = problem.code();
    }
    QCOMPARE(code, static_cast<int>(kPageTooSmall));
}

void PagesTest::pdfHoldsPagesAndText()
{
    pages(detail(u"'Peña nº ' &amp; ToText({T.N},0)"_s), 12);
    const QString file = m_folder.filePath(u"salida.pdf"_s);
    QVERIFY(writePdf(*m_document, file, u"Título"_s));

    QProcess text;
    text.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    QVERIFY(text.waitForFinished());
    const QString found = QString::fromUtf8(text.readAllStandardOutput());
    QVERIFY2(found.contains(u"Peña nº 12"_s), qPrintable(found));
    QCOMPARE(found.count(u'\f'), 2);
    QProcess info;
    info.start(u"pdfinfo"_s, {file});
    QVERIFY(info.waitForFinished());
    QVERIFY(QString::fromUtf8(info.readAllStandardOutput()).contains(u"Título"_s));
}

void PagesTest::csvHoldsOneLineForEachRecord()
{
    pages(kGroup.arg(QString()) +
              u"<seccion tipo=\"detalle\" alto=\"4\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"4\" "
              "expr=\"{T.N} / 2\"/><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"4\" "
              "expr=\"'a;b'\"/></seccion>"_s,
          2);
    const QString name = m_folder.filePath(u"salida.csv"_s);
    QVERIFY(writeCsv(*m_document, name));
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             QByteArray("\xef\xbb\xbfG;{T.N} / 2;\"'a;b'\"\r\ng1;0,5;\"a;b\"\r\ng1;1;\"a;b\"\r\n"));
}

QTEST_MAIN(PagesTest)
#include "tst_pages.moc"
