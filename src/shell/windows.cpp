// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/windows.h"

#include "clients/climant.h"
#include "lookup/lisem.h"
#include "lookup/lisemwindow.h"
#include "platform/print/pe.h"
#include "reports/lista.h"

namespace shell {

namespace {

void showClimantModal(QWidget* parent)
{
    climant window(parent);
    window.showModal();
}

void showLisemModal(QWidget* parent)
{
    LISEM window(parent);
    window.showModal();
}

} // namespace

STMAINLinks windowLinks()
{
    return {.showClimantModal = &showClimantModal,
            .showLista = &reports::MuestraLISTA,
            .showListaModal = &reports::MuestraLISTAModal,
            .closePrintEngine = &PECloseEngine};
}

void installLookup()
{
    setMuestraLISEM(&showLisemModal);
}

} // namespace shell
