// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/lexer.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

struct Word
{
    QLatin1StringView text;
    TokenKind kind;
};

constexpr std::array kKeywords{
    Word{"if"_L1, TokenKind::If},
    Word{"then"_L1, TokenKind::Then},
    Word{"else"_L1, TokenKind::Else},
    Word{"and"_L1, TokenKind::And},
    Word{"or"_L1, TokenKind::Or},
    Word{"not"_L1, TokenKind::Not},
    Word{"xor"_L1, TokenKind::Xor},
    Word{"eqv"_L1, TokenKind::Eqv},
    Word{"imp"_L1, TokenKind::Imp},
    Word{"in"_L1, TokenKind::In},
    Word{"to"_L1, TokenKind::To},
    Word{"to_"_L1, TokenKind::ToBefore},
    Word{"_to"_L1, TokenKind::AfterTo},
    Word{"_to_"_L1, TokenKind::AfterToBefore},
    Word{"upto"_L1, TokenKind::UpTo},
    Word{"upto_"_L1, TokenKind::UpToBefore},
    Word{"upfrom"_L1, TokenKind::UpFrom},
    Word{"upfrom_"_L1, TokenKind::UpFromAfter},
    Word{"mod"_L1, TokenKind::Mod},
    Word{"true"_L1, TokenKind::True},
    Word{"false"_L1, TokenKind::False},
    Word{"local"_L1, TokenKind::Local},
    Word{"global"_L1, TokenKind::Global},
    Word{"shared"_L1, TokenKind::Shared},
    Word{"numbervar"_L1, TokenKind::NumberVar},
    Word{"currencyvar"_L1, TokenKind::CurrencyVar},
    Word{"stringvar"_L1, TokenKind::StringVar},
    Word{"booleanvar"_L1, TokenKind::BooleanVar},
    Word{"datevar"_L1, TokenKind::DateVar},
    Word{"timevar"_L1, TokenKind::TimeVar},
    Word{"datetimevar"_L1, TokenKind::DateTimeVar},
};

// Longer signs stand before those that they begin with.
constexpr std::array kSigns{
    Word{":="_L1, TokenKind::Assign},        Word{"<>"_L1, TokenKind::NotEqual},
    Word{"<="_L1, TokenKind::LessEqual},     Word{">="_L1, TokenKind::GreaterEqual},
    Word{"<"_L1, TokenKind::Less},           Word{">"_L1, TokenKind::Greater},
    Word{"="_L1, TokenKind::Equal},          Word{"+"_L1, TokenKind::Plus},
    Word{"-"_L1, TokenKind::Minus},          Word{"*"_L1, TokenKind::Times},
    Word{"/"_L1, TokenKind::Divide},         Word{"%"_L1, TokenKind::Percent},
    Word{"\\"_L1, TokenKind::IntegerDivide}, Word{"^"_L1, TokenKind::Power},
    Word{"&"_L1, TokenKind::Concatenate},    Word{"("_L1, TokenKind::Open},
    Word{")"_L1, TokenKind::Close},          Word{"["_L1, TokenKind::OpenList},
    Word{"]"_L1, TokenKind::CloseList},      Word{","_L1, TokenKind::Comma},
    Word{";"_L1, TokenKind::Semicolon},
};

const Word* keyword(QStringView word)
{
    const auto found = std::find_if(kKeywords.begin(), kKeywords.end(), [word](const Word& known) {
        return word.compare(known.text, Qt::CaseInsensitive) == 0;
    });
    return found == kKeywords.end() ? nullptr : &*found;
}

bool isDigit(QChar character) noexcept
{
    return character >= u'0' && character <= u'9';
}

bool isNameStart(QChar character) noexcept
{
    return character.isLetter() || character == u'_';
}

} // namespace

bool isKeyword(QStringView word)
{
    return keyword(word) != nullptr;
}

Lexer::Lexer(QStringView text)
    : m_text(text)
{
    const qsizetype zero = m_text.indexOf(QChar(0));
    if (zero >= 0)
        m_text.truncate(zero);
}

QChar Lexer::peek(qsizetype ahead) const noexcept
{
    return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : QChar(0);
}

void Lexer::advance() noexcept
{
    const QChar passed = m_text[m_at++];
    // CR LF, LF and a lone CR each end one line.
    if (passed == u'\n' || (passed == u'\r' && peek() != u'\n')) {
        ++m_position.line;
        m_position.column = 1;
    } else {
        ++m_position.column;
    }
}

void Lexer::skipBlanks() noexcept
{
    while (m_at < m_text.size()) {
        if (peek().isSpace()) {
            advance();
        } else if (peek() == u'/' && peek(1) == u'/') {
            while (m_at < m_text.size() && peek() != u'\n' && peek() != u'\r')
                advance();
        } else {
            return;
        }
    }
}

Token Lexer::fault(const QString& text)
{
    m_at = m_text.size();
    m_position = m_start;
    return {TokenKind::Fault, m_start, text, 0};
}

Token Lexer::next()
{
    skipBlanks();
    m_start = m_position;
    if (m_at >= m_text.size())
        return {TokenKind::End, m_start, {}, 0};
    const QChar first = peek();
    if (isDigit(first) || (first == u'.' && isDigit(peek(1))))
        return number();
    if (first == u'"' || first == u'\'')
        return quoted();
    if (first == u'{')
        return field();
    if (isNameStart(first))
        return name();
    return sign();
}

Token Lexer::number()
{
    const qsizetype begin = m_at;
    while (isDigit(peek()))
        advance();
    if (peek() == u'.') {
        advance();
        while (isDigit(peek()))
            advance();
    }
    const QStringView digits = m_text.sliced(begin, m_at - begin);
    Token token{TokenKind::Number, m_start, digits.toString(), 0};
    bool read = false;
    token.number = token.text.toDouble(&read);
    return read ? token : fault(u"número demasiado grande"_s);
}

Token Lexer::quoted()
{
    const QChar quote = peek();
    Token token{TokenKind::Text, m_start, {}, 0};
    advance();
    while (m_at < m_text.size()) {
        const QChar character = peek();
        if (character == quote && peek(1) != quote) {
            advance();
            return token;
        }
        if (character == quote)
            advance();
        token.text += character;
        advance();
    }
    return fault(u"falta la comilla que cierra el texto"_s);
}

Token Lexer::field()
{
    advance();
    const qsizetype begin = m_at;
    while (m_at < m_text.size() && peek() != u'}')
        advance();
    if (m_at >= m_text.size())
        return fault(u"falta la llave que cierra el campo"_s);
    const QStringView inside = m_text.sliced(begin, m_at - begin);
    advance();
    return {TokenKind::Field, m_start, inside.trimmed().toString(), 0};
}

Token Lexer::name()
{
    const qsizetype begin = m_at;
    while (isNameStart(peek()) || isDigit(peek()))
        advance();
    const QStringView word = m_text.sliced(begin, m_at - begin);
    const Word* known = keyword(word);
    return {known != nullptr ? known->kind : TokenKind::Name, m_start, word.toString(), 0};
}

Token Lexer::sign()
{
    const QStringView rest = m_text.sliced(m_at);
    for (const Word& known : kSigns) {
        if (!rest.startsWith(known.text))
            continue;
        for (qsizetype i = 0; i < known.text.size(); ++i)
            advance();
        return {known.kind, m_start, QString(known.text), 0};
    }
    return fault(u"carácter desconocido «%1»"_s.arg(QString(peek())));
}

} // namespace platform::print::formula
