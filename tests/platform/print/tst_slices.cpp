// SPDX-License-Identifier: GPL-3.0-or-later
// A large report while it is under way: what the preview says, what can be cancelled and when, and that no
// store is held longer than the reading takes.
#include "platform/core/failure.h"
#include "platform/print/engine.h"
#include "platform/print/pefixture.h"
#include "platform/print/slices.h"
#include "platform/print/storefixture.h"
#include "platform/storage/storage.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;
using namespace platform;
using namespace platform::print;

class SlicesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { PeFixture::closeEngine(); }
    void worksTakeTurns();
    void startReturnsWhileRowsAreBeingRead();
    void progressGoesFromRowsToPages();
    void otherWindowsWorkWhileRowsAreBeingRead();
    void escapeWhileReadingLetsGoOfTheStore();
    void cancelWhileComposingKeepsTheFinishedPages();
    void closedPreviewLetsGoOfTheStore();
    void closedEngineLetsGoOfTheStore();
    void closedEngineFinishesAPrintThatIsBeingRead();
    void waitingStartMakesEveryPage();
    void ownSaveDoesntWaitForTheReading();
    void ownReadingBehindAWaitingStationGoesOn();
    void storeCanBeHadAloneWhileItIsBeingRead();
    void previewsReadSideBySide();
    void damageMetWhileReadingShowsNoPage();
    void tooManyRowsForAConditionStopTheStart();
    void printBegunWhileReadingPrintsTheWholeReport();
    void cancelledExportLeavesNoFile();
    void printAfterACancelledReadingPrintsNothing();

private:
    /// A started preview over the large store, rows still being read.
    PEJob givenReading(const QByteArray& selection = "Mid({G.COD},1,1) <> \"x\"");
    PEJob openLarge(const QByteArray& selection, const QByteArray& tables = {});
    [[nodiscard]] QString store() const { return m_report.file(u"GRANDE.MDB"_s); }
    [[nodiscard]] bool storeIsFree() const;

    PeFixture m_report;
    QTemporaryDir m_template;
};

namespace {

constexpr int kRows = 60'000;

QString stateText()
{
    // Stands left of the notes.
    const auto labels = PeFixture::preview()->statusBar()->findChildren<QLabel*>();
    return labels.isEmpty() ? QString() : labels.first()->text();
}

/// Number of the page that is being composed; 0 before and afterwards.
int pageInTheMaking()
{
    const QString start = u"Componiendo página "_s;
    const QString text = stateText();
    return text.startsWith(start) ? text.mid(start.size()).remove(u'.').toInt() : 0;
}

/// Turns the event loop by its smallest steps until a state is met that passes soon.
template <typename Condition>
bool turnUntil(Condition condition)
{
    const QDeadlineTimer end(60'000);
    while (!condition() && !end.hasExpired())
        QCoreApplication::processEvents();
    return condition();
}

QWidget* page()
{
    return PeFixture::preview()->findChild<QScrollArea*>()->widget();
}

void press(const QString& tool)
{
    QAction* action = PeFixture::preview()->findChild<QAction*>(tool);
    QWidget* button = PeFixture::preview()->findChild<QToolBar*>()->widgetForAction(action);
    QTest::mouseClick(button, Qt::LeftButton);
}

void insertRow(const QString& path)
{
    storage::sqliteEngine()->open(path, storage::Sharing::Shared)->openTable(u"G"_s)->insert({u"nueva"_s});
}

} // namespace

void SlicesTest::initTestCase()
{
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= kRows; ++i)
        rows.push_back({u"%1"_s.arg(i, 6, 10, QChar(u'0'))});
    givenTable(m_template.filePath(u"GRANDE.MDB"_s), u"G"_s, {u"COD"_s}, rows);
}

void SlicesTest::init()
{
    m_report.openEngine();
    QVERIFY(QFile::copy(m_template.filePath(u"GRANDE.MDB"_s), store()));
}

PEJob SlicesTest::openLarge(const QByteArray& selection, const QByteArray& tables)
{
    QFile file(m_report.file(u"grande.rpt"_s));
    if (!file.open(QIODevice::WriteOnly))
        return 0;
    file.write("<informe version=\"1\" nombre=\"Grande\"><pagina papel=\"A5\"/>"
               "<tabla n=\"0\" alias=\"G\" fichero=\"GRANDE.MDB\"/>" +
               tables + "<seleccion><![CDATA[" + selection +
               "]]></seleccion><seccion tipo=\"detalle\" alto=\"10\">"
               "<campo x=\"0\" y=\"0\" ancho=\"90\" alto=\"5\" expr=\"{G.COD}\"/></seccion></informe>");
    file.close();
    return PEOpenPrintJob(m_report.path(u"grande.rpt"_s).constData());
}

PEJob SlicesTest::givenReading(const QByteArray& selection)
{
    const PEJob job = openLarge(selection);
    PEOutputToWindow(job, "Grande", 50, 50, 600, 600, 0, nullptr);
    if (PEStartPrintJob(job, 0) != 1 || !stateText().startsWith(u"Leyendo registros: "_s))
        qFatal("the rows are not being read");
    return job;
}

bool SlicesTest::storeIsFree() const
{
    // In another thread: this one would have the reading finished first.
    bool free = false;
    std::thread other([&free, path = store()] {
        try {
            free = storage::sqliteEngine()->open(path, storage::Sharing::Exclusive) != nullptr;
        } catch (const Failure&) {
            free = false;
        }
    });
    other.join();
    return free;
}

void SlicesTest::worksTakeTurns()
{
    QString turns;
    SlicedWork first([&turns] { turns += u'a'; });
    SlicedWork second([&turns] { turns += u'b'; });
    first.start();
    second.start();

    QTRY_VERIFY(turns.size() >= 5);

    QVERIFY2(turns.startsWith(u"ababa"_s), qPrintable(turns));
    first.stop();
    turns.clear();
    QTRY_VERIFY(turns.size() >= 2);
    QVERIFY(turns.startsWith(u"bb"_s));
}

void SlicesTest::startReturnsWhileRowsAreBeingRead()
{
    const PEJob job = givenReading();

    QCOMPARE(jobState(job), JobState::Running);
    QVERIFY(!storeIsFree());
    QVERIFY(page()->accessibleDescription().isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(jobState(job), JobState::Finished, 60'000);
    QVERIFY(storeIsFree());
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kNoError));
}

void SlicesTest::progressGoesFromRowsToPages()
{
    const PEJob job = givenReading();
    QStringList kinds;
    QString last;
    while (jobState(job) == JobState::Running || kinds.isEmpty()) {
        QCoreApplication::processEvents();
        last = stateText();
        const QString kind = last.section(u' ', 0, 1);
        if (kinds.isEmpty() || kinds.last() != kind)
            kinds += kind;
    }
    QTRY_COMPARE(stateText(), u"Página 1 de 3.334"_s);
    kinds.removeAll(u"Página 1"_s);
    QCOMPARE(kinds, (QStringList{u"Leyendo registros:"_s, u"Componiendo página"_s}));
}

void SlicesTest::otherWindowsWorkWhileRowsAreBeingRead()
{
    QLineEdit other;
    other.show();
    const PEJob job = givenReading();

    QTest::keyClicks(&other, u"hola"_s);
    QCoreApplication::processEvents();

    QCOMPARE(other.text(), u"hola"_s);
    QCOMPARE(jobState(job), JobState::Running);
    QVERIFY(stateText().startsWith(u"Leyendo"_s));
}

void SlicesTest::escapeWhileReadingLetsGoOfTheStore()
{
    const PEJob job = givenReading();

    QTest::keyClick(page(), Qt::Key_Escape);

    QCOMPARE(jobState(job), JobState::Cancelled);
    QCOMPARE(stateText(), u"Sin páginas (cancelado)"_s);
    QVERIFY(storeIsFree());
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kCancelled));
    QVERIFY(!PeFixture::preview()->findChild<QAction*>(u"cancelar"_s)->isEnabled());
}

void SlicesTest::cancelWhileComposingKeepsTheFinishedPages()
{
    const PEJob job = givenReading();
    QVERIFY(turnUntil([] { return pageInTheMaking() > 2; }));

    press(u"cancelar"_s);

    QCOMPARE(jobState(job), JobState::Cancelled);
    QVERIFY2(stateText().startsWith(u"Página 1 de "_s) && stateText().endsWith(u"+ (cancelado)"_s),
             qPrintable(stateText()));
    QVERIFY(page()->accessibleDescription().startsWith(u"000001"_s));
    QTest::keyClick(page(), Qt::Key_End);
    QVERIFY(!page()->accessibleDescription().isEmpty());
    QVERIFY(!page()->accessibleDescription().startsWith(u"000001"_s));
}

void SlicesTest::closedPreviewLetsGoOfTheStore()
{
    const PEJob job = givenReading();

    PeFixture::preview()->close();
    QTRY_VERIFY(PeFixture::preview() == nullptr);

    QVERIFY(storeIsFree());
    QCOMPARE(jobState(job), JobState::Cancelled);
    QCOMPARE(PEGetErrorCode(job), std::int16_t(kCancelled));
}

void SlicesTest::closedEngineLetsGoOfTheStore()
{
    givenReading();

    PECloseEngine();

    QVERIFY(PeFixture::preview() == nullptr);
    QVERIFY(storeIsFree());
}

void SlicesTest::closedEngineFinishesAPrintThatIsBeingRead()
{
    const PEJob job = openLarge("Right({G.COD},4) = \"0000\"");
    PEOutputToPrinter(job, 1);
    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(1));
    QVERIFY(!storeIsFree());

    PECloseEngine();

    QCOMPARE(m_report.pdfText(u"impreso.pdf"_s), u"010000 020000 030000 040000 050000 060000"_s);
    QVERIFY(storeIsFree());
}

void SlicesTest::waitingStartMakesEveryPage()
{
    const PEJob job = openLarge("{G.COD} <> \"\"");
    PEOutputToWindow(job, "Grande", 50, 50, 600, 600, 0, nullptr);

    QCOMPARE(PEStartPrintJob(job, 1), std::int16_t(1));

    QCOMPARE(jobState(job), JobState::Finished);
    QTRY_COMPARE(stateText(), u"Página 1 de 3.334"_s);
}

void SlicesTest::ownSaveDoesntWaitForTheReading()
{
    const PEJob job = givenReading("Right({G.COD},4) = \"0000\" or {G.COD} = \"nueva\"");

    insertRow(store());

    // The report is of the moment when it began.
    QTRY_COMPARE_WITH_TIMEOUT(jobState(job), JobState::Finished, 60'000);
    QTRY_COMPARE(page()->accessibleDescription().split(u'\n').size(), 6);
    QVERIFY(!page()->accessibleDescription().contains(u"nueva"_s));
}

void SlicesTest::ownReadingBehindAWaitingStationGoesOn()
{
    const PEJob job = givenReading();
    std::atomic_bool saved = false;
    std::thread station([&saved, path = store()] {
        insertRow(path);
        saved = true;
    });

    // The station waits at the gate for the report's reading; whoever comes now waits behind it.
    const auto connection = storage::sqliteEngine()->open(store(), storage::Sharing::Shared);
    while (!saved)
        static_cast<void>(connection->openTable(u"G"_s)->count());
    station.join();

    QTRY_COMPARE_WITH_TIMEOUT(jobState(job), JobState::Finished, 60'000);
}

void SlicesTest::storeCanBeHadAloneWhileItIsBeingRead()
{
    const PEJob job = givenReading();

    QVERIFY(storage::sqliteEngine()->open(store(), storage::Sharing::Exclusive) != nullptr);

    QTRY_COMPARE_WITH_TIMEOUT(jobState(job), JobState::Finished, 60'000);
    QTRY_COMPARE(stateText(), u"Página 1 de 3.334"_s);
}

void SlicesTest::previewsReadSideBySide()
{
    const PEJob first = givenReading("{G.COD} <= \"030000\"");
    const PEJob second = openLarge("{G.COD} > \"030000\"");
    PEOutputToWindow(second, "Grande", 50, 50, 600, 600, 0, nullptr);
    QCOMPARE(PEStartPrintJob(second, 0), std::int16_t(1));

    QTRY_COMPARE_WITH_TIMEOUT(jobState(first), JobState::Finished, 60'000);
    QTRY_COMPARE_WITH_TIMEOUT(jobState(second), JobState::Finished, 60'000);
    QVERIFY(storeIsFree());
}

void SlicesTest::damageMetWhileReadingShowsNoPage()
{
    QFile file(store());
    QVERIFY(file.open(QIODevice::ReadWrite));
    // Past what the start looks at: leaves of the table in the middle of the file.
    QVERIFY(file.seek(file.size() / 8192 * 4096));
    constexpr qint64 kDamage = 65536;
    QCOMPARE(file.write(QByteArray(kDamage, '\xff')), kDamage);
    file.close();
    const PEJob job = givenReading();

    QTRY_COMPARE_WITH_TIMEOUT(jobState(job), JobState::Failed, 60'000);

    QCOMPARE(PEGetErrorCode(job), std::int16_t(kReadError));
    QTRY_VERIFY2(stateText().startsWith(u"no se puede leer el fichero de datos"_s), qPrintable(stateText()));
    QVERIFY(page()->accessibleDescription().isEmpty());
    QVERIFY(storeIsFree());
}

void SlicesTest::tooManyRowsForAConditionStopTheStart()
{
    const PEJob job =
        openLarge("{G.COD} = \"000001\"", "<tabla n=\"1\" alias=\"H\" fichero=\"@0\" nombre=\"G\">"
                                          "<condicion>{H.COD} = {G.COD}</condicion></tabla>");
    PEOutputToWindow(job, "Grande", 50, 50, 600, 600, 0, nullptr);

    QCOMPARE(PEStartPrintJob(job, 0), std::int16_t(0));

    QCOMPARE(PEGetErrorCode(job), std::int16_t(kBadValue));
    QVERIFY(PeFixture::preview() == nullptr);
    QVERIFY(storeIsFree());
}

void SlicesTest::printBegunWhileReadingPrintsTheWholeReport()
{
    givenReading("Right({G.COD},4) = \"0000\"");

    press(u"imprimir"_s);

    QTRY_COMPARE_WITH_TIMEOUT(m_report.pdfText(u"impreso.pdf"_s),
                              u"010000 020000 030000 040000 050000 060000"_s, 60'000);
}

void SlicesTest::cancelledExportLeavesNoFile()
{
    const PEJob job = givenReading();
    QTRY_COMPARE_WITH_TIMEOUT(jobState(job), JobState::Finished, 60'000);
    const QString file = m_report.file(u"cancelado.pdf"_s);
    QVERIFY(PeFixture::preview()->exportTo(file));
    QAction* cancel = PeFixture::preview()->findChild<QAction*>(u"cancelar"_s);
    QVERIFY(cancel->isEnabled());
    QCoreApplication::processEvents();

    QTest::keyClick(page(), Qt::Key_Escape);

    QVERIFY(!cancel->isEnabled());
    QVERIFY(!QFile::exists(file));
    QCOMPARE(PeFixture::preview()->statusBar()->findChildren<QLabel*>().last()->text(),
             u"Exportación cancelada"_s);
    QCOMPARE(jobState(job), JobState::Finished);
}

void SlicesTest::printAfterACancelledReadingPrintsNothing()
{
    givenReading();
    QTest::keyClick(page(), Qt::Key_Escape);

    press(u"imprimir"_s);

    QTRY_COMPARE(PeFixture::preview()->statusBar()->findChildren<QLabel*>().last()->text(),
                 u"No se ha impreso"_s);
    QVERIFY(m_report.pdfText(u"impreso.pdf"_s).isEmpty());
}

QTEST_MAIN(SlicesTest)
#include "tst_slices.moc"
