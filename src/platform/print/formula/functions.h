// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The functions of the language as tables: name, signature, what evaluates it.

#include "platform/print/formula/ast.h"
#include "platform/print/formula/names.h"

#include <QString>

#include <optional>
#include <span>

namespace platform::print::formula {

/// Longest text that a formula may build; more is a value error.
inline constexpr qsizetype kMaxText = 1'048'576;

/// One call under evaluation. A function that can't answer sets `error` and returns no value.
struct Call
{
    std::span<const Value> arguments;
    bool caseSensitive = false;
    QString error;

    [[nodiscard]] std::size_t count() const noexcept { return arguments.size(); }
    [[nodiscard]] double number(std::size_t i) const { return std::get<double>(arguments[i]); }
    [[nodiscard]] const QString& text(std::size_t i) const { return std::get<QString>(arguments[i]); }
    /// The number without its decimals, held within ±2^31.
    [[nodiscard]] qsizetype whole(std::size_t i) const;
    Value fail(const QString& why);
};

/// A plain function. Signature letters: n number, s text, b yes or no, d date, t time, D date and time (a
/// date passes too), x anything; the result comes first: "s(sn)".
struct Function
{
    QLatin1StringView name;
    QLatin1StringView signature;
    Value (*evaluate)(Call& call);
};

[[nodiscard]] std::span<const Function> textFunctions();
[[nodiscard]] std::span<const Function> numberFunctions();
[[nodiscard]] std::span<const Function> dateFunctions();

/// The overload that takes these types; null when the name is no plain function or none fits.
[[nodiscard]] const Function* findFunction(QStringView name, std::span<const Type> arguments);
[[nodiscard]] bool isPlainFunction(QStringView name);
[[nodiscard]] Type resultType(const Function& function);
/// Type that the parameter wants, nothing for "anything".
[[nodiscard]] std::optional<Type> parameterType(const Function& function, std::size_t i);

/// What the report knows and a formula may ask without naming a field.
enum class Special {
    RecordNumber,
    GroupNumber,
    OnFirstRecord,
    OnLastRecord,
    InRepeatedGroupHeader,
    PageNumber,
    TotalPageCount,
    PageNofM,
    GroupPageNumber,
    GroupPageCount,
    PrintDate,
    PrintTime,
    CurrentDate,
    CurrentTime,
    CurrentDateTime,
    CarpetaTabla,
    FicheroTabla,
    GroupName,
    Moment,
};

struct SpecialFunction
{
    QLatin1StringView name;
    Special special;
    Type type;
    int arguments; ///< 0, or 1 for a number
    Uses uses;
};

/// Null when the name is none of them. `GroupName` isn't found here: it takes a field.
[[nodiscard]] const SpecialFunction* findSpecial(QStringView name);
[[nodiscard]] std::optional<TotalKind> findTotal(QStringView name);

/// True for every function's name, in any case: such a name can't be a variable.
[[nodiscard]] bool isFunctionName(QStringView name);

} // namespace platform::print::formula
