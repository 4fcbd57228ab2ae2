// SPDX-License-Identifier: GPL-3.0-or-later

// Every command of the client window, reached and given by keyboard alone.

#include "clients/clientfixture.h"

#include "platform/window/commandbutton.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

namespace {

const QString kNames = u"SELECT CliCodigo, CliNombre FROM ClientesTabla ORDER BY CliCodigo"_s;

} // namespace

class CommandKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"0000000041"_s, u"UNO"_s);
        f->open();
        f->enterCode(u"41"_s);
        QTRY_COMPARE(f->focused(), u"Text51"_s);
    }
    void cleanup() { f.reset(); }

    void newClient_data();
    void newClient();
    void saveClient_data();
    void saveClient();
    void mail_data();
    void mail();
    void leave_data();
    void leave();
    void buttonsWithoutAnActionArePressed_data();
    void buttonsWithoutAnActionArePressed();
    void saveConsultation_data();
    void saveConsultation();
    void newConsultation_data();
    void newConsultation();
    void lookups_data();
    void lookups();
    void emptyCodeOpensTheClientLookup();
    void telephoneIsSearched();
    void sideBarIsLeftByTab();
    void altLetterRunsTheRuleOfTheFieldLeft();

private:
    /// Roads to a command. An empty control: Alt and the key; else Tab to the control, then the keys.
    static void addColumns();
    static void addButton(const QString& button, Qt::Key altLetter);
    static void addItem(int item, Qt::Key letter = Qt::Key_unknown);
    /// Takes the road of the present row.
    void give();
    void goToConsultations();

    std::optional<ClientFixture> f;
};

void CommandKeysTest::addColumns()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QList<Qt::Key>>("keys");
}

void CommandKeysTest::addButton(const QString& button, Qt::Key altLetter)
{
    QTest::newRow("button by Alt and its letter") << QString() << QList<Qt::Key>{altLetter};
    QTest::newRow("button by Enter") << button << QList<Qt::Key>{Qt::Key_Return};
    QTest::newRow("button by blank") << button << QList<Qt::Key>{Qt::Key_Space};
}

void CommandKeysTest::addItem(int item, Qt::Key letter)
{
    const QList<Qt::Key> downs(item, Qt::Key_Down);
    QTest::newRow("side bar by Enter") << u"SSListBar1"_s << downs + QList<Qt::Key>{Qt::Key_Return};
    QTest::newRow("side bar by blank") << u"SSListBar1"_s << downs + QList<Qt::Key>{Qt::Key_Space};
    if (letter != Qt::Key_unknown)
        QTest::newRow("side bar by its letter") << u"SSListBar1"_s << QList<Qt::Key>{letter};
}

void CommandKeysTest::give()
{
    QFETCH(const QString, control);
    QFETCH(const QList<Qt::Key>, keys);
    if (control.isEmpty()) {
        f->press(keys.first(), Qt::AltModifier);
        return;
    }
    QVERIFY(f->walkTo(control));
    for (const Qt::Key key : keys)
        f->press(key);
}

void CommandKeysTest::goToConsultations()
{
    f->press(Qt::Key_Tab);
    for (int turns = 0; turns < 3; ++turns)
        f->press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(f->stop(), u"Text11"_s);
    QTest::keyClicks(QApplication::focusWidget(), u"fuga"_s);
}

void CommandKeysTest::newClient_data()
{
    addColumns();
    addButton(u"Command1"_s, Qt::Key_N);
    addItem(0, Qt::Key_N);
}

void CommandKeysTest::newClient()
{
    give();

    QCOMPARE(f->text(u"Text49"_s), u"0000000042"_s);
    QCOMPARE(f->text(u"Text51"_s), QString());
    QCOMPARE(f->focused(), u"Text51"_s);
}

void CommandKeysTest::saveClient_data()
{
    addColumns();
    addButton(u"Command2"_s, Qt::Key_G);
    addItem(1, Qt::Key_G);
}

void CommandKeysTest::saveClient()
{
    QTest::keyClicks(QApplication::focusWidget(), u"DOS"_s);

    give();

    QCOMPARE(f->rows(BDCLIENTES, kNames), QStringList(u"0000000041|DOS"_s));
    QCOMPARE(f->text(u"Text49"_s), QString());
    QCOMPARE(f->focused(), u"Text49"_s);
}

void CommandKeysTest::mail_data()
{
    addColumns();
    addItem(2);
}

void CommandKeysTest::mail()
{
    QVERIFY(f->walkTo(u"Text7"_s));
    QTest::keyClicks(QApplication::focusWidget(), u"ana@example.com"_s);

    give();

    QCOMPARE(f->processes.mails(), QStringList(u"ana@example.com"_s));
    QCOMPARE(f->stop(), u"SSListBar1"_s);
}

void CommandKeysTest::leave_data()
{
    addColumns();
    addButton(u"Command5"_s, Qt::Key_S);
    addItem(3, Qt::Key_S);
}

void CommandKeysTest::leave()
{
    give();

    QVERIFY(!f->isOpen());
}

void CommandKeysTest::buttonsWithoutAnActionArePressed_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QString>("button");

    for (const auto& [button, letter] :
         {std::pair{u"Command3"_s, Qt::Key_B}, std::pair{u"Command4"_s, Qt::Key_L}}) {
        QTest::addRow("%s by Alt and its letter", qPrintable(button))
            << QString() << QList<Qt::Key>{letter} << button;
        QTest::addRow("%s by Enter", qPrintable(button))
            << button << QList<Qt::Key>{Qt::Key_Return} << button;
    }
}

void CommandKeysTest::buttonsWithoutAnActionArePressed()
{
    QFETCH(const QString, button);
    const QSignalSpy pressed(f->control<platform::CommandButton>(button), &QAbstractButton::clicked);

    give();

    QCOMPARE(pressed.size(), 1);
    QCOMPARE(f->stop(), button);
    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
    QCOMPARE(f->rows(BDCLIENTES, kNames), QStringList(u"0000000041|UNO"_s));
    QVERIFY(f->messages.isEmpty());
}

void CommandKeysTest::saveConsultation_data()
{
    addColumns();
    addButton(u"Command6"_s, Qt::Key_R);
}

void CommandKeysTest::saveConsultation()
{
    goToConsultations();

    give();

    QCOMPARE(f->rows(BDASISTENCIAS, u"SELECT CLICONSULTA, TEMA FROM CONS"_s),
             QStringList(u"0000000041|fuga"_s));
    QCOMPARE(f->text(u"Text11"_s), QString());
}

void CommandKeysTest::newConsultation_data()
{
    addColumns();
    addButton(u"Command7"_s, Qt::Key_U);
}

void CommandKeysTest::newConsultation()
{
    goToConsultations();

    give();

    QCOMPARE(f->text(u"Text11"_s), QString());
    QCOMPARE(f->text(u"Text10"_s), u"1"_s);
    QCOMPARE(f->rows(BDASISTENCIAS, u"SELECT TEMA FROM CONS"_s), QStringList());
}

void CommandKeysTest::lookups_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<int>("kind");

    for (const auto& [picture, kind] :
         {std::pair{u"Picture1"_s, 3}, std::pair{u"Picture2"_s, 17}, std::pair{u"Picture3"_s, 20},
          std::pair{u"Picture4"_s, 9}, std::pair{u"Picture5"_s, 15}}) {
        QTest::addRow("%s by Enter", qPrintable(picture))
            << picture << QList<Qt::Key>{Qt::Key_Return} << kind;
        QTest::addRow("%s by blank", qPrintable(picture)) << picture << QList<Qt::Key>{Qt::Key_Space} << kind;
    }
}

void CommandKeysTest::lookups()
{
    QFETCH(const int, kind);

    give();

    QCOMPARE(f->lookups(), QList<int>{kind});
}

void CommandKeysTest::emptyCodeOpensTheClientLookup()
{
    QVERIFY(f->walkTo(u"Text49"_s, Qt::Key_Backtab));

    f->press(Qt::Key_Return);

    QCOMPARE(f->lookups(), QList<int>{20});
}

void CommandKeysTest::telephoneIsSearched()
{
    f->addTelephone(u"0000000041"_s, u"911"_s);
    QVERIFY(f->walkTo(u"Text14"_s));

    QTest::keyClicks(QApplication::focusWidget(), u"911"_s);
    f->press(Qt::Key_Return);

    QCOMPARE(RESULTADOBUSQUEDA, u"0000000041"_s);
    QCOMPARE(f->cell(u"vsFlexGrid4"_s, 1, 0), u"911"_s);
}

void CommandKeysTest::sideBarIsLeftByTab()
{
    QVERIFY(f->walkTo(u"SSListBar1"_s));
    f->press(Qt::Key_Down);

    f->press(Qt::Key_Tab);
    QCOMPARE(f->stop(), u"Command1"_s);
    f->press(Qt::Key_Backtab, Qt::ShiftModifier);
    f->press(Qt::Key_Backtab, Qt::ShiftModifier);

    QCOMPARE(f->stop(), u"Picture3"_s);
}

void CommandKeysTest::altLetterRunsTheRuleOfTheFieldLeft()
{
    QVERIFY(f->walkTo(u"Text27"_s));
    QTest::keyClicks(QApplication::focusWidget(), u"7"_s);

    f->press(Qt::Key_G, Qt::AltModifier);

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT TipoClienteCodigo FROM ClientesTabla"_s), QStringList(u"0007"_s));
}

QTEST_MAIN(CommandKeysTest)
#include "tst_commandkeys.moc"
