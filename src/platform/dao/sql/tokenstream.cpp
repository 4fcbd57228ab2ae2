// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/dao/sql/expressionparser.h"

#include <algorithm>
#include <array>

namespace platform::sql {

namespace {

// Words that are never a name unless they stand in brackets.
constexpr std::array<QStringView, 24> kKeywords{
    u"ALL",         u"AND",    u"AS",   u"ASC",   u"BETWEEN", u"BY",     u"DESC",  u"DISTINCT",
    u"DISTINCTROW", u"EXISTS", u"FROM", u"GROUP", u"HAVING",  u"IN",     u"INTO",  u"IS",
    u"LIKE",        u"NOT",    u"NULL", u"OR",    u"ORDER",   u"SELECT", u"UNION", u"WHERE"};

} // namespace

void failSyntax(const QString& why)
{
    throw Failure(kSyntaxError, why);
}

TokenStream::TokenStream(QStringView text)
    : m_lexer(text)
    , m_current(m_lexer.next())
{}

bool TokenStream::isSymbol(QStringView symbol) const noexcept
{
    return m_current.kind == TokenKind::Symbol && m_current.text == symbol;
}

bool TokenStream::isWord(QStringView keyword) const noexcept
{
    return m_current.kind == TokenKind::Word && keyword.compare(m_current.text, Qt::CaseInsensitive) == 0;
}

bool TokenStream::acceptSymbol(QStringView symbol)
{
    if (!isSymbol(symbol))
        return false;
    advance();
    return true;
}

bool TokenStream::acceptWord(QStringView keyword)
{
    if (!isWord(keyword))
        return false;
    advance();
    return true;
}

void TokenStream::expectSymbol(QStringView symbol)
{
    if (!acceptSymbol(symbol))
        failSyntax(QStringLiteral("%1 expected before \"%2\"").arg(symbol, m_current.text));
}

void TokenStream::expectWord(QStringView keyword)
{
    if (!acceptWord(keyword))
        failSyntax(QStringLiteral("%1 expected before \"%2\"").arg(keyword, m_current.text));
}

bool TokenStream::isName() const noexcept
{
    if (m_current.kind != TokenKind::Word)
        return m_current.kind == TokenKind::Name;
    return std::none_of(kKeywords.begin(), kKeywords.end(),
                        [this](QStringView keyword) { return isWord(keyword); });
}

QString TokenStream::expectName()
{
    if (!isName())
        failSyntax(QStringLiteral("name expected before \"%1\"").arg(m_current.text));
    QString name = std::move(m_current.text);
    advance();
    return name;
}

void TokenStream::expectEnd()
{
    if (isSymbol(u";") && !m_lexer.atEnd())
        throw Failure(kTextAfterEnd, QStringLiteral("text after the end of the statement"));
    acceptSymbol(u";");
    if (m_current.kind != TokenKind::End)
        failSyntax(QStringLiteral("end expected before \"%1\"").arg(m_current.text));
}

} // namespace platform::sql
