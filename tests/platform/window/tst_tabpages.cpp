// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/tabpages.h"
#include "platform/window/textbox.h"
#include "support/failureof.h"

#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using platform::TabPages;
using platform::TextBox;
using support::failureOf;

class TabPagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void settingThePageBringsItUpAndRaisesClick();
    void settingThePageThatIsUpRaisesNothing();
    void pageOutsideFailsAndThePageStays_data();
    void pageOutsideFailsAndThePageStays();
    void controlsOfOtherPagesLiveOn();
    void changingThePageByCodeRunsNoFocusRule();
    void clickOnATabTakesTheFocusFirst();
    void tabsAreAKeyboardStop();
    void tabsTakenOutOfTheStopsAreSkipped();
    void ctrlTabInAPageTurnsIt_data();
    void ctrlTabInAPageTurnsIt();
    void ctrlTabRunsTheRuleOfTheFieldLeftWhileItsPageIsUp();
    void ctrlTabComesToTheFirstControlOfThePage();
    void ctrlTabOnTheTabsStaysThere();
    void ctrlTabGoesOnThroughPagesThatStandAlone();
    void arrowsOnTheTabsTurnThePageAndStay();
    void downOnTheTabsGoesIntoThePage();
    void downInAPageStaysThere();
    void pageWithoutControlsLeavesTheFocusOnTheTabs();

private:
    /// Another box on the first page, below the one there.
    TextBox* addSecondBox();

    std::unique_ptr<QWidget> window;
    TabPages* pages = nullptr;
    QList<TextBox*> boxes;
    TextBox* above = nullptr;
};

void TabPagesTest::init()
{
    window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    above = new TextBox;
    pages = new TabPages;
    layout->addWidget(above);
    layout->addWidget(pages);
    boxes.clear();
    for (int i = 0; i < 4; ++i) {
        auto* page = new QWidget;
        auto* pageLayout = new QVBoxLayout(page);
        boxes.append(new TextBox);
        pageLayout->addWidget(boxes.last());
        pages->addTab(page, u"Pág. %1"_s.arg(i));
    }
    window->resize(500, 200);
    window->show();
    above->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

TextBox* TabPagesTest::addSecondBox()
{
    auto* box = new TextBox;
    pages->widget(0)->layout()->addWidget(box);
    box->show();
    return box;
}

void TabPagesTest::settingThePageBringsItUpAndRaisesClick()
{
    const QSignalSpy clicks(pages, &TabPages::click);

    pages->setTab(3);

    QCOMPARE(pages->tab(), 3);
    QCOMPARE(clicks.size(), 1);
    QCOMPARE(clicks.first().first().toInt(), 0);
}

void TabPagesTest::settingThePageThatIsUpRaisesNothing()
{
    const QSignalSpy clicks(pages, &TabPages::click);

    pages->setTab(0);

    QVERIFY(clicks.isEmpty());
}

void TabPagesTest::pageOutsideFailsAndThePageStays_data()
{
    QTest::addColumn<int>("tab");

    QTest::newRow("the count itself") << 4;
    QTest::newRow("below 0") << -1;
}

void TabPagesTest::pageOutsideFailsAndThePageStays()
{
    QFETCH(int, tab);
    pages->setTab(3);

    QCOMPARE(failureOf([&] { pages->setTab(tab); }), platform::kInvalidPropertyValue);
    QCOMPARE(pages->tab(), 3);
}

void TabPagesTest::controlsOfOtherPagesLiveOn()
{
    pages->setTab(3);

    boxes.first()->setText(u"sigue"_s);
    pages->setTab(0);

    QCOMPARE(boxes.first()->text(), u"sigue"_s);
}

void TabPagesTest::changingThePageByCodeRunsNoFocusRule()
{
    boxes.at(0)->setFocus();
    const QSignalSpy went(boxes.at(0), &TextBox::lostFocus);
    const QSignalSpy came(boxes.at(1), &TextBox::gotFocus);

    pages->setTab(1);

    QVERIFY(went.isEmpty());
    QVERIFY(came.isEmpty());
}

void TabPagesTest::clickOnATabTakesTheFocusFirst()
{
    const QSignalSpy went(above, &TextBox::lostFocus);
    int tabAtLeaving = -1;
    connect(above, &TextBox::lostFocus, above, [&] { tabAtLeaving = pages->tab(); });

    QTest::mouseClick(pages->tabBar(), Qt::LeftButton, {}, pages->tabBar()->tabRect(2).center());

    QCOMPARE(went.size(), 1);
    QCOMPARE(tabAtLeaving, 0);
    QCOMPARE(pages->tab(), 2);
}

void TabPagesTest::tabsAreAKeyboardStop()
{
    QVERIFY(pages->isTabStop());

    QTest::keyClick(above, Qt::Key_Tab);

    QVERIFY(pages->tabBar()->hasFocus());
}

void TabPagesTest::tabsTakenOutOfTheStopsAreSkipped()
{
    pages->setTabStop(false);

    QTest::keyClick(above, Qt::Key_Tab);

    QVERIFY(boxes.at(0)->hasFocus());
}

void TabPagesTest::ctrlTabInAPageTurnsIt_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<int>("to");

    QTest::newRow("next") << 0 << int(Qt::Key_Tab) << false << 1;
    QTest::newRow("after the last the first") << 3 << int(Qt::Key_Tab) << false << 0;
    QTest::newRow("back") << 2 << int(Qt::Key_Backtab) << true << 1;
    QTest::newRow("before the first the last") << 0 << int(Qt::Key_Backtab) << true << 3;
    QTest::newRow("Ctrl+PgDn") << 1 << int(Qt::Key_PageDown) << false << 2;
    QTest::newRow("Ctrl+PgUp") << 1 << int(Qt::Key_PageUp) << false << 0;
}

void TabPagesTest::ctrlTabInAPageTurnsIt()
{
    QFETCH(const int, from);
    QFETCH(const int, key);
    QFETCH(const bool, shift);
    QFETCH(const int, to);
    pages->setTab(from);
    boxes.at(from)->setFocus();

    QTest::keyClick(boxes.at(from), Qt::Key(key),
                    shift ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);

    QCOMPARE(pages->tab(), to);
    QVERIFY(boxes.at(to)->hasFocus());
}

void TabPagesTest::ctrlTabRunsTheRuleOfTheFieldLeftWhileItsPageIsUp()
{
    boxes.at(0)->setFocus();
    QList<int> tabsAtLeaving;
    connect(boxes.at(0), &TextBox::lostFocus, this, [&] { tabsAtLeaving.append(pages->tab()); });

    QTest::keyClick(boxes.at(0), Qt::Key_Tab, Qt::ControlModifier);

    QCOMPARE(tabsAtLeaving, QList<int>{0});
}

void TabPagesTest::ctrlTabComesToTheFirstControlOfThePage()
{
    TextBox* second = addSecondBox();
    second->setFocus();
    const QSignalSpy came(second, &TextBox::gotFocus);
    QTest::keyClick(second, Qt::Key_Tab, Qt::ControlModifier);

    QTest::keyClick(boxes.at(1), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);

    QVERIFY(boxes.at(0)->hasFocus());
    QVERIFY(came.isEmpty());
}

void TabPagesTest::ctrlTabOnTheTabsStaysThere()
{
    pages->tabBar()->setFocus();

    QTest::keyClick(pages->tabBar(), Qt::Key_Tab, Qt::ControlModifier);

    QCOMPARE(pages->tab(), 1);
    QVERIFY(pages->tabBar()->hasFocus());
}

void TabPagesTest::ctrlTabGoesOnThroughPagesThatStandAlone()
{
    auto* inner = new TabPages;
    auto* innerBox = new TextBox;
    inner->addTab(innerBox, u"Consulta"_s);
    pages->widget(0)->layout()->addWidget(inner);
    inner->show();
    innerBox->setFocus();

    QTest::keyClick(innerBox, Qt::Key_Tab, Qt::ControlModifier);

    QCOMPARE(pages->tab(), 1);
    QVERIFY(boxes.at(1)->hasFocus());
}

void TabPagesTest::arrowsOnTheTabsTurnThePageAndStay()
{
    pages->tabBar()->setFocus();

    QTest::keyClick(pages->tabBar(), Qt::Key_Right);
    QTest::keyClick(pages->tabBar(), Qt::Key_Right);
    QCOMPARE(pages->tab(), 2);
    QTest::keyClick(pages->tabBar(), Qt::Key_Left);

    QCOMPARE(pages->tab(), 1);
    QVERIFY(pages->tabBar()->hasFocus());
}

void TabPagesTest::downOnTheTabsGoesIntoThePage()
{
    pages->tabBar()->setFocus();
    QTest::keyClick(pages->tabBar(), Qt::Key_Right);

    QTest::keyClick(pages->tabBar(), Qt::Key_Down);

    QVERIFY(boxes.at(1)->hasFocus());
}

void TabPagesTest::downInAPageStaysThere()
{
    TextBox* second = addSecondBox();
    second->setFocus();

    QTest::keyClick(second, Qt::Key_Down);

    QVERIFY(second->hasFocus());
}

void TabPagesTest::pageWithoutControlsLeavesTheFocusOnTheTabs()
{
    boxes.at(1)->setEnabled(false);
    boxes.at(0)->setFocus();

    QTest::keyClick(boxes.at(0), Qt::Key_Tab, Qt::ControlModifier);

    QCOMPARE(pages->tab(), 1);
    QVERIFY(pages->tabBar()->hasFocus());
}

QTEST_MAIN(TabPagesTest)
#include "tst_tabpages.moc"
