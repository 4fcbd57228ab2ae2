// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/hostiletexts.h"

using namespace Qt::StringLiterals;

namespace lookuptest {

namespace {

constexpr int kLongest = 10'000;

} // namespace

HostileTexts::HostileTexts(quint32 seed, QStringList names)
    : m_dice(seed)
    , m_names(std::move(names))
{}

QString HostileTexts::next()
{
    QString text;
    switch (dice(16)) {
    case 0:
    case 1:
    case 2:
    case 3:
        text = closingCondition();
        break;
    case 4:
    case 5:
        text = secondStatement();
        break;
    case 6:
    case 7:
    case 8:
        text = otherTable();
        break;
    case 9:
        text = anyUnits();
        break;
    case 10:
        text = longText();
        break;
    default:
        text = soup();
    }
    if (dice(4) == 0)
        text = damaged(text);
    return text.left(kLongest);
}

QString HostileTexts::oneOf(std::initializer_list<QStringView> pieces)
{
    return (pieces.begin() + dice(static_cast<int>(pieces.size())))->toString();
}

QString HostileTexts::name()
{
    const QString plain = m_names.at(dice(static_cast<int>(m_names.size())));
    return dice(4) == 0 ? u'[' + plain + u']' : plain;
}

QString HostileTexts::literal()
{
    return oneOf({u"''", u"'a'", u"'*'", u"'*o*'", u"'[a-m]*'", u"'O''Neil'", u"\"a\"", u"0", u"1", u"-1.5",
                  u"1e308", u"99999999999999999999", u"Null", u"#1/1/2020#", u"'ñ'"});
}

/// A condition that the query language may take or not.
QString HostileTexts::condition(int depth)
{
    if (depth == 0)
        return name() + oneOf({u" = ", u" <> ", u" < ", u">", u" >= ", u" LIKE ", u" NOT LIKE "}) + literal();
    switch (dice(9)) {
    case 0:
        return u"NOT "_s + condition(depth - 1);
    case 1:
        return u'(' + condition(depth - 1) + u')';
    case 2:
        return name() + oneOf({u" IS NULL", u" IS NOT NULL", u" IN ('a','b')", u" BETWEEN 1 AND 2"});
    case 3:
        return oneOf({u"ISNULL(", u"int(", u"load_extension(", u"Shell(", u"length(", u"DLookup("}) + name() +
               u')';
    case 4:
        return u"EXISTS (SELECT "_s + name() + u" FROM "_s + name() + u')';
    case 5:
        return literal() + oneOf({u" + ", u" & ", u" * ", u" / ", u" || "}) + name() + u" = "_s + literal();
    default:
        return condition(depth - 1) + oneOf({u" AND ", u" OR ", u" XOR "}) + condition(depth - 1);
    }
}

/// One piece of anything.
QString HostileTexts::piece()
{
    switch (dice(5)) {
    case 0:
        return oneOf({u"'",       u"''",        u"\"",  u"`", u"*",    u"?",  u"#", u"[",
                      u"]",       u"[!a-z]",    u"[a-", u"%", u"_",    u"\\", u";", u"--",
                      u"/*",      u"*/",        u"(",   u")", u",",    u"=",  u"|", u"&",
                      u"<texto>", u"<familia>", u"{",   u"}", u"0x41", u" ",  u"  "});
    case 1:
        return oneOf({u" OR ",         u" AND ",   u" NOT ",      u" LIKE ",       u" UNION ALL SELECT ",
                      u" FROM ",       u" WHERE ", u" ORDER BY ", u" GROUP BY ",   u" HAVING ",
                      u" IN ",         u"SELECT ", u" INTO ",     u"DELETE FROM ", u"DROP TABLE ",
                      u"DROP INDEX ",  u"UPDATE ", u" SET ",      u"INSERT INTO ", u" VALUES (",
                      u"ALTER TABLE ", u"ATTACH ", u"PRAGMA ",    u"VACUUM",       u" LIMIT 1",
                      u" INNER JOIN ", u" DESC"});
    case 2:
        return name();
    case 3:
        return oneOf({u"Привет", u"漢字", u"العربية", u"ελληνικά", u"ñandú", u"ŀŁ", u"ß", u"İı",
                      u"😀👩‍🔧", u"\u202Eabc", u"e\u0301", u"\uFEFF", u"\u200B", u"\u2028",
                      u"Zalgo\u0336\u0335"});
    default:
        return oneOf({u"a", u"o", u"Zona", u"ar", u"tip", u"0000", u"O'Neil", u"ll", u"ch"});
    }
}

QString HostileTexts::soup()
{
    QString text;
    for (int left = 1 + dice(12); left > 0; --left)
        text += piece();
    return text;
}

/// Closes the pattern, adds a condition and opens a pattern again, so that the whole may well be a query.
QString HostileTexts::closingCondition()
{
    return piece() + u"*'"_s + oneOf({u" OR ", u" AND "}) + condition(dice(4)) + oneOf({u" OR ", u" AND "}) +
           name() + u" LIKE '*"_s;
}

QString HostileTexts::secondStatement()
{
    const QString statement = oneOf({u"DELETE FROM ", u"DROP TABLE ", u"UPDATE ", u"INSERT INTO ",
                                     u"ALTER TABLE ", u"CREATE TABLE ", u"ATTACH ", u"PRAGMA ", u"REINDEX ",
                                     u"VACUUM INTO ", u"DROP INDEX ", u"SELECT * INTO "});
    return u"x*'"_s + oneOf({u"; ", u";", u" ; ", u"\n", u" "}) + statement + name() +
           oneOf({u"", u" SET CliNombre = 'x'", u" VALUES ('x')", u" DROP COLUMN CliNombre",
                  u" ON CLIENTESTABLA", u" WHERE 1=1"}) +
           oneOf({u"; --", u"", u" --", u" /*", u"; SELECT '"});
}

QString HostileTexts::otherTable()
{
    const QString from =
        u" FROM "_s + name() + oneOf({u"", u" IN '"}) + (dice(2) == 0 ? name() + u'\'' : u""_s);
    return oneOf({u"x*'", u"*'", u"'"}) +
           oneOf({u" UNION SELECT ", u" UNION ALL SELECT ", u" OR CLINOMBRE IN (SELECT ",
                  u" AND 1 = (SELECT COUNT(*) ", u" INNER JOIN ", u", "}) +
           name() + u", "_s + name() + u", "_s + name() + from +
           oneOf({u" WHERE 'a' LIKE '*", u")", u") OR 'a' LIKE '*", u"", u" ORDER BY 1 --"});
}

/// Any units at all: controls, halves of surrogate pairs, signs that no font has.
QString HostileTexts::anyUnits()
{
    QString text;
    for (int left = 1 + dice(40); left > 0; --left)
        text += QChar(dice(3) == 0 ? dice(0x20) : dice(0x10000));
    return text;
}

QString HostileTexts::longText()
{
    const QString unit = dice(2) == 0 ? piece() : soup();
    const int wanted = 1 + dice(kLongest);
    return (dice(2) == 0 ? u"x*' OR "_s : u""_s) + unit.repeated(1 + wanted / std::max(1, int(unit.size())));
}

/// The text with some of it taken out, doubled or put elsewhere.
QString HostileTexts::damaged(QString text)
{
    for (int times = 1 + dice(3); times > 0 && !text.isEmpty(); --times) {
        const int at = dice(static_cast<int>(text.size()));
        const int length = 1 + dice(8);
        const QString part = text.mid(at, length);
        if (dice(2) == 0)
            text.remove(at, length);
        text.insert(dice(static_cast<int>(text.size()) + 1), dice(3) == 0 ? piece() : part);
    }
    return text;
}

} // namespace lookuptest
