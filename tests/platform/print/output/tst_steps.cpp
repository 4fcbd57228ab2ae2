// SPDX-License-Identifier: GPL-3.0-or-later
// A document made a step at a time: what it is between the steps, and what it takes and notes.
#include "platform/print/definition/read_xml.h"
#include "platform/print/output/exports.h"
#include "platform/print/storefixture.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class StepsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void stagesFollowEachOther();
    void cancelBeforeThePagesIsForGood();
    void cancelledPagesCanBeGoneOnWith();
    void pagePaintedMeanwhileChangesNothing();
    void pageListStaysUnderTwoKilobytesAPage();
    void totalIsKnownBeforeTheFirstPage();
    void whatCantBeCutIsNoted();
    void csvCountsVariablesFromTheirStart();
    void exportThatCantBeWrittenSaysSo();

private:
    /// A report over table T (fields G, N#): 30 rows in groups of 10, on pages whose body is 100 mm. Nothing
    /// is read yet.
    std::unique_ptr<Document> begun(const QString& elements, int rows = 30);
    static QStringList texts(Document& document);

    QTemporaryDir m_folder;
};

namespace {

QString section(const QString& attributes, const QString& expression, double height = 10)
{
    return u"<seccion %1 alto=\"%2\"><campo x=\"0\" y=\"0\" ancho=\"60\" alto=\"5\" expr=\"%3\"/></seccion>"_s
        .arg(attributes)
        .arg(height)
        .arg(expression);
}

QString detail(const QString& expression = u"ToText({T.N},0)"_s)
{
    return section(u"tipo=\"detalle\""_s, expression);
}

const QString kGroup = u"<grupo n=\"1\" campo=\"{T.G}\"/>"_s;

} // namespace

void StepsTest::initTestCase()
{
    std::vector<std::vector<Value>> rows;
    rows.reserve(30);
    for (int i = 0; i < 30; ++i)
        rows.push_back({u"g%1"_s.arg(i / 10 + 1), i + 1.0});
    givenTable(m_folder.filePath(u"T.MDB"_s), u"T"_s, {u"G"_s, u"N#"_s}, rows);
}

std::unique_ptr<Document> StepsTest::begun(const QString& elements, int rows)
{
    const QString xml =
        u"<informe version=\"1\" nombre=\"P\"><pagina papel=\"100 x 120\" margenes=\"10 5 10 5\"/>"
        "<tabla n=\"0\" alias=\"T\" fichero=\"T.MDB\"/>"
        "<seleccion><![CDATA[{T.N} <= %1]]></seleccion>%2</informe>"_s.arg(rows)
            .arg(elements);
    ReadReport read = readReport(xml.toUtf8());
    if (!read.report)
        qFatal("%s", qPrintable(read.faults.front().text));
    auto document = std::make_unique<Document>(std::make_unique<Report>(std::move(*read.report)),
                                               m_folder.path(), QDateTime(QDate(2024, 3, 5), QTime(10, 0)));
    document->begin({m_folder.filePath(u"T.MDB"_s)}, {});
    return document;
}

QStringList StepsTest::texts(Document& document)
{
    QStringList texts;
    for (int page = 0; page < document.pageCount(); ++page)
        texts += document.pageText(page).replace(u'\n', u' ');
    return texts;
}

void StepsTest::stagesFollowEachOther()
{
    const std::unique_ptr<Document> document = begun(detail());
    QVERIFY(document->isReading());
    QList<DocumentStage> stages{document->stage()};
    while (document->work(0)) {
        if (document->stage() != stages.last())
            stages += document->stage();
        // The stores are closed before anything is made of their rows.
        QVERIFY(document->stage() == DocumentStage::Reading || !document->isReading());
    }
    stages += document->stage();

    QCOMPARE(stages, (QList{DocumentStage::Reading, DocumentStage::Composing, DocumentStage::Complete}));
    QCOMPARE(document->rowsRead(), 30);
    QCOMPARE(document->pageCount(), 3);
}

void StepsTest::cancelBeforeThePagesIsForGood()
{
    const std::unique_ptr<Document> document = begun(detail());
    document->cancel();

    QVERIFY(!document->isReading());
    QVERIFY(!document->work(0));
    document->makeAllPages();
    QCOMPARE(document->stage(), DocumentStage::Cancelled);
    QCOMPARE(document->pageCount(), 0);
    QVERIFY(!writePdf(*document, m_folder.filePath(u"nada.pdf"_s), u"Nada"_s));
    QVERIFY(!QFile::exists(m_folder.filePath(u"nada.pdf"_s)));
}

void StepsTest::cancelledPagesCanBeGoneOnWith()
{
    const std::unique_ptr<Document> document = begun(detail());
    document->makeFirstPage();
    document->cancel();

    QCOMPARE(document->stage(), DocumentStage::Composing);
    QCOMPARE(document->pageCount(), 1);
    document->makeAllPages();
    QCOMPARE(document->pageCount(), 3);
}

void StepsTest::pagePaintedMeanwhileChangesNothing()
{
    // How high a line is depends on the page that it comes to stand on.
    const QString lines = section(u"tipo=\"cabecera-pagina\""_s, u"'hoja'"_s) + detail() +
                          section(u"tipo=\"detalle\" suprimir=\"PageNumber &lt;&gt; 2\""_s, u"'+'"_s);
    const std::unique_ptr<Document> plain = begun(lines);
    plain->makeAllPages();
    const std::unique_ptr<Document> painted = begun(lines);
    QImage image(10, 10, QImage::Format_RGB32);
    while (painted->work(0)) {
        QPainter painter(&image);
        if (painted->pageCount() > 0)
            painted->paint(painter, 0);
    }

    QCOMPARE(texts(*plain).value(1), u"hoja 10 + 11 + 12 + 13 +"_s);
    QCOMPARE(texts(*painted), texts(*plain));
}

void StepsTest::pageListStaysUnderTwoKilobytesAPage()
{
    // 60 lines on each page.
    QString lines;
    for (int i = 0; i < 60; ++i)
        lines += u"<seccion tipo=\"detalle\" alto=\"1.6\"><texto x=\"0\" y=\"0\" ancho=\"9\" "
                 "alto=\"1\">a</texto></seccion>"_s;
    const std::unique_ptr<Document> document = begun(lines);
    document->makeAllPages();

    QCOMPARE(document->pageCount(), 30);
    const qsizetype bytes = document->pageListBytes() / document->pageCount();
    QVERIFY2(bytes < 2048, qPrintable(QString::number(bytes)));
    QVERIFY2(bytes > qsizetype(60) * 12, qPrintable(QString::number(bytes))); // every line is counted
}

void StepsTest::totalIsKnownBeforeTheFirstPage()
{
    const std::unique_ptr<Document> document =
        begun(kGroup + detail(u"ToText(Sum({T.N}),0) &amp; '/' &amp; ToText(Sum({T.N},{T.G}),0)"_s));
    while (document->stage() == DocumentStage::Reading)
        document->work(0);

    for (const std::vector<formula::Value>& total : document->execution().records().view()->totals)
        QVERIFY(!total.empty());
    document->makeAllPages();
    QVERIFY(document->pageText(2).startsWith(u"465/255"_s));
}

void StepsTest::whatCantBeCutIsNoted()
{
    // One line of these letters takes 82 mm; 70 are left.
    const std::unique_ptr<Document> document =
        begun(u"<estilo id=\"grande\" letra=\"DejaVu Sans\" cuerpo=\"200\"/>"_s +
                  section(u"tipo=\"cabecera-pagina\""_s, u"''"_s, 30) +
                  u"<seccion tipo=\"detalle\" alto=\"10\"><campo x=\"0\" y=\"0\" ancho=\"90\" alto=\"10\" "
                  "estilo=\"grande\" crece=\"si\" expr=\"'A'\"/></seccion>"_s,
              1);
    document->makeAllPages();

    QCOMPARE(document->notes(), u"1 secciones recortadas"_s);
}

void StepsTest::csvCountsVariablesFromTheirStart()
{
    const std::unique_ptr<Document> document = begun(detail(u"NumberVar x; x := x + 1; x"_s), 2);
    const QString name = m_folder.filePath(u"cuenta.csv"_s);
    QVERIFY(writeCsv(*document, name));
    QVERIFY(writeCsv(*document, name));

    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY2(bytes.endsWith("\r\n1\r\n2\r\n"), bytes.constData());
    QCOMPARE(document->pageText(0), u"1\n2"_s);
}

void StepsTest::exportThatCantBeWrittenSaysSo()
{
    const std::unique_ptr<Document> document = begun(detail());
    QVERIFY(!writePdf(*document, m_folder.filePath(u"nada/x.pdf"_s), u"X"_s));
    QVERIFY(!writeCsv(*document, m_folder.filePath(u"nada/x.csv"_s)));
}

QTEST_MAIN(StepsTest)
#include "tst_steps.moc"
