// SPDX-License-Identifier: GPL-3.0-or-later
// The letters of the suite's code page that plain ASCII and most fonts' hurried testers forget, on their
// whole road: typed by keys in the program's own windows, saved, in the stores' bytes, read back by a new
// run, looked up, on the screen, on paper, exported, and in a copy of the data.
#include "reports/keyboard.h"
#include "reports/programkeys.h"
#include "reports/reportroot.h"
#include "reports/storerows.h"
#include "support/fixedclock.h"
#include "tools/data/demofolder.h"

#include "lookup/lisemwindow.h"
#include "platform/dao/dao.h"
#include "platform/print/output/printers.h"
#include "platform/window/flexgrid.h"
#include "platform/window/multilinebox.h"
#include "platform/window/tabpages.h"
#include "platform/window/textbox.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"
#include "shell/windows.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTest>
#include <QXmlStreamReader>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace reporttest;
using platform::FlexGrid;
using platform::MultiLineBox;
using platform::TextBox;
using platform::print::PreviewWindow;

namespace {

/// All characters of the code page's places 0x80 to 0x9F, and others that Spanish needs.
const QString kRare = u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"_s;
const QString kSpanish = u"ñçáü·«»Ñ"_s;
const QString kName = kRare + kSpanish; // as long as the column
const QString kTelephoneContact = u"Begoña «Žižek» – 50 €"_s;
const QString kTown = u"l’Hospitalet · Œuvre…"_s;
const QString kWarehouse = u"Nave nº 7 – «Ñ»"_s;
const QString kSubject = u"¿Señal “roja” a 30 ‰?"_s;
const QString kQuestion = u"Año — ž, š, ƒ, †, ‡"_s;
const QString kAnswer = u"Sí: ‹cámbielo› • 120 €™"_s;
const QString kConcept = u"Revisión «ž» … 120 €"_s;
const QString kUser = u"Íñigo Ž€"_s;
const QString kCompany = u"Cañas «Ÿ» – €"_s;

/// Each letter a word of its own, so that it can be found on paper.
QString spaced(const QString& letters)
{
    QStringList words;
    for (const QChar letter : letters)
        words.append(letter);
    return words.join(u' ');
}

const QString kCommercialName = spaced(kRare.left(25)); // 49 of 50 characters
const QString kAddress = spaced(kRare.mid(25) + kSpanish);

QString hex(const QString& text)
{
    return QString::fromLatin1(text.toUtf8().toHex().toUpper());
}

template <typename T>
T* child(QWidget& window, const QString& name)
{
    T* found = window.findChild<T*>(name);
    if (found == nullptr)
        qFatal("no control %s", qPrintable(name));
    return found;
}

void fill(QWidget& window, const QString& name, const QString& text)
{
    QVERIFY2(tabTo(child<QWidget>(window, name)), qPrintable(name));
    typeAnew(text);
}

/// Types over a cell of a grid on the page that is up, going there by keys.
void fillCell(QWidget& window, const QString& name, int row, int col, const QString& text)
{
    auto* grid = child<FlexGrid>(window, name);
    QVERIFY(tabTo(grid));
    pressKey(Qt::Key_Home, Qt::ControlModifier);
    while (grid->row() < row)
        pressKey(Qt::Key_Down);
    while (grid->col() < col)
        pressKey(Qt::Key_Right);
    type(text);
    pressKey(Qt::Key_Return);
    QTRY_VERIFY(grid->hasFocus());
}

void turnPages(int times)
{
    for (int turn = 0; turn < times; ++turn)
        pressKey(Qt::Key_Tab, Qt::ControlModifier);
}

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput();
}

/// A letter's place on a page, in points, and the page from 1.
struct Drawn
{
    int page = 0;
    QRectF place;
};

/// The words of one character of a PDF file, each where it stands first.
QMap<QString, Drawn> lettersOf(const QString& file)
{
    QMap<QString, Drawn> found;
    int page = 0;
    QXmlStreamReader words(outputOf(u"pdftotext"_s, {u"-bbox"_s, file, u"-"_s}));
    while (!words.atEnd()) {
        if (words.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (words.name() == u"page")
            ++page;
        if (words.name() != u"word")
            continue;
        const QXmlStreamAttributes sides = words.attributes();
        const auto side = [&sides](const QString& name) { return sides.value(name).toDouble(); };
        const QRectF place(QPointF(side(u"xMin"_s), side(u"yMin"_s)),
                           QPointF(side(u"xMax"_s), side(u"yMax"_s)));
        const QString word = words.readElementText();
        if (word.size() == 1 && !found.contains(word))
            found.insert(word, {page, place});
    }
    return found;
}

/// The ink of a part of a page, at 20 dots a point, cut to where there is any.
QImage inkOf(const QString& file, const Drawn& letter)
{
    constexpr int kDotsAnInch = 360;
    constexpr double kDotsAPoint = kDotsAnInch / 72.0;
    const QRect place(QPointF(letter.place.topLeft() * kDotsAPoint).toPoint(),
                      QSizeF(letter.place.size() * kDotsAPoint).toSize());
    const QString page = QString::number(letter.page);
    const QByteArray picture = outputOf(
        u"pdftoppm"_s, {u"-gray"_s, u"-r"_s, QString::number(kDotsAnInch), u"-f"_s, page, u"-l"_s, page,
                        u"-x"_s, QString::number(place.x()), u"-y"_s, QString::number(place.y()), u"-W"_s,
                        QString::number(place.width()), u"-H"_s, QString::number(place.height()), file});
    const QImage image = QImage::fromData(picture, "PGM");
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128)
                ink |= QRect(x, y, 1, 1);
    return ink.isEmpty() ? QImage() : image.copy(ink);
}

} // namespace

class SpanishLettersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup() { endRun(); }

    void storesHoldEveryLetterAsTheyAreDocumented();
    void newRunReadsEveryLetterBack();
    void companyAndUserBearTheirLetters();
    void everyLetterIsFoundByTheLookup();
    void paperBearsEveryLetter();
    void everyLetterIsDrawnInItsOwnShape();
    void recordsAreExportedWithEveryLetter();
    void copyOfTheDataBearsEveryLetter();

private:
    void beginRun();
    void endRun();
    void writeAsTheSuite() const;
    /// Changes the client and writes a consultation of his, by keys alone.
    void typeAll(climant& window);
    [[nodiscard]] QString exported(const QString& name);
    [[nodiscard]] QString clients() const { return m_root->path(u"Empresa00012/Clientes.mdb"_s); }

    std::unique_ptr<tooltest::DemoFolder> m_root;
    QTemporaryDir m_output;
    QString m_formerFolder;
    testsupport::FixedClock m_clock{QDate(2026, 11, 20), QTime(10, 0)};
    std::unique_ptr<STMAIN> m_main;
    ExpectedNote m_client;  ///< the one who gets the letters
    QString m_consultation; ///< its number
};

/// What the suite writes and this program only reads: the company's name and the client's concepts.
void SpanishLettersTest::writeAsTheSuite() const
{
    using namespace platform::dao;
    const auto change = [](const QString& file, const QString& table, QStringView key, const QString& value,
                           QStringView column, const QString& text) {
        Database base = DBEngine().Workspaces(0).OpenDatabase(file);
        Recordset rows = base.OpenRecordset(table, dbOpenTable);
        for (rows.MoveFirst(); !rows.EOF_(); rows.MoveNext()) {
            if (rows[key].Value() != platform::Value(value))
                continue;
            rows.Edit();
            rows[column].setValue(text);
            rows.Update();
        }
        rows.Close();
        base.Close();
    };
    change(m_root->path(u"Empresas de Quenda.mdb"_s), u"EMP"_s, u"MENUMEMPRESA", u"00012"_s, u"MENOMBRE",
           kCompany);
    change(clients(), u"clientescyctabla"_s, u"clientescyccliente", m_client.client, u"clientescycdescrip",
           kConcept);
}

void SpanishLettersTest::initTestCase()
{
    m_formerFolder = QDir::currentPath();
    m_root = std::make_unique<tooltest::DemoFolder>();
    QVERIFY(QDir::setCurrent(m_root->path()));
    const QList<ExpectedNote> notes = expectedNotes(m_root->path(u"Empresa00012"_s));
    m_client = *std::find_if(notes.begin(), notes.end(),
                             [](const ExpectedNote& note) { return note.zone.size() == 10; });
    platform::setPrinterSource([] { return platform::PrinterList{{{u"Láser"_s, {}, {}}}, 0}; });
    shell::installLookup();
    writeAsTheSuite();
    beginRun();

    QVERIFY(inClients([this](climant& window) { typeAll(window); }));

    QVERIFY(!m_consultation.isEmpty());
    endRun();
}

void SpanishLettersTest::cleanupTestCase()
{
    platform::setPrinterSource({});
    QDir::setCurrent(m_formerFolder);
}

void SpanishLettersTest::beginRun()
{
    resetProgramState();
    m_main = std::make_unique<STMAIN>(u"00012 "_s + kUser, shell::windowLinks());
    m_main->load();
    QVERIFY(turnTo(*m_main));
}

void SpanishLettersTest::endRun()
{
    unloadWindows();
    m_main.reset();
    resetProgramState();
}

void SpanishLettersTest::typeAll(climant& window)
{
    typeAnew(m_client.client);
    pressKey(Qt::Key_Tab);
    fill(window, u"Text51"_s, kName);
    fill(window, u"Text4"_s, kAddress);
    fill(window, u"Text40"_s, kCommercialName);
    fillCell(window, u"vsFlexGrid4"_s, 1, 3, kTelephoneContact);
    turnPages(1);
    fillCell(window, u"vsFlexGrid1"_s, 1, 0, kWarehouse);
    fillCell(window, u"vsFlexGrid1"_s, 1, 2, kTown);
    turnPages(2);
    m_consultation = child<TextBox>(window, u"Text10"_s)->text();
    fill(window, u"Text11"_s, kSubject);
    fill(window, u"Text12"_s, kQuestion);
    fill(window, u"Text13"_s, kAnswer);
    pressKey(Qt::Key_R, Qt::AltModifier);
    pressKey(Qt::Key_G, Qt::AltModifier);
    QCOMPARE(child<TextBox>(window, u"Text51"_s)->text(), QString()); // saved
}

void SpanishLettersTest::storesHoldEveryLetterAsTheyAreDocumented()
{
    const QByteArray where = m_client.client.toLatin1().toHex();
    const auto one = [this](const QString& file, const QByteArray& query) {
        const QList<QStringList> rows = storeRows(m_root->path(file), query.constData());
        return rows.isEmpty() ? QStringList() : rows.constFirst();
    };

    QCOMPARE(one(u"Empresa00012/Clientes.mdb"_s,
                 "SELECT hex(CliNombre), hex(CliNomComercial), hex(CliDireccion) FROM ClientesTabla "
                 "WHERE hex(CliCodigo)='" +
                     where + "'"),
             (QStringList{hex(kName), hex(kCommercialName), hex(kAddress)}));
    QVERIFY(!one(u"Empresa00012/Clientes.mdb"_s,
                 "SELECT 1 FROM CLIDIRENVIOS WHERE hex(CLIENVILOCALIDAD)='" + hex(kTown).toLatin1() + "'")
                 .isEmpty());
    QVERIFY(!one(u"TELEFONOS DE CLIENTES.MDB"_s,
                 "SELECT 1 FROM TELEFON WHERE hex(TELECONTACTO)='" + hex(kTelephoneContact).toLatin1() + "'")
                 .isEmpty());
    QCOMPARE(one(u"Empresa00012/ASISTENCIAS.MDB"_s,
                 "SELECT hex(TEMA), hex(DESCRIPCION), hex(SOLUCION), hex(TECNICO) FROM CONS WHERE ORDEN=" +
                     QByteArray::number(m_consultation.toInt())),
             (QStringList{hex(kSubject), hex(kQuestion), hex(kAnswer), hex(kUser)}));
    QVERIFY2(m_root->check().faults().isEmpty(), qPrintable(m_root->check().out));
}

void SpanishLettersTest::newRunReadsEveryLetterBack()
{
    beginRun();

    QVERIFY(inClients([this](climant& window) {
        typeAnew(m_client.client);
        pressKey(Qt::Key_Tab);

        QCOMPARE(child<TextBox>(window, u"Text51"_s)->text(), kName);
        QCOMPARE(child<TextBox>(window, u"Text40"_s)->text(), kCommercialName);
        QCOMPARE(child<TextBox>(window, u"Text4"_s)->text(), kAddress);
        QCOMPARE(child<FlexGrid>(window, u"vsFlexGrid4"_s)->textMatrix(1, 3), kTelephoneContact);
        const auto* addresses = child<FlexGrid>(window, u"vsFlexGrid1"_s);
        QStringList towns;
        for (int row = 1; row < addresses->rows(); ++row)
            towns.append(addresses->textMatrix(row, 2));
        QVERIFY2(towns.contains(kTown), qPrintable(towns.join(u'|')));
        QCOMPARE(child<FlexGrid>(window, u"vsFlexGrid3"_s)->textMatrix(1, 1), kConcept);

        turnPages(3);
        auto* tree = child<platform::TreeView>(window, u"TreeView1"_s);
        tree->expandAll();
        const QList<QTreeWidgetItem*> nodes =
            tree->findItems(m_consultation, Qt::MatchStartsWith | Qt::MatchRecursive);
        QCOMPARE(nodes.size(), 1);
        QVERIFY2(nodes.first()->text(0).contains(kSubject), qPrintable(nodes.first()->text(0)));
        tree->scrollToItem(nodes.first());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(nodes.first()).center());
        QCOMPARE(child<TextBox>(window, u"Text11"_s)->text(), kSubject);
        QCOMPARE(child<MultiLineBox>(window, u"Text12"_s)->text(), kQuestion);
        QCOMPARE(child<MultiLineBox>(window, u"Text13"_s)->text(), kAnswer);
        QCOMPARE(child<FlexGrid>(window, u"vsFlexGrid6"_s)->textMatrix(1, 2), kUser);
    }));
}

void SpanishLettersTest::companyAndUserBearTheirLetters()
{
    beginRun();

    QCOMPARE(USUARIO, kUser);
    auto* companies = child<QComboBox>(*m_main, u"Idioma"_s);
    QVERIFY2(companies->currentText().endsWith(kCompany), qPrintable(companies->currentText()));
}

void SpanishLettersTest::everyLetterIsFoundByTheLookup()
{
    beginRun();
    QStringList missed;
    QString shown;

    QVERIFY(inClients([&](climant& window) {
        onceActive<LISEM>([&](LISEM& lookup) {
            auto* grid = child<FlexGrid>(lookup, u"busi"_s);
            for (const QChar letter : kName) {
                QVERIFY(tabTo(child<TextBox>(lookup, u"Text1"_s)));
                typeAnew(letter);
                pressKey(Qt::Key_Return);
                QStringList names;
                for (int row = 1; row < grid->rows(); ++row)
                    names.append(grid->textMatrix(row, 1));
                if (!names.contains(kName))
                    missed.append(letter);
            }
            for (int row = 1; row < grid->rows(); ++row)
                shown += grid->textMatrix(row, 1);
            lookup.unload();
        });
        QVERIFY(tabTo(child<QWidget>(window, u"Text49"_s)));
        typeAnew(u""_s);
        pressKey(Qt::Key_Delete);
        pressKey(Qt::Key_Return); // returns when the lookup has closed
    }));

    QCOMPARE(missed.join(u' '), QString());
    QVERIFY(shown.contains(kName));
}

/// The path of the notes of the client's zone, exported from the preview under a name.
QString SpanishLettersTest::exported(const QString& name)
{
    const QString file = m_output.filePath(name);
    beginRun();
    const bool left = inRevision(m_client.zone, [&file](reports::LISTA&) {
        if (PreviewWindow* shown = openPreview()) {
            static_cast<void>(pagesOf(shown));
            exportTo(*shown, file);
        }
    });
    endRun();
    return left && QFile::exists(file) ? file : QString();
}

void SpanishLettersTest::paperBearsEveryLetter()
{
    const auto together = [](QString text) { return text.remove(u' '); };

    const QString text = together(pdfText(exported(u"papel.pdf"_s)));

    for (const QString& wanted : {kName, kCommercialName, kAddress, kConcept, kCompany})
        QVERIFY2(text.contains(together(wanted)), qPrintable(wanted));
}

/// A letter that no font has is drawn as a box, the same for all of them.
void SpanishLettersTest::everyLetterIsDrawnInItsOwnShape()
{
    const QString file = exported(u"letras.pdf"_s);
    const QMap<QString, Drawn> letters = lettersOf(file);

    QMap<QString, QImage> shapes;
    for (const QChar letter : kName) {
        QVERIFY2(letters.contains(letter), qPrintable(QString(letter)));
        const QImage ink = inkOf(file, letters.value(letter));
        QVERIFY2(!ink.isNull(), qPrintable(QString(letter)));
        for (auto other = shapes.cbegin(); other != shapes.cend(); ++other)
            QVERIFY2(other.value() != ink, qPrintable(other.key() + letter));
        shapes.insert(letter, ink);
    }
}

void SpanishLettersTest::recordsAreExportedWithEveryLetter()
{
    QFile file(exported(u"registros.csv"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());

    QVERIFY2(text.contains(kConcept), qPrintable(text));
}

void SpanishLettersTest::copyOfTheDataBearsEveryLetter()
{
    const QString copy = m_output.filePath(u"copia ñ€"_s);
    const QString restored = m_output.filePath(u"vuelta «ž»"_s);

    for (const QStringList& arguments :
         {QStringList{u"backup"_s, m_root->path(), copy}, QStringList{u"verify"_s, copy},
          QStringList{u"restore"_s, copy, restored}}) {
        const tooltest::ToolRun run = tooltest::runTool(arguments);
        QVERIFY2(run.exitCode == 0, qPrintable(run.err + run.out));
    }

    const auto names = [](const QString& file) {
        return storeRows(
            file, "SELECT hex(CliNombre), hex(CliNomComercial) FROM ClientesTabla ORDER BY hex(CliCodigo)");
    };
    QCOMPARE(names(restored + u"/Empresa00012/Clientes.mdb"_s), names(clients()));
    QVERIFY(names(clients()).contains(QStringList{hex(kName), hex(kCommercialName)}));
}

QTEST_MAIN(SpanishLettersTest)
#include "tst_spanishletters.moc"
