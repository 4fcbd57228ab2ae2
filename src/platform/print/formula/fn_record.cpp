// SPDX-License-Identifier: GPL-3.0-or-later
// Functions about records, groups, totals, pages and the clock: what they are called and what they need.
#include "platform/print/formula/functions.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace platform::print::formula {
namespace {

constexpr Uses kNothing{};
constexpr Uses kOrder{.order = true};
constexpr Uses kPages{.pages = true};
constexpr Uses kPageTotal{.pages = true, .pageTotal = true};
constexpr Uses kPrinting{.printing = true};

constexpr std::array kSpecials{
    SpecialFunction{"RecordNumber"_L1, Special::RecordNumber, Type::Number, 0, kOrder},
    SpecialFunction{"GroupNumber"_L1, Special::GroupNumber, Type::Number, 0, kOrder},
    SpecialFunction{"OnFirstRecord"_L1, Special::OnFirstRecord, Type::Boolean, 0, kOrder},
    SpecialFunction{"OnLastRecord"_L1, Special::OnLastRecord, Type::Boolean, 0, kOrder},
    SpecialFunction{"InRepeatedGroupHeader"_L1, Special::InRepeatedGroupHeader, Type::Boolean, 0, kPages},
    SpecialFunction{"PageNumber"_L1, Special::PageNumber, Type::Number, 0, kPages},
    SpecialFunction{"TotalPageCount"_L1, Special::TotalPageCount, Type::Number, 0, kPageTotal},
    SpecialFunction{"PageNofM"_L1, Special::PageNofM, Type::Text, 0, kPageTotal},
    SpecialFunction{"GroupPageNumber"_L1, Special::GroupPageNumber, Type::Number, 0, kPages},
    SpecialFunction{"GroupPageCount"_L1, Special::GroupPageCount, Type::Number, 0, kPageTotal},
    SpecialFunction{"PrintDate"_L1, Special::PrintDate, Type::Date, 0, kNothing},
    SpecialFunction{"PrintTime"_L1, Special::PrintTime, Type::Time, 0, kNothing},
    SpecialFunction{"CurrentDate"_L1, Special::CurrentDate, Type::Date, 0, kNothing},
    SpecialFunction{"CurrentTime"_L1, Special::CurrentTime, Type::Time, 0, kNothing},
    SpecialFunction{"CurrentDateTime"_L1, Special::CurrentDateTime, Type::DateTime, 0, kNothing},
    SpecialFunction{"CarpetaTabla"_L1, Special::CarpetaTabla, Type::Text, 1, kNothing},
    SpecialFunction{"FicheroTabla"_L1, Special::FicheroTabla, Type::Text, 1, kNothing},
    SpecialFunction{"BeforeReadingRecords"_L1, Special::Moment, Type::Boolean, 0, kNothing},
    SpecialFunction{"WhileReadingRecords"_L1, Special::Moment, Type::Boolean, 0, kNothing},
    SpecialFunction{"WhilePrintingRecords"_L1, Special::Moment, Type::Boolean, 0, kPrinting},
};

struct TotalName
{
    QLatin1StringView name;
    TotalKind kind;
};

constexpr std::array kTotals{
    TotalName{"Sum"_L1, TotalKind::Sum},
    TotalName{"Count"_L1, TotalKind::Count},
    TotalName{"DistinctCount"_L1, TotalKind::DistinctCount},
    TotalName{"Average"_L1, TotalKind::Average},
    TotalName{"Minimum"_L1, TotalKind::Minimum},
    TotalName{"Maximum"_L1, TotalKind::Maximum},
};

} // namespace

const SpecialFunction* findSpecial(QStringView name)
{
    const auto found = std::find_if(kSpecials.begin(), kSpecials.end(), [name](const SpecialFunction& known) {
        return name.compare(known.name, Qt::CaseInsensitive) == 0;
    });
    return found == kSpecials.end() ? nullptr : &*found;
}

std::optional<TotalKind> findTotal(QStringView name)
{
    const auto found = std::find_if(kTotals.begin(), kTotals.end(), [name](const TotalName& known) {
        return name.compare(known.name, Qt::CaseInsensitive) == 0;
    });
    return found == kTotals.end() ? std::nullopt : std::optional(found->kind);
}

} // namespace platform::print::formula
