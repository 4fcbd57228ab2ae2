// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The editors that open in a grid's cell, one for each kind of column. Each gives the text to write.

#include "platform/window/flexcolumn.h"

#include <QComboBox>
#include <QLineEdit>

#include <optional>

namespace platform {

/// Drop-down of a list column. Where typing isn't allowed, a value that isn't an item stays until one is
/// picked.
class CellCombo : public QComboBox
{
    Q_OBJECT

public:
    CellCombo(const CellList& list, int maxLength, QWidget* parent);

    void setCellText(const QString& text);
    /// The text to write; none when nothing was picked or typed.
    [[nodiscard]] std::optional<QString> cellText() const;

    void showPopup() override;

Q_SIGNALS:
    /// The user picked an item in the drop-down. Letters and arrows choose without it and leave the editor
    /// open.
    void picked();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QString itemText(int index) const { return itemData(index).toString(); }

    bool m_droppedDown = false;
};

/// Line of typing, under the column's mask when it has one. `maxLength` 0 for no limit.
class CellLine : public QLineEdit
{
    Q_OBJECT

public:
    CellLine(const QString& mask, int maxLength, QWidget* parent);

    void setCellText(const QString& text);
    /// With a mask the text holds the separators and blanks, also when it was emptied.
    [[nodiscard]] std::optional<QString> cellText() const;

private:
    bool m_isMasked;
};

} // namespace platform
