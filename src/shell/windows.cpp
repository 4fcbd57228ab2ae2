// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/windows.h"

#include "clients/climant.h"
#include "lookup/lisem.h"
#include "lookup/lisemwindow.h"
#include "platform/print/pe.h"
#include "reports/lista.h"

#include <QPointer>

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

/// The report window that is up, or a new one. There is never more than one.
reports::LISTA* reportWindow(QWidget* parent)
{
    static QPointer<reports::LISTA> current;
    if (!current) {
        auto* window = new reports::LISTA(parent);
        QObject::connect(window, &platform::Form::unloaded, window, [window] {
            current.clear();
            window->deleteLater();
        });
        current = window;
    }
    return current;
}

void showLista(QWidget* parent)
{
    reportWindow(parent)->showModeless();
}

/// Fails with 400 where the window is up already, which then comes to the front.
void showListaModal(QWidget* parent)
{
    reports::LISTA* window = reportWindow(parent);
    if (window->isVisible()) {
        window->raise();
        window->activateWindow();
    }
    window->showModal();
}

} // namespace

STMAINLinks windowLinks()
{
    return {.showClimantModal = &showClimantModal,
            .showLista = &showLista,
            .showListaModal = &showListaModal,
            .closePrintEngine = &PECloseEngine};
}

void installLookup()
{
    setMuestraLISEM(&showLisemModal);
}

} // namespace shell
