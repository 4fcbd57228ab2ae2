// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/multilinebox.h"

#include "platform/window/focusrules.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace platform {

namespace {

const QString kLineEnd = QStringLiteral("\r\n");

QString withInnerLineEnds(QString text)
{
    text.replace(kLineEnd, QStringLiteral("\n"));
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

} // namespace

MultiLineBox::MultiLineBox(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

QString MultiLineBox::text() const
{
    return toPlainText().replace(QLatin1Char('\n'), kLineEnd);
}

void MultiLineBox::setText(const QString& newText)
{
    const QString inner = withInnerLineEnds(newText);
    if (inner != toPlainText())
        setPlainText(inner);
}

void MultiLineBox::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    if (focusRuleRuns(*event))
        Q_EMIT gotFocus();
}

void MultiLineBox::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (focusRuleRuns(*event))
        Q_EMIT lostFocus();
}

void MultiLineBox::keyPressEvent(QKeyEvent* event)
{
    Q_EMIT keyPressed(event->key());
    QPlainTextEdit::keyPressEvent(event);
}

} // namespace platform
