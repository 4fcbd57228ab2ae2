// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/require.h"
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/text/likepattern.h"

#include <cstddef>
#include <cstdint>
#include <vector>

using namespace platform;
using fuzz::require;

namespace {

/// The same rules told the slow way: which beginnings of the text fit the pattern read so far.
class SlowMatcher
{
public:
    explicit SlowMatcher(QStringView text)
        : m_text(text)
        , m_reached(static_cast<std::size_t>(text.size()) + 1, false)
    {
        m_reached[0] = true;
    }

    void addRun()
    {
        for (std::size_t i = 1; i < m_reached.size(); ++i)
            m_reached[i] = m_reached[i] || m_reached[i - 1];
    }

    template <typename Test>
    void addOne(Test fits)
    {
        for (std::size_t i = m_reached.size() - 1; i > 0; --i)
            m_reached[i] = m_reached[i - 1] && fits(m_text[static_cast<qsizetype>(i) - 1].toCaseFolded());
        m_reached[0] = false;
    }

    [[nodiscard]] bool matched() const { return m_reached.back(); }

private:
    QStringView m_text;
    std::vector<bool> m_reached;
};

[[nodiscard]] bool isMember(QStringView set, QChar unit)
{
    if (set.isEmpty())
        return false;
    if (set.size() > 2 && set[1] == u'-')
        return (set[0].toCaseFolded() <= unit && unit <= set[2].toCaseFolded()) ||
               isMember(set.sliced(3), unit);
    return set[0].toCaseFolded() == unit || isMember(set.sliced(1), unit);
}

void addSet(SlowMatcher& matcher, QStringView set)
{
    if (set.isEmpty())
        return;
    const bool negated = set.size() > 1 && set[0] == u'!';
    const QStringView members = negated ? set.sliced(1) : set;
    matcher.addOne([=](QChar unit) { return isMember(members, unit) != negated; });
}

[[nodiscard]] bool slowMatches(QStringView text, QStringView pattern)
{
    SlowMatcher matcher(text);
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar unit = pattern[i];
        if (unit == u'*') {
            matcher.addRun();
        } else if (unit == u'?') {
            matcher.addOne([](QChar) { return true; });
        } else if (unit == u'#') {
            matcher.addOne([](QChar digit) { return digit >= u'0' && digit <= u'9'; });
        } else if (unit == u'[') {
            const qsizetype end = pattern.indexOf(u']', i);
            addSet(matcher, pattern.sliced(i + 1, end - i - 1));
            i = end;
        } else {
            matcher.addOne([=](QChar other) { return other == unit.toCaseFolded(); });
        }
    }
    return matcher.matched();
}

} // namespace

/// The input is the pattern, a line end and the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString input =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype cut = input.indexOf(u'\n');
    const QStringView pattern = QStringView(input).first(cut < 0 ? input.size() : cut);
    const QStringView text = QStringView(input).sliced(cut < 0 ? input.size() : cut + 1);
    try {
        const bool matches = likeMatches(text, pattern);
        require(matches == slowMatches(text, pattern), "both ways of matching agree");
    } catch (const Failure& failure) {
        require(failure.number() == kSyntaxError, "a pattern fails as a syntax error");
        require(pattern.contains(u'['), "a pattern without a set can't fail");
    }
    return 0;
}
