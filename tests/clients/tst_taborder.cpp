// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "platform/window/appearance.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

namespace {

/// The text boxes of the head and of the first page, in the order of the client's data.
const QStringList kFields{u"Text49"_s, u"Text51"_s, u"Text8"_s,  u"Text9"_s,  u"Text4"_s,  u"Text5"_s,
                          u"Text6"_s,  u"Text1"_s,  u"Text2"_s,  u"Text7"_s,  u"Text40"_s, u"Text20"_s,
                          u"Text3"_s,  u"Text21"_s, u"Text25"_s, u"Text27"_s, u"Text26"_s};

constexpr int kMostPresses = 80;

/// Every stop of each page, from its first control to its last.
const QList<QStringList> kStopsOfPages{
    kFields.mid(2) +
        QStringList{u"vsFlexGrid4"_s, u"Picture1"_s, u"Picture2"_s, u"Picture4"_s, u"Picture5"_s},
    {u"vsFlexGrid1"_s, u"vsFlexGrid2"_s, u"Text33"_s, u"Text34"_s},
    {u"vsFlexGrid3"_s, u"Text60"_s},
    {u"Text11"_s, u"Combo3"_s, u"vsFlexGrid6"_s, u"Text12"_s, u"Text13"_s, u"Command6"_s, u"Command7"_s,
     u"TreeView1"_s},
};

/// The stops after each page: the row of tabs, the rest of the head, the commands.
const QStringList kStopsAfterThePage{u"SSTab1"_s,     u"Text14"_s,   u"Picture3"_s,
                                     u"SSListBar1"_s, u"Command1"_s, u"Command2"_s,
                                     u"Command3"_s,   u"Command4"_s, u"Command5"_s};

} // namespace

class TabOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { platform::installAppearance(); }
    void init()
    {
        f.emplace();
        f->addClient(u"0000000001"_s, u"UNO"_s);
        f->open();
        f->enterCode(u"1"_s);
        f->click(u"Text51"_s);
    }
    void cleanup() { f.reset(); }

    void tabWalksTheFieldsInTheirOrder();
    void enterWalksTheFieldsInTheirOrder();
    void everyFieldOfTheFirstPageHasANameForScreenReaders();
    void tabWalksEveryPage_data();
    void tabWalksEveryPage();
    void backtabWalksEveryPageBack_data() { tabWalksEveryPage_data(); }
    void backtabWalksEveryPageBack();
    void everyStopHasANameForScreenReaders_data() { tabWalksEveryPage_data(); }
    void everyStopHasANameForScreenReaders();
    void everyStopShowsItsFocus_data() { tabWalksEveryPage_data(); }
    void everyStopShowsItsFocus();
    void tabAfterTheLastCommandComesBackToTheCode();
    void rowOfTabsIsNoStopWhileTheWindowIsEmpty();
    void arrowsOnTheRowOfTabsTurnThePages();
    void ctrlTabLeavesAFieldAsTabDoes();
    void ctrlTabDoesNotComeBackToTheLocality();

private:
    /// From "Nombre" into a page, by keyboard, and back to "Nombre".
    void turnTo(int page);
    /// The stops met from "Nombre" to the last command, both included.
    static QStringList allStops(int page)
    {
        return QStringList{u"Text51"_s} + kStopsOfPages.at(page) + kStopsAfterThePage;
    }
    QStringList stopsMetBy(Qt::Key key, const QString& last);

    /// Names of the fields that get the focus, from "Nombre" on to the last one of the page.
    QStringList fieldsMetBy(Qt::Key key);
    std::optional<ClientFixture> f;
};

QStringList TabOrderTest::fieldsMetBy(Qt::Key key)
{
    QStringList met{u"Text49"_s, f->focused()};
    for (int presses = 0; presses < kMostPresses && met.last() != kFields.last(); ++presses) {
        f->press(key);
        QCoreApplication::processEvents();
        if (kFields.contains(f->focused()) && met.last() != f->focused())
            met.append(f->focused());
    }
    return met;
}

void TabOrderTest::tabWalksTheFieldsInTheirOrder()
{
    QCOMPARE(fieldsMetBy(Qt::Key_Tab), kFields);
}

void TabOrderTest::enterWalksTheFieldsInTheirOrder()
{
    // Enter moves on from text boxes only: on the way stand the pictures that open the lookups.
    f->press(Qt::Key_Return);
    QTRY_COMPARE(f->focused(), u"Text8"_s);
    f->press(Qt::Key_Return);
    QTRY_COMPARE(f->focused(), u"Text9"_s);
    f->press(Qt::Key_Return);
    QTRY_COMPARE(f->focused(), u"Text4"_s);
}

void TabOrderTest::everyFieldOfTheFirstPageHasANameForScreenReaders()
{
    for (const QString& name : kFields)
        QVERIFY2(!f->control<QWidget>(name)->accessibleName().isEmpty(), qPrintable(name));
}

void TabOrderTest::turnTo(int page)
{
    f->press(Qt::Key_Tab);
    for (int turns = 0; turns < page; ++turns)
        f->press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(f->tab(), page);
    QCOMPARE(f->stop(), kStopsOfPages.at(page).first());
    f->press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(f->stop(), u"Text51"_s);
}

QStringList TabOrderTest::stopsMetBy(Qt::Key key, const QString& last)
{
    const Qt::KeyboardModifiers modifiers = key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
    QStringList met{f->stop()};
    for (int presses = 0; presses < kMostPresses && met.last() != last; ++presses) {
        f->press(key, modifiers);
        met.append(f->stop());
    }
    return met;
}

void TabOrderTest::tabWalksEveryPage_data()
{
    QTest::addColumn<int>("page");

    QTest::newRow("Identificacion") << 0;
    QTest::newRow("Adicionales") << 1;
    QTest::newRow("Conceptos Períodicos") << 2;
    QTest::newRow("Consultas") << 3;
}

void TabOrderTest::tabWalksEveryPage()
{
    QFETCH(const int, page);
    turnTo(page);

    QCOMPARE(stopsMetBy(Qt::Key_Tab, u"Command5"_s), allStops(page));
}

void TabOrderTest::backtabWalksEveryPageBack()
{
    QFETCH(const int, page);
    turnTo(page);
    QVERIFY(f->walkTo(u"Command5"_s));
    QStringList expected = allStops(page);
    std::reverse(expected.begin(), expected.end());

    QCOMPARE(stopsMetBy(Qt::Key_Backtab, u"Text51"_s), expected);
}

void TabOrderTest::everyStopHasANameForScreenReaders()
{
    QFETCH(const int, page);
    turnTo(page);

    for (const QString& name : allStops(page)) {
        QVERIFY(f->walkTo(name));
        QVERIFY2(!QApplication::focusWidget()->accessibleName().isEmpty(), qPrintable(name));
    }
}

void TabOrderTest::everyStopShowsItsFocus()
{
    QFETCH(const int, page);
    turnTo(page);

    // A control looks different the moment before the focus comes and the moment after.
    const QStringList stops = allStops(page);
    for (qsizetype i = 1; i < stops.size(); ++i) {
        auto* control = f->control<QWidget>(stops.at(i));
        const QImage before = control->grab().toImage();
        f->press(Qt::Key_Tab);
        QCOMPARE(f->stop(), stops.at(i));
        QVERIFY2(control->grab().toImage() != before, qPrintable(stops.at(i)));
    }
}

void TabOrderTest::tabAfterTheLastCommandComesBackToTheCode()
{
    QVERIFY(f->walkTo(u"Command5"_s));

    f->press(Qt::Key_Tab);

    QCOMPARE(f->focused(), u"Text49"_s);
    QCOMPARE(f->text(u"Text49"_s), QString());
}

void TabOrderTest::rowOfTabsIsNoStopWhileTheWindowIsEmpty()
{
    QVERIFY(f->walkTo(u"Text49"_s, Qt::Key_Backtab));

    // Forward the empty code holds the focus; the commands and the page are met the other way round.
    f->press(Qt::Key_Tab);
    QCOMPARE(f->focused(), u"Text49"_s);
    const QStringList met = stopsMetBy(Qt::Key_Backtab, u"vsFlexGrid4"_s);

    QVERIFY(met.contains(u"Command1"_s));
    QVERIFY(met.contains(u"SSListBar1"_s));
    QCOMPARE(met.last(), u"vsFlexGrid4"_s);
    QVERIFY(!met.contains(u"SSTab1"_s));
}

void TabOrderTest::arrowsOnTheRowOfTabsTurnThePages()
{
    QVERIFY(f->walkTo(u"SSTab1"_s));

    f->press(Qt::Key_Right);
    f->press(Qt::Key_Right);
    QCOMPARE(f->tab(), 2);
    f->press(Qt::Key_Left);
    QCOMPARE(f->tab(), 1);
    QCOMPARE(f->stop(), u"SSTab1"_s);
    f->press(Qt::Key_Down);

    QCOMPARE(f->stop(), u"vsFlexGrid1"_s);
}

void TabOrderTest::ctrlTabLeavesAFieldAsTabDoes()
{
    f->type(u"Text21"_s, u"3"_s);

    f->press(Qt::Key_Tab, Qt::ControlModifier);

    QCOMPARE(f->tab(), 1);
    QCOMPARE(f->text(u"Text21"_s), u"0000000003"_s);
}

void TabOrderTest::ctrlTabDoesNotComeBackToTheLocality()
{
    f->type(u"Text5"_s, u"28001"_s);
    f->type(u"Text6"_s, u"Madrid"_s);
    f->press(Qt::Key_Tab, Qt::ControlModifier);

    f->press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);

    QCOMPARE(f->tab(), 0);
    QCOMPARE(f->focused(), u"Text8"_s);
    QCOMPARE(f->text(u"Text6"_s), u"Madrid"_s);
}

QTEST_MAIN(TabOrderTest)
#include "tst_taborder.moc"
