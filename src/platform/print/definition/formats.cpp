// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/definition/formats.h"

#include "platform/print/formula/to_text.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace platform::print {
namespace {

QString numberText(const Format& format, double number)
{
    if (format.zeroBlank && number == 0)
        return {};
    const bool plain = format.kind != Format::Kind::Number;
    const int decimals = plain ? (std::trunc(number) == number ? 0 : 2) : format.decimals;
    return formula::formatNumber(number, decimals, u".", u",");
}

std::optional<formula::DateTime> momentOf(const formula::Value& value)
{
    if (const auto* text = std::get_if<QString>(&value)) {
        const std::optional<formula::Date> date = formula::parseDate(*text);
        return date ? std::optional(formula::DateTime{date->day, 0}) : std::nullopt;
    }
    const formula::Value moment = formula::withTime(value);
    if (const auto* both = std::get_if<formula::DateTime>(&moment))
        return *both;
    return std::nullopt;
}

QString yesNo(const formula::Value& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? u"Sí"_s : u"No"_s;
    if (const auto* number = std::get_if<double>(&value))
        return *number != 0 ? u"Sí"_s : u"No"_s;
    return formula::toText(value);
}

} // namespace

std::optional<Format> parseFormat(QStringView text)
{
    Format format;
    const qsizetype open = text.indexOf(u'(');
    const QStringView name = open < 0 ? text : text.first(open);
    if (open >= 0 && !text.endsWith(u')'))
        return std::nullopt;
    const QStringView inside = open < 0 ? QStringView() : text.sliced(open + 1).chopped(1);
    if (name == u"numero") {
        const QList<QStringView> parts = inside.split(u',');
        bool read = false;
        format.kind = Format::Kind::Number;
        format.decimals = parts[0].toInt(&read);
        format.zeroBlank = parts.size() == 2 && parts[1] == u"cero-blanco";
        const bool known = parts.size() == 1 || format.zeroBlank;
        return read && known && format.decimals >= 0 && format.decimals <= formula::kMaxDecimals
                   ? std::optional(format)
                   : std::nullopt;
    }
    if (name == u"fecha") {
        format.kind = Format::Kind::Date;
        format.pattern = inside.toString();
        return inside.isEmpty() ? std::nullopt : std::optional(format);
    }
    if (open >= 0 || (name != u"sino" && name != u"texto"))
        return std::nullopt;
    format.kind = name == u"sino" ? Format::Kind::YesNo : Format::Kind::Text;
    return format;
}

QString formatted(const Format& format, const formula::Value& value)
{
    if (format.kind == Format::Kind::Date) {
        const std::optional<formula::DateTime> moment = momentOf(value);
        return moment ? formula::formatMoment(*moment, format.pattern) : formula::toText(value);
    }
    if (format.kind == Format::Kind::YesNo)
        return yesNo(value);
    if (const auto* number = std::get_if<double>(&value))
        return numberText(format, *number);
    if (const auto* flag = std::get_if<bool>(&value))
        return yesNo(*flag);
    return formula::toText(value);
}

} // namespace platform::print
