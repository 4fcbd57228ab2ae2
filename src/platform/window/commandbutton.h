// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A push button that takes the focus before it reports a click, by its mnemonic too, and that Enter presses
// only while it has the focus.

#include <QPushButton>

namespace platform {

class CommandButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CommandButton(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace platform
