// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A picture or a caption that can be clicked and tells when the mouse moves over it. It never takes the
// focus.

#include <QLabel>

namespace platform {

class ImageLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ImageLabel(QWidget* parent = nullptr);

Q_SIGNALS:
    void clicked();
    void MouseMove();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    bool m_pressed = false;
};

} // namespace platform
