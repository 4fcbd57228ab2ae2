// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/textbox.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/window/focusrules.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>

namespace platform {

namespace {

/// A box that takes more is for texts, which scroll in it.
constexpr int kLongestCode = 15;

} // namespace

TextBox::TextBox(QWidget* parent)
    : QLineEdit(parent)
{}

void TextBox::setText(const QString& newText)
{
    const QString cut = newText.left(maxLength());
    if (cut == text())
        return;
    QLineEdit::setText(cut);
    // A text longer than the box shows its beginning, as when the user opens the window.
    if (!hasFocus())
        setCursorPosition(0);
}

void TextBox::setTextAlignment(int alignment)
{
    if (alignment != kLeft && alignment != kRight)
        throw Failure(kInvalidPropertyValue, QStringLiteral("alignment %1").arg(alignment));
    m_textAlignment = alignment;
    setAlignment((alignment == kRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

int TextBox::selStart() const
{
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

void TextBox::setSelStart(int position)
{
    if (position < 0)
        throw Failure(kInvalidPropertyValue, QStringLiteral("position %1").arg(position));
    deselect();
    setCursorPosition(position);
}

QSize TextBox::minimumSizeHint() const
{
    // The base class makes room for one letter, the widest there is.
    const QSize oneLetter = QLineEdit::minimumSizeHint();
    if (maxLength() > kLongestCode)
        return oneLetter;
    const QFontMetrics metrics = fontMetrics();
    const int code = metrics.horizontalAdvance(QString(maxLength(), QLatin1Char('0')));
    return {oneLetter.width() + std::max(0, code - metrics.maxWidth()), oneLetter.height()};
}

void TextBox::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (focusRuleRuns(*event))
        Q_EMIT gotFocus();
}

void TextBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (focusRuleRuns(*event))
        Q_EMIT lostFocus();
}

void TextBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    QLineEdit::mouseDoubleClickEvent(event);
    Q_EMIT doubleClicked();
}

void TextBox::keyPressEvent(QKeyEvent* event)
{
    Q_EMIT keyPressed(event->key());
    QLineEdit::keyPressEvent(event);
}

} // namespace platform
