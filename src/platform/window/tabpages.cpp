// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/tabpages.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/accessibleroles.h"
#include "platform/window/focusrules.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTabBar>

#include <utility>

namespace platform {

namespace {

/// How many pages on a key goes: 1, -1, or 0 for any other key.
int pagesOnBy(const QKeyEvent& event)
{
    if (!event.modifiers().testFlag(Qt::ControlModifier))
        return 0;
    switch (event.key()) {
    case Qt::Key_Tab:
        return event.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1;
    case Qt::Key_Backtab:
    case Qt::Key_PageUp:
        return -1;
    case Qt::Key_PageDown:
        return 1;
    default:
        return 0;
    }
}

bool takesTab(const QWidget* control)
{
    return (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && control->isEnabled() &&
           control->isVisible() && !control->focusProxy();
}

} // namespace

TabPages::TabPages(QWidget* parent)
    : QTabWidget(parent)
{
    provideAccessibleRoles();
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

void TabPages::keyPressEvent(QKeyEvent* event)
{
    const int step = pagesOnBy(*event);
    if (step != 0 && count() > 1)
        turnPage(step);
    else if (event->key() == Qt::Key_Down && tabBar()->hasFocus())
        enterPage();
    else
        event->ignore();
}

void TabPages::turnPage(int step)
{
    const bool fromInside = currentWidget()->isAncestorOf(QApplication::focusWidget());
    // The field that is left has its rule run while its page is still up, as at a click on a tab.
    if (fromInside)
        tabBar()->setFocus(Qt::TabFocusReason);
    setCurrentIndex((currentIndex() + step + count()) % count());
    if (fromInside && tabBar()->hasFocus())
        enterPage();
}

/// Gives the focus to the page's first control in the tab order. Without one it stays.
void TabPages::enterPage()
{
    const QWidget* page = currentWidget();
    QWidget* const start = window();
    for (QWidget* control = start->nextInFocusChain(); control != start;
         control = control->nextInFocusChain()) {
        if (page->isAncestorOf(control) && takesTab(control)) {
            control->setFocus(Qt::TabFocusReason);
            return;
        }
    }
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
