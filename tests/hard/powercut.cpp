// SPDX-License-Identifier: GPL-3.0-or-later
#include "hard/powercut.h"

#include "shell/globalsat.h"

using namespace Qt::StringLiterals;

namespace hardtest {

namespace {

constexpr qsizetype kFaultsTold = 5;

/// What a store may hold when the power goes at a moment.
struct Allowed
{
    Content acknowledged; ///< what the program was told of last
    Content next;         ///< and with what was under way
};

bool changesTheDisk(DiskOp op)
{
    return op != DiskOp::Acknowledge;
}

/// The noted calls with what they allow: `allowed[store][i]` holds after the first i + 1 calls.
struct Recording
{
    DiskImage start;
    QList<DiskEvent> events;
    QMap<QByteArray, QList<Allowed>> allowed;
};

void addAllowed(QList<Allowed>& allowed, qsizetype moments, const Content& before, const Content& after)
{
    while (allowed.size() < moments)
        allowed.append({before, after});
}

/// Follows the calls and looks at what the store holds whenever the program is told that something is done.
QList<Allowed> allowedOf(const Recording& recording, const QByteArray& store, Examiner& examiner)
{
    QList<Allowed> allowed;
    Disk disk(recording.start);
    Content acknowledged = examiner.content(recording.start, store);
    for (qsizetype i = 0; i < recording.events.size(); ++i) {
        const DiskEvent& event = recording.events.at(i);
        disk.apply(event);
        if (changesTheDisk(event.op))
            continue;
        const Content now = examiner.content(disk.seen(), store);
        addAllowed(allowed, i, acknowledged, now);
        acknowledged = now;
    }
    addAllowed(allowed, recording.events.size(), acknowledged, examiner.content(disk.seen(), store));
    return allowed;
}

/// Several acknowledgements in a row say no more than one.
QList<DiskEvent> withoutRepeatedAcknowledgements(const QList<DiskEvent>& events)
{
    QList<DiskEvent> kept;
    for (const DiskEvent& event : events) {
        const bool isRepeated =
            !kept.isEmpty() && !changesTheDisk(event.op) && !changesTheDisk(kept.constLast().op);
        if (!isRepeated)
            kept.append(event);
    }
    return kept;
}

Recording record(const Work& work, const JournalMode& mode)
{
    Scene scene(work);
    scene.restore();
    Recording recording;
    DiskRecorder recorder(scene.folder(), mode);
    scene.ready();
    scene.run();
    scene.close();
    recording.start = recorder.start();
    recording.events = withoutRepeatedAcknowledgements(recorder.events());
    for (const QString& store : work.stores)
        recording.allowed.insert(scene.path(store), {});
    return recording;
}

QString faultText(const Work& work, qsizetype moment, Cut cut, const QByteArray& store, const Content& found)
{
    return u"%1, call %2, %3, %4: %5"_s.arg(QLatin1String(work.name))
        .arg(moment)
        .arg(QLatin1String(nameOf(cut)), QFile::decodeName(store.mid(store.lastIndexOf('/') + 1)),
             QString::fromUtf8(found));
}

} // namespace

PowerCuts cutPower(const Work& work, const JournalMode& mode, qsizetype states, quint32 seed)
{
    Recording recording = record(work, mode);
    Examiner examiner;
    for (auto store = recording.allowed.begin(); store != recording.allowed.end(); ++store)
        store.value() = allowedOf(recording, store.key(), examiner);

    PowerCuts result;
    result.moments = recording.events.size();
    QRandomGenerator random(seed);
    Disk disk(recording.start);
    for (qsizetype moment = 0; moment < result.moments; ++moment) {
        disk.apply(recording.events.at(moment));
        // Spread evenly over all moments; which cut it is, is left to chance.
        for (; result.states * result.moments < (moment + 1) * states; ++result.states) {
            const Cut cut = kCuts[random.bounded(static_cast<int>(std::size(kCuts)))];
            const DiskImage left = disk.afterCut(cut, random);
            bool isFaulty = false;
            for (auto store = recording.allowed.cbegin(); store != recording.allowed.cend(); ++store) {
                const Content found = examiner.content(left, store.key());
                const Allowed& allowed = store.value().at(moment);
                if (isSound(found) && (found == allowed.acknowledged || found == allowed.next))
                    continue;
                isFaulty = true;
                if (result.faults.size() < kFaultsTold)
                    result.faults.append(faultText(work, moment, cut, store.key(), found));
            }
            result.faulty += isFaulty;
        }
    }
    result.opened = examiner.opened();
    return result;
}

} // namespace hardtest
