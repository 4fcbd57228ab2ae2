// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/listbar.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/accessibleroles.h"
#include "platform/window/listbaritem.h"
#include "platform/window/spacing.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace platform {

namespace {

/// A bar with short captions is as wide as this, in letters.
constexpr int kLeastLetters = 16;

} // namespace

ListBar::ListBar(QWidget* parent)
    : QFrame(parent)
    , m_layout(new QVBoxLayout(this))
{
    provideAccessibleRoles();
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    m_layout->setContentsMargins(kTight, kTight, kTight, kTight);
    m_layout->setSpacing(kTight);
    m_layout->addStretch();
}

void ListBar::addGroup(const QString& caption)
{
    auto* label = new QLabel(caption, this);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setContentsMargins(kTight, kTight, kTight, kTight);
    label->setAutoFillBackground(true);
    label->setBackgroundRole(QPalette::Button);
    m_layout->insertWidget(m_layout->count() - 1, label);
}

void ListBar::addItem(const QString& key, const QString& caption, const QIcon& icon)
{
    if (keys().contains(key))
        throw Failure(kTreeKeyNotUnique, key);
    auto* item = new ListBarItem(key, caption, icon, this);
    item->setAltKey(m_altKeys);
    item->installEventFilter(this);
    m_layout->insertWidget(m_layout->count() - 1, item);
    m_items.append(item);
    connect(item, &QToolButton::clicked, this,
            [this, item] { press(int(m_items.indexOf(item)), Qt::MouseFocusReason); });
    connect(item, &ListBarItem::altKeyPressed, this,
            [this, item] { press(int(m_items.indexOf(item)), Qt::ShortcutFocusReason); });
}

QStringList ListBar::keys() const
{
    QStringList result;
    for (const ListBarItem* item : m_items)
        result.append(item->key());
    return result;
}

void ListBar::activate(const QString& key)
{
    const qsizetype index = keys().indexOf(key);
    if (index < 0)
        throw Failure(kTreeNoSuchKey, key);
    press(int(index), Qt::OtherFocusReason);
}

void ListBar::setAltKeys(bool on)
{
    m_altKeys = on;
    for (ListBarItem* item : m_items)
        item->setAltKey(on);
}

QSize ListBar::sizeHint() const
{
    return QFrame::sizeHint().expandedTo(QSize(fontMetrics().averageCharWidth() * kLeastLetters, 0));
}

bool ListBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseMove)
        Q_EMIT MouseMove();
    return QFrame::eventFilter(watched, event);
}

void ListBar::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    switch (event->key()) {
    case Qt::Key_Up:
        setCurrent(m_current - 1);
        return;
    case Qt::Key_Down:
        setCurrent(m_current + 1);
        return;
    case Qt::Key_Home:
        setCurrent(0);
        return;
    case Qt::Key_End:
        setCurrent(int(m_items.size()) - 1);
        return;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        press(m_current, Qt::OtherFocusReason);
        return;
    default:
        if (!plain || !pressLetter(event->text().toUpper()))
            event->ignore();
    }
}

void ListBar::focusInEvent(QFocusEvent* event)
{
    QFrame::focusInEvent(event);
    setCurrent(m_current);
}

void ListBar::focusOutEvent(QFocusEvent* event)
{
    QFrame::focusOutEvent(event);
    for (ListBarItem* item : m_items)
        item->setCurrent(false);
}

void ListBar::mouseMoveEvent(QMouseEvent* event)
{
    QFrame::mouseMoveEvent(event);
    Q_EMIT MouseMove();
}

void ListBar::setCurrent(int index)
{
    if (m_items.isEmpty())
        return;
    m_current = std::clamp(index, 0, int(m_items.size()) - 1);
    for (int i = 0; i < int(m_items.size()); ++i)
        m_items.at(i)->setCurrent(i == m_current && hasFocus());
    QAccessibleEvent focused(m_items.at(m_current), QAccessible::Focus);
    QAccessible::updateAccessibility(&focused);
}

bool ListBar::pressLetter(const QString& letter)
{
    for (int i = 0; i < int(m_items.size()) && !letter.isEmpty(); ++i) {
        if (m_items.at(i)->mnemonic() == letter) {
            press(i, Qt::OtherFocusReason);
            return true;
        }
    }
    return false;
}

void ListBar::press(int index, Qt::FocusReason reason)
{
    if (index < 0 || index >= int(m_items.size()))
        return;
    if (!hasFocus())
        setFocus(reason);
    setCurrent(index);
    Q_EMIT ItemClick(QString(m_items.at(index)->key()));
}

} // namespace platform
