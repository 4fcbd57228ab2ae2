// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"
#include "lookup/lisem.h"
#include "lookup/lisemwindow.h"
#include "platform/window/flexgrid.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"

#include <QTimer>

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

/// The client window with the real lookup over the real stores: what each of its pictures and cell buttons
/// brings back.
class LookupCallersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void clientComesBackWithItsRecord();
    void clientTypeComesBackWithItsDescription();
    void representativeListIsEmpty();
    void zoneDoesNotComeBack();
    void postalCodeListIsEmpty();
    void articleComesBackIntoTheLine();
    void postalCodeOfALineDoesNotComeBack();

private:
    void lookUp(QWidget* parent);

    std::optional<ClientFixture> f;
    QList<int> m_rows; ///< rows listed at each lookup, the heading not counted
};

void LookupCallersTest::init()
{
    f.emplace();
    m_rows.clear();
    setMuestraLISEM([this](QWidget* parent) { lookUp(parent); });
    f->addClient(u"0000000007"_s, u"SIETE"_s);
    ClientFixture::add(BDTIPOS, u"TIPOCLI"_s,
                       {{u"TIPOCODIGO", u"0003"_s}, {u"TIPODESCRIPCION", u"Hoteles"_s}});
    ClientFixture::add(BDARTICULOS, u"ArticulosTabla"_s,
                       {{u"ArtCodigo", u"CAL01"_s}, {u"Descripcion", u"Caldera mural"_s}});
    f->open();
}

void LookupCallersTest::cleanup()
{
    f.reset();
    setMuestraLISEM({});
}

/// Shows the real window, and chooses its first row with Enter, or leaves it with Esc where it lists nothing.
void LookupCallersTest::lookUp(QWidget* parent)
{
    LISEM window(parent);
    QTimer::singleShot(0, &window, [this, &window] {
        auto* list = window.findChild<platform::FlexGrid*>(u"busi"_s);
        m_rows.append(list->rows() - 1);
        if (list->rows() > 1) {
            list->setRow(1);
            QTest::keyClick(list, Qt::Key_Return);
        } else {
            QTest::keyClick(window.findChild<platform::TextBox*>(u"Text1"_s), Qt::Key_Escape);
        }
    });
    window.showModal();
}

void LookupCallersTest::clientComesBackWithItsRecord()
{
    f->click(u"Picture3"_s);

    QCOMPARE(m_rows, QList<int>{1});
    QCOMPARE(f->text(u"Text49"_s), u"0000000007"_s);
    QCOMPARE(f->text(u"Text51"_s), u"SIETE"_s);
}

void LookupCallersTest::clientTypeComesBackWithItsDescription()
{
    f->click(u"Picture5"_s);

    QCOMPARE(m_rows, QList<int>{1});
    QCOMPARE(f->text(u"Text27"_s), u"0003"_s);
    QCOMPARE(f->text(u"Text26"_s), u"Hoteles"_s);
}

void LookupCallersTest::representativeListIsEmpty()
{
    f->click(u"Picture2"_s);

    QCOMPARE(m_rows, QList<int>{0});
    QCOMPARE(f->text(u"Text20"_s), QString());
}

void LookupCallersTest::zoneDoesNotComeBack()
{
    f->click(u"Picture4"_s);

    QCOMPARE(m_rows, QList<int>{1});
    QCOMPARE(f->text(u"Text21"_s), QString());
}

void LookupCallersTest::postalCodeListIsEmpty()
{
    f->click(u"Picture1"_s);

    QCOMPARE(m_rows, QList<int>{0});
    QCOMPARE(f->text(u"Text5"_s), QString());
}

void LookupCallersTest::articleComesBackIntoTheLine()
{
    f->clickCell(u"vsFlexGrid3"_s, 1, 0);

    Q_EMIT f->grid(u"vsFlexGrid3"_s)->CellButtonClick(1, 0);

    QCOMPARE(m_rows, QList<int>{1});
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 0), u"CAL01"_s);
    QCOMPARE(f->cell(u"vsFlexGrid3"_s, 1, 1), u"Caldera mural"_s);
}

void LookupCallersTest::postalCodeOfALineDoesNotComeBack()
{
    f->clickCell(u"vsFlexGrid1"_s, 1, 1);

    Q_EMIT f->grid(u"vsFlexGrid1"_s)->CellButtonClick(1, 1);

    QCOMPARE(m_rows, QList<int>{0});
    QCOMPARE(f->cell(u"vsFlexGrid1"_s, 1, 1), QString());
}

QTEST_MAIN(LookupCallersTest)
#include "tst_lookupcallers.moc"
