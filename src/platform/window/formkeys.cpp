// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/formkeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace platform {

FormKeys::FormKeys(QWidget* form)
    : QObject(form)
    , m_form(form)
{
    qApp->installEventFilter(this);
}

bool FormKeys::eventFilter(QObject* watched, QEvent* event)
{
    // Each key announces itself before it goes down.
    if (event->type() == QEvent::ShortcutOverride)
        m_seen = nullptr;
    if (event->type() != QEvent::KeyPress || event == m_seen)
        return false;
    // A key that a control leaves goes on to its parents; only the first stop counts.
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget != QApplication::focusWidget() || widget->window() != m_form)
        return false;
    m_seen = event;
    const QPointer<QObject> target = watched;
    bool eaten = false;
    Q_EMIT keyDown(static_cast<QKeyEvent*>(event)->key(), &eaten);
    return eaten || !target;
}

} // namespace platform
