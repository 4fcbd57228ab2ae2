// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The fixed lists of the demo: companies, zones, client types, article families, articles, and the questions
// that clients ask about them.

#include <QStringView>

#include <span>

namespace tools {

struct Company
{
    QStringView number; ///< five digits
    QStringView name;
    bool isMain; ///< the one whose number of clients the caller chooses
};

struct Zone
{
    QStringView code;
    QStringView description;
    QStringView notes; ///< empty: Null
};

struct ClientType
{
    QStringView code;
    QStringView description;
    int discount; ///< percent, on the family that is dearest to it
};

/// `u"C"` climate, `u"A"` lifts, `u"S"` alarms and fire, `u"I"` computers, `u"G"` general work.
enum class Trade : char16_t {
    Climate = u'C',
    Lifts = u'A',
    Security = u'S',
    Computers = u'I',
    General = u'G'
};

struct Family
{
    QStringView code; ///< four characters
    QStringView description;
    Trade trade;
};

struct Article
{
    QStringView code;
    QStringView alternative; ///< empty: Null
    QStringView description;
    QStringView family;
    double price; ///< euros
    bool service; ///< work or a maintenance contract, no goods
    bool obsolete;
};

struct Question
{
    Trade trade;
    QStringView subject; ///< up to 35 characters
    QStringView question;
    QStringView answer;
};

[[nodiscard]] std::span<const Company> companies() noexcept;
[[nodiscard]] std::span<const Zone> zones() noexcept;
[[nodiscard]] std::span<const ClientType> clientTypes() noexcept;
[[nodiscard]] std::span<const Family> families() noexcept;
[[nodiscard]] std::span<const Article> articles() noexcept;
[[nodiscard]] std::span<const Question> questions() noexcept;

/// The family of that code; the first one for a code that is none.
[[nodiscard]] const Family& familyOf(QStringView code) noexcept;

} // namespace tools
