// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "assistance/consultaspage.h"
#include "platform/window/combolist.h"
#include "platform/window/flexgrid.h"
#include "platform/window/multilinebox.h"
#include "platform/window/textbox.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class ConsultationNumberTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"C1"_s, u"UNO"_s);
        f->addClient(u"C2"_s, u"DOS"_s);
        f->addConcept(u"C1"_s, u"ART1"_s, 1, u"Caldera"_s);
        f->addConcept(u"C1"_s, u"ART2"_s, 2, u"Bomba"_s);
    }
    void cleanup() { f.reset(); }

    void numberCannotBeTyped();
    void newOnAnEmptyTableShowsAPlainOne();
    void readOnAnEmptyTableShowsAFilledOne();
    void numberFollowsTheHighestOfAnyClient();
    void readNumberIsShownFilled();
    void savingAReadConsultationKeepsItsNumber();
    void newAfterAReadAddsARecord();
    void numberTakenMeanwhileGetsTheCountPlusOne();
    void numberTakenByAnotherClientIsStoredTwice();
    void numberTakenWhileAReadOneIsShownIsOverwritten();
    void duplicateKeyLosesTheConsultationInSilence();
    void newKeepsTheMarkOfARead();

private:
    ConsultasPage* page() const { return f->control<ConsultasPage>(u"consultas"_s); }
    QString row(int col) const { return f->cell(u"vsFlexGrid6"_s, 1, col); }
    QStringList stored(const QString& columns = u"ORDEN, CLICONSULTA, TEMA"_s) const
    {
        return ClientFixture::rows(BDASISTENCIAS,
                                   u"SELECT "_s + columns + u" FROM CONS ORDER BY ORDEN, CLICONSULTA"_s);
    }
    void openClient(const QString& code = u"C1"_s)
    {
        f->open();
        f->enterCode(code);
        f->showPage(3);
    }
    void clickNode(const QString& key)
    {
        auto* tree = f->control<platform::TreeView>(u"TreeView1"_s);
        tree->ensureNodeVisible(key);
        const QList<QTreeWidgetItem*> found =
            tree->findItems(tree->nodeText(key), Qt::MatchExactly | Qt::MatchRecursive);
        QVERIFY(!found.isEmpty());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(found.first()).center());
    }

    std::optional<ClientFixture> f;
};

void ConsultationNumberTest::numberCannotBeTyped()
{
    f->open();

    QVERIFY(!f->box(u"Text10"_s)->isEnabled());
    QCOMPARE(f->box(u"Text10"_s)->maxLength(), 10);
}

void ConsultationNumberTest::newOnAnEmptyTableShowsAPlainOne()
{
    openClient();

    f->click(u"Command7"_s);

    QCOMPARE(f->text(u"Text10"_s), u"1"_s);
}

void ConsultationNumberTest::readOnAnEmptyTableShowsAFilledOne()
{
    openClient();

    QCOMPARE(f->text(u"Text10"_s), u"0000000001"_s);
}

void ConsultationNumberTest::numberFollowsTheHighestOfAnyClient()
{
    f->addConsultation(12, u"C2"_s, u"de otro"_s);
    f->addConsultation(3, u"C1"_s, u"suya"_s);
    openClient();
    QCOMPARE(f->text(u"Text10"_s), u"0000000013"_s);

    f->click(u"Command7"_s);

    QCOMPARE(f->text(u"Text10"_s), u"0000000013"_s);
}

void ConsultationNumberTest::readNumberIsShownFilled()
{
    f->addConsultation(7, u"C1"_s, u"tema"_s);
    openClient();

    clickNode(u"A1"_s);

    QCOMPARE(f->text(u"Text10"_s), u"0000000007"_s);
}

void ConsultationNumberTest::savingAReadConsultationKeepsItsNumber()
{
    f->addConsultation(7, u"C1"_s, u"tema"_s);
    openClient();
    clickNode(u"A1"_s);
    f->type(u"Text11"_s, u"otro tema"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(u"ORDEN, TEMA, FEFINAL"_s), QStringList(u"7|otro tema|20/11/2026"_s));
    QCOMPARE(f->text(u"Text11"_s), QString());
}

void ConsultationNumberTest::newAfterAReadAddsARecord()
{
    f->addConsultation(7, u"C1"_s, u"tema"_s);
    openClient();
    clickNode(u"A1"_s);
    f->click(u"Command7"_s);
    QCOMPARE(page()->CONSULTALEIDA, 1);
    f->type(u"Text11"_s, u"nueva"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(), QStringList({u"7|C1|tema"_s, u"8|C1|nueva"_s}));
}

void ConsultationNumberTest::numberTakenMeanwhileGetsTheCountPlusOne()
{
    f->addConsultation(41, u"C2"_s, u"de otro"_s);
    openClient();
    f->type(u"Text11"_s, u"mía"_s);
    f->addConsultation(42, u"C1"_s, u"de otra estación"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(), QStringList({u"3|C1|mía"_s, u"41|C2|de otro"_s, u"42|C1|de otra estación"_s}));
}

void ConsultationNumberTest::numberTakenByAnotherClientIsStoredTwice()
{
    openClient();
    f->type(u"Text11"_s, u"mía"_s);
    f->addConsultation(1, u"C2"_s, u"de otra estación"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(), QStringList({u"1|C1|mía"_s, u"1|C2|de otra estación"_s}));
}

void ConsultationNumberTest::numberTakenWhileAReadOneIsShownIsOverwritten()
{
    f->addConsultation(7, u"C1"_s, u"tema"_s);
    openClient();
    clickNode(u"A1"_s);
    f->click(u"Command7"_s);
    f->type(u"Text11"_s, u"mía"_s);
    f->addConsultation(8, u"C1"_s, u"de otra estación"_s);

    f->click(u"Command6"_s);

    QCOMPARE(stored(), QStringList({u"7|C1|tema"_s, u"8|C1|mía"_s}));
}

void ConsultationNumberTest::duplicateKeyLosesTheConsultationInSilence()
{
    f->addConsultation(3, u"C1"_s, u"tercera"_s);
    openClient();
    f->type(u"Text11"_s, u"mía"_s);
    f->addConsultation(4, u"C1"_s, u"de otra estación"_s);
    // The count plus 1 is 3, which is taken as well.

    f->click(u"Command6"_s);

    QCOMPARE(stored(), QStringList({u"3|C1|tercera"_s, u"4|C1|de otra estación"_s}));
    QCOMPARE(f->text(u"Text11"_s), QString());
    QVERIFY(f->messages.isEmpty());
}

void ConsultationNumberTest::newKeepsTheMarkOfARead()
{
    openClient();
    page()->CONSULTALEIDA = 1;

    f->click(u"Command7"_s);

    QCOMPARE(page()->CONSULTALEIDA, 1);
}

QTEST_MAIN(ConsultationNumberTest)
#include "tst_consultationnumber.moc"
