// SPDX-License-Identifier: GPL-3.0-or-later

// The main window on every screen, its menus, the message boxes and the hints.

#include "looks/painted.h"
#include "looks/pictures.h"
#include "looks/places.h"
#include "looks/setting.h"
#include "looks/shown.h"
#include "looks/texts.h"
#include "platform/system/messagebox.h"
#include "platform/window/appearance.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"
#include "support/fixedclock.h"
#include "support/tempdataroot.h"

#include <QAbstractButton>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsualType = 10;
const QStringList kMessages{
    u"Error al acceder a la aplicación. Sólo se puede acceder a la aplicación a través de Quenda"_s,
    u"Se ha producido el error '91' en tiempo de ejecución.\n\nobject variable not set"_s,
    u"El usuario no es correcto"_s};

} // namespace

class ShellLooksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void mainWindowHasRoom_data() { sizes(); }
    void mainWindowHasRoom();
    void mainWindowCanBeRead();
    void menusHaveRoom_data() { sizes(); }
    void menusHaveRoom();
    void menusCanBeRead();
    void messagesHaveRoomAndCanBeRead_data() { sizes(); }
    void messagesHaveRoomAndCanBeRead();

private:
    static void sizes();
    std::unique_ptr<STMAIN> started(QSize screen) const;
    /// Shows each menu of the main window and looks at it.
    template <typename Look>
    void eachMenu(Look look) const;

    std::unique_ptr<testsupport::TempDataRoot> m_root;
    std::unique_ptr<testsupport::FixedClock> m_clock;
};

void ShellLooksTest::init()
{
    m_root = std::make_unique<testsupport::TempDataRoot>(
        QList<testsupport::TempDataRoot::Company>{{u"00012"_s, u"Asistencia Técnica del Ebro, S.L."_s}});
    m_clock = std::make_unique<testsupport::FixedClock>(QDate(2026, 11, 20), QTime(9, 0));
    platform::installMessageBox();
    resetProgramState();
}

void ShellLooksTest::cleanup()
{
    resetProgramState();
    m_clock.reset();
    m_root.reset();
    looks::setFontSize(looks::kFontSizes.first());
}

void ShellLooksTest::sizes()
{
    QTest::addColumn<int>("points");
    for (const int points : looks::kFontSizes)
        QTest::addRow("%d points", points) << points;
}

std::unique_ptr<STMAIN> ShellLooksTest::started(QSize screen) const
{
    auto window = std::make_unique<STMAIN>(u"00012 ana"_s, STMAINLinks{});
    window->setScreen(looks::screenOf(screen));
    window->load();
    QCoreApplication::processEvents();
    return window;
}

template <typename Look>
void ShellLooksTest::eachMenu(Look look) const
{
    const auto window = started(looks::kScreenSizes.first());
    for (QMenu* menu : window->findChildren<QMenu*>()) {
        menu->popup(window->mapToGlobal(QPoint(0, window->height())));
        menu->setActiveAction(menu->actions().first());
        QVERIFY(QTest::qWaitForWindowExposed(menu));
        look(*menu);
        menu->close();
    }
}

void ShellLooksTest::mainWindowHasRoom()
{
    QFETCH(const int, points);
    looks::setFontSize(points);

    QStringList faults;
    // The band is one row of tools: with type above the desktop's usual one it needs more than the least
    // width.
    const QList<QSize> screens = points <= kUsualType ? looks::kScreenSizes : looks::kScreenSizes.mid(1);
    for (const QSize& screen : screens) {
        const auto window = started(screen);
        // Its frame is meant to lie outside of the screen.
        const QSize room = window->size().boundedTo(screen + QSize(10, 0));
        looks::keepPicture(*window, u"main"_s);
        for (const QString& fault : looks::cutTexts(*window, {u"Idioma"_s}) + looks::misplaced(*window, room))
            faults += u"%1x%2: "_s.arg(screen.width()).arg(screen.height()) + fault;
        // Large type on a small screen may send tools behind the bar's end.
        if (points <= kUsualType || screen.width() >= 1920)
            QVERIFY(!looks::hidesTools(*window));
    }
    QVERIFY(looks::isSound(faults));
}

void ShellLooksTest::mainWindowCanBeRead()
{
    const auto window = started(looks::kScreenSizes.last());

    QVERIFY(looks::isSound(looks::unreadable(*window)));
}

void ShellLooksTest::menusHaveRoom()
{
    QFETCH(const int, points);
    looks::setFontSize(points);

    QStringList faults;
    eachMenu([&](QMenu& menu) {
        looks::keepPicture(menu, u"menu-"_s + menu.objectName());
        faults += looks::cutTexts(menu) + looks::misplaced(menu, looks::kScreenSizes.first());
    });
    QVERIFY(looks::isSound(faults));
}

void ShellLooksTest::menusCanBeRead()
{
    QStringList faults;
    eachMenu([&](QMenu& menu) { faults += looks::unreadable(menu); });
    QVERIFY(looks::isSound(faults));
}

void ShellLooksTest::messagesHaveRoomAndCanBeRead()
{
    QFETCH(const int, points);
    looks::setFontSize(points);

    QStringList faults;
    for (const QString& text : kMessages) {
        QTimer::singleShot(0, qApp, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            looks::keepPicture(*box, u"message-%1"_s.arg(kMessages.indexOf(text)));
            faults += looks::cutTexts(*box) + looks::misplaced(*box, looks::kScreenSizes.first()) +
                      looks::unreadable(*box);
            QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
        });
        platform::messageBox({.text = text, .title = {}, .icon = platform::MessageIcon::Information});
    }
    QVERIFY(looks::isSound(faults));
}

ORVANE_LOOKS_MAIN(ShellLooksTest)
#include "tst_shelllooks.moc"
