// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A text box of one line. Its text may be set while it is disabled.

#include <QLineEdit>

namespace platform {

class TextBox : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(int textAlignment READ textAlignment WRITE setTextAlignment)

public:
    static constexpr int kLeft = 0;
    static constexpr int kRight = 1;

    explicit TextBox(QWidget* parent = nullptr);

    /// Changes the text, cut at the input limit, and raises textChanged at once; nothing happens when the cut
    /// text is the one that stands.
    void setText(const QString& text);

    /// 0 left, 1 right; anything else: Failure 380.
    [[nodiscard]] int textAlignment() const { return m_textAlignment; }
    void setTextAlignment(int alignment);

    /// Position of the cursor; setting it drops the selection. Below 0: Failure 380; past the end: the end.
    [[nodiscard]] int selStart() const;
    void setSelStart(int position);

    /// A box that takes a code is never narrower than the code.
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The focus came or went by the user's or the program's doing (see `focusrules.h`).
    void gotFocus();
    void lostFocus();
    void doubleClicked();
    /// A key (Qt::Key) went down, before the box acts on it.
    void keyPressed(int key);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int m_textAlignment = kLeft;
};

} // namespace platform
