// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/functions.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

/// Functions that take a field or choose between their arguments; the type checker knows each of them.
constexpr std::array kShapedFunctions{"IsNull"_L1, "IIf"_L1, "GroupName"_L1, "Previous"_L1, "Next"_L1};

bool same(QStringView left, QLatin1StringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

std::optional<Type> letterType(QChar letter)
{
    switch (letter.unicode()) {
    case u'n':
        return Type::Number;
    case u's':
        return Type::Text;
    case u'b':
        return Type::Boolean;
    case u'd':
        return Type::Date;
    case u't':
        return Type::Time;
    case u'D':
        return Type::DateTime;
    default:
        return std::nullopt;
    }
}

std::array<std::span<const Function>, 3> allFunctions()
{
    return {textFunctions(), numberFunctions(), dateFunctions()};
}

bool fits(const Function& function, std::span<const Type> arguments)
{
    // "r(abc)": three characters stand around the parameters.
    if (static_cast<std::size_t>(function.signature.size()) != arguments.size() + 3)
        return false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::optional<Type> wanted = parameterType(function, i);
        const bool dateAsMoment = wanted == Type::DateTime && arguments[i] == Type::Date;
        if (wanted && *wanted != arguments[i] && !dateAsMoment)
            return false;
    }
    return true;
}

} // namespace

qsizetype Call::whole(std::size_t i) const
{
    constexpr double limit = 2'147'483'647.0;
    return static_cast<qsizetype>(std::clamp(number(i), -limit, limit));
}

Value Call::fail(const QString& why)
{
    error = why;
    return {};
}

Type resultType(const Function& function)
{
    return letterType(QChar(function.signature.front())).value_or(Type::Text);
}

std::optional<Type> parameterType(const Function& function, std::size_t i)
{
    return letterType(QChar(function.signature.at(static_cast<qsizetype>(i) + 2)));
}

const Function* findFunction(QStringView name, std::span<const Type> arguments)
{
    for (const std::span<const Function> table : allFunctions()) {
        for (const Function& function : table) {
            if (same(name, function.name) && fits(function, arguments))
                return &function;
        }
    }
    return nullptr;
}

bool isPlainFunction(QStringView name)
{
    const auto tables = allFunctions();
    return std::any_of(tables.begin(), tables.end(), [name](std::span<const Function> table) {
        return std::any_of(table.begin(), table.end(),
                           [name](const Function& function) { return same(name, function.name); });
    });
}

bool isFunctionName(QStringView name)
{
    return isPlainFunction(name) || findSpecial(name) != nullptr || findTotal(name).has_value() ||
           std::any_of(kShapedFunctions.begin(), kShapedFunctions.end(),
                       [name](QLatin1StringView known) { return same(name, known); });
}

} // namespace platform::print::formula
