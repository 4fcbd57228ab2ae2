// SPDX-License-Identifier: GPL-3.0-or-later

// The company and the exercise of the run, and the bring-up of its stores.

#include "platform/core/regime.h"
#include "platform/dao/rowwalk.h"
#include "platform/system/paths.h"
#include "platform/text/textfunctions.h"
#include "shell/globalsat.h"
#include "shell/stmain.h"
#include "stores/bdarticul.h"
#include "stores/bdcliente.h"
#include "stores/consultas.h"
#include "stores/telefonos.h"
#include "stores/tipcli.h"
#include "stores/zone.h"

#include <array>

using namespace Qt::StringLiterals;
using platform::attempt;
using platform::holds;
using platform::Val;

namespace {

constexpr qsizetype kCompanyLength = 5;

// Close, create, open; the order of the stores is part of the design.
constexpr std::array kBringUp{
    &CERRARARTICULOS, &CREARARTICULOS, &ABRIRARTICULOS, //
    &CERRARCLIENTES,  &CREARCLIENTES,  &ABRIRCLIENTES,  //
    &CERRARZONAS,     &CREARZONAS,     &ABRIRZONAS,     //
    &CERRARTIPOS,     &CREARTIPOS,     &ABRIRTIPOS,     //
    &CERRARCONSULTAS, &CREARCONSULTAS, &ABRIRCONSULTAS, //
    &CERRARTELEFONOS, &CREARTELEFONOS, &ABRIRTELEFONOS,
};

/// Number, four blanks and name. A Null in either fails.
QString companyEntry()
{
    return asText(RSEMPRESAS[u"MENUMEMPRESA"].Value()) + u"    "_s + asText(RSEMPRESAS[u"MENOMBRE"].Value());
}

/// The number that the first five characters of a combo entry begin with.
double companyOfEntry(const QString& entry)
{
    return Val(platform::Left(entry, kCompanyLength));
}

} // namespace

void STMAIN::DEUNAEMPRESA()
{
    if (holds([&] { return m_companies->listCount() > 0; })) {
        for (CONTADOR = static_cast<std::int16_t>(m_companies->listCount() - 1); CONTADOR >= 0; --CONTADOR)
            attempt([&] { m_companies->removeItem(CONTADOR); });
    }
    attempt([] { RSEMPRESAS.MoveFirst(); });
    // Both flags are read, whatever the first one says: either may fail.
    const auto isEmpty = [] {
        const bool atEnd = RSEMPRESAS.EOF_();
        const bool atBeginning = RSEMPRESAS.BOF();
        return atEnd && atBeginning;
    };
    if (holds(isEmpty))
        return;
    attempt([] { RSEMPRESAS.MoveFirst(); });
    fillCompanies();
    if (holds([] { return Val(NUMEMPRESA) != 0; }))
        selectCompany();
    attempt([&] { m_companies->setEnabled(false); });
    attempt([&] { m_exercises->setEnabled(false); });
}

void STMAIN::fillCompanies()
{
    walkToEnd(RSEMPRESAS, [&] { attempt([&] { m_companies->addItem(companyEntry()); }); });
}

void STMAIN::selectCompany()
{
    const int entries = m_companies->listCount();
    for (int index = 0; index < entries; ++index) {
        attempt([&] { m_companies->setListIndex(index); });
        if (holds([&] { return companyOfEntry(m_companies->text()) == Val(NUMEMPRESA); }))
            return;
    }
}

void STMAIN::ABREEMPRESA()
{
    attempt([] {
        RUTAEMPRESA = platform::currentDirectory() + u"\\Empresa"_s + platform::Trim(NUMEMPRESA) + u'\\';
    });
    if (holds([&] { return companyOfEntry(m_companies->text()) != Val(NUMEMPRESA); })) {
        attempt([&] { EMPRESACOMBO = platform::Left(m_companies->text(), kCompanyLength); });
        attempt([&] { leelongi(); });
    }
    for (void (*const procedure)() : kBringUp)
        attempt([&] { procedure(); });
}
