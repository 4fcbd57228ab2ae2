// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/tabpages.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/focusrules.h"

#include <QMouseEvent>
#include <QTabBar>

#include <utility>

namespace platform {

TabPages::TabPages(QWidget* parent)
    : QTabWidget(parent)
{
    setTabStop(true);
    setMouseTracking(true);
    connect(this, &QTabWidget::currentChanged, this, &TabPages::reportPage);
}

void TabPages::setTab(int tab)
{
    if (tab < 0 || tab >= count())
        throw Failure(kInvalidPropertyValue, QStringLiteral("no page %1").arg(tab));
    // Qt moves the focus off a page that goes down; nobody asked for that move.
    const QuietFocus quiet;
    setCurrentIndex(tab);
}

void TabPages::setTabStop(bool stop)
{
    m_tabStop = stop;
    tabBar()->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
}

void TabPages::showEvent(QShowEvent* event)
{
    // The row of tabs is what takes the focus, so it bears the name.
    tabBar()->setAccessibleName(accessibleName());
    QTabWidget::showEvent(event);
}

void TabPages::mouseMoveEvent(QMouseEvent* event)
{
    QTabWidget::mouseMoveEvent(event);
    Q_EMIT MouseMove();
}

void TabPages::reportPage(int tab)
{
    const int previous = std::exchange(m_previousTab, tab);
    if (tab >= 0 && previous >= 0)
        Q_EMIT click(previous);
}

} // namespace platform
