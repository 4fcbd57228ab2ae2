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

    /// As high as the field that it stands beside, so that rows of fields keep their distances.
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void MouseMove();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void fitToFont();
};

} // namespace platform
