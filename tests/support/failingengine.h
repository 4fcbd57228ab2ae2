// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A storage engine that passes everything on to another one, counts the operations, and makes those fail that
// a test chooses. A failing operation isn't passed on.
//
//     auto engine = std::make_shared<FailingEngine>();
//     platform::dao::DBEngine().setStorage(engine);
//     engine->failOperation(Operation::Update, 3260);
//
// What reaches the storage isn't what the program calls: a field is read from a copy of its row, and a walk
// reads rows ahead. To make single statements of a procedure fail use `FailingCalls`.

#include "platform/storage/storage.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <memory>

namespace testsupport {

enum class Operation {
    Open,
    Create,
    Repair,
    DataVersion,
    Tables,
    OpenTable,
    Query,
    Count,
    Order,
    First,
    Last,
    Seek,
    Read,
    ReadMany,
    Insert,
    Update,
    Erase,
    CreateTable,
    AddColumn,
    DropColumn,
    CreateIndex,
    DropIndex,
    SetAllowZeroLength,
};

/// What the wrapped engine, its connections and its tables ask before each operation.
class FaultPlan
{
public:
    /// Counts the operation and throws when it is to fail. `table` and `columns` say what it is about, if
    /// anything.
    void check(Operation operation, const QString& table = {}, const QStringList& columns = {});

    int count = 0;
    QHash<Operation, int> counts;
    QSet<QString> tables;
    int nth = 0;
    int number = 0;
    std::optional<Operation> operation;
    QString table;
    QString column;
};

class FailingEngine final : public platform::storage::Engine
{
public:
    /// Null takes the engine for store files of today.
    explicit FailingEngine(std::shared_ptr<platform::storage::Engine> real = nullptr);

    /// Operations passed on or failed since the beginning, `restart`, or the last of the functions below.
    [[nodiscard]] int count() const { return m_plan->count; }
    [[nodiscard]] int count(Operation operation) const { return m_plan->counts.value(operation); }
    /// Tables that those operations were about, by the names they were asked for.
    [[nodiscard]] QSet<QString> tables() const { return m_plan->tables; }
    /// Counts from 0 again and lets everything pass.
    void restart();
    /// The nth operation from now on (1 is the next one) fails, once.
    void failNth(int n, int number = 3043);
    /// Every operation of this kind fails.
    void failOperation(Operation operation, int number = 3043);
    /// Every operation on this table fails.
    void failTable(const QString& table, int number = 3043);
    /// Every operation fails that names this column: seeking or reading ahead with it, adding a row with a
    /// value in it, changing it, any change of its definition.
    void failColumn(const QString& column, int number = 3043);

    [[nodiscard]] std::unique_ptr<platform::storage::Connection>
    open(const QString& path, platform::storage::Sharing sharing) override;
    [[nodiscard]] std::unique_ptr<platform::storage::Connection>
    create(const QString& path, const platform::storage::CreateOptions& options) override;
    void repair(const QString& path, const QList<platform::storage::TableDefinition>& expected) override;

private:
    std::shared_ptr<platform::storage::Engine> m_real;
    std::shared_ptr<FaultPlan> m_plan;
};

} // namespace testsupport
