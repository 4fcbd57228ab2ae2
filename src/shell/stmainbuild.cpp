// SPDX-License-Identifier: GPL-3.0-or-later

// The controls of the main window that its form file cannot hold, and what all of them are connected to.

#include "platform/window/handlers.h"
#include "platform/window/icons.h"
#include "platform/window/spacing.h"
#include "shell/stmain.h"
#include "ui_stmain.h"

#include <QLabel>

using namespace Qt::StringLiterals;

void STMAIN::buildToolBar()
{
    ui->A001->setIcon(platform::icon(platform::Icon::Quit));
    ui->A002->setIcon(platform::icon(platform::Icon::Client));
    ui->resu->setIcon(platform::icon(platform::Icon::Report));
    ui->revi->setIcon(platform::icon(platform::Icon::Report));
    ui->BCLIENTES->setIcon(platform::icon(platform::Icon::Client));
    ui->POPUP->setIcon(platform::icon(platform::Icon::Message));
    ui->barrasup->addSeparator();
    m_companies = addCombo(u"Idioma"_s, u"Empresa:"_s, u"Selección de empresa"_s);
    ui->barrasup->addSeparator();
    m_exercises = addCombo(u"Ejercicio"_s, u"Ejercicio:"_s, u"Ejercicio en curso"_s);
}

platform::ComboList* STMAIN::addCombo(const QString& name, const QString& label, const QString& hint)
{
    auto* combo = new platform::ComboList(ui->barrasup);
    auto* caption = new QLabel(label, ui->barrasup);
    combo->setObjectName(name);
    combo->setToolTip(hint);
    combo->setAccessibleName(hint);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    caption->setBuddy(combo);
    caption->setContentsMargins(platform::kGap, 0, platform::kGap, 0);
    ui->barrasup->addWidget(caption);
    ui->barrasup->addWidget(combo);
    return combo;
}

void STMAIN::connectEvents()
{
    platform::handle(ui->A002, &QAction::triggered, this, [this] { A002_Click(); });
    platform::handle(ui->A001, &QAction::triggered, this, [this] { A001_Click(); });
    platform::handle(ui->resu, &QAction::triggered, this, [this] { resu_Click(); });
    platform::handle(ui->revi, &QAction::triggered, this, [this] { revi_Click(); });
    platform::handle(ui->barrasup, &QToolBar::actionTriggered, this,
                     [this](QAction* tool) { barrasup_Click(tool->objectName()); });
}
