// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/sql/parser.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/dao/sql/expressionparser.h"

#include <algorithm>
#include <array>
#include <optional>

namespace platform::sql {

namespace {

constexpr std::array<QStringView, 8> kActionWords{u"INSERT", u"UPDATE", u"DELETE", u"DROP",
                                                  u"CREATE", u"ALTER",  u"GRANT",  u"REVOKE"};

constexpr std::size_t kMostListed = 255; // as many as a table has columns

[[nodiscard]] bool startsAction(const TokenStream& tokens) noexcept
{
    return std::any_of(kActionWords.begin(), kActionWords.end(),
                       [&tokens](QStringView word) { return tokens.isWord(word); });
}

/// `*` or `table.*`; nothing, and nothing read, when the item is an expression.
[[nodiscard]] std::optional<AllColumns> acceptAllColumns(TokenStream& tokens)
{
    if (tokens.acceptSymbol(u"*"))
        return AllColumns{};
    if (!tokens.isName())
        return std::nullopt;
    TokenStream ahead = tokens;
    AllColumns all{ahead.expectName()};
    if (!ahead.acceptSymbol(u".") || !ahead.acceptSymbol(u"*"))
        return std::nullopt;
    tokens = ahead;
    return all;
}

/// A name or a text in quotes, which are taken off.
[[nodiscard]] QString expectAlias(TokenStream& tokens)
{
    if (tokens.current().kind != TokenKind::Text)
        return tokens.expectName();
    QString alias = tokens.current().text;
    if (alias.isEmpty())
        failSyntax(QStringLiteral("empty alias"));
    tokens.advance();
    return alias;
}

[[nodiscard]] SelectItem readItem(TokenStream& tokens)
{
    SelectItem item;
    if (auto all = acceptAllColumns(tokens)) {
        item.what = std::move(*all);
        return item;
    }
    item.what = parseExpression(tokens);
    if (tokens.acceptWord(u"AS"))
        item.alias = expectAlias(tokens);
    return item;
}

[[nodiscard]] OrderItem readOrderItem(TokenStream& tokens)
{
    OrderItem item{parseExpression(tokens)};
    item.descending = tokens.acceptWord(u"DESC");
    if (!item.descending)
        tokens.acceptWord(u"ASC");
    return item;
}

template <typename Item>
[[nodiscard]] std::vector<Item> readList(TokenStream& tokens, Item (*readOne)(TokenStream&))
{
    std::vector<Item> list;
    do {
        if (list.size() == kMostListed)
            failSyntax(QStringLiteral("list too long"));
        list.push_back(readOne(tokens));
    } while (tokens.acceptSymbol(u","));
    return list;
}

} // namespace

Select parseSelect(QStringView text)
{
    TokenStream tokens(text);
    if (startsAction(tokens))
        throw Failure(kInvalidOperation, QStringLiteral("an action query gives no rows"));
    tokens.expectWord(u"SELECT");
    Select select;
    select.items = readList(tokens, readItem);
    tokens.expectWord(u"FROM");
    select.table = tokens.expectName();
    if (tokens.acceptWord(u"WHERE"))
        select.where = parseExpression(tokens);
    if (tokens.acceptWord(u"ORDER")) {
        tokens.expectWord(u"BY");
        select.orderBy = readList(tokens, readOrderItem);
    }
    tokens.expectEnd();
    return select;
}

DropIndex parseAction(QStringView text)
{
    TokenStream tokens(text);
    if (tokens.isWord(u"SELECT"))
        throw Failure(kConstructNotSupported, QStringLiteral("a query can't be executed"));
    tokens.expectWord(u"DROP");
    tokens.expectWord(u"INDEX");
    DropIndex drop;
    drop.index = tokens.expectName();
    tokens.expectWord(u"ON");
    drop.table = tokens.expectName();
    tokens.expectEnd();
    return drop;
}

} // namespace platform::sql
