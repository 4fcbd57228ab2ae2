// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A side bar of commands in groups. It takes the focus at a click or a key before it reports the item, so the
// field that is left has its rule run first.

#include <QFrame>
#include <QIcon>

class QVBoxLayout;

namespace platform {

class ListBarItem;

class ListBar : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(bool altKeys READ hasAltKeys WRITE setAltKeys)

public:
    explicit ListBar(QWidget* parent = nullptr);

    /// Adds a group below the present ones.
    void addGroup(const QString& caption);
    /// Adds an item to the last group (made without a caption when there is none). The caption may hold a
    /// mnemonic. A key that is there already: Failure 35602.
    void addItem(const QString& key, const QString& caption, const QIcon& icon = {});
    [[nodiscard]] QStringList keys() const;
    /// Acts as a click of the user on an item: focus first, then ItemClick. Unknown key: Failure 35601.
    void activate(const QString& key);

    /// Whether Alt and an item's mnemonic work from anywhere in the window. Off where buttons of the window
    /// have the same letters; the letter alone works while the bar has the focus in any case. On at the
    /// start.
    [[nodiscard]] bool hasAltKeys() const { return m_altKeys; }
    void setAltKeys(bool on);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void ItemClick(const QString& key);
    void MouseMove();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void setCurrent(int index);
    [[nodiscard]] bool pressLetter(const QString& letter);
    void press(int index, Qt::FocusReason reason);

    QVBoxLayout* m_layout;
    QList<ListBarItem*> m_items;
    int m_current = 0;
    bool m_altKeys = true;
};

} // namespace platform
