// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/backup.h"
#include "tools/data/enginefault.h"
#include "tools/data/findings.h"
#include "tools/data/manifest.h"
#include "tools/data/plainfile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace tools {

namespace {

class CopyCheck
{
public:
    CopyCheck(const QString& copy, QTextStream& out)
        : m_folder(copy)
        , m_findings(out)
    {}

    void check(const CopiedFile& file)
    {
        const Spot spot{file.path, {}, {}};
        const QString path = m_folder.filePath(file.path);
        if (!QFileInfo(path).isFile()) {
            m_findings.fault(spot, QStringLiteral("falta"));
            return;
        }
        if (imprintOf(path) != Imprint{file.size, file.sha256})
            m_findings.fault(spot, QStringLiteral("no tiene los bytes que se copiaron"));
        if (file.isStore)
            checkStore(file, path);
    }

    [[nodiscard]] const Findings& findings() const { return m_findings; }

private:
    void checkStore(const CopiedFile& file, const QString& path)
    {
        const Spot spot{file.path, {}, {}};
        try {
            const auto store = platform::storage::openCopy(path);
            for (const QString& fault : store->integrityFaults())
                m_findings.fault(spot, QStringLiteral("fichero dañado: %1").arg(fault));
            const QList<TableHashes> found = hashesOf(*store);
            for (const TableHashes& table : file.tables)
                checkTable({file.path, table.table, {}}, table, found);
        } catch (const platform::Failure& failure) {
            m_findings.fault(spot, openingFault(failure));
        }
    }

    void checkTable(const Spot& spot, const TableHashes& listed, const QList<TableHashes>& found)
    {
        const auto table = std::find_if(found.begin(), found.end(), [&](const TableHashes& candidate) {
            return candidate.table == listed.table;
        });
        if (table == found.end()) {
            m_findings.fault(spot, QStringLiteral("falta la tabla, de %1 filas").arg(listed.rows.size()));
            return;
        }
        if (table->shape != listed.shape)
            m_findings.fault(spot, QStringLiteral("no tiene la forma que se copió"));
        compareRows(spot, listed.rows, table->rows);
    }

    void compareRows(const Spot& spot, const RowHashes& listed, const RowHashes& found)
    {
        for (auto row = listed.cbegin(); row != listed.cend(); ++row) {
            const Spot place{spot.file, spot.table, QStringLiteral("fila %1").arg(row.key())};
            const auto copied = found.constFind(row.key());
            if (copied == found.cend())
                m_findings.fault(place, QStringLiteral("falta"));
            else if (copied.value() != row.value())
                m_findings.fault(place, QStringLiteral("no es la que se copió"));
        }
        for (auto row = found.cbegin(); row != found.cend(); ++row) {
            if (!listed.contains(row.key()))
                m_findings.fault({spot.file, spot.table, QStringLiteral("fila %1").arg(row.key())},
                                 QStringLiteral("no estaba en la copia"));
        }
    }

    QDir m_folder;
    Findings m_findings;
};

} // namespace

bool verifyCopy(const QString& copy, QTextStream& out)
{
    const Manifest manifest = readManifest(copy);
    CopyCheck check(copy, out);
    for (const CopiedFile& file : manifest.files)
        check.check(file);
    const int faults = check.findings().faults();
    out << QStringLiteral("Copia de %1 UTC: %2 fallos, %3 ficheros y %4 filas comprobados.\n")
               .arg(manifest.moment.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")))
               .arg(faults)
               .arg(manifest.files.size())
               .arg(manifest.rowCount());
    return faults == 0;
}

} // namespace tools
