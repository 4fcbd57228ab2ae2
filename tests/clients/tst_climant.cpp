// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "assistance/consultaspage.h"
#include "platform/window/flexgrid.h"
#include "platform/window/imagelabel.h"
#include "platform/window/tabpages.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <QAbstractButton>

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

class ClimantTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"0000000001"_s, u"UNO"_s);
        f->addShipping(u"0000000001"_s, u"Mayor"_s);
        f->addTelephone(u"0000000001"_s, u"911"_s);
    }
    void cleanup() { f.reset(); }

    void windowOpensEmptyWithTheFocusOnTheCode();
    void openingOpensTheAssistanceStoreOnce();
    void hintOfThePictureTellsTheVersion();
    void pictureFollowsTheMouse();
    void pagesAndCommandsBearTheirCaptions();
    void codesOfFullLengthAreSeenWhole_data();
    void codesOfFullLengthAreSeenWhole();
    void newProposesTheNextCode();
    void newOnAnEmptyTableProposesOne();
    void newEmptiesTheWindow();
    void proposedCodeIsFilledAndNothingIsRead();
    void saveButtonStoresAndEmpties();
    void saveItemStoresAndEmpties();
    void leaveClosesWithoutSavingAndWithoutAsking_data();
    void leaveClosesWithoutSavingAndWithoutAsking();
    void deleteAndListDoNothing();
    void mailGoesToTheTrimmedAddress();
    void mailWithoutAnAddressDoesNothing();
    void enterMovesToTheNextField();
    void enterInTheNotesMovesOnAndBreaksTheLine();
    void enterInAFieldAlignedRightFormatsAndMovesOn();
    void tabInAFieldAlignedRightFormats();
    void escapeAndEnterCloseNothing();

private:
    std::optional<ClientFixture> f;
};

void ClimantTest::windowOpensEmptyWithTheFocusOnTheCode()
{
    f->open();

    QCOMPARE(f->window().windowTitle(), u"  Mantenimiento de Clientes S.A.T."_s);
    QCOMPARE(f->focused(), u"Text49"_s);
    QCOMPARE(f->text(u"Text49"_s), QString());
    QCOMPARE(f->tab(), 0);
    QVERIFY(!f->control<platform::TabPages>(u"SSTab1"_s)->isTabStop());
    QVERIFY(f->messages.isEmpty());
}

void ClimantTest::openingOpensTheAssistanceStoreOnce()
{
    const int before = platform::dao::DBEngine().Workspaces(0).Databases().Count();

    f->open();

    QCOMPARE(platform::dao::DBEngine().Workspaces(0).Databases().Count(), before);
    QCOMPARE(RSCONSULTAS.RecordCount(), 0);
}

void ClimantTest::hintOfThePictureTellsTheVersion()
{
    f->open();

    QCOMPARE(f->control<QWidget>(u"imgwl"_s)->toolTip(), u"Quenda.- Ver.3.32 Build 3009"_s);
}

void ClimantTest::pictureFollowsTheMouse()
{
    f->open();
    auto* picture = f->control<platform::ImageLabel>(u"imgwl"_s);
    const QImage first = picture->pixmap().toImage();

    QTest::mouseMove(picture);
    QVERIFY(QTest::qWaitFor([&] { return picture->pixmap().toImage() != first; }));
    QTest::mouseMove(f->control<QWidget>(u"BAJO"_s));

    QVERIFY(QTest::qWaitFor([&] { return picture->pixmap().toImage() == first; }));
}

void ClimantTest::pagesAndCommandsBearTheirCaptions()
{
    f->open();
    const auto* pages = f->control<platform::TabPages>(u"SSTab1"_s);

    QCOMPARE(pages->count(), 4);
    QCOMPARE(pages->tabText(0), u"Identificacion"_s);
    QCOMPARE(pages->tabText(1), u"Adicionales"_s);
    QCOMPARE(pages->tabText(2), u"Conceptos Períodicos"_s);
    QCOMPARE(pages->tabText(3), u"Consultas"_s);
    const QStringList captions{u"&Nuevo"_s, u"&Grabar"_s, u"&Borrar"_s, u"&Listado"_s, u"&Salir"_s};
    for (int i = 0; i < captions.size(); ++i)
        QCOMPARE(f->control<QAbstractButton>(u"Command%1"_s.arg(i + 1))->text(), captions.at(i));
}

void ClimantTest::codesOfFullLengthAreSeenWhole_data()
{
    QTest::addColumn<QString>("field");
    for (const char* field : {"Text49", "Text14", "Text5", "Text20", "Text21", "Text27"})
        QTest::newRow(field) << QString::fromLatin1(field);
}

void ClimantTest::codesOfFullLengthAreSeenWhole()
{
    constexpr int kFrame = 8; // pixels that the frame and the margins of a box take at least
    QFETCH(QString, field);
    f->open();

    const platform::TextBox* box = f->box(field);

    const QString code(box->maxLength(), u'0');
    QCOMPARE_GE(box->width() - kFrame, box->fontMetrics().horizontalAdvance(code));
}

void ClimantTest::newProposesTheNextCode()
{
    f->addClient(u"0000000123"_s);
    f->open();

    f->click(u"Command1"_s);

    QCOMPARE(f->text(u"Text49"_s), u"0000000124"_s);
    QCOMPARE(f->focused(), u"Text51"_s);
}

void ClimantTest::newOnAnEmptyTableProposesOne()
{
    RSCLIENTES.MoveFirst();
    RSCLIENTES.Delete();
    f->open();

    f->clickItem(u"NUEVA"_s);

    QCOMPARE(f->text(u"Text49"_s), u"0000000001"_s);
}

void ClimantTest::newEmptiesTheWindow()
{
    f->open();
    f->enterCode(u"1"_s);

    f->clickItem(u"NUEVA"_s);

    QCOMPARE(f->text(u"Text51"_s), QString());
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 0), QString());
    QCOMPARE(f->text(u"Text49"_s), u"0000000002"_s);
}

void ClimantTest::proposedCodeIsFilledAndNothingIsRead()
{
    f->open();
    f->window().proximocliente();

    QCOMPARE(f->text(u"Text49"_s), u"0000000002"_s);
    QCOMPARE(f->text(u"Text51"_s), QString());
}

void ClimantTest::saveButtonStoresAndEmpties()
{
    f->open();
    f->type(u"Text49"_s, u"2"_s);
    f->type(u"Text51"_s, u"DOS"_s);

    f->click(u"Command2"_s);

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CliCodigo, CliNombre FROM ClientesTabla ORDER BY CliCodigo"_s),
             QStringList({u"0000000001|UNO"_s, u"0000000002|DOS"_s}));
    QCOMPARE(f->text(u"Text49"_s), QString());
    QCOMPARE(f->text(u"Text51"_s), QString());
    QCOMPARE(f->focused(), u"Text49"_s);
}

void ClimantTest::saveItemStoresAndEmpties()
{
    f->open();
    f->type(u"Text49"_s, u"2"_s);
    f->type(u"Text51"_s, u"DOS"_s);

    f->clickItem(u"GRABAR"_s);

    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CliNombre FROM ClientesTabla WHERE CliCodigo='0000000002'"_s),
             QStringList(u"DOS"_s));
    QCOMPARE(f->text(u"Text51"_s), QString());
}

void ClimantTest::leaveClosesWithoutSavingAndWithoutAsking_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << u"Command5"_s;
    QTest::newRow("item of the side bar") << u"SALIR"_s;
    QTest::newRow("frame of the window") << u"frame"_s;
}

void ClimantTest::leaveClosesWithoutSavingAndWithoutAsking()
{
    QFETCH(const QString, way);
    f->open();
    f->enterCode(u"1"_s);
    f->type(u"Text51"_s, u"CAMBIADO"_s);

    if (way == u"Command5")
        f->click(way);
    else if (way == u"SALIR")
        f->clickItem(way);
    else
        f->window().close();

    QVERIFY(!f->isOpen());
    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CliNombre FROM ClientesTabla"_s), QStringList(u"UNO"_s));
    QVERIFY(f->messages.isEmpty());
}

void ClimantTest::deleteAndListDoNothing()
{
    f->open();
    f->enterCode(u"1"_s);
    TITULOINFORME = u"before"_s;

    f->click(u"Command3"_s);
    f->click(u"Command4"_s);

    QCOMPARE(f->text(u"Text51"_s), u"UNO"_s);
    QCOMPARE(f->rows(BDCLIENTES, u"SELECT CliCodigo FROM ClientesTabla"_s), QStringList(u"0000000001"_s));
    QCOMPARE(TITULOINFORME, u"before"_s);
    QVERIFY(f->messages.isEmpty());
}

void ClimantTest::mailGoesToTheTrimmedAddress()
{
    f->open();
    f->box(u"Text7"_s)->setText(u"  ana@example.com "_s);

    f->clickItem(u"CORREO"_s);

    QCOMPARE(f->processes.mails(), QStringList(u"ana@example.com"_s));
}

void ClimantTest::mailWithoutAnAddressDoesNothing()
{
    f->open();
    f->box(u"Text7"_s)->setText(u"   "_s);

    f->clickItem(u"CORREO"_s);

    QCOMPARE(f->processes.mails(), QStringList());
}

void ClimantTest::enterMovesToTheNextField()
{
    f->open();
    f->click(u"Text8"_s);

    f->press(Qt::Key_Return);
    QCOMPARE(f->focused(), u"Text9"_s);
    f->press(Qt::Key_Return);
    QCOMPARE(f->focused(), u"Text4"_s);
}

void ClimantTest::enterInTheNotesMovesOnAndBreaksTheLine()
{
    f->open();
    f->type(u"Text60"_s, u"a"_s);

    f->press(Qt::Key_Return);

    QCOMPARE(f->text(u"Text60"_s), u"a\r\n"_s);
    QVERIFY(f->focused() != u"Text60");
}

void ClimantTest::enterInAFieldAlignedRightFormatsAndMovesOn()
{
    f->open();
    f->box(u"Text33"_s)->setTextAlignment(platform::TextBox::kRight);
    f->type(u"Text33"_s, u"1234,5"_s);

    f->press(Qt::Key_Return);

    QCOMPARE(f->text(u"Text33"_s), u"1.234,50"_s);
    QCOMPARE(f->box(u"Text33"_s)->selStart(), 0);
    QCOMPARE(f->focused(), u"Text34"_s);
}

void ClimantTest::tabInAFieldAlignedRightFormats()
{
    f->open();
    f->box(u"Text33"_s)->setTextAlignment(platform::TextBox::kRight);
    f->type(u"Text33"_s, u"7"_s);

    f->press(Qt::Key_Tab);

    QCOMPARE(f->text(u"Text33"_s), u"7,00"_s);
    QCOMPARE(f->focused(), u"Text34"_s);
}

void ClimantTest::escapeAndEnterCloseNothing()
{
    f->open();
    f->click(u"Text8"_s);

    f->press(Qt::Key_Escape);
    f->press(Qt::Key_Return);

    QVERIFY(f->isOpen());
}

QTEST_MAIN(ClimantTest)
#include "tst_climant.moc"
