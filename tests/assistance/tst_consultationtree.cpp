// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "assistance/consultaspage.h"
#include "platform/window/flexgrid.h"
#include "platform/window/icons.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"

#include <optional>

using namespace Qt::StringLiterals;
using platform::Null;
using testsupport::ClientFixture;

class ConsultationTreeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"C1"_s, u"UNO"_s);
    }
    void cleanup() { f.reset(); }

    void clientWithoutConsultationsShowsTheTwoRoots();
    void nodesBearThePictureOfTheirKind();
    void consultationStandsUnderItsState_data();
    void consultationStandsUnderItsState();
    void nullStateStandsUnderBothRoots();
    void nodesAreCountedPerGroup();
    void nodeShowsFilledNumberAndTrimmedSubject();
    void nullSubjectShowsTheNumberAlone();
    void numberOfMoreThanTenDigitsStaysEmpty();
    void consultationsOfOtherClientsStayOut();
    void clickOnARootLeavesThePage();
    void closedAndSavedMovesToTheOtherRoot();
    void treeIsRebuiltByASaveAndNotByNew();
    void failedQueryLeavesTheRoots();
    void treeLeavesTheHeldRecordWhereItStands();
    void readPreparesTheRow();
    void readLeavesTheEndOfTheLastConsultation();
    void readLeavesTheTexts();
    void userIsTrimmed();
    void readMarksANewConsultation();

private:
    platform::TreeView* tree() const { return f->control<platform::TreeView>(u"TreeView1"_s); }
    /// Texts of the nodes under a root, in their order.
    QStringList under(int root) const
    {
        QStringList texts;
        const QTreeWidgetItem* item = tree()->topLevelItem(root);
        for (int child = 0; child < item->childCount(); ++child)
            texts += item->child(child)->text(0);
        return texts;
    }
    void openClient(const QString& code = u"C1"_s)
    {
        f->open();
        f->enterCode(code);
        f->showPage(3);
    }

    std::optional<ClientFixture> f;
};

void ConsultationTreeTest::clientWithoutConsultationsShowsTheTwoRoots()
{
    openClient();

    QCOMPARE(tree()->nodesCount(), 2);
    QCOMPARE(tree()->nodeText(u"A"_s), u"Consultas Pendientes"_s);
    QCOMPARE(tree()->nodeText(u"B"_s), u"Consultas Cerradas"_s);
    QCOMPARE(tree()->nodeImage(u"A"_s), 3);
    QCOMPARE(tree()->nodeImage(u"B"_s), 2);
    QCOMPARE(under(0), QStringList());
    QCOMPARE(under(1), QStringList());
}

void ConsultationTreeTest::nodesBearThePictureOfTheirKind()
{
    f->addConsultation(1, u"C1"_s, u"tema"_s);
    openClient();
    const auto picture = [](const QTreeWidgetItem* node) { return node->icon(0).pixmap(16).toImage(); };

    const QTreeWidgetItem* pending = tree()->topLevelItem(0);
    const QTreeWidgetItem* closed = tree()->topLevelItem(1);

    QCOMPARE(picture(pending), platform::icon(platform::Icon::FolderOpen).pixmap(16).toImage());
    QCOMPARE(picture(closed), platform::icon(platform::Icon::FolderClosed).pixmap(16).toImage());
    QCOMPARE(picture(pending->child(0)), platform::icon(platform::Icon::Note).pixmap(16).toImage());
    QVERIFY(picture(pending) != picture(closed));
    QVERIFY(!picture(pending->child(0)).isNull());
}

void ConsultationTreeTest::consultationStandsUnderItsState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("pending");
    QTest::addColumn<int>("closed");

    QTest::newRow("pending") << u"01 Abierta"_s << 1 << 0;
    QTest::newRow("closed") << u"02 Cerrada"_s << 0 << 1;
    QTest::newRow("only two characters count") << u"01xyz"_s << 1 << 0;
    QTest::newRow("blanks before") << u"  02"_s << 0 << 1;
    QTest::newRow("empty is in neither") << u""_s << 0 << 0;
    QTest::newRow("another start is in neither") << u"03 Otra"_s << 0 << 0;
}

void ConsultationTreeTest::consultationStandsUnderItsState()
{
    QFETCH(const QString, state);
    QFETCH(const int, pending);
    QFETCH(const int, closed);
    f->addConsultation(1, u"C1"_s, u"tema"_s, state);

    openClient();

    QCOMPARE(under(0).size(), pending);
    QCOMPARE(under(1).size(), closed);
}

void ConsultationTreeTest::nullStateStandsUnderBothRoots()
{
    f->addConsultation(5, u"C1"_s, u"tema"_s, Null{});

    openClient();

    QCOMPARE(under(0), QStringList(u"0000000005 tema"_s));
    QCOMPARE(under(1), QStringList(u"0000000005 tema"_s));
}

void ConsultationTreeTest::nodesAreCountedPerGroup()
{
    f->addConsultation(1, u"C1"_s, u"a"_s);
    f->addConsultation(2, u"C1"_s, u"b"_s, u"02 Cerrada"_s);
    f->addConsultation(3, u"C1"_s, u"c"_s);

    openClient();

    QCOMPARE(tree()->nodeText(u"A2"_s), u"0000000003 c"_s);
    QCOMPARE(tree()->nodeText(u"B1"_s), u"0000000002 b"_s);
    QCOMPARE(tree()->nodeImage(u"A1"_s), 4);
    QCOMPARE(tree()->nodesCount(), 5);
}

void ConsultationTreeTest::nodeShowsFilledNumberAndTrimmedSubject()
{
    f->addConsultation(12, u"C1"_s, u"  no enciende "_s);

    openClient();

    QCOMPARE(under(0), QStringList(u"0000000012 no enciende"_s));
}

void ConsultationTreeTest::nullSubjectShowsTheNumberAlone()
{
    f->addConsultation(12, u"C1"_s, Null{});

    openClient();

    QCOMPARE(under(0), QStringList(u"0000000012 "_s));
}

void ConsultationTreeTest::numberOfMoreThanTenDigitsStaysEmpty()
{
    f->addConsultation(12345678901.0, u"C1"_s, u"tema"_s);

    openClient();

    QCOMPARE(under(0), QStringList(u" tema"_s));
}

void ConsultationTreeTest::consultationsOfOtherClientsStayOut()
{
    f->addConsultation(1, u"C2"_s, u"de otro"_s);
    f->addConsultation(2, u"C1"_s, u"suya"_s);

    openClient();

    QCOMPARE(under(0), QStringList(u"0000000002 suya"_s));
}

void ConsultationTreeTest::clickOnARootLeavesThePage()
{
    f->addConsultation(1, u"C1"_s, u"tema"_s);
    openClient();

    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
                      tree()->visualItemRect(tree()->topLevelItem(0)).center());

    QCOMPARE(f->text(u"Text11"_s), QString());
    QCOMPARE(f->control<ConsultasPage>(u"consultas"_s)->CONSULTALEIDA, 0);
}

void ConsultationTreeTest::closedAndSavedMovesToTheOtherRoot()
{
    f->addConsultation(1, u"C1"_s, u"tema"_s);
    openClient();
    tree()->ensureNodeVisible(u"A1"_s);
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
                      tree()->visualItemRect(tree()->topLevelItem(0)->child(0)).center());
    f->grid(u"vsFlexGrid6"_s)->setTextMatrix(1, 5, u"02 Cerrada"_s);

    f->click(u"Command6"_s);

    QCOMPARE(under(0), QStringList());
    QCOMPARE(under(1), QStringList(u"0000000001 tema"_s));
}

void ConsultationTreeTest::treeIsRebuiltByASaveAndNotByNew()
{
    openClient();
    f->addConsultation(1, u"C1"_s, u"de otra estación"_s);

    f->click(u"Command7"_s);
    QCOMPARE(under(0), QStringList());
    f->click(u"Command6"_s);

    QVERIFY(under(0).contains(u"0000000001 de otra estación"_s));
}

void ConsultationTreeTest::failedQueryLeavesTheRoots()
{
    f->addClient(u"O'HARA"_s, u"IRLANDESA"_s);
    f->addConsultation(1, u"O'HARA"_s, u"tema"_s);

    openClient(u"O'HARA"_s);

    QCOMPARE(tree()->nodesCount(), 2);
    QVERIFY(f->messages.isEmpty());
}

void ConsultationTreeTest::treeLeavesTheHeldRecordWhereItStands()
{
    f->addConsultation(1, u"C1"_s, u"a"_s);
    f->addConsultation(2, u"C1"_s, u"b"_s);
    openClient();
    RSCONSULTAS.setIndex(u"CONnum"_s);
    RSCONSULTAS.Seek(u"=", 1.0, u"C1"_s);

    f->control<ConsultasPage>(u"consultas"_s)->leeconsultree();

    QCOMPARE(platform::asNumber(RSCONSULTAS[u"ORDEN"].Value()), 1.0);
}

void ConsultationTreeTest::readPreparesTheRow()
{
    openClient();

    QCOMPARE(f->line(u"vsFlexGrid6"_s, 1), QStringList({u"20/11/2026"_s, u"09:15:30"_s, u"ana"_s, u""_s,
                                                        u""_s, u"01 Abierta"_s, u"01 No"_s}));
    QVERIFY(f->grid(u"vsFlexGrid6"_s)->redraw());
}

void ConsultationTreeTest::readLeavesTheEndOfTheLastConsultation()
{
    openClient();
    f->grid(u"vsFlexGrid6"_s)->setTextMatrix(1, 3, u"01/01/2026"_s);
    f->grid(u"vsFlexGrid6"_s)->setTextMatrix(1, 4, u"08:00:00"_s);

    f->window().LeerClientes();

    QCOMPARE(f->cell(u"vsFlexGrid6"_s, 1, 3), u"01/01/2026"_s);
    QCOMPARE(f->cell(u"vsFlexGrid6"_s, 1, 4), u"08:00:00"_s);
}

void ConsultationTreeTest::readLeavesTheTexts()
{
    openClient();
    for (const QString& name : {u"Text11"_s, u"Text12"_s, u"Text13"_s})
        f->type(name, u"left over"_s);

    f->window().LeerClientes();

    for (const QString& name : {u"Text11"_s, u"Text12"_s, u"Text13"_s})
        QCOMPARE(f->text(name), u"left over"_s);
}

void ConsultationTreeTest::userIsTrimmed()
{
    USUARIO = u" ana  "_s;

    openClient();

    QCOMPARE(f->cell(u"vsFlexGrid6"_s, 1, 2), u"ana"_s);
}

void ConsultationTreeTest::readMarksANewConsultation()
{
    openClient();
    f->control<ConsultasPage>(u"consultas"_s)->CONSULTALEIDA = 1;

    f->window().LeerClientes();

    QCOMPARE(f->control<ConsultasPage>(u"consultas"_s)->CONSULTALEIDA, 0);
}

QTEST_MAIN(ConsultationTreeTest)
#include "tst_consultationtree.moc"
