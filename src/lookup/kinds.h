// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The kinds of search of the lookup window as data: which list a kind opens with, what it asks when the user
// types a text, and what choosing a row does. The window was laid out for the whole suite, so most kinds name
// stores that this program doesn't have; their texts stand here for the day a store is connected.

#include <QString>
#include <QStringView>

namespace lookup {

enum class Store { None, Postal, Zones, Articles, Types, Representatives, Clients };

/// Recordsets that a choice may leave with another index.
enum class IndexTarget { None, Postal, Zones, Articles, Types, Representatives, Clients };

/// What the window's controls and the caller say about the list that is wanted.
struct Request
{
    double kind = 0;
    bool checked = false;      ///< `Check1`
    QString family;            ///< text of `Combo1`; only its first four characters count
    bool hideObsolete = false; ///< never set in this program
    QString clientType;        ///< never set in this program
};

/// The list that a kind opens with.
struct FullList
{
    QStringView caption; ///< with its two leading blanks
    Store store = Store::None;
    QString sql;
};

/// False for a kind without an initial list.
[[nodiscard]] bool hasFullList(double kind) noexcept;
/// The initial list; an empty text for a kind that has none.
[[nodiscard]] FullList fullList(const Request& request);

struct TypedSearch
{
    Store store = Store::None;
    QString sql; ///< empty for a kind that has none
};

/// The query for a text that the user typed, with the text inserted as it stands: whatever it breaks is
/// refused by the engine.
[[nodiscard]] TypedSearch typedSearch(const Request& request, const QString& text);

/// What choosing a row does.
struct Choice
{
    int kind = 0;
    bool reachesCaller = true; ///< false: the code goes to a variable of the window's own
    bool clearsFirst = true;
    QStringView index = {}; ///< empty: no index is set
    IndexTarget on = IndexTarget::None;
};

/// Null for a kind that chooses nothing. Borrowed, never freed.
[[nodiscard]] const Choice* choiceOf(double kind) noexcept;

/// Kinds 11 and 111, the articles.
[[nodiscard]] bool listsArticles(double kind) noexcept;
/// Kinds whose rows can be put in order of number with `Check1`.
[[nodiscard]] bool ordersByNumber(double kind) noexcept;

inline constexpr double kCompanies = 1;
inline constexpr double kWarehouses = 2;
inline constexpr double kArticles = 11;
inline constexpr double kArticlesToTick = 111;
inline constexpr double kClients = 20;

} // namespace lookup
