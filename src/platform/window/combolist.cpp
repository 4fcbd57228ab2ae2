// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/combolist.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/focusrules.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace platform {

ComboList::ComboList(QWidget* parent)
    : QComboBox(parent)
{
    // With a placeholder Qt doesn't select the first entry by itself.
    setPlaceholderText(QStringLiteral(" "));
    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0)
            Q_EMIT click();
    });
}

void ComboList::addItem(const QString& text)
{
    const QSignalBlocker blocker(this);
    QComboBox::addItem(text);
}

void ComboList::removeItem(int index)
{
    if (index < 0 || index >= count())
        throw Failure(kInvalidProcedureCall, QStringLiteral("no entry %1").arg(index));
    const QSignalBlocker blocker(this);
    const bool removesSelected = index == currentIndex();
    QComboBox::removeItem(index);
    if (removesSelected)
        setCurrentIndex(-1);
    update();
}

void ComboList::clear()
{
    const QSignalBlocker blocker(this);
    QComboBox::clear();
    update();
}

QString ComboList::list(int index) const
{
    if (index < 0 || index >= count())
        throw Failure(kInvalidPropertyIndex, QStringLiteral("no entry %1").arg(index));
    return itemText(index);
}

void ComboList::setListIndex(int index)
{
    if (index < 0 || index >= count())
        throw Failure(kInvalidPropertyValue, QStringLiteral("no entry %1").arg(index));
    setCurrentIndex(index);
}

void ComboList::focusInEvent(QFocusEvent* event)
{
    QComboBox::focusInEvent(event);
    if (focusRuleRuns(*event))
        Q_EMIT gotFocus();
}

void ComboList::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    if (focusRuleRuns(*event))
        Q_EMIT lostFocus();
}

void ComboList::wheelEvent(QWheelEvent* event)
{
    // A wheel turned over a list that the user isn't working in must not change a record.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void ComboList::showEvent(QShowEvent* event)
{
    // The list that drops down takes the focus, so it bears the name too.
    view()->setAccessibleName(accessibleName());
    QComboBox::showEvent(event);
}

} // namespace platform
