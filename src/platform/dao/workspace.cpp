// SPDX-License-Identifier: GPL-3.0-or-later
//
// `Workspace`, `Databases` and `Engine`.

#include "platform/dao/states.h"
#include "platform/system/paths.h"

namespace platform::dao {
namespace {

/// The one workspace. It starts with the engine for store files of today.
const std::shared_ptr<WorkspaceState>& defaultWorkspace()
{
    static const std::shared_ptr<WorkspaceState> workspace = [] {
        auto state = std::make_shared<WorkspaceState>();
        state->storage = storage::sqliteEngine();
        return state;
    }();
    return workspace;
}

} // namespace

Database Workspace::CreateDatabase(const QString& path, QStringView locale, int option,
                                   storage::Appears appears)
{
    WorkspaceState& workspace = bound(m_state);
    return workspace.adopt(
        path, workspace.storage->create(nativePath(path), {locale.toString(), option, appears}), false);
}

Database Workspace::OpenDatabase(const QString& path, bool exclusive, bool readOnly)
{
    WorkspaceState& workspace = bound(m_state);
    const storage::Sharing sharing = exclusive ? storage::Sharing::Exclusive : storage::Sharing::Shared;
    return workspace.adopt(path, workspace.storage->open(nativePath(path), sharing), readOnly);
}

dao::Databases Workspace::Databases() const
{
    bound(m_state);
    dao::Databases databases;
    databases.m_workspace = m_state;
    return databases;
}

int Databases::Count() const
{
    return static_cast<int>(bound(m_workspace).databases.size());
}

Database Databases::Item(int index) const
{
    return Database(member(bound(m_workspace).databases, index)->shared_from_this());
}

Workspace Engine::Workspaces(int index)
{
    if (index != 0)
        throw Failure(kItemNotInCollection);
    Workspace workspace;
    workspace.m_state = defaultWorkspace();
    return workspace;
}

void Engine::RepairDatabase(const QString& path, const QList<storage::TableDefinition>& expected)
{
    defaultWorkspace()->storage->repair(nativePath(path), expected);
}

void Engine::setStorage(std::shared_ptr<storage::Engine> storage)
{
    const std::shared_ptr<WorkspaceState>& workspace = defaultWorkspace();
    workspace->closeAll();
    workspace->storage = storage ? std::move(storage) : storage::sqliteEngine();
}

Engine& DBEngine()
{
    static Engine engine;
    return engine;
}

} // namespace platform::dao
