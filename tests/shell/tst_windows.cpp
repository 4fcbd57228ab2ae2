// SPDX-License-Identifier: GPL-3.0-or-later

// The real windows behind the commands of the main window.

#include "shell/windows.h"

#include "platform/window/form.h"
#include "shell/globalsat.h"
#include "support/failureof.h"
#include "support/messagerecorder.h"
#include "support/tempdataroot.h"

#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;

class WindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void clientWindowIsModalAndGoneAfterwards();
    void summaryWindowLeavesTheMainWindowFree();
    void secondSummaryKeepsTheWindowThatIsUp();
    void revisionWhileTheSummaryStandsIsRefused();
    void revisionWhileTheSummaryStandsOverwritesTheRequest();
    void reportWindowIsMadeAnewAfterItsClosing();
    void revisionWindowIsModal();
    void reportsAreOfferedWithoutACompany();

private:
    /// The forms of that name that are on the screen.
    static QList<platform::Form*> shown(const QString& name);
    /// Notes and closes the modal form that comes up.
    void closeNextModal();

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::MessageRecorder> m_messages;
    std::unique_ptr<STMAIN> m_window;
    QStringList m_modals;
};

void WindowsTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>();
    m_messages = std::make_unique<testsupport::MessageRecorder>();
    resetProgramState();
    m_modals.clear();
    m_window = std::make_unique<STMAIN>(u"00012 ana"_s, shell::windowLinks());
    m_window->load();
}

void WindowsTest::cleanup()
{
    m_window.reset();
    resetProgramState();
    m_messages.reset();
    m_root.reset();
}

QList<platform::Form*> WindowsTest::shown(const QString& name)
{
    QList<platform::Form*> forms;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* form = qobject_cast<platform::Form*>(widget);
        if (form != nullptr && form->isVisible() && form->objectName() == name)
            forms.append(form);
    }
    return forms;
}

void WindowsTest::closeNextModal()
{
    QTimer::singleShot(0, m_window.get(), [this] {
        auto* modal = qobject_cast<platform::Form*>(QApplication::activeModalWidget());
        QVERIFY(modal != nullptr);
        m_modals.append(modal->objectName());
        modal->unload();
    });
}

void WindowsTest::clientWindowIsModalAndGoneAfterwards()
{
    closeNextModal();

    m_window->A002_Click();

    QCOMPARE(m_modals, QStringList{u"climant"_s});
    QVERIFY(shown(u"climant"_s).isEmpty());
}

void WindowsTest::summaryWindowLeavesTheMainWindowFree()
{
    m_window->resu_Click();

    QCOMPARE(shown(u"LISTA"_s).size(), 1);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
}

void WindowsTest::secondSummaryKeepsTheWindowThatIsUp()
{
    m_window->resu_Click();
    const QList<platform::Form*> first = shown(u"LISTA"_s);

    m_window->resu_Click();

    QCOMPARE(shown(u"LISTA"_s), first);
}

void WindowsTest::revisionWhileTheSummaryStandsIsRefused()
{
    m_window->resu_Click();

    QCOMPARE(support::failureOf([&] { shell::windowLinks().showListaModal(m_window.get()); }), 400);
    QCOMPARE(shown(u"LISTA"_s).size(), 1);
}

void WindowsTest::revisionWhileTheSummaryStandsOverwritesTheRequest()
{
    m_window->resu_Click();

    m_window->revi_Click();

    QCOMPARE(NUMINFORME, 725.0);
    QCOMPARE(TITULOINFORME, u"Albaranes de Mantenimiento"_s);
}

void WindowsTest::reportWindowIsMadeAnewAfterItsClosing()
{
    m_window->resu_Click();
    shown(u"LISTA"_s).constFirst()->unload();
    QVERIFY(shown(u"LISTA"_s).isEmpty());

    m_window->resu_Click();

    QCOMPARE(shown(u"LISTA"_s).size(), 1);
}

void WindowsTest::revisionWindowIsModal()
{
    closeNextModal();

    m_window->revi_Click();

    QCOMPARE(m_modals, QStringList{u"LISTA"_s});
    QVERIFY(shown(u"LISTA"_s).isEmpty());
}

void WindowsTest::reportsAreOfferedWithoutACompany()
{
    resetProgramState();
    m_window = std::make_unique<STMAIN>(u"00000 ana"_s, shell::windowLinks());
    m_window->load();

    m_window->resu_Click();

    QCOMPARE(BASEINFORME, u"ASISTENCIAS.MDB"_s);
    QCOMPARE(shown(u"LISTA"_s).size(), 1);
    QVERIFY(m_messages->isEmpty());
}

QTEST_MAIN(WindowsTest)
#include "tst_windows.moc"
