// SPDX-License-Identifier: GPL-3.0-or-later

// The lookup window in every kind that the program asks for: full, with nothing to list, and after a search.

#include "looks/extremes.h"
#include "looks/painted.h"
#include "looks/pictures.h"
#include "looks/places.h"
#include "looks/setting.h"
#include "looks/shown.h"
#include "looks/texts.h"
#include "lookup/kinds.h"
#include "lookup/lookupfixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using lookuptest::LookupFixture;
using lookuptest::Rows;

namespace {

constexpr double kPostalCodes = 3;
constexpr double kZones = 9;
constexpr double kTypes = 15;
constexpr int kRows = 40;

Rows rows(const QList<int>& lengths)
{
    Rows made;
    for (int row = 1; row <= kRows; ++row) {
        QStringList texts{u"%1"_s.arg(row, 10, 10, QChar(u'0'))};
        for (const int length : lengths)
            texts += looks::longText(row % 2 == 0 ? length : 6, row);
        made += texts;
    }
    return made;
}

} // namespace

class LookupLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void everythingHasRoom_data();
    void everythingHasRoom();
    void everyTextCanBeRead_data() { kinds(); }
    void everyTextCanBeRead();
    void everyStopShowsItsFocus_data() { kinds(); }
    void everyStopShowsItsFocus();

private:
    static void kinds();

    std::unique_ptr<LookupFixture> f;
};

void LookupLooksTest::init()
{
    f = std::make_unique<LookupFixture>();
    f->givenClients(rows({35, 35}));
    f->givenZones(rows({35}));
    f->givenTypes({});
    Rows articles = rows({40, 4});
    f->givenArticles(articles);
}

void LookupLooksTest::cleanup()
{
    f.reset();
    looks::setFontSize(looks::kFontSizes.first());
}

void LookupLooksTest::kinds()
{
    QTest::addColumn<double>("kind");
    QTest::newRow("clients") << lookup::kClients;
    QTest::newRow("zones") << kZones;
    QTest::newRow("no types") << kTypes;
    QTest::newRow("postal codes, which nothing binds") << kPostalCodes;
    QTest::newRow("articles") << lookup::kArticles;
    QTest::newRow("articles to tick") << lookup::kArticlesToTick;
}

void LookupLooksTest::everythingHasRoom_data()
{
    QTest::addColumn<int>("points");
    for (const int points : looks::kFontSizes)
        QTest::addRow("%d points", points) << points;
}

void LookupLooksTest::everythingHasRoom()
{
    QFETCH(const int, points);
    looks::setFontSize(points);

    QStringList faults;
    for (const double kind :
         {lookup::kClients, kZones, kTypes, kPostalCodes, lookup::kArticles, lookup::kArticlesToTick}) {
        LISEM& window = f->open(kind);
        const auto look = [&](QSize room, const QString& state) {
            QCoreApplication::processEvents();
            const QString where =
                u"kind %1, %2, %3x%4: "_s.arg(kind).arg(state).arg(room.width()).arg(room.height());
            for (const QString& fault : looks::cutTexts(window) + looks::misplaced(window, room))
                faults += where + fault;
        };
        look(looks::kScreenSizes.first(), u"as it opens"_s);
        looks::keepPicture(window, u"lookup-%1"_s.arg(kind));
        for (const QSize& screen : looks::kScreenSizes) {
            window.resize(screen);
            look(screen, u"full"_s);
        }
        f->search(u"M"_s);
        look(looks::kScreenSizes.last(), u"after a search"_s);
        looks::keepPicture(window, u"lookup-%1-found"_s.arg(kind));
    }
    QVERIFY(looks::isSound(faults));
}

void LookupLooksTest::everyTextCanBeRead()
{
    QFETCH(const double, kind);
    LISEM& window = f->open(kind);

    QVERIFY(looks::isSound(looks::unreadable(window)));

    f->search(u"M"_s);
    QVERIFY(looks::isSound(looks::unreadable(window)));
}

void LookupLooksTest::everyStopShowsItsFocus()
{
    QFETCH(const double, kind);

    QVERIFY(looks::isSound(looks::unmarkedFocus(f->open(kind))));
}

ORVANE_LOOKS_MAIN(LookupLooksTest)
#include "tst_lookuplooks.moc"
