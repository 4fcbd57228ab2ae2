// SPDX-License-Identifier: GPL-3.0-or-later
#include "cases.h"
#include "fixture.h"
#include "lookup/lisemwindow.h"
#include "platform/core/value.h"
#include "platform/storage/sqlite/functions.h"
#include "platform/window/flexgrid.h"
#include "platform/window/textbox.h"
#include "rawstore.h"
#include "shell/globalsat.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;
using platform::Value;
using platform::storage::sqlite::GatePass;
using platform::storage::sqlite::Task;

namespace bench {

namespace {

constexpr int kClientLookup = 20;
constexpr QSize kListSize(900, 600);
const QString kTyped = u"Chac"_s;

using Columns = std::vector<std::vector<Value>>;

/// The array behind a bare table view.
class ArrayModel final : public QAbstractTableModel
{
public:
    explicit ArrayModel(Columns columns)
        : m_columns(std::move(columns))
    {}
    [[nodiscard]] int rowCount(const QModelIndex& = {}) const override
    {
        return static_cast<int>(m_columns.front().size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& = {}) const override
    {
        return static_cast<int>(m_columns.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return platform::asText(
            m_columns[static_cast<std::size_t>(index.column())][static_cast<std::size_t>(index.row())]);
    }

private:
    Columns m_columns;
};

Columns readAll(const RawStore& store, sqlite3_stmt* statement)
{
    const GatePass pass = GatePass::forReading(store.sidecar(), Task::Read);
    Columns columns(3);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < 3; ++column)
            columns[static_cast<std::size_t>(column)].emplace_back(textColumn(statement, column));
    }
    sqlite3_reset(statement);
    return columns;
}

void paintBareView(Columns columns)
{
    ArrayModel model(std::move(columns));
    QTableView view;
    view.verticalHeader()->hide();
    view.setModel(&model);
    view.resize(kListSize);
    view.show();
    QApplication::processEvents();
    keep(view.grab().width());
}

void press(QWidget* target, int key, const QString& text = {})
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &down);
    QApplication::sendEvent(target, &up);
}

std::unique_ptr<LISEM> openedLookup()
{
    TIPOBUSQUEDA = kClientLookup;
    auto window = std::make_unique<LISEM>();
    window->resize(kListSize);
    window->showModeless();
    QApplication::processEvents();
    keep(window->grab().width());
    return window;
}

double milliseconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double percentile99(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() * 99 / 100];
}

} // namespace

Case openLookupCase()
{
    const auto raw = std::make_shared<RawStore>(storePath(u"Clientes.mdb"));
    sqlite3_stmt* statement =
        raw->prepare("SELECT CliCodigo, CliNombre, CliCodPostalLocali FROM ClientesTabla ORDER BY CliNombre");
    Case what{u"Lookup, click to painted list"_s, u"100,000 clients"_s, 1.5, 1, {}, {}};
    what.ours = [] { openedLookup()->unload(); };
    what.floor = [raw, statement] { paintBareView(readAll(*raw, statement)); };
    return what;
}

Case typedSearchCase()
{
    const auto raw = std::make_shared<RawStore>(storePath(u"Clientes.mdb"));
    platform::storage::sqlite::registerFunctions(raw->handle());
    sqlite3_stmt* statement =
        raw->prepare("SELECT CliCodigo, CliNombre, CliCodPostalLocali FROM ClientesTabla WHERE "
                     "store_like(CliNombre, '*Chac*') ORDER BY CliNombre");
    const std::shared_ptr<LISEM> window = openedLookup();
    Case what{u"Lookup, typed search to painted result"_s, u"100,000 clients"_s, 1.5, 1, {}, {}};
    what.ours = [window] {
        auto* box = window->findChild<platform::TextBox*>(u"Text1"_s);
        box->setText(kTyped);
        press(box, Qt::Key_Return, u"\r"_s);
        QApplication::processEvents();
        keep(window->findChild<platform::FlexGrid*>(u"busi"_s)->grab().width());
    };
    what.floor = [raw, statement] { paintBareView(readAll(*raw, statement)); };
    return what;
}

KeyTimes lookupKeyTimes()
{
    constexpr int kKeys = 600;
    const std::unique_ptr<LISEM> window = openedLookup();
    window->LEERLISTA();
    auto* box = window->findChild<platform::TextBox*>(u"Text1"_s);
    auto* grid = window->findChild<platform::FlexGrid*>(u"busi"_s);
    const QString letters = u"acfhilnmpst"_s;
    std::vector<double> keys;
    for (int i = 0; i < kKeys; ++i) {
        if (i % 4 == 0)
            box->setText({});
        const QString letter = letters.mid(qsizetype{i} * 7 % letters.size(), 1);
        keys.push_back(milliseconds([&] {
            press(box, letter.at(0).toUpper().unicode(), letter);
            grid->viewport()->repaint();
        }));
    }
    window->unload();

    const RawStore raw(storePath(u"Clientes.mdb"));
    sqlite3_stmt* statement =
        raw.prepare("SELECT CliCodigo, CliNombre, CliCodPostalLocali FROM ClientesTabla ORDER BY CliNombre");
    ArrayModel model(readAll(raw, statement));
    sqlite3_finalize(statement);
    QTableView view;
    view.setModel(&model);
    view.resize(kListSize);
    view.show();
    QApplication::processEvents();
    std::vector<double> repaints;
    for (int i = 0; i < kKeys; ++i) {
        const int row = static_cast<int>((static_cast<qint64>(i) * 7919) % kClients);
        repaints.push_back(milliseconds([&] {
            view.setCurrentIndex(model.index(row, 1));
            view.viewport()->repaint();
        }));
    }
    return {percentile99(keys), percentile99(repaints)};
}

} // namespace bench
