// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/storage/sqlite/damagedfile.h"
#include "platform/storage/sqlite/openfile.h"
#include "platform/storage/sqlite/presence.h"
#include "platform/storage/upkeep.h"
#include "platform/system/durable.h"

#include <QFile>
#include <QFileInfo>

#include <optional>

using namespace Qt::StringLiterals;

namespace platform::storage {

namespace {

const sqlite::AsideNames& asideNames()
{
    static const sqlite::AsideNames names{u".anterior-"_s, u".restaurado"_s};
    return names;
}

/// A crash's journal belongs to the file it was written for. Opening the store uses it up.
void takeBackUnfinished(const QString& path)
{
    try {
        static_cast<void>(sqlite::openStore(path, Sharing::Exclusive));
    } catch (const Failure& failure) {
        if (failure.number() != kNotADatabase)
            throw;
    }
}

} // namespace

struct StoreReplacement::State
{
    explicit State(const QString& storePath)
        : path(storePath)
        , sidecar(storePath)
    {
        takePresence(sidecar, Sharing::Exclusive);
        if (QFileInfo::exists(path))
            former.emplace(path, asideNames());
        else
            QFile::remove(path + asideNames().replacement);
    }

    QString path;
    sqlite::Sidecar sidecar;
    std::optional<sqlite::DamagedFile> former;
};

StoreReplacement::StoreReplacement(const QString& path)
{
    if (QFileInfo::exists(path))
        takeBackUnfinished(path);
    m_state = std::make_unique<State>(path);
}

StoreReplacement::~StoreReplacement()
{
    if (!m_state->former)
        QFile::remove(workingPath());
}

QString StoreReplacement::workingPath() const
{
    return m_state->path + asideNames().replacement;
}

QString StoreReplacement::replace()
{
    if (!m_state->former) {
        renameLasting(workingPath(), m_state->path);
        return {};
    }
    m_state->former->replace();
    return m_state->former->keptPath();
}

QString StoreReplacement::putAside()
{
    if (!m_state->former)
        return {};
    m_state->former->withdraw();
    return m_state->former->keptPath();
}

} // namespace platform::storage
