// SPDX-License-Identifier: GPL-3.0-or-later

// The client window: every page, empty and with data as long as the stores let it be.

#include "clients/clientfixture.h"
#include "looks/extremes.h"
#include "looks/painted.h"
#include "looks/pictures.h"
#include "looks/places.h"
#include "looks/setting.h"
#include "looks/shown.h"
#include "looks/texts.h"
#include "platform/window/flexgrid.h"
#include "platform/window/tabpages.h"
#include "platform/window/treeview.h"
#include "shell/globalsat.h"

#include <QMenu>
#include <QtTest>

using namespace Qt::StringLiterals;
using platform::TabPages;
using testsupport::ClientFixture;

namespace {

const QString kFullClient = u"0000000001"_s;
const QStringList kPages{u"identificacion"_s, u"adicionales"_s, u"conceptos"_s, u"consultas"_s};
constexpr int kLines = 12;

void fillStores()
{
    using looks::addFullRow;
    addFullRow(BDCLIENTES, u"ClientesTabla"_s, 1,
               {{u"CliCodigo"_s, kFullClient}, {u"CliPGC"_s, u"430000000000001"_s}});
    for (int line = 1; line <= kLines; ++line) {
        addFullRow(BDCLIENTES, u"CLIDIRENVIOS"_s, line,
                   {{u"CLIENVICODIGO"_s, kFullClient}, {u"CLIENVIACTIVA"_s, u"1"_s}});
        addFullRow(BDCLIENTES, u"CLIBANCOSDISP"_s, line,
                   {{u"CLIBANCOSCODIGO"_s, kFullClient}, {u"CLIBANCOSACTIVA"_s, u"1"_s}});
        addFullRow(BDTELEFONOS, u"TELEFON"_s, line,
                   {{u"TELECODIGOEMPRESA"_s, u"00012"_s}, {u"TELECODIGO"_s, kFullClient}});
        addFullRow(BDCLIENTES, u"clientescyctabla"_s, line,
                   {{u"clientescyccliente"_s, kFullClient},
                    {u"clientescycarticulo"_s, u"%1"_s.arg(line, 10, 10, QChar(u'0'))},
                    {u"clientescycfecbaja"_s, u"31/12/2026"_s},
                    {u"clientescyclineas"_s, double(line)}});
        addFullRow(BDASISTENCIAS, u"CONS"_s, line,
                   {{u"ORDEN"_s, double(line)},
                    {u"CLICONSULTA"_s, kFullClient},
                    {u"ESTADO"_s, line % 2 == 0 ? u"01 Abierta"_s : u"02 Cerrada"_s}});
    }
}

} // namespace

class ClientLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void everythingHasRoom_data();
    void everythingHasRoom();
    void everyTextCanBeRead_data();
    void everyTextCanBeRead();
    void everyStopShowsItsFocus();

private:
    /// The window, with the full client in it if wanted, and a consultation of his on its page.
    climant& opened(bool full);
    void turnTo(int page) { f->control<TabPages>(u"SSTab1"_s)->setTab(page); }

    std::unique_ptr<ClientFixture> f;
};

void ClientLooksTest::init()
{
    f = std::make_unique<ClientFixture>();
    fillStores();
}

void ClientLooksTest::cleanup()
{
    f.reset();
    looks::setFontSize(looks::kFontSizes.first());
}

climant& ClientLooksTest::opened(bool full)
{
    climant& window = f->open();
    if (full) {
        f->enterCode(kFullClient);
        turnTo(3);
        auto* tree = f->control<platform::TreeView>(u"TreeView1"_s);
        tree->expandAll();
        tree->setCurrentItem(tree->topLevelItem(0)->child(0));
        QTest::keyClick(tree, Qt::Key_Return);
    }
    return window;
}

void ClientLooksTest::everythingHasRoom_data()
{
    QTest::addColumn<bool>("full");
    QTest::addColumn<int>("points");
    for (const int points : looks::kFontSizes) {
        QTest::addRow("empty, %d points", points) << false << points;
        QTest::addRow("full, %d points", points) << true << points;
    }
}

void ClientLooksTest::everythingHasRoom()
{
    QFETCH(const bool, full);
    QFETCH(const int, points);
    looks::setFontSize(points);
    climant& window = opened(full);

    QStringList faults;
    for (const QSize& screen : looks::screensFor(points)) {
        window.resize(screen);
        for (int page = 0; page < kPages.size(); ++page) {
            turnTo(page);
            QCoreApplication::processEvents();
            const QString where =
                u"%1 on %2x%3: "_s.arg(kPages.at(page)).arg(screen.width()).arg(screen.height());
            for (const QString& fault :
                 looks::cutTexts(window, {u"Combo3"_s}) + looks::misplaced(window, screen))
                faults += where + fault;
            if (screen == looks::screensFor(points).first())
                looks::keepPicture(window,
                                   u"client-"_s + kPages.at(page) + (full ? u"-full"_s : u"-empty"_s));
        }
    }
    QVERIFY(looks::isSound(faults));
}

void ClientLooksTest::everyTextCanBeRead_data()
{
    QTest::addColumn<bool>("full");
    QTest::newRow("empty") << false;
    QTest::newRow("full") << true;
}

void ClientLooksTest::everyTextCanBeRead()
{
    QFETCH(const bool, full);
    climant& window = opened(full);

    QStringList faults;
    for (int page = 0; page < kPages.size(); ++page) {
        turnTo(page);
        QCoreApplication::processEvents();
        for (const QString& fault : looks::unreadable(window))
            faults += kPages.at(page) + u": "_s + fault;
    }
    QVERIFY(looks::isSound(faults));
}

void ClientLooksTest::everyStopShowsItsFocus()
{
    climant& window = opened(true);

    QStringList faults;
    for (int page = 0; page < kPages.size(); ++page) {
        turnTo(page);
        QCoreApplication::processEvents();
        for (const QString& fault : looks::unmarkedFocus(window))
            faults += kPages.at(page) + u": "_s + fault;
    }
    faults.removeDuplicates();
    QVERIFY(looks::isSound(faults));
}

ORVANE_LOOKS_MAIN(ClientLooksTest)
#include "tst_clientlooks.moc"
