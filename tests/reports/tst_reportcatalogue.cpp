// SPDX-License-Identifier: GPL-3.0-or-later
// What the report window offers for each number of the catalogue.
#include "reports/drivenwindow.h"

#include "lookup/lisem.h"
#include "platform/window/combolist.h"
#include "platform/window/imagelabel.h"
#include "platform/window/picturebox.h"
#include "platform/window/textbox.h"
#include "reports/catalogue.h"
#include "shell/globalsat.h"

#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include <algorithm>

using namespace platform;
using namespace Qt::StringLiterals;
using namespace reporttest;

namespace {

enum Parts { None = 0, Numbers = 1, Dates = 2, Banner = 4 };

struct Offer
{
    int report;
    int parts; ///< of `Parts`; `Dates` where their tab turns
    const char* text1;
    const char* text2;
    double lookupKind; ///< 0: the pickers open nothing
};

constexpr int kAllPages = Numbers | Dates | Banner;

constexpr Offer kOffers[] = {
    {1, kAllPages, "0", "0", 27},
    {2, kAllPages, "0", "0", 26},
    {3, kAllPages, "0", "0", 25},
    {4, kAllPages, "0", "0", 22},
    {5, kAllPages, "0", "0", 28},
    {6, kAllPages, "0001", "0001", 7},
    {7, kAllPages, "0", "0", 29},
    {8, kAllPages, "0", "0", 30},
    {333, kAllPages, "", "", 333},
    {444, Numbers | Banner, "", "", 444},
    {525, kAllPages, "0000000001", "9999999999", 20},
    {662, Numbers | Dates, "0001", "9999", 16},
    {725, Numbers | Banner, "0000000001", "9999999999", 9},
    {726, Numbers | Dates, "0001", "9999", 17},
    {888, None, "", "", 0},
    {1099, None, "", "", 0},
    {5001, None, "", "", 0},
    {5002, None, "", "", 0},
    {5003, None, "", "", 0},
    {8881, Numbers | Banner, "0", "0", 26},
    {8888, None, "", "", 0},
    {4711, None, "", "", 0}, // outside the catalogue
};

} // namespace

class ReportCatalogueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyNumberIsOfferedAsTold();
    void windowShowsTheParts_data() { offers(); }
    void windowShowsTheParts();
    void boxesStartAsTold_data() { offers(); }
    void boxesStartAsTold();
    void onlyThatTabTurns_data() { offers(Numbers); }
    void onlyThatTabTurns();
    void pickersAskForTheKind_data() { offers(); }
    void pickersAskForTheKind();
    void onlyReport6AsksForTheBank_data() { offers(); }
    void onlyReport6AsksForTheBank();
    void onlyReport1OffersTheReceipt_data() { offers(); }
    void onlyReport1OffersTheReceipt();
    void onlyReport888OffersTheMonth_data() { offers(); }
    void onlyReport888OffersTheMonth();

private:
    /// A row for each offer that has the parts.
    static void offers(int parts = None);
    /// The offer of a report, its window on the screen.
    const Offer& offered(int report);
    [[nodiscard]] bool isVisible(const char* name) const
    {
        return m_driven->control<QWidget>(name).isVisible();
    }

    std::unique_ptr<DrivenWindow> m_driven;
};

void ReportCatalogueTest::init()
{
    m_driven = std::make_unique<DrivenWindow>();
}

void ReportCatalogueTest::cleanup()
{
    m_driven.reset();
    setMuestraLISEM({});
}

void ReportCatalogueTest::offers(int parts)
{
    QTest::addColumn<int>("report");
    for (const Offer& offer : kOffers) {
        if ((offer.parts & parts) == parts)
            QTest::addRow("%d", offer.report) << offer.report;
    }
}

const Offer& ReportCatalogueTest::offered(int report)
{
    m_driven->active(report);
    return *std::find_if(std::begin(kOffers), std::end(kOffers),
                         [report](const Offer& offer) { return offer.report == report; });
}

void ReportCatalogueTest::everyNumberIsOfferedAsTold()
{
    QCOMPARE(reports::catalogue().size() + 1, std::size(kOffers));
    for (const Offer& offer : kOffers)
        QCOMPARE(reports::reportRow(offer.report) != nullptr, offer.report != 4711);
}

void ReportCatalogueTest::windowShowsTheParts()
{
    QFETCH(int, report);
    const Offer& offer = offered(report);

    QCOMPARE(isVisible("Picture3"), (offer.parts & Numbers) != 0);
    QCOMPARE(isVisible("Picture4"), (offer.parts & Numbers) != 0);
    QCOMPARE(isVisible("Picture2"), (offer.parts & Banner) != 0);
    QVERIFY(!isVisible("Picture5"));
    QVERIFY(!isVisible("Picture6"));
    QVERIFY(isVisible("Combo1"));
    QVERIFY(isVisible("TreeView1"));
}

void ReportCatalogueTest::boxesStartAsTold()
{
    QFETCH(int, report);
    const Offer& offer = offered(report);

    QCOMPARE(m_driven->control<TextBox>("Text1").text(), QLatin1String(offer.text1));
    QCOMPARE(m_driven->control<TextBox>("Text2").text(), QLatin1String(offer.text2));
}

void ReportCatalogueTest::onlyThatTabTurns()
{
    QFETCH(int, report);
    const Offer& offer = offered(report);

    QTest::mouseClick(&m_driven->control<ImageLabel>("Label5"), Qt::LeftButton);

    const bool turns = (offer.parts & Dates) != 0;
    QCOMPARE(isVisible("Picture6"), turns);
    QCOMPARE(isVisible("Picture5"), turns);
    QCOMPARE(isVisible("Picture3"), !turns);
    QCOMPARE(isVisible("Picture4"), !turns);
}

void ReportCatalogueTest::pickersAskForTheKind()
{
    QFETCH(int, report);
    const Offer& offer = offered(report);
    QList<double> asked;
    setMuestraLISEM([&asked](QWidget*) { asked.append(TIPOBUSQUEDA); });

    m_driven->window().pickFirst();
    m_driven->window().pickSecond();

    QCOMPARE(asked,
             offer.lookupKind == 0 ? QList<double>() : (QList<double>{offer.lookupKind, offer.lookupKind}));
}

void ReportCatalogueTest::onlyReport6AsksForTheBank()
{
    QFETCH(int, report);
    const Offer& offer = offered(report);

    QCOMPARE(m_driven->control<QLabel>("Label2").text(),
             offer.report == 6 ? u"Desde Banco"_s : u"Selección desde"_s);
}

void ReportCatalogueTest::onlyReport1OffersTheReceipt()
{
    QFETCH(int, report);
    const Offer& offer = offered(report);

    QCOMPARE(isVisible("Check1"), offer.report == 1);
    QCOMPARE(isVisible("Label12"), offer.report == 1);
    QVERIFY(!m_driven->control<QCheckBox>("Check1").isChecked());
}

void ReportCatalogueTest::onlyReport888OffersTheMonth()
{
    QFETCH(int, report);
    const Offer& offer = offered(report);

    QCOMPARE(isVisible("Combo2"), offer.report == 888);
    QCOMPARE(isVisible("Label11"), offer.report == 888);
    QCOMPARE(m_driven->control<ComboList>("Combo2").listCount(), offer.report == 888 ? 12 : 0);
}

QTEST_MAIN(ReportCatalogueTest)
#include "tst_reportcatalogue.moc"
