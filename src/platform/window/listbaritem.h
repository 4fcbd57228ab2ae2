// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// One command of a side bar. The bar holds the focus for all its items.

#include <QToolButton>

namespace platform {

class ListBarItem : public QToolButton
{
    Q_OBJECT

public:
    ListBarItem(QString key, const QString& caption, const QIcon& icon, QWidget* parent);

    [[nodiscard]] const QString& key() const { return m_key; }
    /// The letter after "&", upper case; "" without one.
    [[nodiscard]] QString mnemonic() const;
    void setAltKey(bool on);
    /// Shows the item as the one that the keys act on.
    void setCurrent(bool current);

Q_SIGNALS:
    /// Pressed by its Alt key.
    void altKeyPressed();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_key;
    bool m_current = false;
};

} // namespace platform
