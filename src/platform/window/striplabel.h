// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A label of a row of labels that turn pages, with a line below it: in the highlight's colour and bold for
// the one whose page is up.

#include "platform/window/imagelabel.h"

namespace platform {

class StripLabel : public ImageLabel
{
    Q_OBJECT
    Q_PROPERTY(bool up READ isUp WRITE setUp)

public:
    explicit StripLabel(QWidget* parent = nullptr);

    [[nodiscard]] bool isUp() const { return m_up; }
    void setUp(bool up);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_up = false;
};

} // namespace platform
