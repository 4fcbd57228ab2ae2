// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/commandbutton.h"
#include "platform/window/form.h"
#include "platform/window/textbox.h"
#include "support/failureof.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;
using platform::Form;
using support::failureOf;

namespace {

/// Writes down the steps of its life.
class LoggingForm : public Form
{
public:
    using Form::Form;

    QStringList steps;

protected:
    void onLoad() override { steps.append(u"load"_s); }
    void onResize() override { steps.append(u"resize"_s); }
    void onFirstShown() override { steps.append(u"shown"_s); }
    void onUnload() override { steps.append(u"unload"_s); }
};

} // namespace

class FormTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadComesBeforeTheWindowIsSeen();
    void loadRunsOnce();
    void firstShownRunsOnceAfterTheShow();
    void unloadRunsItsStepsOnce();
    void frameRunsTheUnloadSteps();
    void formNeverLoadedRunsNoUnloadSteps();
    void showingModallyReturnsWhenUnloaded();
    void showingModallyReturnsWhenHidden();
    void showingAVisibleFormModallyFails();
    void showingModelessOverAModalFormFails();
    void showingAVisibleFormModelessBringsItUp();
    void modalFormIsWindowModal();
    void escDoesNotClose();
    void enterPressesNoButton();
    void controlsReachNoFormThatGoes();
};

void FormTest::loadComesBeforeTheWindowIsSeen()
{
    LoggingForm form;
    form.showModeless();

    QCOMPARE(form.steps.value(0), u"load"_s);
    QCOMPARE(form.steps.value(1), u"resize"_s);
}

void FormTest::loadRunsOnce()
{
    LoggingForm form;
    form.load();
    form.load();
    form.showModeless();

    QCOMPARE(form.steps.count(u"load"_s), 1);
}

void FormTest::firstShownRunsOnceAfterTheShow()
{
    LoggingForm form;
    form.showModeless();
    QTRY_VERIFY(form.steps.contains(u"shown"_s));
    form.hide();
    form.show();
    QCoreApplication::processEvents();

    QCOMPARE(form.steps.count(u"shown"_s), 1);
}

void FormTest::unloadRunsItsStepsOnce()
{
    LoggingForm form;
    const QSignalSpy unloaded(&form, &Form::unloaded);
    form.showModeless();

    form.unload();
    form.unload();

    QCOMPARE(form.steps.count(u"unload"_s), 1);
    QCOMPARE(unloaded.size(), 1);
    QVERIFY(!form.isVisible());
}

void FormTest::frameRunsTheUnloadSteps()
{
    LoggingForm form;
    form.showModeless();

    form.close();

    QCOMPARE(form.steps.count(u"unload"_s), 1);
    QVERIFY(!form.isVisible());
}

void FormTest::formNeverLoadedRunsNoUnloadSteps()
{
    LoggingForm form;

    form.unload();

    QVERIFY(form.steps.isEmpty());
}

void FormTest::showingModallyReturnsWhenUnloaded()
{
    LoggingForm form;
    QTimer::singleShot(0, &form, [&] { form.unload(); });

    form.showModal();

    QVERIFY(!form.isLoaded());
    QCOMPARE(form.steps.count(u"unload"_s), 1);
}

void FormTest::showingModallyReturnsWhenHidden()
{
    LoggingForm form;
    QTimer::singleShot(0, &form, [&] { form.hide(); });

    form.showModal();

    QVERIFY(form.isLoaded());
}

void FormTest::showingAVisibleFormModallyFails()
{
    LoggingForm form;
    form.showModeless();

    QCOMPARE(failureOf([&] { form.showModal(); }), platform::kFormAlreadyShown);
    QVERIFY(form.isVisible());
}

void FormTest::showingModelessOverAModalFormFails()
{
    LoggingForm modal;
    LoggingForm modeless;
    int failure = 0;
    QTimer::singleShot(0, &modal, [&] {
        failure = failureOf([&] { modeless.showModeless(); });
        modal.unload();
    });

    modal.showModal();

    QCOMPARE(failure, platform::kModelessOverModal);
    QVERIFY(!modeless.isVisible());
}

void FormTest::showingAVisibleFormModelessBringsItUp()
{
    LoggingForm form;
    form.showModeless();

    form.showModeless();

    QVERIFY(form.isVisible());
    QCOMPARE(form.steps.count(u"load"_s), 1);
}

void FormTest::modalFormIsWindowModal()
{
    LoggingForm form;
    Qt::WindowModality modality = Qt::NonModal;
    QTimer::singleShot(0, &form, [&] {
        modality = form.windowModality();
        form.unload();
    });

    form.showModal();

    QCOMPARE(modality, Qt::WindowModal);
}

void FormTest::escDoesNotClose()
{
    LoggingForm form;
    form.showModeless();
    QVERIFY(QTest::qWaitForWindowActive(&form));

    QTest::keyClick(&form, Qt::Key_Escape);

    QVERIFY(form.isVisible());
}

void FormTest::enterPressesNoButton()
{
    LoggingForm form;
    auto* layout = new QVBoxLayout(&form);
    auto* field = new platform::TextBox;
    auto* button = new platform::CommandButton;
    layout->addWidget(field);
    layout->addWidget(button);
    const QSignalSpy clicks(button, &QAbstractButton::clicked);
    form.showModeless();
    field->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&form));

    QTest::keyClick(field, Qt::Key_Return);

    QVERIFY(clicks.isEmpty());
    QVERIFY(form.isVisible());
}

void FormTest::controlsReachNoFormThatGoes()
{
    auto form = std::make_unique<LoggingForm>();
    auto* layout = new QVBoxLayout(form.get());
    auto* field = new platform::TextBox;
    layout->addWidget(field);
    int heard = 0;
    connect(field, &platform::TextBox::lostFocus, form.get(), [&heard] { ++heard; });
    form->showModeless();
    QVERIFY(QTest::qWaitForWindowActive(form.get()));
    field->setFocus();
    QVERIFY(field->hasFocus());

    form.reset();

    QCOMPARE(heard, 0);
}

QTEST_MAIN(FormTest)
#include "tst_form.moc"
