// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/formhelpers.h"
#include "platform/window/handlers.h"
#include "platform/window/textbox.h"
#include "support/failureof.h"

#include <QDialog>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using platform::TextBox;
using support::failureOf;

class FormHelpersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void busyPointerIsOfOneWindow();
    void pointerSetTwiceIsUnsetOnce();
    void unknownPointerFails();
    void sentTabMovesOnAfterTheHandler();
    void sentTabIsDroppedWhenTheWindowIsNotActive();
    void pageOfAnotherFormTakesItsPlaceInTheTabOrder();
    void dialogShownAlreadyFails();
    void popupReturnsAfterTheHandlerHasRun();
    void popupRunsNoFocusRule();
    void popupStandsWhereItIsTold();
    void firstEnterInAPopupOnlyMarksAnItem();
    void failureInAHandlerStaysInside();
    void handlerMayTakeNoArguments();

private:
    std::unique_ptr<QWidget> window;
    TextBox* first = nullptr;
    TextBox* second = nullptr;
};

void FormHelpersTest::init()
{
    window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(window.get());
    first = new TextBox;
    second = new TextBox;
    layout->addWidget(first);
    layout->addWidget(second);
    window->show();
    first->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

void FormHelpersTest::busyPointerIsOfOneWindow()
{
    QWidget other;

    platform::setMousePointer(window.get(), platform::kBusyPointer);

    QCOMPARE(window->cursor().shape(), Qt::BusyCursor);
    QCOMPARE(platform::mousePointer(window.get()), platform::kBusyPointer);
    QCOMPARE(platform::mousePointer(&other), platform::kDefaultPointer);
}

void FormHelpersTest::pointerSetTwiceIsUnsetOnce()
{
    platform::setMousePointer(window.get(), platform::kBusyPointer);
    platform::setMousePointer(window.get(), platform::kBusyPointer);

    platform::setMousePointer(window.get(), platform::kDefaultPointer);

    QCOMPARE(platform::mousePointer(window.get()), platform::kDefaultPointer);
}

void FormHelpersTest::unknownPointerFails()
{
    QCOMPARE(failureOf([&] { platform::setMousePointer(window.get(), 7); }), platform::kInvalidPropertyValue);
}

void FormHelpersTest::sentTabMovesOnAfterTheHandler()
{
    platform::sendTab(window.get());
    QVERIFY(first->hasFocus());

    QTRY_VERIFY(second->hasFocus());
}

void FormHelpersTest::sentTabIsDroppedWhenTheWindowIsNotActive()
{
    platform::sendTab(window.get());
    QDialog dialog(window.get());
    QTimer::singleShot(50, &dialog, [&] { dialog.reject(); });
    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));

    QTRY_VERIFY(!dialog.isVisible());
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QVERIFY(first->hasFocus());
}

void FormHelpersTest::pageOfAnotherFormTakesItsPlaceInTheTabOrder()
{
    auto* page = new QWidget;
    auto* pageLayout = new QVBoxLayout(page);
    auto* upper = new TextBox(page);
    auto* lower = new TextBox(page);
    pageLayout->addWidget(upper);
    pageLayout->addWidget(lower);
    window->layout()->addWidget(page);
    page->show();
    QWidget::setTabOrder(lower, upper);

    platform::placePageInTabOrder(first, page);

    for (const TextBox* next : {lower, upper, second, first}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(next->hasFocus());
    }
}

void FormHelpersTest::dialogShownAlreadyFails()
{
    QDialog dialog;
    dialog.show();

    QCOMPARE(failureOf([&] { platform::execModal(&dialog); }), platform::kFormAlreadyShown);
}

void FormHelpersTest::popupReturnsAfterTheHandlerHasRun()
{
    QMenu menu;
    bool handlerRan = false;
    QAction* entry = menu.addAction(u"&Eliminar Linea"_s);
    connect(entry, &QAction::triggered, entry, [&] { handlerRan = true; });
    QTimer::singleShot(0, &menu, [&] {
        menu.setActiveAction(entry);
        QTest::keyClick(&menu, Qt::Key_Return);
    });

    platform::popupMenu(&menu, QPoint(20, 30));

    QVERIFY(handlerRan);
}

void FormHelpersTest::popupRunsNoFocusRule()
{
    QMenu menu;
    menu.addAction(u"&Cancelar"_s);
    bool ruleRan = false;
    connect(first, &TextBox::lostFocus, first, [&] { ruleRan = true; });
    connect(first, &TextBox::gotFocus, first, [&] { ruleRan = true; });
    QTimer::singleShot(0, &menu, [&] { menu.close(); });

    platform::popupMenu(&menu, QPoint(20, 30));

    QVERIFY(!ruleRan);
}

void FormHelpersTest::popupStandsWhereItIsTold()
{
    QMenu menu;
    menu.addAction(u"&Cancelar"_s);
    QPoint place;
    QTimer::singleShot(0, &menu, [&] {
        place = menu.pos();
        menu.close();
    });

    platform::popupMenu(&menu, QPoint(120, 130));

    QCOMPARE(place, QPoint(120, 130));
}

void FormHelpersTest::firstEnterInAPopupOnlyMarksAnItem()
{
    QMenu menu;
    const QAction* entry = menu.addAction(u"&Eliminar Linea"_s);
    const QSignalSpy triggered(entry, &QAction::triggered);
    QAction* marked = nullptr;
    QTimer::singleShot(0, &menu, [&] {
        QTest::keyClick(&menu, Qt::Key_Return);
        marked = menu.activeAction();
        menu.close();
    });

    platform::popupMenu(&menu, QPoint(20, 30));

    QCOMPARE(marked, entry);
    QVERIFY(triggered.isEmpty());
}

void FormHelpersTest::failureInAHandlerStaysInside()
{
    int reported = 0;
    platform::setUnhandledFailure([&](const platform::Failure& failure) { reported = failure.number(); });
    platform::handle(first, &QLineEdit::textChanged, first,
                     [](const QString&) { throw platform::Failure(platform::kObjectNotSet); });

    first->setText(u"x"_s);

    platform::setUnhandledFailure({});
    QCOMPARE(reported, platform::kObjectNotSet);
    QCOMPARE(first->text(), u"x"_s);
}

void FormHelpersTest::handlerMayTakeNoArguments()
{
    int calls = 0;
    platform::handle(first, &QLineEdit::textChanged, first, [&] { ++calls; });

    first->setText(u"x"_s);

    QCOMPARE(calls, 1);
}

QTEST_MAIN(FormHelpersTest)
#include "tst_formhelpers.moc"
