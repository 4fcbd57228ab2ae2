// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The form-level view of keys: every key that goes down in a window is reported once, before the control with
// the focus gets it. Controls made later, such as cell editors, are covered.

#include <QObject>

class QWidget;

namespace platform {

class FormKeys : public QObject
{
    Q_OBJECT

public:
    /// Watches `form`, a window, and belongs to it.
    explicit FormKeys(QWidget* form);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// `key` is a Qt::Key. *eaten starts false; true keeps the key from the control.
    void keyDown(int key, bool* eaten);

private:
    void remember(const QObject* target, int key);

    QWidget* m_form;
    const QObject* m_target = nullptr; ///< control that the last key was meant for
    int m_key = 0;                     ///< the key going down; 0 once it is up again or the event loop turns
};

} // namespace platform
