// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Splits a formula's text into tokens, one at a time, each with its place. The text ends at its first zero
// character; blanks and `//` comments part tokens.

#include "platform/print/formula/fault.h"

#include <QString>

namespace platform::print::formula {

enum class TokenKind {
    End,
    Fault,
    Number,
    Text,
    Field,
    Name,
    // Keywords
    If,
    Then,
    Else,
    And,
    Or,
    Not,
    Xor,
    Eqv,
    Imp,
    In,
    To,
    ToBefore,
    AfterTo,
    AfterToBefore,
    UpTo,
    UpToBefore,
    UpFrom,
    UpFromAfter,
    Mod,
    True,
    False,
    Local,
    Global,
    Shared,
    NumberVar,
    CurrencyVar,
    StringVar,
    BooleanVar,
    DateVar,
    TimeVar,
    DateTimeVar,
    // Signs
    Assign,
    NotEqual,
    LessEqual,
    GreaterEqual,
    Less,
    Greater,
    Equal,
    Plus,
    Minus,
    Times,
    Divide,
    Percent,
    IntegerDivide,
    Power,
    Concatenate,
    Open,
    Close,
    OpenList,
    CloseList,
    Comma,
    Semicolon,
};

struct Token
{
    TokenKind kind = TokenKind::End;
    Position position;
    QString text;      ///< name, text without its quotes, field without its braces, or the fault's message
    double number = 0; ///< of a number
};

class Lexer
{
public:
    /// Keeps a view: the text must outlive the lexer.
    explicit Lexer(QStringView text);

    /// The next token; at the end, and after a fault, the same one again.
    [[nodiscard]] Token next();

private:
    [[nodiscard]] QChar peek(qsizetype ahead = 0) const noexcept;
    void advance() noexcept;
    void skipBlanks() noexcept;
    [[nodiscard]] Token number();
    [[nodiscard]] Token quoted();
    [[nodiscard]] Token field();
    [[nodiscard]] Token name();
    [[nodiscard]] Token sign();
    [[nodiscard]] Token fault(const QString& text);

    QStringView m_text;
    qsizetype m_at = 0;
    Position m_position;
    Position m_start;
};

/// True when the word is a keyword of the language, in any case.
[[nodiscard]] bool isKeyword(QStringView word);

} // namespace platform::print::formula
