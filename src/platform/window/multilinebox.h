// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A text box of several lines. Its text has CR LF line ends at this seam, whatever is inside; Tab moves on.

#include <QPlainTextEdit>

namespace platform {

class MultiLineBox : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MultiLineBox(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;
    /// Takes CR LF, LF and CR alike. Raises textChanged only when the text differs.
    void setText(const QString& text);

Q_SIGNALS:
    void gotFocus();
    void lostFocus();
    void keyPressed(int key);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace platform
