// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/sql/lexer.h"

namespace platform::sql {

namespace {

[[nodiscard]] bool isBlank(QChar unit) noexcept
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

[[nodiscard]] bool isDigit(QChar unit) noexcept
{
    return unit >= u'0' && unit <= u'9';
}

[[nodiscard]] bool startsWord(QChar unit) noexcept
{
    return unit.isLetter() || unit == u'_';
}

[[nodiscard]] bool continuesWord(QChar unit) noexcept
{
    return startsWord(unit) || isDigit(unit);
}

template <typename Test>
[[nodiscard]] qsizetype runLength(QStringView text, qsizetype from, Test test) noexcept
{
    qsizetype end = from;
    while (end < text.size() && test(text[end]))
        ++end;
    return end - from;
}

/// Length of "E+15" at `from`, 0 when there is none.
[[nodiscard]] qsizetype exponentLength(QStringView text, qsizetype from) noexcept
{
    if (from >= text.size() || (text[from] != u'e' && text[from] != u'E'))
        return 0;
    qsizetype digits = from + 1;
    if (digits < text.size() && (text[digits] == u'+' || text[digits] == u'-'))
        ++digits;
    const qsizetype count = runLength(text, digits, isDigit);
    return count == 0 ? 0 : digits + count - from;
}

} // namespace

QStringView Lexer::take(qsizetype count) noexcept
{
    const QStringView taken = m_rest.first(count);
    m_rest = m_rest.sliced(count);
    return taken;
}

void Lexer::skipBlanks() noexcept
{
    m_rest = m_rest.sliced(runLength(m_rest, 0, isBlank));
}

bool Lexer::atEnd() noexcept
{
    skipBlanks();
    return m_rest.isEmpty();
}

Token Lexer::next()
{
    if (atEnd())
        return {};
    const QChar first = m_rest.front();
    if (first == u'\'' || first == u'"')
        return readQuoted(first);
    if (first == u'[')
        return readBracketed();
    if (isDigit(first) || (first == u'.' && m_rest.size() > 1 && isDigit(m_rest[1])))
        return readNumber();
    if (startsWord(first))
        return readWord();
    return readSymbol();
}

Token Lexer::readQuoted(QChar quote)
{
    Token token{TokenKind::Text, {}};
    m_rest = m_rest.sliced(1);
    for (;;) {
        const qsizetype end = m_rest.indexOf(quote);
        if (end < 0)
            return {TokenKind::Malformed, take(m_rest.size()).toString()};
        token.text += take(end);
        m_rest = m_rest.sliced(1);
        if (!m_rest.startsWith(quote))
            return token;
        token.text += quote;
        m_rest = m_rest.sliced(1);
    }
}

Token Lexer::readBracketed()
{
    const qsizetype end = m_rest.indexOf(u']');
    if (end < 2)
        return {TokenKind::Malformed, take(m_rest.size()).toString()};
    const QStringView bracketed = take(end + 1);
    return {TokenKind::Name, bracketed.sliced(1, end - 1).toString()};
}

Token Lexer::readNumber()
{
    qsizetype length = runLength(m_rest, 0, isDigit);
    if (length < m_rest.size() && m_rest[length] == u'.')
        length += 1 + runLength(m_rest, length + 1, isDigit);
    length += exponentLength(m_rest, length);
    return {TokenKind::Number, take(length).toString()};
}

Token Lexer::readWord()
{
    return {TokenKind::Word, take(runLength(m_rest, 0, continuesWord)).toString()};
}

Token Lexer::readSymbol()
{
    for (const QStringView pair : {QStringView(u"<>"), QStringView(u"<="), QStringView(u">=")}) {
        if (m_rest.startsWith(pair))
            return {TokenKind::Symbol, take(2).toString()};
    }
    const bool known = QStringView(u"(),.*/+-&=<>;").contains(m_rest.front());
    return {known ? TokenKind::Symbol : TokenKind::Malformed, take(1).toString()};
}

} // namespace platform::sql
