// SPDX-License-Identifier: GPL-3.0-or-later
// Text functions. Positions count from 1 in UTF-16 units; reading past the end gives what there is.
#include "platform/print/formula/compare.h"
#include "platform/print/formula/functions.h"
#include "platform/print/formula/to_text.h"
#include "platform/text/cp1252.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

QStringView withoutBlanks(QStringView text, bool left, bool right)
{
    while (left && text.startsWith(u' '))
        text = text.sliced(1);
    while (right && text.endsWith(u' '))
        text.chop(1);
    return text;
}

Value length(Call& call)
{
    return static_cast<double>(call.text(0).size());
}

Value left(Call& call)
{
    if (call.whole(1) < 0)
        return call.fail(u"longitud negativa"_s);
    return call.text(0).left(call.whole(1));
}

Value right(Call& call)
{
    if (call.whole(1) < 0)
        return call.fail(u"longitud negativa"_s);
    return call.text(0).right(call.whole(1));
}

Value mid(Call& call)
{
    const qsizetype start = call.whole(1);
    if (start < 1)
        return call.fail(u"la posición empieza en 1"_s);
    if (call.count() > 2 && call.whole(2) < 0)
        return call.fail(u"longitud negativa"_s);
    if (start > call.text(0).size())
        return QString(u""_s);
    return call.text(0).mid(start - 1, call.count() > 2 ? call.whole(2) : -1);
}

Value trim(Call& call)
{
    return withoutBlanks(call.text(0), true, true).toString();
}

Value trimLeft(Call& call)
{
    return withoutBlanks(call.text(0), true, false).toString();
}

Value trimRight(Call& call)
{
    return withoutBlanks(call.text(0), false, true).toString();
}

Value upperCase(Call& call)
{
    return call.text(0).toUpper();
}

Value lowerCase(Call& call)
{
    return call.text(0).toLower();
}

Value properCase(Call& call)
{
    QString text = call.text(0).toLower();
    bool start = true;
    for (QChar& character : text) {
        if (start)
            character = character.toUpper();
        start = !character.isLetterOrNumber();
    }
    return text;
}

Value inStr(Call& call)
{
    const bool placed = call.count() == 3;
    const qsizetype start = placed ? call.whole(0) : 1;
    const QString& text = call.text(placed ? 1 : 0);
    const QString& wanted = call.text(placed ? 2 : 1);
    if (start < 1)
        return call.fail(u"la posición empieza en 1"_s);
    if (wanted.isEmpty() || start > text.size())
        return 0.0;
    return static_cast<double>(findText(text, wanted, call.caseSensitive, start - 1) + 1);
}

Value replace(Call& call)
{
    const QString& wanted = call.text(1);
    if (wanted.isEmpty())
        return call.text(0);
    const Qt::CaseSensitivity sense = call.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const qsizetype growth = std::max<qsizetype>(0, call.text(2).size() - wanted.size());
    if (growth > 0 && call.text(0).size() + call.text(0).count(wanted, sense) * growth > kMaxText)
        return call.fail(u"el texto resulta demasiado largo"_s);
    return QString(call.text(0)).replace(wanted, call.text(2), sense);
}

Value repeated(Call& call, const QString& text, qsizetype times)
{
    if (times < 0)
        return call.fail(u"longitud negativa"_s);
    if (times > 0 && text.size() > kMaxText / times)
        return call.fail(u"el texto resulta demasiado largo"_s);
    return text.repeated(times);
}

Value space(Call& call)
{
    return repeated(call, u" "_s, call.whole(0));
}

Value replicateString(Call& call)
{
    return repeated(call, call.text(0), call.whole(1));
}

Value chr(Call& call)
{
    const qsizetype code = call.whole(0);
    if (code < 0 || code > 255)
        return call.fail(u"los códigos van de 0 a 255"_s);
    return QString(cp1252Character(static_cast<unsigned char>(code)));
}

Value asc(Call& call)
{
    const std::optional<unsigned char> code =
        call.text(0).isEmpty() ? std::nullopt : cp1252Code(call.text(0).front());
    return code ? Value(static_cast<double>(*code))
                : call.fail(u"el texto no empieza por un carácter con código"_s);
}

Value toTextOf(Call& call)
{
    return toText(call.arguments[0]);
}

Value numberToText(Call& call)
{
    if (call.whole(1) < 0 || call.whole(1) > kMaxDecimals)
        return call.fail(u"los decimales van de 0 a %1"_s.arg(kMaxDecimals));
    const QString thousands = call.count() > 2 ? call.text(2) : u"."_s;
    const QString point = call.count() > 3 ? call.text(3) : u","_s;
    return formatNumber(call.number(0), static_cast<int>(call.whole(1)), thousands, point);
}

Value momentToText(Call& call)
{
    return formatMoment(std::get<DateTime>(call.arguments[0]), call.text(1));
}

Value timeToText(Call& call)
{
    return formatMoment({0, std::get<Time>(call.arguments[0]).second}, call.text(1));
}

constexpr std::array kFunctions{
    Function{"Length"_L1, "n(s)"_L1, length},
    Function{"Len"_L1, "n(s)"_L1, length},
    Function{"Left"_L1, "s(sn)"_L1, left},
    Function{"Right"_L1, "s(sn)"_L1, right},
    Function{"Mid"_L1, "s(sn)"_L1, mid},
    Function{"Mid"_L1, "s(snn)"_L1, mid},
    Function{"Trim"_L1, "s(s)"_L1, trim},
    Function{"TrimLeft"_L1, "s(s)"_L1, trimLeft},
    Function{"TrimRight"_L1, "s(s)"_L1, trimRight},
    Function{"UpperCase"_L1, "s(s)"_L1, upperCase},
    Function{"UCase"_L1, "s(s)"_L1, upperCase},
    Function{"LowerCase"_L1, "s(s)"_L1, lowerCase},
    Function{"LCase"_L1, "s(s)"_L1, lowerCase},
    Function{"ProperCase"_L1, "s(s)"_L1, properCase},
    Function{"InStr"_L1, "n(ss)"_L1, inStr},
    Function{"InStr"_L1, "n(nss)"_L1, inStr},
    Function{"Replace"_L1, "s(sss)"_L1, replace},
    Function{"Space"_L1, "s(n)"_L1, space},
    Function{"ReplicateString"_L1, "s(sn)"_L1, replicateString},
    Function{"Chr"_L1, "s(n)"_L1, chr},
    Function{"Asc"_L1, "n(s)"_L1, asc},
    Function{"ToText"_L1, "s(x)"_L1, toTextOf},
    Function{"ToText"_L1, "s(nn)"_L1, numberToText},
    Function{"ToText"_L1, "s(nns)"_L1, numberToText},
    Function{"ToText"_L1, "s(nnss)"_L1, numberToText},
    Function{"ToText"_L1, "s(Ds)"_L1, momentToText},
    Function{"ToText"_L1, "s(ts)"_L1, timeToText},
    Function{"CStr"_L1, "s(x)"_L1, toTextOf},
    Function{"CStr"_L1, "s(nn)"_L1, numberToText},
    Function{"CStr"_L1, "s(nns)"_L1, numberToText},
    Function{"CStr"_L1, "s(nnss)"_L1, numberToText},
    Function{"CStr"_L1, "s(Ds)"_L1, momentToText},
    Function{"CStr"_L1, "s(ts)"_L1, timeToText},
};

} // namespace

std::span<const Function> textFunctions()
{
    return kFunctions;
}

} // namespace platform::print::formula
