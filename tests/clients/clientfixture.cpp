// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include "lookup/lisem.h"
#include "platform/text/textfunctions.h"
#include "platform/window/flexgrid.h"
#include "platform/window/formhelpers.h"
#include "platform/window/listbar.h"
#include "platform/window/multilinebox.h"
#include "platform/window/tabpages.h"
#include "platform/window/textbox.h"
#include "shell/globalsat.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QTabBar>
#include <QTimer>

using namespace Qt::StringLiterals;
using platform::FlexGrid;
using platform::TabPages;
using platform::TextBox;
using platform::Value;
using platform::dao::Database;
using platform::dao::Recordset;

namespace testsupport {

namespace {

void openStores()
{
    CREARARTICULOS();
    ABRIRARTICULOS();
    CREARCLIENTES();
    ABRIRCLIENTES();
    CREARZONAS();
    ABRIRZONAS();
    CREARTIPOS();
    ABRIRTIPOS();
    CREARCONSULTAS();
    ABRIRCONSULTAS();
    CREARTELEFONOS();
    ABRIRTELEFONOS();
}

void setRunVariables(const TempDataRoot& root)
{
    resetProgramState();
    NUMEMPRESA = u"00012"_s;
    USUARIO = u"ana"_s;
    RUTAEMPRESA = root.companyPath();
}

void copyStores(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    const QStringList names = QDir(from).entryList({u"*.mdb"_s}, QDir::Files);
    for (const QString& name : names) {
        if (!name.startsWith(u"Empresas"))
            QFile::copy(from + u'/' + name, to + u'/' + name);
    }
}

/// Empty stores, made once a process: a copy costs a hundredth of a making.
const QString& emptyStores()
{
    static const QTemporaryDir folder;
    static const QString path = [] {
        const TempDataRoot root;
        setRunVariables(root);
        openStores();
        resetProgramState();
        copyStores(root.path(), folder.path());
        copyStores(root.path(u"Empresa00012"_s), folder.filePath(u"company"_s));
        return folder.path();
    }();
    return path;
}

} // namespace

void startRun(const TempDataRoot& root)
{
    copyStores(emptyStores(), root.path());
    copyStores(emptyStores() + u"/company"_s, root.path(u"Empresa00012"_s));
    setRunVariables(root);
    openStores();
}

ClientFixture::ClientFixture()
    : clock(QDate(2026, 11, 20), QTime(9, 15, 30))
{
    QCoreApplication::setApplicationVersion(u"3.32.3009"_s);
    startRun(root);
    setMuestraLISEM([this](QWidget* parent) { lookUp(parent); });
}

ClientFixture::~ClientFixture()
{
    setMuestraLISEM({});
    m_window.reset();
    resetProgramState();
}

climant& ClientFixture::open()
{
    m_window = std::make_unique<climant>();
    m_window->resize(1024, 700);
    m_window->showModeless();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the window doesn't come to the front");
    // The rule of the first focus runs from the event loop.
    QCoreApplication::processEvents();
    return *m_window;
}

void ClientFixture::closeWindow()
{
    m_window.reset();
}

void ClientFixture::activate()
{
    // The window that closed may be told last that it had come to the front.
    const bool isInFront = QTest::qWaitFor([this] {
        m_window->activateWindow();
        QCoreApplication::processEvents();
        return QApplication::activeWindow() == m_window.get();
    });
    if (!isInFront)
        qFatal("the window doesn't come to the front");
}

TextBox* ClientFixture::box(const QString& name) const
{
    return control<TextBox>(name);
}

FlexGrid* ClientFixture::grid(const QString& name) const
{
    return control<FlexGrid>(name);
}

QString ClientFixture::text(const QString& name) const
{
    if (const auto* lines = m_window->findChild<platform::MultiLineBox*>(name))
        return lines->text();
    return box(name)->text();
}

int ClientFixture::tab() const
{
    return control<TabPages>(u"SSTab1"_s)->tab();
}

QString ClientFixture::focused() const
{
    const QWidget* widget = QApplication::focusWidget();
    return widget ? widget->objectName() : QString();
}

void ClientFixture::showPage(int page)
{
    QTabBar* bar = control<TabPages>(u"SSTab1"_s)->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
}

/// Without a click, which would move the focus: the test's subject is the control, not the road to it.
void ClientFixture::showPageOf(QWidget* widget)
{
    auto* pages = control<TabPages>(u"SSTab1"_s);
    for (int page = 0; page < pages->count(); ++page) {
        if (pages->widget(page)->isAncestorOf(widget))
            pages->setTab(page);
    }
}

void ClientFixture::click(const QString& name)
{
    auto* widget = control<QWidget>(name);
    showPageOf(widget);
    QTest::mouseClick(widget, Qt::LeftButton);
}

void ClientFixture::clickItem(const QString& key)
{
    control<platform::ListBar>(u"SSListBar1"_s)->activate(key);
}

void ClientFixture::type(const QString& name, const QString& typed)
{
    click(name);
    QWidget* widget = control<QWidget>(name);
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(widget, Qt::Key_Delete);
    for (const QChar character : typed)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

void ClientFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents();
}

bool ClientFixture::walkTo(const QString& name, Qt::Key key)
{
    constexpr int kMostPresses = 80;
    const Qt::KeyboardModifiers modifiers = key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
    for (int presses = 0; presses < kMostPresses && stop() != name; ++presses)
        press(key, modifiers);
    return stop() == name;
}

QString ClientFixture::stop()
{
    const QWidget* widget = QApplication::focusWidget();
    while (widget && (widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_")))
        widget = widget->parentWidget();
    return widget ? widget->objectName() : QString();
}

bool ClientFixture::pressLineMenu(Qt::Key key, Qt::KeyboardModifiers modifiers, const QList<Qt::Key>& inMenu)
{
    auto* menu = control<QMenu>(u"menucli"_s);
    bool came = false;
    QTimer::singleShot(0, menu, [&] {
        came = menu->isVisible();
        for (qsizetype i = 0; i < inMenu.size() && menu->isVisible(); ++i)
            QTest::keyClick(menu, inMenu.at(i));
        menu->close();
    });
    press(key, modifiers);
    activate(); // off screen a menu takes the activation with it
    return came;
}

void ClientFixture::enterCode(const QString& code)
{
    type(u"Text49"_s, code);
    press(Qt::Key_Return);
}

void ClientFixture::clickCell(const QString& gridName, int row, int col, Qt::MouseButton button)
{
    FlexGrid* target = grid(gridName);
    showPageOf(target);
    const QModelIndex index = target->model()->index(row - 1, col);
    target->scrollTo(index);
    QTest::mouseClick(target->viewport(), button, {}, target->visualRect(index).center());
}

void ClientFixture::typeCell(const QString& gridName, int row, int col, const QString& typed)
{
    FlexGrid* target = grid(gridName);
    clickCell(gridName, row, col);
    for (const QChar character : typed) {
        QWidget* receiver = QApplication::focusWidget();
        QTest::sendKeyEvent(QTest::Click, receiver, Qt::Key_unknown, QString(character), Qt::NoModifier);
    }
    target->commitOpenEditor();
}

void ClientFixture::tickCell(const QString& gridName, int row, int col)
{
    clickCell(gridName, row, col);
}

void ClientFixture::chooseInLineMenu(const QString& gridName, int row, int col, const QString& item)
{
    auto* menu = control<QMenu>(u"menucli"_s);
    QTimer::singleShot(0, menu, [menu, item] {
        menu->setActiveAction(menu->findChild<QAction*>(item));
        QTest::keyClick(menu, Qt::Key_Return);
    });
    clickCell(gridName, row, col, Qt::RightButton);
    activate(); // off screen a menu takes the activation with it
}

QString ClientFixture::cell(const QString& gridName, int row, int col) const
{
    return grid(gridName)->textMatrix(row, col);
}

QStringList ClientFixture::line(const QString& gridName, int row) const
{
    QStringList cells;
    for (int col = 0; col < grid(gridName)->cols(); ++col)
        cells += cell(gridName, row, col);
    return cells;
}

/// Stands in for the lookup: a modal window that closes by itself.
void ClientFixture::lookUp(QWidget* parent)
{
    m_lookups += static_cast<int>(TIPOBUSQUEDA);
    m_pointers += platform::mousePointer(parent);
    QDialog dialog(parent);
    dialog.setWindowModality(Qt::WindowModal);
    QTimer::singleShot(0, &dialog, [&dialog] { QTimer::singleShot(0, &dialog, &QDialog::accept); });
    dialog.exec();
    if (!m_answer.isNull())
        RESULTADOBUSQUEDA = m_answer;
    activate();
}

void ClientFixture::add(Database& store, const QString& table, std::initializer_list<Cell> cells)
{
    Recordset records = store.OpenRecordset(table, platform::dao::dbOpenTable);
    records.AddNew();
    for (const Cell& one : cells)
        records[one.column].setValue(one.value);
    records.Update();
    records.Close();
}

void ClientFixture::addClient(const QString& code, const QString& name)
{
    add(BDCLIENTES, u"ClientesTabla"_s, {{u"CliCodigo", code}, {u"CliNombre", name}});
}

void ClientFixture::addShipping(const QString& code, const QString& address, const Value& active)
{
    add(BDCLIENTES, u"CLIDIRENVIOS"_s,
        {{u"CLIENVICODIGO", code}, {u"CLIENVIDIRECCION", address}, {u"CLIENVIACTIVA", active}});
}

void ClientFixture::addBank(const QString& code, const QString& account)
{
    add(BDCLIENTES, u"CLIBANCOSDISP"_s,
        {{u"CLIBANCOSCODIGO", code}, {u"CLIBANCOSCUENTA", account}, {u"CLIBANCOSACTIVA", u"0"_s}});
}

void ClientFixture::addTelephone(const QString& code, const QString& telephone, const QString& company)
{
    add(BDTELEFONOS, u"TELEFON"_s,
        {{u"TELECODIGOEMPRESA", company}, {u"TELECODIGO", code}, {u"TELETELEFONO", telephone}});
}

void ClientFixture::addConcept(const QString& code, const QString& article, double line,
                               const QString& description)
{
    add(BDCLIENTES, u"clientescyctabla"_s,
        {{u"clientescyccliente", code},
         {u"clientescycarticulo", article},
         {u"clientescycdescrip", description},
         {u"clientescylineas", line}});
}

void ClientFixture::addConsultation(double number, const QString& client, const Value& subject,
                                    const Value& state)
{
    add(BDASISTENCIAS, u"CONS"_s,
        {{u"ORDEN", number}, {u"CLICONSULTA", client}, {u"TEMA", subject}, {u"ESTADO", state}});
}

QStringList ClientFixture::rows(const Database& store, const QString& sql)
{
    Recordset found = store.OpenRecordset(sql, platform::dao::dbOpenDynaset);
    QStringList lines;
    if (found.RecordCount() == 0)
        return lines;
    const platform::dao::RowArray all = found.GetRows(100000);
    for (qsizetype row = 0; row < all.rowCount(); ++row) {
        QStringList cells;
        for (int field = 0; field < all.fieldCount(); ++field) {
            const Value& value = all.at(field, row);
            cells += platform::isNull(value) ? u"(null)"_s : platform::asText(value);
        }
        lines += cells.join(u'|');
    }
    return lines;
}

} // namespace testsupport
