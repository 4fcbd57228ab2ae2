// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/likepattern.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <QVarLengthArray>

namespace platform {

namespace {

/// One step of a pattern. All but `AnyRun` take exactly one unit of the text.
struct Step
{
    enum Kind { AnyRun, AnyOne, Digit, Character, Set, NotSet } kind;
    QChar character = {};
    QStringView members = {}; ///< of a set, as written between the brackets
};

using Steps = QVarLengthArray<Step, 64>;

[[nodiscard]] bool inSet(QStringView members, QChar unit) noexcept
{
    for (qsizetype i = 0; i < members.size(); ++i) {
        const QChar first = members[i].toCaseFolded();
        QChar last = first;
        if (i + 2 < members.size() && members[i + 1] == u'-') {
            last = members[i + 2].toCaseFolded();
            i += 2;
        }
        if (first <= unit && unit <= last)
            return true;
    }
    return false;
}

[[nodiscard]] bool fits(const Step& step, QChar unit) noexcept
{
    const QChar folded = unit.toCaseFolded();
    switch (step.kind) {
    case Step::AnyRun:
    case Step::AnyOne:
        return true;
    case Step::Digit:
        return unit >= u'0' && unit <= u'9';
    case Step::Character:
        return folded == step.character;
    case Step::Set:
        return inSet(step.members, folded);
    case Step::NotSet:
        return !inSet(step.members, folded);
    }
    return false;
}

/// Reads the set that opens at `start` and returns the position of its "]". "[]" adds nothing; a "!" that
/// stands alone is itself.
[[nodiscard]] qsizetype readSet(QStringView pattern, qsizetype start, Steps& steps)
{
    const qsizetype end = pattern.indexOf(u']', start);
    if (end < 0)
        throw Failure(kSyntaxError, QStringLiteral("a set of the pattern isn't closed"));
    const QStringView members = pattern.sliced(start + 1, end - start - 1);
    if (members.size() > 1 && members.front() == u'!')
        steps.append({.kind = Step::NotSet, .members = members.sliced(1)});
    else if (!members.isEmpty())
        steps.append({.kind = Step::Set, .members = members});
    return end;
}

[[nodiscard]] Steps readPattern(QStringView pattern)
{
    Steps steps;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar unit = pattern[i];
        if (unit == u'*')
            steps.append({.kind = Step::AnyRun});
        else if (unit == u'?')
            steps.append({.kind = Step::AnyOne});
        else if (unit == u'#')
            steps.append({.kind = Step::Digit});
        else if (unit == u'[')
            i = readSet(pattern, i, steps);
        else
            steps.append({.kind = Step::Character, .character = unit.toCaseFolded()});
    }
    return steps;
}

} // namespace

bool likeMatches(QStringView text, QStringView pattern)
{
    const Steps steps = readPattern(pattern);

    // Only the last run has to be widened when what follows it doesn't fit: an earlier one can't help.
    qsizetype step = 0;
    qsizetype afterRun = -1;
    qsizetype runEnd = 0;
    for (qsizetype at = 0; at < text.size();) {
        if (step < steps.size() && steps[step].kind == Step::AnyRun) {
            afterRun = ++step;
            runEnd = at;
        } else if (step < steps.size() && fits(steps[step], text[at])) {
            ++step;
            ++at;
        } else if (afterRun >= 0) {
            step = afterRun;
            at = ++runEnd;
        } else {
            return false;
        }
    }
    while (step < steps.size() && steps[step].kind == Step::AnyRun)
        ++step;
    return step == steps.size();
}

} // namespace platform
