// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/elplan.h"

#include "platform/core/regime.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"

#include <array>

using namespace Qt::StringLiterals;
using platform::After;
using platform::dao::Recordset;

namespace {

/// Every number is answered alike.
After goOn(int)
{
    return After::NextStatement;
}

template <typename Statement>
void step(Statement&& statement)
{
    static_cast<void>(platform::handled(goOn, std::forward<Statement>(statement)));
}

struct AccountColumn
{
    QStringView column;
    QString* value;
};

const std::array kAccountColumns{
    AccountColumn{u"numcuenta", &CUENTACODIGO},    AccountColumn{u"titulodelacuenta", &CUENTANOMBRE},
    AccountColumn{u"domicilio", &CUENTADIRECCION}, AccountColumn{u"CP", &CUENTACPOSTAL},
    AccountColumn{u"localidad", &CUENTALOCALIDAD}, AccountColumn{u"NIF", &CUENTANIF},
    AccountColumn{u"telefono", &CUENTATELEFONO},   AccountColumn{u"fax", &CUENTAFAX},
};

void addAccount(Recordset& accounts)
{
    step([&] { accounts.AddNew(); });
    for (const AccountColumn& pair : kAccountColumns)
        step([&] { accounts[pair.column].setValue(*pair.value); });
    step([&] { accounts.Update(); });
}

void blankFirstComma(QString& text)
{
    const qsizetype comma = platform::InStr(text, u",");
    if (comma > 0)
        text[comma - 1] = u' ';
}

} // namespace

QString accountLine()
{
    return CUENTACODIGO + u',' + CUENTANOMBRE + u",4300,0,0,5,A"_s + u',' + CUENTANIF + u',' +
           CUENTADIRECCION + u',' + CUENTALOCALIDAD + u",,,"_s + CUENTACPOSTAL + u",0"_s.repeated(32);
}

void ESCRIBIRCUENTA()
{
    // The two tables are the place to bind the suite's chart of accounts; nothing does so here.
    Recordset accounts;
    Recordset lines;

    if (platform::Trim(CUENTACODIGO).isEmpty())
        return;
    step([&] { accounts.setIndex(u"indcta"_s); });
    step([&] { accounts.Seek(u"=", CUENTACODIGO); });
    bool isMissing = true;
    step([&] { isMissing = accounts.NoMatch(); });
    if (!isMissing)
        return;
    addAccount(accounts);

    step([] { blankFirstComma(CUENTANOMBRE); });
    step([] { blankFirstComma(CUENTADIRECCION); });
    QString line;
    step([&] { line = accountLine(); });
    step([&] { lines.AddNew(); });
    step([&] { lines[0].setValue(line); });
    step([&] { lines.Update(); });
}
