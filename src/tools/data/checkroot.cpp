// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/checkroot.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/system/paths.h"
#include "platform/text/spanishorder.h"
#include "stores/allstores.h"
#include "tools/data/checkstore.h"
#include "tools/data/companiesschema.h"
#include "tools/data/enginefault.h"
#include "tools/data/findings.h"
#include "tools/data/losses.h"
#include "tools/data/rootfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace tools {

namespace {

using platform::storage::Connection;
using platform::storage::Table;

/// A column of detail lines that must name a client of the company.
struct Link
{
    QStringView table;
    QStringView column;
    bool mustExist; ///< false: the program itself lets a line stand without its client
};
constexpr std::array kLinks{
    Link{u"CLIDIRENVIOS", u"CLIENVICODIGO", true},
    Link{u"CLIBANCOSDISP", u"CLIBANCOSCODIGO", true},
    Link{u"clientescyctabla", u"clientescyccliente", true},
    Link{u"TarifasCliente", u"TariCodCliente", true},
    Link{u"CONS", u"CLICONSULTA", false},
};

/// Client codes of each company, by the sort key of its number. A company whose clients can't be read has
/// none.
using ClientsByCompany = QMap<QByteArray, std::optional<KeySet>>;

class RootCheck
{
public:
    RootCheck(const QString& folder, QTextStream& out)
        : m_root(QDir(folder).absolutePath())
        , m_findings(out)
        , m_out(out)
    {}

    bool run()
    {
        const QStringList numbers = companies();
        for (const QString& number : numbers)
            checkCompany(number);
        checkFile(stores::kTelefonosStore, m_root, [this](Connection& store) { checkTelephones(store); });
        m_out << QStringLiteral("%1 fallos, %2 avisos, %3 ficheros revisados.\n")
                     .arg(m_findings.faults())
                     .arg(m_findings.notices())
                     .arg(m_files);
        return m_findings.faults() == 0;
    }

private:
    [[nodiscard]] QString label(const QString& path) const { return QDir(m_root).relativeFilePath(path); }

    /// Opens a store of the folder and checks what all stores have in common, then what `more` adds.
    template <typename More>
    void checkFile(const stores::StoreSchema& schema, const QString& folder, const More& more)
    {
        const QString path = platform::nativePath(folder + u'\\' + schema.file.toString());
        const QString file = label(path);
        if (!QFileInfo::exists(path)) {
            m_findings.notice({file, {}, {}}, QStringLiteral("falta; se crea al arrancar"));
            return;
        }
        ++m_files;
        m_isDamaged = false;
        checkOpened(schema, path, file, more);
        if (m_isDamaged)
            tellLosses(path, file, stores::tableDefinitions(schema.tables), m_findings);
    }

    template <typename More>
    void checkOpened(const stores::StoreSchema& schema, const QString& path, const QString& file,
                     const More& more)
    {
        try {
            const auto store = openStore(path, file);
            if (store == nullptr)
                return;
            checkContents(*store, schema, file);
            more(*store);
        } catch (const platform::Failure& failure) {
            m_isDamaged = m_isDamaged || failure.number() == platform::kNotADatabase;
            m_findings.fault({file, {}, {}},
                             QStringLiteral("no se puede leer (fallo %1)").arg(failure.number()));
        }
    }

    std::unique_ptr<Connection> openStore(const QString& path, const QString& file)
    {
        try {
            return platform::storage::sqliteEngine()->open(path, platform::storage::Sharing::Shared);
        } catch (const platform::Failure& failure) {
            m_isDamaged = failure.number() == platform::kNotADatabase;
            m_findings.fault({file, {}, {}}, openingFault(failure));
            return nullptr;
        }
    }

    void checkContents(Connection& store, const stores::StoreSchema& schema, const QString& file)
    {
        for (const QString& fault : store.integrityFaults()) {
            m_isDamaged = true;
            m_findings.fault({file, {}, {}}, QStringLiteral("fichero dañado: %1").arg(fault));
        }
        checkSchema(store, schema, file, m_findings);
        for (const auto& definition : store.tables()) {
            const auto table = store.openTable(definition.name);
            checkIndexes(*table, file, m_findings);
            checkValues(*table, file, m_findings);
        }
        m_file = file;
    }

    /// Numbers of the catalogue, then those of folders that it doesn't know.
    QStringList companies()
    {
        QStringList numbers;
        checkFile(kCompaniesStore, m_root, [&numbers](Connection& store) {
            const auto table = store.openTable(kEmp.name.toString());
            const int position = table->definition().columnIndex(kEmpColumns.front().name);
            if (position < 0)
                return;
            forEachRow(*table, {position}, [&numbers](auto, std::span<const platform::Value> cells) {
                if (!platform::isNull(cells[0]))
                    numbers.append(platform::asText(cells[0]).trimmed());
            });
        });
        const QStringList folders = QDir(m_root).entryList({QStringLiteral("Empresa?????")},
                                                           QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& folder : folders) {
            if (numbers.contains(folder.mid(7)))
                continue;
            m_findings.notice({folder, {}, {}}, QStringLiteral("el catálogo no conoce esta empresa"));
            numbers.append(folder.mid(7));
        }
        return numbers;
    }

    void checkCompany(const QString& number)
    {
        const QString folder = m_root + QStringLiteral("\\Empresa") + number;
        std::optional<KeySet>& clients = m_clients[platform::spanishSortKey(number)];
        if (!QFileInfo(platform::nativePath(folder)).isDir()) {
            m_findings.fault({QStringLiteral("Empresa") + number, {}, {}},
                             QStringLiteral("falta la carpeta de la empresa"));
            return;
        }
        checkFile(stores::kClientesStore, folder, [&](Connection& store) {
            clients = keysOf(*store.openTable(stores::kClientesTabla.name.toString()),
                             stores::kClientesTablaColumns.front().name.toString());
            checkLinks(store, *clients);
        });
        for (const stores::StoreSchema& schema : stores::kAllStores) {
            if (schema.place == stores::Place::CurrentDirectory || schema.file == stores::kClientesStore.file)
                continue;
            checkFile(schema, folder, [&](Connection& store) {
                if (clients)
                    checkLinks(store, *clients);
            });
        }
    }

    void checkLinks(Connection& store, const KeySet& clients)
    {
        for (const auto& definition : store.tables()) {
            const auto link = std::find_if(kLinks.begin(), kLinks.end(), [&](const Link& entry) {
                return entry.table.compare(definition.name, Qt::CaseInsensitive) == 0;
            });
            if (link == kLinks.end())
                continue;
            findOrphans(*store.openTable(definition.name), link->column.toString(), clients,
                        [&](const QString& row, const QString& value) {
                            const Spot spot{m_file, definition.name, row};
                            const QString text = QStringLiteral("el cliente «%1» no existe").arg(value);
                            link->mustExist ? m_findings.fault(spot, text) : m_findings.notice(spot, text);
                        });
        }
    }

    void checkTelephones(Connection& store)
    {
        const auto table = store.openTable(stores::kTelefon.name.toString());
        const int company = table->definition().columnIndex(u"TELECODIGOEMPRESA");
        const int client = table->definition().columnIndex(u"TELECODIGO");
        if (company < 0 || client < 0)
            return;
        forEachRow(*table, {company, client}, [&](auto id, std::span<const platform::Value> cells) {
            checkTelephone(*table, id, cells);
        });
    }

    void checkTelephone(Table& table, platform::storage::RowId id, std::span<const platform::Value> cells)
    {
        if (platform::isNull(cells[0]) || platform::isNull(cells[1]))
            return; // a Null in the key is told already
        const Spot spot{m_file, table.definition().name, {}};
        const QString company = platform::asText(cells[0]);
        const QString client = platform::asText(cells[1]);
        const auto known = m_clients.constFind(platform::spanishSortKey(company));
        if (known == m_clients.constEnd())
            m_findings.fault({spot.file, spot.table, rowName(table, id)},
                             QStringLiteral("la empresa «%1» no existe").arg(company));
        else if (*known && !(*known)->contains(platform::spanishSortKey(client)))
            m_findings.fault({spot.file, spot.table, rowName(table, id)},
                             QStringLiteral("el cliente «%1» no existe").arg(client));
    }

    QString m_root;
    QString m_file; ///< the store that was checked last
    Findings m_findings;
    QTextStream& m_out;
    ClientsByCompany m_clients;
    int m_files = 0;
    bool m_isDamaged = false; ///< of the store under check
};

} // namespace

bool checkRoot(const QString& folder, QTextStream& out)
{
    requireDataRoot(folder);
    return RootCheck(folder, out).run();
}

} // namespace tools
