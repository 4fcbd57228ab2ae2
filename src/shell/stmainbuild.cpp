// SPDX-License-Identifier: GPL-3.0-or-later

// The controls of the main window and what they are connected to.

#include "platform/core/regime.h"
#include "platform/window/handlers.h"
#include "platform/window/icons.h"
#include "shell/stmain.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

void addEntry(QMenu* menu, const QString& name, const QString& text)
{
    QAction* entry = menu->addAction(text);
    entry->setObjectName(name);
}

} // namespace

void STMAIN::buildMenus()
{
    QMenu* file = menuBar()->addMenu(u"&Archivo"_s);
    file->setObjectName(u"A1"_s);
    addEntry(file, u"A002"_s, u"&Fichas de Clientes"_s);
    file->addSeparator()->setObjectName(u"rl1"_s);
    addEntry(file, u"A001"_s, u"&Salir"_s);

    QMenu* reports = menuBar()->addMenu(u"&Listados"_s);
    reports->setObjectName(u"Listadomenu"_s);
    addEntry(reports, u"resu"_s, u"Resumen Gestión Sat"_s);
    addEntry(reports, u"revi"_s, u"Albaranes de Revisión"_s);
}

void STMAIN::buildToolBar()
{
    m_barrasup = addToolBar(u"Herramientas"_s);
    m_barrasup->setObjectName(u"barrasup"_s);
    m_barrasup->setMovable(false);
    m_barrasup->setContextMenuPolicy(Qt::PreventContextMenu);
    m_barrasup->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addTool(u"BCLIENTES"_s, u"&Fichas de clientes"_s, u"Clientes"_s, platform::icon(platform::Icon::Client));
    m_barrasup->addSeparator();
    addTool(u"POPUP"_s, u"&Mensajería Interna"_s, u"&Winpopup"_s, platform::icon(platform::Icon::Message));
    m_barrasup->addSeparator();
    m_companies = addCombo(u"Idioma"_s, u"Empresa:"_s, u"Selección de empresa"_s);
    m_barrasup->addSeparator();
    m_exercises = addCombo(u"Ejercicio"_s, u"Ejercicio:"_s, u"&Ejercicio en curso"_s);
}

void STMAIN::addTool(const QString& name, const QString& text, const QString& hint, const QIcon& icon)
{
    QAction* tool = m_barrasup->addAction(icon, text);
    tool->setObjectName(name);
    tool->setToolTip(QString(hint).remove(u'&'));
}

platform::ComboList* STMAIN::addCombo(const QString& name, const QString& label, const QString& hint)
{
    auto* combo = new platform::ComboList(m_barrasup);
    auto* caption = new QLabel(label, m_barrasup);
    combo->setObjectName(name);
    combo->setToolTip(QString(hint).remove(u'&'));
    combo->setAccessibleName(QString(label).remove(u':'));
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    caption->setBuddy(combo);
    caption->setContentsMargins(6, 0, 6, 0);
    m_barrasup->addWidget(caption);
    m_barrasup->addWidget(combo);
    return combo;
}

void STMAIN::connectEvents()
{
    const auto onEntry = [this](const QString& name, void (STMAIN::*clicked)()) {
        platform::handle(findChild<QAction*>(name), &QAction::triggered, this,
                         [this, clicked] { (this->*clicked)(); });
    };
    onEntry(u"A002"_s, &STMAIN::A002_Click);
    onEntry(u"A001"_s, &STMAIN::A001_Click);
    onEntry(u"resu"_s, &STMAIN::resu_Click);
    onEntry(u"revi"_s, &STMAIN::revi_Click);
    platform::handle(m_barrasup, &QToolBar::actionTriggered, this,
                     [this](QAction* tool) { barrasup_Click(tool->objectName()); });
}
