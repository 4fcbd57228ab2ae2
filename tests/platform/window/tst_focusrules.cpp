// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/focusrules.h"
#include "platform/window/textbox.h"
#include "support/failureof.h"

#include <QApplication>
#include <QDialog>
#include <QFocusEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;
using platform::setFocusTo;
using platform::TextBox;
using support::failureOf;

class FocusRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void ruleRunsByReason_data();
    void ruleRunsByReason();
    void leavingComesBeforeEntering();
    void tabRunsTheRules();
    void clickRunsTheRules();
    void modalWindowRunsNoRule();
    void hidingTheFieldRunsNoRule();
    void disablingTheFieldRunsNoRule();
    void realMoveAfterAFlightRunsTheRules();
    void quietFocusRunsNoRule();
    void focusToAHiddenControlFails();
    void focusToADisabledControlFails();
    void focusToTheControlThatHasItRaisesNothing();

private:
    std::unique_ptr<QWidget> window;
    TextBox* first = nullptr;
    TextBox* second = nullptr;
    QStringList events;
};

void FocusRulesTest::init()
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
    connect(first, &TextBox::lostFocus, this, [this] { events.append(u"left first"_s); });
    connect(first, &TextBox::gotFocus, this, [this] { events.append(u"entered first"_s); });
    connect(second, &TextBox::lostFocus, this, [this] { events.append(u"left second"_s); });
    connect(second, &TextBox::gotFocus, this, [this] { events.append(u"entered second"_s); });
    events.clear();
}

void FocusRulesTest::ruleRunsByReason_data()
{
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("runs");

    QTest::newRow("mouse") << int(Qt::MouseFocusReason) << true;
    QTest::newRow("Tab") << int(Qt::TabFocusReason) << true;
    QTest::newRow("Backtab") << int(Qt::BacktabFocusReason) << true;
    QTest::newRow("shortcut") << int(Qt::ShortcutFocusReason) << true;
    QTest::newRow("code") << int(Qt::OtherFocusReason) << true;
    QTest::newRow("another window") << int(Qt::ActiveWindowFocusReason) << false;
    QTest::newRow("popup") << int(Qt::PopupFocusReason) << false;
    QTest::newRow("menu bar") << int(Qt::MenuBarFocusReason) << false;
}

void FocusRulesTest::ruleRunsByReason()
{
    QFETCH(int, reason);
    QFETCH(bool, runs);
    QFocusEvent leaving(QEvent::FocusOut, Qt::FocusReason(reason));

    QApplication::sendEvent(first, &leaving);

    QCOMPARE(events.contains(u"left first"_s), runs);
}

void FocusRulesTest::leavingComesBeforeEntering()
{
    setFocusTo(second);

    QCOMPARE(events, (QStringList{u"left first"_s, u"entered second"_s}));
}

void FocusRulesTest::tabRunsTheRules()
{
    QTest::keyClick(first, Qt::Key_Tab);
    QTest::keyClick(second, Qt::Key_Backtab);

    QCOMPARE(events,
             (QStringList{u"left first"_s, u"entered second"_s, u"left second"_s, u"entered first"_s}));
}

void FocusRulesTest::clickRunsTheRules()
{
    QTest::mouseClick(second, Qt::LeftButton);

    QCOMPARE(events, (QStringList{u"left first"_s, u"entered second"_s}));
}

void FocusRulesTest::modalWindowRunsNoRule()
{
    QDialog dialog(window.get());
    QTimer::singleShot(50, &dialog, [&] { dialog.reject(); });

    dialog.exec();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));

    QCOMPARE(events, QStringList());
}

void FocusRulesTest::hidingTheFieldRunsNoRule()
{
    first->hide();

    QVERIFY(second->hasFocus());
    QCOMPARE(events, QStringList());
}

void FocusRulesTest::disablingTheFieldRunsNoRule()
{
    first->setEnabled(false);

    QVERIFY(second->hasFocus());
    QCOMPARE(events, QStringList());
}

void FocusRulesTest::realMoveAfterAFlightRunsTheRules()
{
    first->setEnabled(false);
    first->setEnabled(true);

    QTest::keyClick(second, Qt::Key_Tab);

    QCOMPARE(events, (QStringList{u"left second"_s, u"entered first"_s}));
}

void FocusRulesTest::quietFocusRunsNoRule()
{
    {
        const platform::QuietFocus quiet;
        second->setFocus();
    }
    QCOMPARE(events, QStringList());

    first->setFocus();
    QCOMPARE(events, (QStringList{u"left second"_s, u"entered first"_s}));
}

void FocusRulesTest::focusToAHiddenControlFails()
{
    second->hide();

    QCOMPARE(failureOf([&] { setFocusTo(second); }), platform::kInvalidProcedureCall);
    QVERIFY(first->hasFocus());
}

void FocusRulesTest::focusToADisabledControlFails()
{
    second->setEnabled(false);

    QCOMPARE(failureOf([&] { setFocusTo(second); }), platform::kInvalidProcedureCall);
    QVERIFY(first->hasFocus());
}

void FocusRulesTest::focusToTheControlThatHasItRaisesNothing()
{
    setFocusTo(first);

    QCOMPARE(events, QStringList());
}

QTEST_MAIN(FocusRulesTest)
#include "tst_focusrules.moc"
