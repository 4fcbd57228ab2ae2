// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A drop-down list without typing. Entries are counted from 0; -1 says that none is selected.

#include <QComboBox>

namespace platform {

class ComboList : public QComboBox
{
    Q_OBJECT

public:
    explicit ComboList(QWidget* parent = nullptr);

    /// Adds at the end; the selection stays as it is.
    void addItem(const QString& text);
    /// Removes an entry; outside 0..listCount-1: Failure 5. Removing the selected one leaves none selected;
    /// the selection stays on its entry otherwise. Raises no click.
    void removeItem(int index);
    /// Removes all; none selected. Raises no click.
    void clear();

    [[nodiscard]] int listCount() const { return count(); }
    /// Text of an entry; outside: Failure 381.
    [[nodiscard]] QString list(int index) const;
    /// Text of the selected entry, "" without one.
    [[nodiscard]] QString text() const { return currentText(); }

    [[nodiscard]] int listIndex() const { return currentIndex(); }
    /// Selects an entry and raises click, unless it is selected already. Outside, and for -1: Failure 380 and
    /// the selection stays.
    void setListIndex(int index);

    /// Lines that the drop-down shows.
    void setDropDownLines(int lines) { setMaxVisibleItems(lines); }

Q_SIGNALS:
    /// The selection moved to another entry, by the user or by code.
    void click();
    void gotFocus();
    void lostFocus();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

} // namespace platform
