// SPDX-License-Identifier: GPL-3.0-or-later
// Number functions.
#include "platform/print/formula/functions.h"
#include "platform/print/formula/to_text.h"
#include "platform/text/textfunctions.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

Value val(Call& call)
{
    return Val(call.text(0));
}

Value toNumber(Call& call)
{
    const std::optional<double> number = parseNumber(call.text(0));
    return number ? Value(*number) : call.fail(u"«%1» no es un número"_s.arg(call.text(0).left(40)));
}

Value numberItself(Call& call)
{
    return call.arguments[0];
}

Value numericText(Call& call)
{
    return parseNumber(call.text(0)).has_value();
}

Value round(Call& call)
{
    const qsizetype places = call.count() > 1 ? std::clamp<qsizetype>(call.whole(1), -15, 15) : 0;
    return roundNumber(call.number(0), static_cast<int>(places));
}

Value truncate(Call& call)
{
    return std::trunc(call.number(0));
}

Value wholeBelow(Call& call)
{
    return std::floor(call.number(0));
}

Value absolute(Call& call)
{
    return std::abs(call.number(0));
}

Value remainderOf(Call& call)
{
    if (call.number(1) == 0)
        return call.fail(u"división por cero"_s);
    return std::fmod(call.number(0), call.number(1));
}

constexpr std::array kFunctions{
    Function{"Val"_L1, "n(s)"_L1, val},
    Function{"ToNumber"_L1, "n(s)"_L1, toNumber},
    Function{"ToNumber"_L1, "n(n)"_L1, numberItself},
    Function{"CDbl"_L1, "n(s)"_L1, toNumber},
    Function{"CDbl"_L1, "n(n)"_L1, numberItself},
    Function{"NumericText"_L1, "b(s)"_L1, numericText},
    Function{"IsNumeric"_L1, "b(s)"_L1, numericText},
    Function{"Round"_L1, "n(n)"_L1, round},
    Function{"Round"_L1, "n(nn)"_L1, round},
    Function{"Truncate"_L1, "n(n)"_L1, truncate},
    Function{"Int"_L1, "n(n)"_L1, wholeBelow},
    Function{"Abs"_L1, "n(n)"_L1, absolute},
    Function{"Remainder"_L1, "n(nn)"_L1, remainderOf},
};

} // namespace

std::span<const Function> numberFunctions()
{
    return kFunctions;
}

} // namespace platform::print::formula
