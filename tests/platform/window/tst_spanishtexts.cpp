// SPDX-License-Identifier: GPL-3.0-or-later

// The toolkit's own dialogs and menus, walked twice: as they come, and after the program made the toolkit
// speak Spanish. What reads the same both times is English left behind, unless it is judged here.

#include "platform/print/engine.h"
#include "platform/print/output/printers.h"
#include "platform/print/pefixture.h"
#include "platform/system/messagebox.h"
#include "platform/window/appearance.h"
#include "platform/window/showntexts.h"
#include "platform/window/spanishtexts.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTreeView>

#include <functional>
#include <map>

using namespace Qt::StringLiterals;
using namespace platform;
using platform::print::PeFixture;
using testsupport::shownTexts;

namespace {

using Texts = QSet<QString>;

/// Texts that are right as they come in both languages.
const Texts kJudged{
    u"Exportar"_s,    u"Configurar impresora"_s,
    u"Impresora:"_s,  u"Aceptar"_s, // the program's own
    u"No"_s,          u"Color"_s,
    u"PDF (*.pdf)"_s, u"CSV (*.csv)"_s,
    u"Didot (DD)"_s,  u"Cicero (CC)"_s,
    u"Legal"_s,       u"Folio (8.27 x 13 in)"_s,
};

bool isJudged(const QString& text)
{
    static const QRegularExpression key(u"^(Ctrl|Alt)\\+.$"_s);
    static const QRegularExpression paper(u"^(JIS |ANSI )?[ABC]\\d*( .*)?$"_s);
    return kJudged.contains(text) || key.match(text).hasMatch() || paper.match(text).hasMatch();
}

/// What the walk itself put there: files, folders, printers. Sizes and dates of files keep the desktop's
/// form.
bool isData(const QString& text)
{
    return text.front().isDigit() || text.startsWith(u'/') || text == QDir::home().dirName() ||
           text == u"Láser"_s || text == u"Empresa00012"_s;
}

/// Runs `open`, which stands still in a modal dialog or not, and has `look` work as soon as it stands.
void standing(const std::function<void()>& open, const std::function<void()>& look)
{
    QTimer::singleShot(0, qApp, look);
    open();
}

/// The menu that the right button brings up in a control.
Texts contextMenuOf(QWidget* control)
{
    QWidget window;
    control->setParent(&window);
    control->resize(200, 80);
    window.resize(220, 100);
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return {};
    Texts texts;
    QTimer::singleShot(0, qApp, [&texts] {
        // Modal menus run a loop of their own; the others are up already.
        if (QWidget* menu = QApplication::activePopupWidget()) {
            texts = shownTexts(menu);
            menu->close();
        }
    });
    QTest::mouseClick(window.windowHandle(), Qt::RightButton, {},
                      control->mapTo(&window, control->rect().center()));
    if (QWidget* menu = QApplication::activePopupWidget()) {
        texts = shownTexts(menu);
        menu->close();
    }
    return texts;
}

Texts shown(QWidget& window)
{
    window.show();
    return QTest::qWaitForWindowExposed(&window) ? shownTexts(&window) : Texts();
}

} // namespace

class SpanishTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyTextIsSpanish_data();
    void everyTextIsSpanish();
    void keysAreCalledAsOnSpanishKeyboards();
    void textThatIsNotOursIsLeftToTheCatalogue();

private:
    using Walk = Texts (SpanishTextsTest::*)();

    /// The dialogs of the preview, brought up by its tools.
    Texts exportDialog();
    Texts exportOverAFile();
    Texts exportList();
    Texts exportMenu();
    Texts printerDialog();
    Texts messageBox();
    Texts questions();
    Texts printDialog();
    Texts pageSetup();
    Texts lineMenu();
    Texts textMenu();
    Texts richTextMenu();
    Texts spinBoxMenu();
    Texts scrollBarMenu();
    Texts datePicker();

    Texts walked(Walk walk);
    /// Presses a tool of the preview and looks at the dialog that it brings up, then leaves that.
    Texts lookAt(const QString& tool, const std::function<Texts(QDialog*)>& look);

    PeFixture m_report;
    std::map<QString, Texts> m_english;
    static const std::map<QString, Walk> kWalks;
};

const std::map<QString, SpanishTextsTest::Walk> SpanishTextsTest::kWalks{
    {u"export dialog"_s, &SpanishTextsTest::exportDialog},
    {u"export over a file that is there"_s, &SpanishTextsTest::exportOverAFile},
    {u"list of the export dialog"_s, &SpanishTextsTest::exportList},
    {u"menu of the list of the export dialog"_s, &SpanishTextsTest::exportMenu},
    {u"choice of a printer"_s, &SpanishTextsTest::printerDialog},
    {u"message box"_s, &SpanishTextsTest::messageBox},
    {u"questions"_s, &SpanishTextsTest::questions},
    {u"print dialog"_s, &SpanishTextsTest::printDialog},
    {u"page setup"_s, &SpanishTextsTest::pageSetup},
    {u"menu of a field"_s, &SpanishTextsTest::lineMenu},
    {u"menu of a text"_s, &SpanishTextsTest::textMenu},
    {u"menu of a formatted text"_s, &SpanishTextsTest::richTextMenu},
    {u"menu of a number field"_s, &SpanishTextsTest::spinBoxMenu},
    {u"menu of a scroll bar"_s, &SpanishTextsTest::scrollBarMenu},
    {u"date picker"_s, &SpanishTextsTest::datePicker},
};

void SpanishTextsTest::initTestCase()
{
    installAppearance();
    installMessageBox();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    for (const auto& [name, walk] : kWalks)
        m_english[name] = walked(walk);

    QVERIFY(installSpanishTexts());
}

void SpanishTextsTest::everyTextIsSpanish_data()
{
    QTest::addColumn<QString>("name");
    for (const auto& [name, walk] : kWalks)
        QTest::newRow(qPrintable(name)) << name;
}

void SpanishTextsTest::everyTextIsSpanish()
{
    QFETCH(const QString, name);

    const Texts now = walked(kWalks.at(name));

    const Texts& english = m_english.at(name);
    QVERIFY(!now.isEmpty() && !english.isEmpty());
    QStringList left = (now & english).values();
    left.removeIf(isJudged);
    QCOMPARE(left.join(u" | "_s), QString());
}

/// What one walk sees, without its data.
Texts SpanishTextsTest::walked(Walk walk)
{
    Texts texts = (this->*walk)();
    texts.removeIf(isData);
    return texts;
}

Texts SpanishTextsTest::lookAt(const QString& tool, const std::function<Texts(QDialog*)>& look)
{
    m_report.openEngine();
    QDir::setCurrent(m_report.file(u"."_s));
    QDir().mkdir(u"1"_s);
    QFile::link(u"1"_s, u"2"_s);
    QFile::copy(u"CLIENTES.MDB"_s, u"3.pdf"_s);
    const PEJob job = m_report.openReport();
    PEWindowOptions options;
    options.hasExportButton = 1;
    options.hasPrintSetupButton = 1;
    PESetWindowOptions(job, &options);
    PEOutputToWindow(job, "3", 50, 50, 600, 600, 0, nullptr);
    PEStartPrintJob(job, 1);
    print::PreviewWindow* preview = PeFixture::preview();
    Texts texts;
    standing([&] { preview->findChild<QAction*>(tool)->trigger(); },
             [&] {
                 auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                 texts = look(dialog);
                 dialog->reject();
             });
    delete preview;
    PeFixture::closeEngine();
    return texts;
}

Texts SpanishTextsTest::exportDialog()
{
    return lookAt(u"exportar"_s, [](QDialog* dialog) { return shownTexts(dialog); });
}

Texts SpanishTextsTest::exportList()
{
    return lookAt(u"exportar"_s, [](QDialog* dialog) {
        auto* list = dialog->findChild<QTreeView*>(u"treeView"_s);
        const bool isThere = QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) >= 3; });
        return isThere ? shownTexts(list) : Texts();
    });
}

Texts SpanishTextsTest::exportMenu()
{
    return lookAt(u"exportar"_s, [](QDialog* dialog) {
        auto* list = dialog->findChild<QTreeView*>(u"treeView"_s);
        Texts texts;
        QTimer::singleShot(0, qApp, [&texts] {
            if (QWidget* menu = QApplication::activePopupWidget()) {
                texts = shownTexts(menu);
                menu->close();
            }
        });
        QTest::mouseClick(dialog->windowHandle(), Qt::RightButton, {},
                          list->viewport()->mapTo(dialog, list->viewport()->rect().center()));
        return texts;
    });
}

Texts SpanishTextsTest::exportOverAFile()
{
    return lookAt(u"exportar"_s, [](QDialog* dialog) {
        Texts texts;
        dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"3.pdf"_s);
        standing([&] { dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click(); },
                 [&] {
                     auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                     texts = shownTexts(question);
                     question->reject();
                 });
        return texts;
    });
}

Texts SpanishTextsTest::printerDialog()
{
    return lookAt(u"configurar"_s, [](QDialog* dialog) { return shownTexts(dialog); });
}

Texts SpanishTextsTest::messageBox()
{
    Texts texts;
    standing(
        [] { platform::messageBox({.text = u"1"_s, .title = u"2"_s, .icon = MessageIcon::Information}); },
        [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            texts = shownTexts(box);
            box->accept();
        });
    return texts;
}

Texts SpanishTextsTest::questions()
{
    Texts texts;
    for (int bit = QMessageBox::FirstButton; bit <= QMessageBox::LastButton; bit <<= 1) {
        QMessageBox box(QMessageBox::Question, {}, u"1"_s, QMessageBox::StandardButton(bit));
        box.setDetailedText(u"2"_s);
        texts += shown(box);
    }
    return texts;
}

Texts SpanishTextsTest::printDialog()
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    QPrintDialog dialog(&printer);
    return shown(dialog);
}

Texts SpanishTextsTest::pageSetup()
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    QPageSetupDialog dialog(&printer);
    return shown(dialog);
}

Texts SpanishTextsTest::lineMenu()
{
    return contextMenuOf(new QLineEdit(u"1"_s));
}

Texts SpanishTextsTest::textMenu()
{
    return contextMenuOf(new QPlainTextEdit(u"1"_s));
}

Texts SpanishTextsTest::richTextMenu()
{
    return contextMenuOf(new QTextEdit(u"1"_s));
}

Texts SpanishTextsTest::spinBoxMenu()
{
    return contextMenuOf(new QSpinBox);
}

Texts SpanishTextsTest::scrollBarMenu()
{
    Texts texts = contextMenuOf(new QScrollBar(Qt::Horizontal));
    return texts + contextMenuOf(new QScrollBar(Qt::Vertical));
}

Texts SpanishTextsTest::datePicker()
{
    QDateEdit edit(QDate(2024, 1, 5));
    edit.setCalendarPopup(true);
    edit.setDisplayFormat(u"dddd d MMMM yyyy"_s);
    edit.setCalendarWidget(new QCalendarWidget);
    edit.calendarWidget()->setSelectedDate(QDate(2024, 1, 5));
    return shown(edit) + shownTexts(edit.calendarWidget());
}

void SpanishTextsTest::keysAreCalledAsOnSpanishKeyboards()
{
    const auto name = [](QKeyCombination keys) {
        return QKeySequence(keys).toString(QKeySequence::NativeText);
    };

    QCOMPARE(name(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), u"Ctrl+Mayús+Tab"_s);
    QCOMPARE(name(Qt::CTRL | Qt::Key_PageDown), u"Ctrl+AvPág"_s);
    QCOMPARE(name(Qt::CTRL | Qt::Key_PageUp), u"Ctrl+RePág"_s);
    QCOMPARE(name(Qt::Key_Delete), u"Supr"_s);
    QCOMPARE(name(Qt::Key_Return), u"Intro"_s);
    QCOMPARE(name(Qt::Key_Escape), u"Esc"_s);
    QCOMPARE(name(Qt::Key_Space), u"Espacio"_s);
}

void SpanishTextsTest::textThatIsNotOursIsLeftToTheCatalogue()
{
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Cancelar"_s);
    QCOMPARE(QCoreApplication::translate("orvane", "Folder"), u"Folder"_s);
    QCOMPARE(QCoreApplication::translate("QAbstractFileIconProvider", "Folder"), u"Carpeta"_s);
}

QTEST_MAIN(SpanishTextsTest)
#include "tst_spanishtexts.moc"
