// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A tab control. Controls of pages that aren't up live on; changing the page by code runs no focus rule.
//
// By keyboard: from anywhere in a page Ctrl+Tab and Ctrl+PgDn bring up the next page, Ctrl+Shift+Tab and
// Ctrl+PgUp the one before, and the focus comes to its first control; on the row of tabs they and the arrows
// leave the focus there, and Down goes into the page.

#include <QTabWidget>

namespace platform {

class TabPages : public QTabWidget
{
    Q_OBJECT
    Q_PROPERTY(bool tabStop READ isTabStop WRITE setTabStop)

public:
    explicit TabPages(QWidget* parent = nullptr);

    [[nodiscard]] int tab() const { return currentIndex(); }
    /// Brings a page up and raises click, unless it is up. Outside 0..count-1: Failure 380 and the page
    /// stays.
    void setTab(int tab);

    /// Whether Tab stops at the row of tabs. A click on a tab takes the focus in any case.
    [[nodiscard]] bool isTabStop() const { return m_tabStop; }
    void setTabStop(bool stop);

Q_SIGNALS:
    /// Another page came up, by the user or by code.
    void click(int previousTab);
    void MouseMove();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void reportPage(int tab);
    void turnPage(int step);
    void enterPage();

    bool m_tabStop = true;
    int m_previousTab = -1;
};

} // namespace platform
