// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/listbaritem.h"

#include "platform/window/spacing.h"

#include <QPainter>
#include <QShortcutEvent>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace platform {

ListBarItem::ListBarItem(QString key, const QString& caption, const QIcon& icon, QWidget* parent)
    : QToolButton(parent)
    , m_key(std::move(key))
{
    setText(caption);
    setIcon(icon);
    setIconSize(QSize(kBarPicture, kBarPicture));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    QString plain = caption;
    setAccessibleName(plain.remove(QLatin1Char('&')));
}

QString ListBarItem::mnemonic() const
{
    const qsizetype mark = text().indexOf(QLatin1Char('&'));
    return mark < 0 ? QString() : text().mid(mark + 1, 1).toUpper();
}

void ListBarItem::setAltKey(bool on)
{
    setShortcut(on ? QKeySequence::mnemonic(text()) : QKeySequence());
}

void ListBarItem::setCurrent(bool current)
{
    if (m_current == current)
        return;
    m_current = current;
    update();
}

bool ListBarItem::event(QEvent* event)
{
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
        return QToolButton::event(event);
    Q_EMIT altKeyPressed();
    return true;
}

void ListBarItem::paintEvent(QPaintEvent* event)
{
    QToolButton::paintEvent(event);
    if (!m_current)
        return;
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = rect().adjusted(2, 2, -2, -2);
    option.state |= QStyle::State_KeyboardFocusChange;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

} // namespace platform
