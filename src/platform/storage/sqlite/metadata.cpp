// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/metadata.h"

#include <array>

using namespace Qt::StringLiterals;

namespace platform::storage::sqlite {

namespace {

constexpr auto kFile = "file"_L1;
constexpr auto kColumn = "column"_L1;
constexpr auto kIndex = "index"_L1;

constexpr auto kFormat = "format"_L1;
constexpr auto kLocale = "locale"_L1;
constexpr auto kSize = "size"_L1;
constexpr auto kZeroLength = "zero_length"_L1;
constexpr auto kPrimary = "primary"_L1;
constexpr auto kUnique = "unique"_L1;
constexpr double kOlderFormat = 32;
constexpr auto kColumns = "columns"_L1;

QString key(QLatin1String kind, const QString& owner, const QString& item, QLatin1String name)
{
    const QChar separator(0x1F);
    return kind + separator + owner.toCaseFolded() + separator + item.toCaseFolded() + separator + name;
}

/// Key columns as one text. No name can hold the separator of a line.
QString joined(const QStringList& columns)
{
    return columns.join(u'\n');
}

struct Note
{
    QLatin1String kind;
    QString owner;
    QString item;
    QLatin1String property;
    Value value;
};

void write(const Database& database, const Note& note)
{
    makeMetadataTable(database);
    Statement forget(database.get(),
                     QByteArray("DELETE FROM ") + kMetadataTable +
                         " WHERE kind = ?1 AND owner = ?2 AND item = ?3 AND property = ?4",
                     Task::Structure);
    Statement insert(database.get(),
                     QByteArray("INSERT INTO ") + kMetadataTable + " VALUES(?1, ?2, ?3, ?4, ?5)",
                     Task::Structure);
    insert.bind(5, note.value);
    for (Statement* statement : {&forget, &insert}) {
        statement->bind(1, QString(note.kind));
        statement->bind(2, note.owner);
        statement->bind(3, note.item);
        statement->bind(4, QString(note.property));
        Run(*statement, Task::Structure).finish();
    }
}

void forget(const Database& database, QLatin1String kind, const QString& owner, const QString& item)
{
    makeMetadataTable(database);
    Statement statement(database.get(),
                        QByteArray("DELETE FROM ") + kMetadataTable +
                            " WHERE kind = ?1 AND owner = ?2 AND item = ?3",
                        Task::Structure);
    statement.bind(1, QString(kind));
    statement.bind(2, owner);
    statement.bind(3, item);
    Run(statement, Task::Structure).finish();
}

double flag(bool value)
{
    return value ? 1.0 : 0.0;
}

} // namespace

Metadata::Metadata(const Database& database)
{
    // A table of another shape is none of ours and tells nothing.
    const QByteArray columns = QByteArray("SELECT count(*) FROM pragma_table_info('") + kMetadataTable +
                               "') WHERE name IN ('kind', 'owner', 'item', 'property', 'value')";
    if (database.number(columns, Task::Read) != 5)
        return;
    Statement statement(database.get(),
                        QByteArray("SELECT kind, owner, item, property, value FROM ") + kMetadataTable,
                        Task::Read);
    Run run(statement, Task::Read);
    while (run.next()) {
        const QString name = textAt(statement, 3);
        const QString kind = textAt(statement, 0);
        const QString where = key(QLatin1String(kind.toLatin1()), textAt(statement, 1), textAt(statement, 2),
                                  QLatin1String(name.toLatin1()));
        readCell(statement.get(), 4, m_properties[where]);
    }
}

Value Metadata::property(QLatin1String kind, const QString& owner, const QString& item,
                         QLatin1String name) const
{
    return m_properties.value(key(kind, owner, item, name));
}

CreateOptions Metadata::options() const
{
    CreateOptions options;
    const Value format = property(kFile, {}, {}, kFormat);
    const Value locale = property(kFile, {}, {}, kLocale);
    if (const QString* text = std::get_if<QString>(&locale))
        options.locale = *text;
    if (const double* number = std::get_if<double>(&format); number && *number == kOlderFormat)
        options.formatOption = static_cast<int>(kOlderFormat);
    return options;
}

int Metadata::columnSize(const QString& table, const QString& column) const
{
    const Value size = property(kColumn, table, column, kSize);
    const double* number = std::get_if<double>(&size);
    return number != nullptr && *number >= 0 && *number <= 255 ? static_cast<int>(*number) : 0;
}

bool Metadata::allowsZeroLength(const QString& table, const QString& column) const
{
    const Value allowed = property(kColumn, table, column, kZeroLength);
    return allowed != Value(0.0);
}

bool Metadata::isPrimary(const QString& table, const QString& index, const QStringList& columns) const
{
    if (property(kIndex, table, index, kPrimary) != Value(1.0))
        return false;
    const Value noted = property(kIndex, table, index, kColumns);
    const QString* names = std::get_if<QString>(&noted);
    return names != nullptr && names->compare(joined(columns), Qt::CaseInsensitive) == 0;
}

void makeMetadataTable(const Database& database)
{
    database.execute(
        QByteArray("CREATE TABLE IF NOT EXISTS ") + kMetadataTable +
            "(kind TEXT NOT NULL, owner TEXT NOT NULL COLLATE NOCASE, item TEXT NOT NULL COLLATE NOCASE,"
            " property TEXT NOT NULL, value)",
        Task::Structure);
}

void makeMetadata(const Database& database, const CreateOptions& options)
{
    const std::array notes{
        Note{kFile, {}, {}, kFormat, static_cast<double>(options.formatOption)},
        Note{kFile, {}, {}, kLocale, options.locale},
    };
    for (const Note& note : notes)
        write(database, note);
}

void noteColumn(const Database& database, const QString& table, const Column& column)
{
    if (column.type == ColumnType::Text)
        write(database, {kColumn, table, column.name, kSize, static_cast<double>(column.size)});
    if (column.type != ColumnType::Number)
        noteZeroLength(database, table, column.name, column.allowZeroLength);
}

void noteIndex(const Database& database, const QString& table, const IndexDefinition& index)
{
    write(database, {kIndex, table, index.name, kPrimary, flag(index.primary)});
    write(database, {kIndex, table, index.name, kUnique, flag(index.unique)});
    write(database, {kIndex, table, index.name, kColumns, joined(index.columns)});
}

void noteZeroLength(const Database& database, const QString& table, const QString& column, bool allowed)
{
    write(database, {kColumn, table, column, kZeroLength, flag(allowed)});
}

void forgetColumn(const Database& database, const QString& table, const QString& column)
{
    forget(database, kColumn, table, column);
}

void forgetIndex(const Database& database, const QString& table, const QString& index)
{
    forget(database, kIndex, table, index);
}

} // namespace platform::storage::sqlite
