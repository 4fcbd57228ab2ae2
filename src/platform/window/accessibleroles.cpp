// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/accessibleroles.h"

#include "platform/window/listbar.h"
#include "platform/window/tabpages.h"

#include <QAccessibleWidget>

namespace platform {

namespace {

QAccessibleInterface* makeWithRole(const QString&, QObject* object)
{
    if (auto* bar = qobject_cast<ListBar*>(object))
        return new QAccessibleWidget(bar, QAccessible::ToolBar);
    if (auto* pages = qobject_cast<TabPages*>(object))
        return new QAccessibleWidget(pages, QAccessible::Grouping);
    return nullptr;
}

} // namespace

void provideAccessibleRoles()
{
    QAccessible::installFactory(&makeWithRole);
}

} // namespace platform
