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
    if (event->type() == QEvent::KeyRelease)
        m_key = 0;
    if (event->type() != QEvent::KeyPress)
        return false;
    // A key that a control leaves goes on to its parents; only the first stop counts.
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget != QApplication::focusWidget() || widget->window() != m_form)
        return false;
    // A grid hands the key that opens a cell's editor on to that editor.
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == m_key && watched != m_target)
        return false;
    remember(watched, key);
    const QPointer<QObject> target = watched;
    bool eaten = false;
    Q_EMIT keyDown(key, &eaten);
    return eaten || !target;
}

void FormKeys::remember(const QObject* target, int key)
{
    m_target = target;
    m_key = key;
    QMetaObject::invokeMethod(
        this, [this] { m_key = 0; }, Qt::QueuedConnection);
}

} // namespace platform
