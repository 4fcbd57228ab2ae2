// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A small picture, a magnifier unless told otherwise, that acts as a button. It takes the focus at a click,
// before it reports it through clicked(); blank and Enter click it too.

#include <QToolButton>

namespace platform {

class PictureBox : public QToolButton
{
    Q_OBJECT

public:
    explicit PictureBox(QWidget* parent = nullptr);

Q_SIGNALS:
    void MouseMove();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
};

} // namespace platform
