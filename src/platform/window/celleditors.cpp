// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/celleditors.h"

#include "platform/window/spacing.h"

#include <QAbstractItemView>

#include <utility>

namespace platform {

CellCombo::CellCombo(const CellList& list, int maxLength, QWidget* parent)
    : QComboBox(parent)
{
    setFrame(false);
    setPlaceholderText(QStringLiteral(" "));
    for (const CellListItem& item : list.items)
        addItem(item.displayText, item.cellText);
    setCurrentIndex(-1);
    setEditable(list.allowsTyping);
    if (list.allowsTyping) {
        setInsertPolicy(QComboBox::NoInsert);
        if (maxLength > 0)
            lineEdit()->setMaxLength(maxLength);
    }
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (isEditable())
            setEditText(itemText(index));
        if (std::exchange(m_droppedDown, false))
            Q_EMIT picked();
    });
}

void CellCombo::setCellText(const QString& text)
{
    setCurrentIndex(findData(text));
    if (isEditable())
        setEditText(text);
    else if (currentIndex() < 0)
        setPlaceholderText(text.isEmpty() ? QStringLiteral(" ") : text);
}

std::optional<QString> CellCombo::cellText() const
{
    if (isEditable())
        return currentText();
    if (currentIndex() < 0)
        return std::nullopt;
    return itemText(currentIndex());
}

void CellCombo::showPopup()
{
    // The cell may be far narrower than the texts of its list.
    view()->setAccessibleName(accessibleName());
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
                            kCellInset);
    m_droppedDown = true;
    QComboBox::showPopup();
}

void CellCombo::keyPressEvent(QKeyEvent* event)
{
    // The open drop-down has keys of its own.
    m_droppedDown = false;
    QComboBox::keyPressEvent(event);
}

CellLine::CellLine(const QString& mask, int maxLength, QWidget* parent)
    : QLineEdit(parent)
    , m_isMasked(!mask.isEmpty())
{
    setFrame(false);
    if (m_isMasked)
        setInputMask(inputMaskFor(mask));
    else if (maxLength > 0)
        setMaxLength(maxLength);
}

void CellLine::setCellText(const QString& text)
{
    setText(text);
    // Filling the box isn't an edit.
    setModified(false);
}

std::optional<QString> CellLine::cellText() const
{
    if (!isModified())
        return std::nullopt;
    return m_isMasked ? displayText() : text();
}

} // namespace platform
