// SPDX-License-Identifier: GPL-3.0-or-later
// The shipped reports and the two test reports, page by page, against kept texts and pictures. When a page is
// meant to change: ORVANE_RENEW_GOLDENS=1 ctest -R tst_print_golden, then look at what git shows.
#include "platform/print/golden/goldenfiles.h"
#include "platform/print/golden/reportroot.h"
#include "platform/system/clock.h"
#include "tools/orvane-informe/reporttool.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QHash>
#include <QPainter>
#include <QTest>
#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

namespace {

struct Case
{
    QString report;
    QStringList options = {};
    QString company = u"00012"_s;
    QList<int> pictured = {1}; ///< pages whose picture is kept
    bool letterhead = false;
};

QString formula(const QString& name, const QString& value)
{
    return u"%1=\"%2\""_s.arg(name, value);
}

QMap<QString, Case> cases()
{
    const QString zones = u"{ClientesTabla.ZonaCodigo} in '%1' to '%1'"_s;
    const QString month = u"Mid ({CONS.FEINICIO},4,2) = \"%1\""_s;
    const QString conservation = u"conservacion.rpt"_s;
    const QString summary = u"consultatec.rpt"_s;
    return {
        {u"conservacion-zona"_s,
         {conservation, {u"--where"_s, zones.arg(u"0000000003"_s)}, u"00012"_s, {1, 2, 3, 4}}},
        {u"conservacion-membrete"_s,
         {conservation, {u"--where"_s, zones.arg(u"0000000004"_s)}, u"00012"_s, {1}, true}},
        {u"conservacion-sin-precios"_s,
         {conservation,
          {u"--where"_s, zones.arg(u"0000000004"_s), u"--formula"_s, formula(u"PRECIOS"_s, u"NO"_s)}}},
        {u"conservacion-resumen-zona"_s,
         {conservation,
          {u"--where"_s, u"{ClientesTabla.ZonaCodigo} in '0000000004' to '0000000005'"_s, u"--formula"_s,
           formula(u"RESUMENZONA"_s, u"SI"_s)},
          u"00012"_s,
          {2, 5}}},
        {u"conservacion-resumen-sin-precios"_s,
         {conservation,
          {u"--where"_s, zones.arg(u"0000000004"_s), u"--formula"_s, formula(u"RESUMENZONA"_s, u"SI"_s),
           u"--formula"_s, formula(u"PRECIOS"_s, u"NO"_s)},
          u"00012"_s,
          {2}}},
        {u"conservacion-sin-datos"_s, {conservation, {u"--where"_s, zones.arg(u"9"_s)}}},
        {u"conservacion-empresa-vacia"_s, {conservation, {}, u"00034"_s}},
        {u"consultatec-mes"_s, {summary, {u"--where"_s, month.arg(u"03"_s)}, u"00012"_s, {1, 2, 3, 4}}},
        {u"consultatec-textos"_s,
         {summary,
          {u"--where"_s, month.arg(u"05"_s), u"--formula"_s, formula(u"TEXTOS"_s, u"SI"_s)},
          u"00012"_s,
          {1, 2}}},
        {u"consultatec-sin-datos"_s, {summary, {u"--where"_s, month.arg(u"13"_s)}}},
        {u"consultatec-empresa-vacia"_s, {summary, {}, u"00034"_s}},
        {u"clientes"_s, {u"clientes.rpt"_s, {}, u"00012"_s, {1, 2, 3}}},
        {u"clientes-desde-hasta"_s,
         {u"clientes.rpt"_s, {u"--where"_s, u"{ClientesTabla.CliCodigo} in '0000000011' to '0000000018'"_s}}},
        {u"clientes-sin-datos"_s, {u"clientes.rpt"_s, {}, u"00034"_s}},
        {u"clientestipo"_s, {u"clientestipo.rpt"_s, {}, u"00012"_s, {1, 2}}},
        {u"clientestipo-desde-hasta"_s,
         {u"clientestipo.rpt"_s, {u"--where"_s, u"{ClientesTabla.TipoClienteCodigo} in '0003' to '9999'"_s}}},
        {u"clientestipo-sin-datos"_s, {u"clientestipo.rpt"_s, {}, u"00034"_s}},
        {u"todo"_s, {u"todo.rpt"_s, {u"--where"_s, month.arg(u"05"_s)}, u"00012"_s, {1, 2, 3, 4}}},
        {u"dos-subinformes"_s,
         {u"dos-subinformes.rpt"_s,
          {u"--where"_s, u"{ClientesTabla.CliCodigo} in '0000000011' to '0000000013'"_s},
          u"00012"_s,
          {1, 2}}},
    };
}

/// A drawing of three times its height, as is the place for it.
void drawLetterhead(const QString& path)
{
    QImage picture(300, 100, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.fillRect(0, 0, 100, 100, Qt::darkGray);
    painter.fillRect(110, 40, 190, 20, Qt::gray);
    painter.end();
    picture.save(path);
}

} // namespace

class GoldenTest : public QObject
{
    Q_OBJECT

public:
    GoldenTest();

    static void initMain();

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void onlyThePinnedLettersAreThere();
    void textIsTheKeptOne_data();
    void textIsTheKeptOne();
    void pageLooksLikeTheKeptOne_data();
    void pageLooksLikeTheKeptOne();
    void letterheadLosesNothingInThePdf();
    void everyKeptFileHasItsCase();
    void changedTextIsToldByItsLine();
    void changedPictureIsToldAndShown();
    void pictureWithoutItsFineRuleIsTold();
    void pictureOfAnotherSizeIsTold();

private:
    /// The case as PDF; made once.
    QString pdf(const QString& name);
    [[nodiscard]] QImage picture(const QString& name, int page);
    [[nodiscard]] static QString pictureName(const QString& name, int page);

    QString m_source;
    ReportRoot m_root;
    GoldenFiles m_golden;
    QHash<QString, QString> m_pdfs;
};

/// The letters are chosen before the application asks which there are.
void GoldenTest::initMain()
{
    qputenv("FONTCONFIG_FILE", ORVANE_GOLDEN_DIR "/fonts.conf");
}

GoldenTest::GoldenTest()
    : m_source(QString::fromUtf8(ORVANE_GOLDEN_DIR))
    , m_root(m_source + u"/data"_s)
    , m_golden(m_source + u"/kept"_s, QString::fromUtf8(ORVANE_GOLDEN_ACTUAL_DIR),
               qEnvironmentVariableIsSet(kRenewVariable))
{}

void GoldenTest::initTestCase()
{
    setClock([] { return QDateTime(QDate(2024, 6, 7), QTime(9, 30)); });
    QDir(QString::fromUtf8(ORVANE_GOLDEN_ACTUAL_DIR)).removeRecursively();
}

void GoldenTest::cleanupTestCase()
{
    setClock({});
}

QString GoldenTest::pdf(const QString& name)
{
    QString& file = m_pdfs[name];
    if (!file.isEmpty())
        return file;
    const Case wanted = cases().value(name);
    const QString shipped = QString::fromUtf8(ORVANE_REPORTS_DIR) + u'/' + wanted.report;
    const QString source =
        QFile::exists(shipped) ? shipped : QFileInfo(m_source).path() + u"/reports/"_s + wanted.report;
    file = m_root.path(name + u".pdf"_s);
    QString out;
    QTextStream stream(&out);
    const QString report = m_root.withReport(source, name);
    if (wanted.letterhead)
        drawLetterhead(QFileInfo(report).path() + u"/membrete.png"_s);
    const QStringList arguments{u"render"_s,    report,         u"--data"_s, m_root.path(),
                                u"--company"_s, wanted.company, u"--pdf"_s,  file};
    if (orvane::tools::runReportTool(arguments + wanted.options, stream, stream) != 0)
        qWarning("%s", qPrintable(out));
    return file;
}

QString GoldenTest::pictureName(const QString& name, int page)
{
    return u"%1-%2.png"_s.arg(name).arg(page);
}

QImage GoldenTest::picture(const QString& name, int page)
{
    const QString number = QString::number(page);
    return QImage::fromData(
        outputOf(u"pdftoppm"_s, {u"-r"_s, u"50"_s, u"-png"_s, u"-f"_s, number, u"-l"_s, number, pdf(name)}));
}

void GoldenTest::onlyThePinnedLettersAreThere()
{
    QStringList families = QFontDatabase::families();
    families.removeIf([](const QString& family) {
        return family == u"Monospace" || family == u"Sans Serif" || family == u"Serif"; // stand for others
    });

    QCOMPARE(families, QStringList{u"DejaVu Sans"_s});
}

void GoldenTest::textIsTheKeptOne_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : cases().keys())
        QTest::newRow(qPrintable(name)) << name;
}

void GoldenTest::textIsTheKeptOne()
{
    QFETCH(const QString, name);

    const QByteArray text = outputOf(u"pdftotext"_s, {u"-layout"_s, pdf(name), u"-"_s});

    const QString difference = m_golden.compareText(name + u".txt"_s, QString::fromUtf8(text));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void GoldenTest::pageLooksLikeTheKeptOne_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("page");
    const QMap<QString, Case> all = cases();
    for (auto entry = all.begin(); entry != all.end(); ++entry) {
        for (const int page : entry->pictured)
            QTest::newRow(qPrintable(pictureName(entry.key(), page))) << entry.key() << page;
    }
}

void GoldenTest::pageLooksLikeTheKeptOne()
{
    QFETCH(const QString, name);
    QFETCH(const int, page);

    const QImage shown = picture(name, page);

    QVERIFY2(!shown.isNull(), "the report has no such page");
    const QString difference = m_golden.comparePicture(pictureName(name, page), shown);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void GoldenTest::letterheadLosesNothingInThePdf()
{
    const QByteArray images = outputOf(u"pdfimages"_s, {u"-list"_s, pdf(u"conservacion-membrete"_s)});

    QVERIFY2(images.contains(" 300   100 "), images.constData());
    QVERIFY2(!images.contains("jpeg"), images.constData());
}

void GoldenTest::everyKeptFileHasItsCase()
{
    QStringList expected;
    const QMap<QString, Case> all = cases();
    for (auto entry = all.begin(); entry != all.end(); ++entry) {
        expected += entry.key() + u".txt"_s;
        for (const int page : entry->pictured)
            expected += pictureName(entry.key(), page);
    }
    expected.sort();

    QStringList kept = QDir(m_source + u"/kept"_s).entryList(QDir::Files);
    kept.sort();

    QCOMPARE(kept, expected);
}

void GoldenTest::changedTextIsToldByItsLine()
{
    const QTemporaryDir actual;
    const GoldenFiles golden(m_source + u"/data"_s, actual.path(), false);
    QFile kept(m_source + u"/data/EMP.txt"_s);
    QVERIFY(kept.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(kept.readAll());
    QCOMPARE(golden.compareText(u"EMP.txt"_s, text), QString());

    const QString changed = QString(text).replace(u"Peña"_s, u"Pena"_s);
    const QString difference = golden.compareText(u"EMP.txt"_s, changed);

    QVERIFY2(difference.startsWith(u"EMP.txt:3: kept «00012|Climatización y Servicios Peña, S.L.», now "
                                   "«00012|Climatización y Servicios Pena, S.L.»; now: "_s),
             qPrintable(difference));
    QVERIFY(difference.contains(u"renew with ORVANE_RENEW_GOLDENS=1"_s));
    QFile left(actual.filePath(u"EMP.txt"_s));
    QVERIFY(left.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(left.readAll()), changed);
    QVERIFY(golden.compareText(u"EMP.txt"_s, text + u"x"_s).contains(u"EMP.txt:5: kept «», now «x»"_s));
}

void GoldenTest::changedPictureIsToldAndShown()
{
    const QTemporaryDir folder;
    QImage page(200, 100, QImage::Format_RGB32);
    page.fill(Qt::white);
    QVERIFY(page.save(folder.filePath(u"p.png"_s)));
    const GoldenFiles golden(folder.path(), folder.filePath(u"now"_s), false);
    page.setPixel(3, 4, qRgb(250, 250, 250));
    QCOMPARE(golden.comparePicture(u"p.png"_s, page), QString());

    for (int x = 20; x < 60; ++x)
        page.setPixel(x, 50, qRgb(0, 0, 0));
    const QString difference = golden.comparePicture(u"p.png"_s, page);

    QVERIFY2(difference.startsWith(u"p.png: 0.20 % of the points differ; now: "_s), qPrintable(difference));
    QCOMPARE(QImage(folder.filePath(u"now/p.png"_s)).pixel(20, 50), qRgb(0, 0, 0));
    const QImage marked(folder.filePath(u"now/p.differs.png"_s));
    QCOMPARE(marked.pixel(20, 50), qRgb(255, 0, 0));
    QCOMPARE(marked.pixel(20, 51), qRgb(255, 255, 255));
}

/// A rule of a tenth of a millimetre is pale at this resolution, and still it may not go unseen.
void GoldenTest::pictureWithoutItsFineRuleIsTold()
{
    QImage page(413, 585, QImage::Format_RGB32);
    page.fill(Qt::white);
    const QImage bare = page;
    for (int x = 24; x < 390; ++x)
        page.setPixel(x, 300, qRgb(236, 236, 236));
    const QTemporaryDir folder;
    QVERIFY(page.save(folder.filePath(u"p.png"_s)));

    const GoldenFiles golden(folder.path(), folder.path(), false);

    QVERIFY(!golden.comparePicture(u"p.png"_s, bare).isEmpty());
}

void GoldenTest::pictureOfAnotherSizeIsTold()
{
    const QTemporaryDir folder;
    QImage page(20, 10, QImage::Format_RGB32);
    page.fill(Qt::white);
    QVERIFY(page.save(folder.filePath(u"p.png"_s)));
    const GoldenFiles golden(folder.path(), folder.filePath(u"now"_s), false);

    QVERIFY(golden.comparePicture(u"p.png"_s, page.copy(0, 0, 20, 9))
                .startsWith(u"p.png: kept 20 x 10 points, now 20 x 9"_s));
    QVERIFY(golden.comparePicture(u"q.png"_s, page).startsWith(u"q.png: no kept picture"_s));
}

QTEST_MAIN(GoldenTest)
#include "tst_golden.moc"
