// SPDX-License-Identifier: GPL-3.0-or-later

// The report window of every report in the catalogue, with its pages of numbers and of dates, and the
// preview.

#include "looks/painted.h"
#include "looks/pictures.h"
#include "looks/places.h"
#include "looks/setting.h"
#include "looks/shown.h"
#include "looks/texts.h"
#include "platform/print/output/printers.h"
#include "reports/catalogue.h"
#include "reports/reportroot.h"
#include "shell/globalsat.h"

#include <QInputDialog>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::print::PreviewWindow;
using reports::LISTA;
using reporttest::ReportRoot;

namespace {

constexpr int kNotesReport = 725;

} // namespace

class ReportLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void everythingHasRoom_data() { sizes(); }
    void everythingHasRoom();
    void everyTextCanBeRead();
    void everyStopShowsItsFocus();
    void previewHasRoom_data() { sizes(); }
    void previewHasRoom();
    void previewCanBeRead();
    void choiceOfThePrinterCanBeRead_data() { sizes(); }
    void choiceOfThePrinterCanBeRead();

private:
    static void sizes();
    /// The window of a report, as the program shows it.
    std::unique_ptr<LISTA> opened(int report);
    /// Every window of the catalogue, with each of its pages in turn.
    template <typename Look>
    void eachReport(Look look);

    std::unique_ptr<ReportRoot> m_root;
};

void ReportLooksTest::init()
{
    m_root = std::make_unique<ReportRoot>();
    platform::setPrinterSource([] {
        return platform::PrinterList{
            {{u"Oficina"_s, u"PostScript"_s, u"P1"_s}, {u"Taller de la planta baja"_s, u"PCL"_s, u"P2"_s}},
            1};
    });
}

void ReportLooksTest::cleanup()
{
    platform::setPrinterSource({});
    m_root.reset();
    looks::setFontSize(looks::kFontSizes.first());
}

void ReportLooksTest::sizes()
{
    QTest::addColumn<int>("points");
    for (const int points : looks::kFontSizes)
        QTest::addRow("%d points", points) << points;
}

std::unique_ptr<LISTA> ReportLooksTest::opened(int report)
{
    reporttest::requestReport(kNotesReport);
    NUMINFORME = report;
    auto window = std::make_unique<LISTA>();
    window->showModeless();
    if (!QTest::qWaitForWindowActive(window.get()))
        qFatal("the report window doesn't come to the front");
    QCoreApplication::processEvents();
    return window;
}

template <typename Look>
void ReportLooksTest::eachReport(Look look)
{
    for (const reports::ReportRow& row : reports::catalogue()) {
        const auto window = opened(row.number);
        look(*window, u"report-%1"_s.arg(row.number));
        QTest::keyClick(window.get(), Qt::Key_Tab, Qt::ControlModifier);
        if (row.pages == reports::RangePages::NumberAndDates)
            look(*window, u"report-%1-dates"_s.arg(row.number));
    }
}

void ReportLooksTest::everythingHasRoom()
{
    QFETCH(const int, points);
    looks::setFontSize(points);

    QStringList faults;
    eachReport([&](LISTA& window, const QString& name) {
        looks::keepPicture(window, name);
        const QSize asItOpens = window.size();
        for (const QSize& room : QList<QSize>{asItOpens} + looks::kScreenSizes) {
            window.resize(room);
            QCoreApplication::processEvents();
            for (const QString& fault : looks::cutTexts(window) + looks::misplaced(window, room))
                faults += u"%1 on %2x%3: "_s.arg(name).arg(room.width()).arg(room.height()) + fault;
        }
        window.resize(asItOpens);
    });
    QVERIFY(looks::isSound(faults));
}

void ReportLooksTest::everyTextCanBeRead()
{
    QStringList faults;
    eachReport([&](LISTA& window, const QString& name) {
        for (const QString& fault : looks::unreadable(window))
            faults += name + u": "_s + fault;
    });
    QVERIFY(looks::isSound(faults));
}

void ReportLooksTest::everyStopShowsItsFocus()
{
    QStringList faults;
    eachReport([&](LISTA& window, const QString& name) {
        for (const QString& fault : looks::unmarkedFocus(window))
            faults += name + u": "_s + fault;
    });
    QVERIFY(looks::isSound(faults));
}

void ReportLooksTest::previewHasRoom()
{
    QFETCH(const int, points);
    looks::setFontSize(points);
    const auto window = opened(kNotesReport);
    PreviewWindow* preview = reporttest::visualize(*window);
    QVERIFY(!reporttest::pagesOf(preview).isEmpty());

    QStringList faults;
    looks::keepPicture(*preview, u"preview"_s);
    for (const QSize& room : QList<QSize>{preview->size()} + looks::kScreenSizes) {
        preview->resize(room);
        QCoreApplication::processEvents();
        for (const QString& fault : looks::cutTexts(*preview) + looks::misplaced(*preview, room))
            faults += u"%1x%2: "_s.arg(room.width()).arg(room.height()) + fault;
    }
    QVERIFY(looks::isSound(faults));
    preview->close();
}

void ReportLooksTest::previewCanBeRead()
{
    const auto window = opened(kNotesReport);
    PreviewWindow* preview = reporttest::visualize(*window);
    QVERIFY(!reporttest::pagesOf(preview).isEmpty());
    QVERIFY(QTest::qWaitForWindowActive(preview));

    QVERIFY(looks::isSound(looks::unreadable(*preview)));
    QVERIFY(looks::isSound(looks::unmarkedFocus(*preview)));
    preview->close();
}

void ReportLooksTest::choiceOfThePrinterCanBeRead()
{
    QFETCH(const int, points);
    looks::setFontSize(points);
    const auto window = opened(kNotesReport);
    PreviewWindow* preview = reporttest::visualize(*window);
    QVERIFY(preview != nullptr);
    QStringList faults{u"no dialog came"_s};

    QTimer::singleShot(0, preview, [&] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        looks::keepPicture(*dialog, u"choice-of-printer"_s);
        faults = looks::cutTexts(*dialog) + looks::misplaced(*dialog, looks::kScreenSizes.first()) +
                 looks::unreadable(*dialog);
        dialog->reject();
    });
    preview->findChild<QAction*>(u"configurar"_s)->trigger();

    QVERIFY(looks::isSound(faults));
    preview->close();
}

ORVANE_LOOKS_MAIN(ReportLooksTest)
#include "tst_reportlooks.moc"
