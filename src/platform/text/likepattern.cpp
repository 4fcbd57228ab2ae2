// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/likepattern.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace platform {

namespace {

/// The units of a set as ranges without overlap, in order.
using Ranges = std::vector<std::pair<QChar, QChar>>;

/// One step of a pattern. All but `AnyRun` take exactly one unit of the text.
struct Step
{
    enum Kind { AnyRun, AnyOne, Digit, Character, Set, NotSet } kind;
    QChar character = {};
    Ranges members = {}; ///< of a set
};

[[nodiscard]] bool inSet(const Ranges& members, QChar unit)
{
    const auto above = std::upper_bound(members.begin(), members.end(), unit,
                                        [](QChar wanted, const auto& range) { return wanted < range.first; });
    return above != members.begin() && unit <= std::prev(above)->second;
}

[[nodiscard]] bool fits(const Step& step, QChar unit)
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

/// Ranges in order, those that overlap made one.
[[nodiscard]] Ranges merged(Ranges ranges)
{
    std::sort(ranges.begin(), ranges.end());
    Ranges result;
    for (const auto& range : ranges) {
        if (!result.empty() && range.first <= result.back().second)
            result.back().second = std::max(result.back().second, range.second);
        else
            result.push_back(range);
    }
    return result;
}

/// What stands between the brackets of a set. A range the wrong way round holds nothing.
[[nodiscard]] Ranges readMembers(QStringView members)
{
    Ranges ranges;
    for (qsizetype i = 0; i < members.size(); ++i) {
        const QChar first = members[i].toCaseFolded();
        QChar last = first;
        if (i + 2 < members.size() && members[i + 1] == u'-') {
            last = members[i + 2].toCaseFolded();
            i += 2;
        }
        if (first <= last)
            ranges.emplace_back(first, last);
    }
    return merged(std::move(ranges));
}

/// A pattern taken apart.
struct Pattern
{
    QString text;
    std::vector<Step> steps; ///< no two runs stand side by side
    qsizetype leastUnits = 0;

    void add(Step step)
    {
        const bool isRun = step.kind == Step::AnyRun;
        if (isRun && !steps.empty() && steps.back().kind == Step::AnyRun)
            return;
        leastUnits += isRun ? 0 : 1;
        steps.push_back(std::move(step));
    }
};

/// Reads the set that opens at `start` and returns the position of its "]". "[]" adds nothing; a "!" that
/// stands alone is itself.
[[nodiscard]] qsizetype readSet(QStringView text, qsizetype start, Pattern& pattern)
{
    const qsizetype end = text.indexOf(u']', start);
    if (end < 0)
        throw Failure(kSyntaxError, QStringLiteral("a set of the pattern isn't closed"));
    const QStringView members = text.sliced(start + 1, end - start - 1);
    if (members.size() > 1 && members.front() == u'!')
        pattern.add({.kind = Step::NotSet, .members = readMembers(members.sliced(1))});
    else if (!members.isEmpty())
        pattern.add({.kind = Step::Set, .members = readMembers(members)});
    return end;
}

[[nodiscard]] Pattern readPattern(QStringView text)
{
    Pattern pattern;
    pattern.text = text.toString();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit == u'*')
            pattern.add({.kind = Step::AnyRun});
        else if (unit == u'?')
            pattern.add({.kind = Step::AnyOne});
        else if (unit == u'#')
            pattern.add({.kind = Step::Digit});
        else if (unit == u'[')
            i = readSet(text, i, pattern);
        else
            pattern.add({.kind = Step::Character, .character = unit.toCaseFolded()});
    }
    return pattern;
}

/// The pattern taken apart. The last one is kept: a query asks for the same one at every row, and a user's
/// text may be long.
[[nodiscard]] const Pattern& patternOf(QStringView text)
{
    thread_local Pattern last;
    if (last.text != text)
        last = readPattern(text);
    return last;
}

} // namespace

bool likeMatches(QStringView text, QStringView pattern)
{
    const Pattern& wanted = patternOf(pattern);
    const std::vector<Step>& steps = wanted.steps;
    if (wanted.leastUnits > text.size())
        return false;

    // Only the last run has to be widened when what follows it doesn't fit: an earlier one can't help.
    std::size_t step = 0;
    std::size_t afterRun = 0; // 0: no run yet
    qsizetype runEnd = 0;
    for (qsizetype at = 0; at < text.size();) {
        if (step < steps.size() && steps[step].kind == Step::AnyRun) {
            afterRun = ++step;
            runEnd = at;
        } else if (step < steps.size() && fits(steps[step], text[at])) {
            ++step;
            ++at;
        } else if (afterRun > 0) {
            step = afterRun;
            at = ++runEnd;
        } else {
            return false;
        }
    }
    if (step < steps.size() && steps[step].kind == Step::AnyRun)
        ++step;
    return step == steps.size();
}

} // namespace platform
