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

private:
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

QTEST_MAIN(TabPagesTest)
#include "tst_tabpages.moc"
