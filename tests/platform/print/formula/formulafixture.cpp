// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/formula/formulafixture.h"

#include "platform/print/formula/to_text.h"

namespace platform::print::formula {

/// Numbers in their shortest form, so that a test sees every decimal; the rest as reports print it.
QString FormulaFixture::shown(const Value& value)
{
    if (const double* number = std::get_if<double>(&value))
        return plainNumber(*number);
    return toText(value);
}

Value FormulaFixture::anyOf(Type type, int number)
{
    switch (type) {
    case Type::Number:
        return static_cast<double>(number);
    case Type::Text:
        return QString::number(number);
    case Type::Boolean:
        return number != 0;
    case Type::Date:
        return toDate(QDate(2024, 3, 5).addDays(number));
    case Type::Time:
        return Time{3600 + number};
    case Type::DateTime:
        return toDateTime(QDateTime(QDate(2024, 3, 5), QTime(1, 0), Qt::UTC));
    }
    return {};
}

Value FormulaFixture::special(Special what, int argument)
{
    switch (what) {
    case Special::CarpetaTabla:
        return QStringLiteral("Empresa%1").arg(argument, 5, 10, QChar(u'0'));
    case Special::FicheroTabla:
    case Special::PageNofM:
    case Special::GroupName:
        return anyOf(Type::Text, 7);
    case Special::OnFirstRecord:
    case Special::OnLastRecord:
    case Special::InRepeatedGroupHeader:
    case Special::Moment:
        return true;
    case Special::PrintDate:
    case Special::CurrentDate:
        return anyOf(Type::Date, 0);
    case Special::PrintTime:
    case Special::CurrentTime:
        return anyOf(Type::Time, 0);
    case Special::CurrentDateTime:
        return anyOf(Type::DateTime, 0);
    default:
        return 7.0;
    }
}

} // namespace platform::print::formula
