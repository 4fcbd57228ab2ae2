// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/sql/expressionparser.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace platform::sql {

namespace {

constexpr int kMostLevels = 200;
constexpr std::size_t kMostArguments = 255;

/// An expression and the height of its tree.
struct Tree
{
    ExpressionPtr root;
    int height = 1;
};

template <typename Node>
[[nodiscard]] Tree makeTree(Node node, int heightBelow = 0)
{
    if (heightBelow >= kMostLevels)
        failSyntax(QStringLiteral("expression too deep"));
    return {std::make_unique<Expression>(Expression{std::move(node)}), heightBelow + 1};
}

[[nodiscard]] double finiteNumber(const QString& digits)
{
    const double number = digits.toDouble();
    if (!std::isfinite(number))
        failSyntax(QStringLiteral("number too large"));
    return number;
}

struct OperatorToken
{
    QStringView text;
    BinaryOperator op;
    int strength; ///< the higher binds the tighter
};

// Between AND (2) and the comparisons (4) stands NOT, which is read where an operand begins.
constexpr int kNotStrength = 3;
constexpr int kComparisonStrength = 4;
constexpr std::array<OperatorToken, 14> kOperators{{
    {u"OR", BinaryOperator::Or, 1},
    {u"AND", BinaryOperator::And, 2},
    {u"=", BinaryOperator::Equal, kComparisonStrength},
    {u"<>", BinaryOperator::NotEqual, kComparisonStrength},
    {u"<", BinaryOperator::Less, kComparisonStrength},
    {u"<=", BinaryOperator::LessEqual, kComparisonStrength},
    {u">", BinaryOperator::Greater, kComparisonStrength},
    {u">=", BinaryOperator::GreaterEqual, kComparisonStrength},
    {u"LIKE", BinaryOperator::Like, kComparisonStrength},
    {u"&", BinaryOperator::Concatenate, 5},
    {u"+", BinaryOperator::Add, 6},
    {u"-", BinaryOperator::Subtract, 6},
    {u"*", BinaryOperator::Multiply, 7},
    {u"/", BinaryOperator::Divide, 7},
}};

class ExpressionParser
{
public:
    explicit ExpressionParser(TokenStream& tokens) noexcept
        : m_tokens(tokens)
    {}

    /// Reads operands joined by operators of at least `strength`.
    [[nodiscard]] Tree readJoined(int strength);

private:
    [[nodiscard]] const OperatorToken* operatorHere() const noexcept;
    [[nodiscard]] Tree readOperand();
    [[nodiscard]] Tree readNegation();
    [[nodiscard]] Tree readLiteral();
    [[nodiscard]] Tree readNameOrCall();
    [[nodiscard]] Tree readCall(QString name);
    [[nodiscard]] Tree readNullTest(Tree operand);
    [[nodiscard]] Tree readNotLike(Tree left);

    TokenStream& m_tokens;
    int m_depth = 0;
};

const OperatorToken* ExpressionParser::operatorHere() const noexcept
{
    const auto found = std::find_if(kOperators.begin(), kOperators.end(), [this](const OperatorToken& token) {
        return m_tokens.isSymbol(token.text) || m_tokens.isWord(token.text);
    });
    return found == kOperators.end() ? nullptr : &*found;
}

Tree ExpressionParser::readJoined(int strength)
{
    if (++m_depth > kMostLevels + 1)
        failSyntax(QStringLiteral("expression too deep"));
    Tree left = m_tokens.isWord(u"NOT") ? readNegation() : readOperand();
    for (;;) {
        if (strength <= kComparisonStrength && m_tokens.isWord(u"IS")) {
            left = readNullTest(std::move(left));
        } else if (strength <= kComparisonStrength && m_tokens.isWord(u"NOT")) {
            left = readNotLike(std::move(left));
        } else {
            const OperatorToken* token = operatorHere();
            if (!token || token->strength < strength)
                break;
            m_tokens.advance();
            Tree right = readJoined(token->strength + 1);
            const int below = std::max(left.height, right.height);
            left = makeTree(Binary{token->op, std::move(left.root), std::move(right.root)}, below);
        }
    }
    --m_depth;
    return left;
}

Tree ExpressionParser::readNegation()
{
    m_tokens.advance();
    Tree operand = readJoined(kNotStrength);
    return makeTree(Not{std::move(operand.root)}, operand.height);
}

Tree ExpressionParser::readNullTest(Tree operand)
{
    m_tokens.advance();
    const bool negated = m_tokens.acceptWord(u"NOT");
    m_tokens.expectWord(u"NULL");
    return makeTree(IsNullTest{std::move(operand.root), negated}, operand.height);
}

/// `left NOT LIKE pattern`.
Tree ExpressionParser::readNotLike(Tree left)
{
    m_tokens.advance();
    m_tokens.expectWord(u"LIKE");
    Tree right = readJoined(kComparisonStrength + 1);
    const int below = std::max(left.height, right.height);
    Tree like = makeTree(Binary{BinaryOperator::Like, std::move(left.root), std::move(right.root)}, below);
    return makeTree(Not{std::move(like.root)}, like.height);
}

Tree ExpressionParser::readOperand()
{
    if (m_tokens.acceptSymbol(u"(")) {
        Tree inner = readJoined(0);
        m_tokens.expectSymbol(u")");
        return inner;
    }
    if (m_tokens.acceptSymbol(u"-")) {
        constexpr int kTightest = 8;
        Tree operand = readJoined(kTightest);
        return makeTree(Negate{std::move(operand.root)}, operand.height);
    }
    return m_tokens.isName() ? readNameOrCall() : readLiteral();
}

Tree ExpressionParser::readLiteral()
{
    const Token token = m_tokens.current();
    m_tokens.advance();
    if (token.kind == TokenKind::Text)
        return makeTree(TextLiteral{token.text});
    if (token.kind == TokenKind::Number)
        return makeTree(NumberLiteral{finiteNumber(token.text)});
    if (token.kind == TokenKind::Word && token.text.compare(u"NULL", Qt::CaseInsensitive) == 0)
        return makeTree(NullLiteral{});
    failSyntax(QStringLiteral("operand expected before \"%1\"").arg(token.text));
}

Tree ExpressionParser::readNameOrCall()
{
    const bool canBeCall = m_tokens.current().kind == TokenKind::Word;
    QString name = m_tokens.expectName();
    if (canBeCall && m_tokens.acceptSymbol(u"("))
        return readCall(std::move(name));
    if (!m_tokens.acceptSymbol(u"."))
        return makeTree(ColumnRef{{}, std::move(name)});
    QString column = m_tokens.expectName();
    return makeTree(ColumnRef{std::move(name), std::move(column)});
}

Tree ExpressionParser::readCall(QString name)
{
    Call call{std::move(name), {}};
    int below = 0;
    if (m_tokens.acceptSymbol(u")"))
        return makeTree(std::move(call));
    do {
        if (call.arguments.size() == kMostArguments)
            failSyntax(QStringLiteral("too many arguments"));
        Tree argument = readJoined(0);
        below = std::max(below, argument.height);
        call.arguments.push_back(std::move(argument.root));
    } while (m_tokens.acceptSymbol(u","));
    m_tokens.expectSymbol(u")");
    return makeTree(std::move(call), below);
}

} // namespace

ExpressionPtr parseExpression(TokenStream& tokens)
{
    return ExpressionParser(tokens).readJoined(0).root;
}

} // namespace platform::sql
