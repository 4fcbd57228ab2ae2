// SPDX-License-Identifier: GPL-3.0-or-later

// The company's number lengths, read from a table that this program never binds, and a per-user file that it
// therefore never writes.

#include "platform/core/failurenumbers.h"
#include "platform/core/regime.h"
#include "platform/system/paths.h"
#include "platform/system/randomfile.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"

#include <array>

using namespace Qt::StringLiterals;
using platform::After;
using platform::dao::Recordset;

namespace {

/// Every number, 94 and 96 among them, is answered alike.
After goOn(int)
{
    return After::NextStatement;
}

template <typename Statement>
void step(Statement&& statement)
{
    static_cast<void>(platform::handled(goOn, std::forward<Statement>(statement)));
}

/// The record variable: nothing gives it a layout, so that each of its members fails and its length is 0.
class UnboundRecord
{
public:
    void setMember(QStringView, const QString&) { throw platform::Failure(platform::kObjectNotSet); }
    [[nodiscard]] QByteArray bytes() const { return {}; }
};

constexpr std::size_t kLengths = 8;

struct LengthColumn
{
    QStringView compared;
    QStringView kept;
};

// The last one compares the column before it, and stays so.
constexpr std::array<LengthColumn, kLengths> kLengthColumns{{
    {u"MENUMDIG", u"MENUMDIG"},
    {u"MENUMDIG2", u"MENUMDIG2"},
    {u"MENUMDIG3", u"MENUMDIG3"},
    {u"MENUMDIG4", u"MENUMDIG4"},
    {u"MENUMDIG5", u"MENUMDIG5"},
    {u"MENUMDIG6", u"MENUMDIG6"},
    {u"MENUMDIG7", u"MENUMDIG7"},
    {u"MENUMDIG7", u"MENUMDIG8"},
}};

double lengthIn(const Recordset& companies, QStringView column)
{
    return platform::Val(asText(companies[column].Value()));
}

/// Keeps each column whose number tops all before it. Nothing uses what is kept.
void readLengths(const Recordset& companies)
{
    std::array<double, kLengths> lengths{};
    double greatest = 0;
    for (std::size_t slot = 0; slot < kLengths; ++slot) {
        const LengthColumn& column = kLengthColumns.at(slot);
        bool isGreater = true;
        step([&] {
            isGreater = !isNull(companies[column.compared].Value()) &&
                        lengthIn(companies, column.compared) > greatest;
        });
        if (!isGreater)
            continue;
        step([&] { greatest = lengthIn(companies, column.compared); });
        step([&] { lengths.at(slot) = lengthIn(companies, column.kept); });
    }
}

void writeUserRecord(const QString& company, const QString& name)
{
    UnboundRecord record;
    platform::RandomFile file;
    if (platform::Val(company) > 0) {
        step([&] {
            file.open(platform::currentDirectory() + u"\\cb-"_s + USUARIO + u".MDB"_s, record.bytes().size());
        });
    }
    step([&] { record.setMember(u"ACTIVA", company); });
    step([&] { record.setMember(u"NOEMPR", name); });
    step([&] { record.setMember(u"CIVIL", platform::LTrim(QString())); });
    step([&] { file.lock(1); });
    step([&] { file.put(1, record.bytes()); });
    step([&] { file.unlock(1); });
    step([&] { file.close(); });
}

} // namespace

void STMAIN::leelongi()
{
    Recordset companies;
    QString name;

    companies.setIndex(u"INDMENUM"_s);

    step([&] { companies.Seek(u"=", EMPRESACOMBO); });
    bool isMissing = true;
    step([&] { isMissing = companies.NoMatch(); });
    if (!isMissing) {
        step([&] { name = asText(companies[u"MENOMBRE"].Value()); });
        readLengths(companies);
    }
    writeUserRecord(EMPRESACOMBO, name);
}
