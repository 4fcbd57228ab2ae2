// SPDX-License-Identifier: GPL-3.0-or-later
// The two reports of the main window from end to end, by the keys alone: the program's own windows on a demo
// data root, its own print engine and report files, real queues. What comes out is held against the rows of
// the stores.
#include "reports/cupsserver.h"
#include "reports/keyboard.h"
#include "reports/programkeys.h"
#include "reports/reportroot.h"
#include "reports/storerows.h"
#include "support/fixedclock.h"
#include "support/messagerecorder.h"
#include "tools/data/demofolder.h"

#include "platform/print/output/printers.h"
#include "platform/window/combolist.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"
#include "shell/windows.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace reporttest;
using platform::print::PreviewWindow;
using reports::LISTA;

class KeyboardReportsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void zoneIsPreviewedWithItsNotesAndNoOther();
    void zoneIsPrintedTwiceInThreeCollatedCopies();
    void zoneIsExportedWithItsNotesAndNoOther();
    void printerIsChosenByEnter();
    void monthIsExportedBesideTheClientWindow();
    void monthStartsOnThePresentOne();

private:
    /// Does what is to be done in "Albaranes de Revisión", with the zone in both boxes.
    void revision(const std::function<void(LISTA&)>& work);
    /// Opens "Resumen Gestión Sat" and leaves it standing.
    LISTA* summary();
    /// Presses Alt+I and waits for the button to act.
    static void print(const LISTA& window);
    [[nodiscard]] QList<ExpectedNote> notesOfTheZone() const;

    QTemporaryDir m_folder;
    QString m_formerFolder;
    std::unique_ptr<CupsServer> m_cups;
    std::unique_ptr<testsupport::FixedClock> m_clock;
    testsupport::MessageRecorder m_messages;
    std::unique_ptr<STMAIN> m_main;
    QList<ExpectedNote> m_notes;
    QList<ExpectedConsultation> m_consultations;
    QString m_zone;  ///< the one with the most notes
    QString m_month; ///< the one with the most consultations that isn't the present one
};

namespace {

/// A value that comes most often.
QString mostFrequent(const QStringList& values)
{
    return *std::max_element(values.begin(), values.end(), [&](const QString& a, const QString& b) {
        return values.count(a) < values.count(b);
    });
}

/// The text after `start` holds the parts one after the other.
bool holdsInOrder(const QString& text, QStringView start, const QStringList& parts)
{
    qsizetype at = text.indexOf(start);
    for (const QString& part : parts) {
        if (at < 0)
            return false;
        at = text.indexOf(part, at);
        at += at < 0 ? 0 : part.size();
    }
    return at >= 0;
}

/// Pages of a text from `pdfText`.
QStringList pagesOfText(const QString& text)
{
    return text.split(u'|', Qt::SkipEmptyParts);
}

/// Compares the pages of notes with those that the stores call for: each client's in its place, no other's.
void compareNotes(const QStringList& pages, const QList<ExpectedNote>& expected)
{
    static const QRegularExpression reference(u"Ref\\.: (\\S+)-\\d{6}"_s);
    QStringList clients;
    QHash<QString, QString> texts;
    for (const QString& page : pages) {
        const QString client = reference.match(page).captured(1);
        if (clients.isEmpty() || clients.last() != client)
            clients.append(client);
        texts[client] += page;
    }
    QStringList expectedClients;
    for (const ExpectedNote& note : expected)
        expectedClients.append(note.client);
    QCOMPARE(clients, expectedClients);
    for (const ExpectedNote& note : expected) {
        const QString text = texts.value(note.client);
        QVERIFY2(text.contains(note.name.simplified()), qPrintable(text));
        QVERIFY2(text.contains(u"Zona "_s + note.zone), qPrintable(text));
        QVERIFY2(holdsInOrder(text, u"Artículo", note.articles), qPrintable(text));
        QVERIFY2(text.contains(u"Conceptos: %1 "_s.arg(note.articles.size())), qPrintable(text));
        QVERIFY2(text.contains(u"Importe total (sin IVA) "_s + spanishAmount(note.cents)), qPrintable(text));
    }
}

} // namespace

void KeyboardReportsTest::initTestCase()
{
    m_cups = std::make_unique<CupsServer>();
    QVERIFY2(m_cups->isRunning(), m_cups->log().constData());
    for (const QString& queue : {u"Oficina"_s, u"Taller"_s})
        QVERIFY2(m_cups->addQueue(queue), m_cups->log().constData());
    QVERIFY(m_cups->makeDefault(u"Oficina"_s));

    const QString root = m_folder.filePath(u"datos"_s);
    const tooltest::ToolRun made = tooltest::runTool({u"demo"_s, root, u"--size"_s, u"60"_s});
    QVERIFY2(made.exitCode == 0, qPrintable(made.err));
    m_formerFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(root));

    m_notes = expectedNotes(root + u"/Empresa00012"_s);
    m_consultations = expectedConsultations(root + u"/Empresa00012"_s);
    QStringList zones;
    for (const ExpectedNote& note : std::as_const(m_notes))
        if (note.zone.size() == 10)
            zones.append(note.zone);
    m_zone = mostFrequent(zones);
    QStringList months;
    for (const ExpectedConsultation& row : std::as_const(m_consultations))
        months.append(row.month());
    m_month = mostFrequent(months);
    // The day is such that the month must be chosen.
    m_clock =
        std::make_unique<testsupport::FixedClock>(QDate(2026, m_month.toInt() % 12 + 1, 5), QTime(10, 0));
    shell::installLookup();
}

void KeyboardReportsTest::cleanupTestCase()
{
    m_clock.reset();
    QDir::setCurrent(m_formerFolder);
    m_cups.reset();
}

void KeyboardReportsTest::init()
{
    platform::setPrinterSource({}); // forgets the choice of the test before
    m_messages.clear();
    resetProgramState();
    m_main = std::make_unique<STMAIN>(u"00012 ana"_s, shell::windowLinks());
    m_main->load();
    QVERIFY(turnTo(*m_main));
}

void KeyboardReportsTest::cleanup()
{
    unloadWindows();
    m_main.reset();
    resetProgramState();
    QVERIFY(previews().isEmpty());
}

QList<ExpectedNote> KeyboardReportsTest::notesOfTheZone() const
{
    QList<ExpectedNote> notes;
    std::copy_if(m_notes.begin(), m_notes.end(), std::back_inserter(notes),
                 [this](const ExpectedNote& note) { return note.zone == m_zone; });
    return notes;
}

void KeyboardReportsTest::revision(const std::function<void(LISTA&)>& work)
{
    QVERIFY(inRevision(m_zone, work));
}

LISTA* KeyboardReportsTest::summary()
{
    pressKey(Qt::Key_L, Qt::AltModifier);
    pressKey(Qt::Key_Return);
    const auto isUp = [] { return qobject_cast<LISTA*>(QApplication::activeWindow()) != nullptr; };
    return QTest::qWaitFor(isUp) ? qobject_cast<LISTA*>(QApplication::activeWindow()) : nullptr;
}

void KeyboardReportsTest::print(const LISTA& window)
{
    QSignalSpy acts(&control<QPushButton>(window, "Command2"), &QPushButton::clicked);
    pressKey(Qt::Key_I, Qt::AltModifier);
    acts.wait();
}

void KeyboardReportsTest::zoneIsPreviewedWithItsNotesAndNoOther()
{
    QStringList pages;

    revision([&](LISTA&) { pages = pagesOf(openPreview()); });

    compareNotes(pages, notesOfTheZone());
}

void KeyboardReportsTest::zoneIsPrintedTwiceInThreeCollatedCopies()
{
    const qsizetype former = m_cups->jobs().size();
    bool found = false;

    revision([&](LISTA& window) {
        found = tabTo(&control<platform::ComboList>(window, "Combo1"));
        chooseListEntry(2);
        print(window);
        print(window);
    });

    QVERIFY(found);
    QTRY_COMPARE_WITH_TIMEOUT(m_cups->jobs().size(), former + 2, kPatience);
    for (const SpooledJob& job : m_cups->jobs().sliced(former)) {
        QVERIFY(job.isFor("Oficina"));
        QVERIFY(job.hasNumber("copies", 3));
        QVERIFY(job.hasFlag("Collate"));
        compareNotes(pagesOfText(pdfText(job.document)), notesOfTheZone());
    }
}

void KeyboardReportsTest::zoneIsExportedWithItsNotesAndNoOther()
{
    const QString file = m_folder.filePath(u"albaranes.pdf"_s);

    revision([&](LISTA&) {
        if (PreviewWindow* shown = openPreview())
            exportTo(*shown, file);
    });

    compareNotes(pagesOfText(pdfText(file)), notesOfTheZone());
}

void KeyboardReportsTest::printerIsChosenByEnter()
{
    const qsizetype former = m_cups->jobs().size();

    revision([&](LISTA& window) {
        if (!tabTo(&control<platform::TreeView>(window, "TreeView1")))
            return;
        pressKey(Qt::Key_Down);
        pressKey(Qt::Key_Return);
        print(window);
    });

    QCOMPARE(m_messages.texts(), QStringList{u"HA CAMBIADO LA SELECCION DE SU IMPRESORA\r"
                                             "Quenda ha instalado su impresora predeterminada en:\r"
                                             "Impresora: Taller\r"_s});
    QTRY_COMPARE_WITH_TIMEOUT(m_cups->jobs().size(), former + 1, kPatience);
    QVERIFY(m_cups->jobs().last().isFor("Taller"));
}

void KeyboardReportsTest::monthIsExportedBesideTheClientWindow()
{
    const QString file = m_folder.filePath(u"resumen.pdf"_s);
    LISTA* window = summary();
    QVERIFY(window != nullptr);
    QVERIFY(tabTo(&control<platform::ComboList>(*window, "Combo2")));
    chooseListEntry(m_month.toInt() - 1);
    PreviewWindow* shown = openPreview();
    QVERIFY(shown != nullptr);
    QString client;
    QVERIFY(turnTo(*m_main));

    QVERIFY(inClients([&](climant& clients) {
        typeAnew(u"1"_s);
        pressKey(Qt::Key_Tab);
        client = clients.findChild<QLineEdit*>(u"Text51"_s)->text();
        exportTo(*shown, file);
    }));

    QVERIFY(!client.isEmpty());
    const QString text = pdfText(file);
    QMap<QString, QList<ExpectedConsultation>> years;
    for (const ExpectedConsultation& row : std::as_const(m_consultations)) {
        const bool isOfTheMonth = row.month() == m_month;
        const QString line = u"%1 %2 %3 "_s.arg(row.number, row.date, row.time);
        QCOMPARE(text.count(line), isOfTheMonth ? 1 : 0);
        QVERIFY2(!isOfTheMonth || text.contains(line + row.subject.simplified()), qPrintable(line));
        if (isOfTheMonth)
            years[row.year()].append(row);
    }
    QVERIFY(years.size() > 1);
    const QString month = QLocale(QLocale::Spanish).monthName(m_month.toInt());
    for (auto year = years.begin(); year != years.end(); ++year) {
        const auto inState = [&](QStringView state) {
            return std::count_if(year->begin(), year->end(), [state](const ExpectedConsultation& row) {
                return row.state.startsWith(state);
            });
        };
        QStringList clients;
        for (const ExpectedConsultation& row : *year)
            clients.append(row.client);
        clients.removeDuplicates();
        const QString figures =
            u"%1%2 de %3 Consultas Abiertas Cerradas Sin estado Clientes atendidos Días hasta el último "
            "apunte (media, cerradas) %4 %5 %6 %7 %8 "_s
                .arg(month.first(1).toUpper(), month.sliced(1), year.key())
                .arg(year->size())
                .arg(inState(u"01"))
                .arg(inState(u"02"))
                .arg(year->size() - inState(u"01") - inState(u"02"))
                .arg(clients.size());
        QVERIFY2(text.contains(figures), qPrintable(figures));
    }
}

void KeyboardReportsTest::monthStartsOnThePresentOne()
{
    const LISTA* window = summary();
    QVERIFY(window != nullptr);

    QTRY_VERIFY(control<platform::ComboList>(*window, "Combo2").hasFocus());
    QCOMPARE(control<platform::ComboList>(*window, "Combo2").text().toInt(), m_month.toInt() % 12 + 1);
}

QTEST_MAIN(KeyboardReportsTest)
#include "tst_keyboardreports.moc"
