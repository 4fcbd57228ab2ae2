// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/lookupfixture.h"

#include "lookup/buscar.h"
#include "platform/system/paths.h"
#include "shell/globalsat.h"
#include "stores/allstores.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/tipcli.h"
#include "stores/zone.h"

#include <QApplication>
#include <QtTest>

namespace lookuptest {

using platform::Null;
using platform::Value;
using platform::storage::Row;

LookupFixture::LookupFixture()
{
    resetProgramState();
    olvidaRejilla();
    NUMEMPRESA = QStringLiteral("00012");
    RUTAEMPRESA = platform::programPath(m_folder.path()) + QStringLiteral("\\");
}

LookupFixture::~LookupFixture()
{
    m_window.reset();
    resetProgramState();
    olvidaRejilla();
}

void LookupFixture::makeStore(const QString& file, const QList<platform::storage::TableDefinition>& tables,
                              const StoreRows& content)
{
    const auto store = platform::storage::sqliteEngine()->create(storePath(file), {});
    for (const auto& table : tables)
        store->createTable(table);
    const auto table = store->openTable(content.table);
    const auto& definition = table->definition();
    std::vector<Row> rows;
    for (const QStringList& given : content.rows) {
        Row row(static_cast<std::size_t>(definition.columns.size()), Value(Null{}));
        for (qsizetype i = 0; i < given.size(); ++i) {
            const int column = definition.columnIndex(content.columns[i]);
            if (!given[i].isNull())
                row.at(static_cast<std::size_t>(column)) = given[i];
        }
        rows.push_back(std::move(row));
    }
    table->insertMany(rows);
}

void LookupFixture::givenClients(const Rows& rows)
{
    QList<platform::storage::TableDefinition> tables = stores::tableDefinitions(stores::kClientesTables);
    tables.append(stores::tableDefinition(stores::kTarifasCliente));
    makeStore(QStringLiteral("Clientes.mdb"), tables,
              {QStringLiteral("ClientesTabla"),
               {QStringLiteral("CliCodigo"), QStringLiteral("CliNombre"),
                QStringLiteral("CliCodPostalLocali"), QStringLiteral("CliDireccion")},
               rows});
    ABRIRCLIENTES();
}

void LookupFixture::givenZones(const Rows& rows)
{
    makeStore(
        QStringLiteral("ZONAS.MDB"), stores::tableDefinitions(stores::kZonasTables),
        {QStringLiteral("ZONATAB"), {QStringLiteral("ZONCODIGO"), QStringLiteral("ZONDESCRIPCION")}, rows});
    ABRIRZONAS();
}

void LookupFixture::givenTypes(const Rows& rows)
{
    makeStore(
        QStringLiteral("TIPOS DE CLIENTES.MDB"), stores::tableDefinitions(stores::kTiposTables),
        {QStringLiteral("TIPOCLI"), {QStringLiteral("TIPOCODIGO"), QStringLiteral("TIPODESCRIPCION")}, rows});
    ABRIRTIPOS();
}

void LookupFixture::givenArticles(const Rows& rows)
{
    makeStore(QStringLiteral("ARTICULOS.MDB"), stores::tableDefinitions(stores::kArticulosTables),
              {QStringLiteral("ArticulosTabla"),
               {QStringLiteral("ArtCodigo"), QStringLiteral("Descripcion"), QStringLiteral("Familia")},
               rows});
    ABRIRARTICULOS();
}

LISEM& LookupFixture::open(double kind)
{
    TIPOBUSQUEDA = kind;
    m_window = std::make_unique<LISEM>();
    m_window->showModeless();
    QApplication::setActiveWindow(m_window.get());
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the window doesn't come up");
    QCoreApplication::processEvents();
    return *m_window;
}

QStringList LookupFixture::column(int col) const
{
    QStringList texts;
    for (int row = 1; row < busi().rows(); ++row)
        texts.append(busi().textMatrix(row, col));
    return texts;
}

QStringList LookupFixture::headings() const
{
    QStringList texts;
    for (int col = 0; col < busi().cols(); ++col)
        texts.append(busi().heading(col));
    return texts;
}

void LookupFixture::type(const QString& text)
{
    box().setFocus();
    box().selectAll();
    // Key events carry any character; QTest::keyClicks knows Latin only.
    for (const QChar unit : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, QString(unit));
        QApplication::sendEvent(&box(), &down);
    }
}

void LookupFixture::search(const QString& text)
{
    type(text);
    press(box(), Qt::Key_Return);
}

void LookupFixture::press(QWidget& widget, Qt::Key key)
{
    QTest::keyClick(&widget, key);
}

void LookupFixture::doubleClickRow(int row)
{
    const QModelIndex cell = busi().model()->index(row - 1, 1);
    const QPoint place = busi().visualRect(cell).center();
    QTest::mouseClick(busi().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(busi().viewport(), Qt::LeftButton, {}, place);
}

QString LookupFixture::storePath(const QString& file) const
{
    return m_folder.filePath(file);
}

} // namespace lookuptest
