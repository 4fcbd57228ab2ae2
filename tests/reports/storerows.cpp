// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/storerows.h"

#include <QDir>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace reporttest {

namespace {

struct Close
{
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

struct Concept
{
    double line = 0;
    QString article;
    qint64 cents = 0;
};

/// The concepts in force of each client, in their order.
std::map<QString, QList<Concept>> conceptsInForce(const QString& file)
{
    std::map<QString, QList<Concept>> found;
    for (const QStringList& row : storeRows(
             file, "SELECT clientescyccliente, clientescycarticulo, clientescycfecbaja, clientescylineas, "
                   "clientescycunidades, clientescycprecio FROM clientescyctabla")) {
        const QString end = row[2].trimmed();
        if (end.isEmpty() || end == u"/  /")
            found[row[0]].append(
                {row[3].toDouble(), row[1], std::llround(row[4].toDouble() * row[5].toDouble() * 100)});
    }
    for (auto& [client, concepts] : found)
        std::sort(concepts.begin(), concepts.end(), [](const Concept& a, const Concept& b) {
            return std::tie(a.line, a.article) < std::tie(b.line, b.article);
        });
    return found;
}

} // namespace

QList<QStringList> storeRows(const QString& file, const char* query)
{
    sqlite3* handle = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, Close> store(handle);
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle, query, -1, &prepared, nullptr) != SQLITE_OK)
        qFatal("%s: %s", qPrintable(file), sqlite3_errmsg(handle));
    const std::unique_ptr<sqlite3_stmt, Close> statement(prepared);
    QList<QStringList> rows;
    while (sqlite3_step(prepared) == SQLITE_ROW) {
        QStringList row;
        for (int column = 0; column < sqlite3_column_count(prepared); ++column)
            row.append(QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(prepared, column)))); // NOLINT
        rows.append(row);
    }
    return rows;
}

QList<ExpectedNote> expectedNotes(const QString& companyFolder)
{
    const QString file = QDir(companyFolder).filePath(u"Clientes.mdb"_s);
    const std::map<QString, QList<Concept>> concepts = conceptsInForce(file);
    QList<ExpectedNote> notes;
    for (const QStringList& row :
         storeRows(file, "SELECT CliCodigo, CliNombre, ZonaCodigo, CliCodPostal FROM ClientesTabla")) {
        const auto own = concepts.find(row[0]);
        if (own == concepts.end())
            continue;
        ExpectedNote note{row[0], row[1], row[2], row[3] + row[0], {}, 0};
        for (const Concept& each : own->second) {
            note.articles.append(each.article);
            note.cents += each.cents;
        }
        notes.append(note);
    }
    std::sort(notes.begin(), notes.end(), [](const ExpectedNote& a, const ExpectedNote& b) {
        return std::tie(a.zone, a.road) < std::tie(b.zone, b.road);
    });
    return notes;
}

QList<ExpectedConsultation> expectedConsultations(const QString& companyFolder)
{
    QList<ExpectedConsultation> found;
    for (const QStringList& row : storeRows(QDir(companyFolder).filePath(u"ASISTENCIAS.MDB"_s),
                                            "SELECT CAST(ORDEN AS INTEGER), CLICONSULTA, FEINICIO, HOINICIO, "
                                            "TEMA, ESTADO FROM CONS ORDER BY "
                                            "ORDEN"))
        found.append({row[0].rightJustified(10, u'0'), row[1], row[2], row[3], row[4], row[5]});
    return found;
}

QString spanishAmount(qint64 cents)
{
    QString whole = QString::number(cents / 100);
    for (qsizetype point = whole.size() - 3; point > 0; point -= 3)
        whole.insert(point, u'.');
    return whole + u',' + QString::number(cents % 100).rightJustified(2, u'0');
}

} // namespace reporttest
