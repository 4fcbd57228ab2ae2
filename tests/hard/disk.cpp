// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/disk.h"

#include <algorithm>

namespace hardtest {

namespace {

void put(QByteArray& file, qint64 offset, QByteArrayView bytes)
{
    if (file.size() < offset + bytes.size())
        file.resize(offset + bytes.size(), '\0');
    std::copy(bytes.begin(), bytes.end(), file.begin() + offset);
}

void changeBytes(QByteArray& file, const DiskEvent& event)
{
    if (event.op == DiskOp::Truncate)
        file.resize(event.offset, '\0');
    else
        put(file, event.offset, event.bytes);
}

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/'));
}

QByteArray randomBytes(qsizetype size, QRandomGenerator& random)
{
    QByteArray bytes(size, '\0');
    if (random.bounded(2) == 0)
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random.bounded(256)); });
    return bytes;
}

} // namespace

const char* nameOf(Cut cut) noexcept
{
    switch (cut) {
    case Cut::Lost:
        return "lost";
    case Cut::Kept:
        return "kept";
    case Cut::Prefix:
        return "prefix";
    case Cut::Subset:
        return "subset";
    case Cut::Torn512:
        return "torn 512";
    case Cut::Torn4096:
        return "torn 4096";
    case Cut::Spoilt512:
        break;
    }
    return "spoilt 512";
}

Disk::Disk(const DiskImage& files)
{
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        m_syncedNames.insert(file.key(), m_next);
        m_synced.insert(m_next, file.value());
        ++m_next;
    }
    m_seenNames = m_syncedNames;
}

bool Disk::isOfNames(DiskOp op)
{
    return op == DiskOp::Make || op == DiskOp::Unlink || op == DiskOp::Rename;
}

void Disk::apply(const DiskEvent& event)
{
    switch (event.op) {
    case DiskOp::Acknowledge:
        return;
    case DiskOp::Sync:
        sync(m_seenNames.value(event.path, -1));
        return;
    case DiskOp::SyncFolder:
        syncFolder(event.path);
        return;
    case DiskOp::Make:
        m_synced.insert(m_next, {});
        m_pending.append({event, m_next});
        ++m_next;
        break;
    default:
        m_pending.append({event, m_seenNames.value(event.path, -1)});
        break;
    }
    if (isOfNames(event.op))
        changeNames(m_seenNames, m_pending.constLast());
}

void Disk::changeNames(Names& names, const Pending& pending)
{
    if (pending.event.op == DiskOp::Make) {
        names.insert(pending.event.path, pending.inode);
        return;
    }
    // An earlier change of the same name may be lost, so the name may stand for another file by now.
    if (names.value(pending.event.path, -1) == pending.inode)
        names.remove(pending.event.path);
    if (pending.event.op == DiskOp::Rename)
        names.insert(pending.event.to, pending.inode);
}

void Disk::sync(Inode inode)
{
    for (const Pending& pending : m_pending) {
        if (pending.inode == inode && !isOfNames(pending.event.op))
            changeBytes(m_synced[inode], pending.event);
    }
    m_pending.removeIf(
        [inode](const Pending& pending) { return pending.inode == inode && !isOfNames(pending.event.op); });
}

void Disk::syncFolder(const QByteArray& folder)
{
    const auto isOfFolder = [&folder](const Pending& pending) {
        return isOfNames(pending.event.op) && folderOf(pending.event.path) == folder;
    };
    for (const Pending& pending : m_pending) {
        if (isOfFolder(pending))
            changeNames(m_syncedNames, pending);
    }
    m_pending.removeIf(isOfFolder);
}

/// Decides what a power cut leaves of the changes that aren't synced.
class Disk::Survivors
{
public:
    Survivors(Cut cut, qsizetype pending, QRandomGenerator& random)
        : m_cut(cut)
        , m_random(random)
        , m_prefix(cut == Cut::Prefix ? random.bounded(pending + 1) : 0)
    {}

    void apply(const Pending& pending, Names& names, QMap<Inode, QByteArray>& files)
    {
        const bool isWhole = survives();
        if (isOfNames(pending.event.op)) {
            if (isWhole)
                changeNames(names, pending);
        } else if (pending.event.op == DiskOp::Write && sectorSize().has_value()) {
            tear(pending.event, *sectorSize(), files[pending.inode]);
        } else if (isWhole) {
            changeBytes(files[pending.inode], pending.event);
        }
    }

private:
    bool survives()
    {
        switch (m_cut) {
        case Cut::Lost:
            return false;
        case Cut::Kept:
            return true;
        case Cut::Prefix:
            return m_prefix-- > 0;
        default:
            return m_random.bounded(2) == 0;
        }
    }

    [[nodiscard]] std::optional<qint64> sectorSize() const
    {
        switch (m_cut) {
        case Cut::Torn512:
        case Cut::Spoilt512:
            return 512;
        case Cut::Torn4096:
            return 4096;
        default:
            return std::nullopt;
        }
    }

    void tear(const DiskEvent& event, qint64 sector, QByteArray& file)
    {
        const qint64 end = event.offset + event.bytes.size();
        for (qint64 start = event.offset; start < end;) {
            const qint64 next = std::min((start / sector + 1) * sector, end);
            const QByteArrayView part =
                QByteArrayView(event.bytes).sliced(start - event.offset, next - start);
            if (survives())
                put(file, start, part);
            else if (m_cut == Cut::Spoilt512 && m_random.bounded(2) == 0)
                put(file, start, randomBytes(next - start, m_random));
            start = next;
        }
        // The new length may be there before the bytes are.
        if (file.size() < end && m_random.bounded(2) == 0)
            file.resize(end, '\0');
    }

    Cut m_cut;
    QRandomGenerator& m_random;
    qsizetype m_prefix;
};

DiskImage Disk::afterCut(Cut cut, QRandomGenerator& random) const
{
    Names names = m_syncedNames;
    QMap<Inode, QByteArray> files = m_synced;
    Survivors survivors(cut, m_pending.size(), random);
    for (const Pending& pending : m_pending)
        survivors.apply(pending, names, files);
    DiskImage image;
    for (auto name = names.cbegin(); name != names.cend(); ++name)
        image.insert(name.key(), files.value(name.value()));
    return image;
}

DiskImage Disk::seen() const
{
    QRandomGenerator unused(1);
    return afterCut(Cut::Kept, unused);
}

} // namespace hardtest
