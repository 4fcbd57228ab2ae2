// SPDX-License-Identifier: GPL-3.0-or-later

// The letters and the marks of the focus in every window, page, dialog and menu: no letter does two things,
// and whatever Tab comes to shows it.

#include "reports/keyboard.h"
#include "reports/programkeys.h"
#include "reports/reportroot.h"
#include "tools/data/demofolder.h"

#include "lookup/lisemwindow.h"
#include "platform/print/output/printers.h"
#include "platform/system/messagebox.h"
#include "platform/window/appearance.h"
#include "platform/window/spanishtexts.h"
#include "platform/window/tabpages.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"
#include "shell/windows.h"

#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QShortcut>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>
#include <QToolBar>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;
using namespace reporttest;
using platform::print::PreviewWindow;
using reports::LISTA;

namespace {

/// The captions that answer to a key, by its name.
using Letters = std::map<QString, QStringList>;

void add(Letters& letters, const QKeySequence& key, const QString& caption)
{
    if (!key.isEmpty())
        letters[key.toString()].append(caption);
}

/// The keys that work from anywhere in a window, of what is to be seen in it.
Letters lettersOf(const QWidget& window)
{
    Letters letters;
    for (const auto* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible())
            add(letters, button->shortcut(), button->text());
    for (const auto* label : window.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy() != nullptr)
            add(letters, QKeySequence::mnemonic(label->text()), label->text());
    for (const auto* tabs : window.findChildren<QTabBar*>())
        for (int tab = 0; tabs->isVisible() && tab < tabs->count(); ++tab)
            add(letters, QKeySequence::mnemonic(tabs->tabText(tab)), tabs->tabText(tab));
    for (const auto* bar : window.findChildren<QMenuBar*>())
        for (const QAction* menu : bar->actions())
            add(letters, QKeySequence::mnemonic(menu->text()), menu->text());
    for (const auto* shortcut : window.findChildren<QShortcut*>()) {
        const auto* owner = qobject_cast<QWidget*>(shortcut->parent());
        const bool isReachable = owner == nullptr || owner->isVisible();
        if (isReachable && shortcut->isEnabled() && shortcut->context() == Qt::WindowShortcut)
            add(letters, shortcut->key(), shortcut->parent()->objectName());
    }
    return letters;
}

Letters lettersOfMenu(const QMenu& menu)
{
    Letters letters;
    for (const QAction* entry : menu.actions())
        if (entry->isVisible())
            add(letters, QKeySequence::mnemonic(entry->text()), entry->text());
    return letters;
}

/// "Alt+G: Grabar, Guardar" for each key with more than one caption.
QStringList doubled(const Letters& letters)
{
    QStringList found;
    for (const auto& [key, captions] : letters)
        if (captions.size() > 1)
            found.append(key + u": "_s + captions.join(u", "_s));
    return found;
}

/// Walks with Tab once around the window. The stops that look the same with the focus and without.
QStringList unmarkedStops(QWidget& window)
{
    constexpr int kMostStops = 60;
    QStringList unmarked;
    const QWidget* first = QApplication::focusWidget();
    for (int stop = 0; stop < kMostStops; ++stop) {
        std::map<QWidget*, QImage> before;
        for (QWidget* widget : window.findChildren<QWidget*>())
            if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus)
                before[widget] = widget->grab().toImage();
        pressKey(Qt::Key_Tab);
        QWidget* now = QApplication::focusWidget();
        if (now == nullptr || now->window() != &window)
            return {u"the focus left the window"_s};
        if (before.contains(now) && before[now] == now->grab().toImage())
            unmarked.append(QString::fromLatin1(now->metaObject()->className()) + u' ' + now->objectName());
        if (now == first)
            return unmarked;
    }
    return {u"Tab doesn't come back"_s};
}

} // namespace

class WindowKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void noLetterOfTheMainWindowIsDoubled();
    void noLetterOfAPageOfTheClientIsDoubled();
    void noLetterOfALookupIsDoubled_data();
    void noLetterOfALookupIsDoubled();
    void noLetterOfTheReportWindowIsDoubled();
    void noLetterOfThePreviewAndItsDialogsIsDoubled();
    void noLetterOfAMessageIsDoubled();
    void noLetterOfAMenuIsDoubled_data();
    void noLetterOfAMenuIsDoubled();

    void everyStopOfTheLookupShowsItsFocus();
    void everyStopOfTheReportWindowShowsItsFocus();

private:
    /// Opens the lookup of the clients and does the work in it.
    static void inLookup(const std::function<void(LISEM&)>& work);

    std::unique_ptr<tooltest::DemoFolder> m_root;
    QString m_formerFolder;
    std::unique_ptr<STMAIN> m_main;
};

void WindowKeysTest::initTestCase()
{
    platform::installAppearance();
    QVERIFY(platform::installSpanishTexts());
    platform::installMessageBox();
    shell::installLookup();
    platform::setPrinterSource([] { return platform::PrinterList{{{u"Láser"_s, {}, {}}}, 0}; });
    m_formerFolder = QDir::currentPath();
    m_root = std::make_unique<tooltest::DemoFolder>();
    QVERIFY(QDir::setCurrent(m_root->path()));
}

void WindowKeysTest::cleanupTestCase()
{
    platform::setPrinterSource({});
    QDir::setCurrent(m_formerFolder);
}

void WindowKeysTest::init()
{
    resetProgramState();
    m_main = std::make_unique<STMAIN>(u"00012 ana"_s, shell::windowLinks());
    m_main->load();
    QVERIFY(turnTo(*m_main));
}

void WindowKeysTest::cleanup()
{
    unloadWindows();
    m_main.reset();
    resetProgramState();
}

void WindowKeysTest::noLetterOfTheMainWindowIsDoubled()
{
    const Letters letters = lettersOf(*m_main);

    QCOMPARE(letters.size(), std::size_t(2)); // Archivo, Listados
    QCOMPARE(doubled(letters), QStringList());
}

void WindowKeysTest::noLetterOfAPageOfTheClientIsDoubled()
{
    std::vector<Letters> pages;

    QVERIFY(inClients([&](climant& window) {
        typeAnew(u"1"_s);
        pressKey(Qt::Key_Tab);
        pressKey(Qt::Key_Tab); // into the page
        const auto* tabs = window.findChild<platform::TabPages*>(u"SSTab1"_s);
        for (int page = 0; page < tabs->count(); ++page) {
            QCOMPARE(tabs->tab(), page);
            pages.push_back(lettersOf(window));
            pressKey(Qt::Key_Tab, Qt::ControlModifier);
        }
    }));

    QCOMPARE(pages.size(), std::size_t(4));
    for (const Letters& letters : pages) {
        QVERIFY(letters.size() >= 5); // the buttons below
        QCOMPARE(doubled(letters), QStringList());
    }
    QVERIFY(pages.back().size() >= 7); // and those of the consultation
}

void WindowKeysTest::inLookup(const std::function<void(LISEM&)>& work)
{
    bool came = false;
    QVERIFY(inClients([&](climant&) {
        onceActive<LISEM>([&](LISEM& lookup) {
            came = true;
            work(lookup);
            lookup.unload();
        });
        pressKey(Qt::Key_Return); // in the empty code; returns when the lookup has closed
    }));
    QVERIFY(came);
}

void WindowKeysTest::noLetterOfALookupIsDoubled_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("clients") << 20;
    QTest::newRow("types of client") << 15;
    QTest::newRow("articles") << 11;
}

void WindowKeysTest::noLetterOfALookupIsDoubled()
{
    QFETCH(const int, kind);
    TIPOBUSQUEDA = kind;
    LISEM lookup(m_main.get());
    lookup.showModeless();
    QVERIFY(QTest::qWaitForWindowActive(&lookup));

    const Letters letters = lettersOf(lookup);

    QVERIFY(!letters.empty());
    QCOMPARE(doubled(letters), QStringList());
    lookup.unload();
}

void WindowKeysTest::noLetterOfTheReportWindowIsDoubled()
{
    Letters letters;

    QVERIFY(inRevision(u"0000000001"_s, [&](LISTA& window) { letters = lettersOf(window); }));

    QVERIFY(letters.size() >= 3);
    QCOMPARE(doubled(letters), QStringList());
}

void WindowKeysTest::noLetterOfThePreviewAndItsDialogsIsDoubled()
{
    Letters preview;
    Letters dialog;

    QVERIFY(inRevision(u"0000000001"_s, [&](LISTA&) {
        PreviewWindow* shown = openPreview();
        QVERIFY(shown != nullptr);
        preview = lettersOf(*shown);
        onceActive<QFileDialog>([&](QFileDialog& window) {
            dialog = lettersOf(window);
            window.reject();
        });
        shown->findChild<QAction*>(u"exportar"_s)->trigger();
    }));

    QCOMPARE(doubled(preview), QStringList());
    QVERIFY(!dialog.empty());
    QCOMPARE(doubled(dialog).join(u" | "_s), QString());
}

void WindowKeysTest::noLetterOfAMessageIsDoubled()
{
    QMessageBox box(QMessageBox::Question, u"1"_s, u"2"_s,
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel | QMessageBox::YesToAll |
                        QMessageBox::NoToAll);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));

    const Letters letters = lettersOf(box);

    QVERIFY(!letters.empty());
    QCOMPARE(doubled(letters), QStringList());
}

void WindowKeysTest::noLetterOfAMenuIsDoubled_data()
{
    using Open = std::function<Letters()>;
    QTest::addColumn<Open>("open");
    const auto ofTheBar = [this](int place) {
        return lettersOfMenu(*m_main->findChild<QMenuBar*>()->actions().at(place)->menu());
    };

    QTest::newRow("Archivo") << Open([ofTheBar] { return ofTheBar(0); });
    QTest::newRow("Listados") << Open([ofTheBar] { return ofTheBar(1); });
    QTest::newRow("line menu") << Open([this] {
        const climant window(m_main.get());
        return lettersOfMenu(*window.findChild<QMenu*>(u"menucli"_s));
    });
    QTest::newRow("a field's") << Open([] {
        QLineEdit field;
        const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
        return lettersOfMenu(*menu);
    });
    QTest::newRow("a text's") << Open([] {
        QPlainTextEdit text;
        const std::unique_ptr<QMenu> menu(text.createStandardContextMenu());
        return lettersOfMenu(*menu);
    });
    QTest::newRow("a number field's") << Open([] {
        QSpinBox box;
        box.show();
        Letters letters;
        QTimer::singleShot(0, &box, [&letters] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                letters = lettersOfMenu(*menu);
                menu->close();
            }
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), box.mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(&box, &event); // returns when the menu has closed
        return letters;
    });
}

void WindowKeysTest::noLetterOfAMenuIsDoubled()
{
    QFETCH(const std::function<Letters()>, open);

    const Letters letters = open();

    QVERIFY(!letters.empty() || QTest::currentDataTag() == QByteArray("Listados")); // which has none
    QCOMPARE(doubled(letters).join(u" | "_s), QString());
}

void WindowKeysTest::everyStopOfTheLookupShowsItsFocus()
{
    QStringList unmarked{u"never opened"_s};

    inLookup([&](LISEM& lookup) { unmarked = unmarkedStops(lookup); });

    QCOMPARE(unmarked.join(u" | "_s), QString());
}

void WindowKeysTest::everyStopOfTheReportWindowShowsItsFocus()
{
    QStringList unmarked{u"never opened"_s};

    QVERIFY(inRevision(u"0000000001"_s, [&](LISTA& window) { unmarked = unmarkedStops(window); }));

    QCOMPARE(unmarked.join(u" | "_s), QString());
}

QTEST_MAIN(WindowKeysTest)
#include "tst_windowkeys.moc"
