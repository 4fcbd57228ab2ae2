// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Which focus changes count as the user's or the program's moving the focus, and which are only the window
// system's: switching windows, popups, menus, and the move that follows when a control is hidden or disabled.

class QFocusEvent;
class QWidget;

namespace platform {

/// True when the rules of entering or leaving a control run for this event: reasons Mouse, Tab, Backtab,
/// Shortcut and Other, unless a `QuietFocus` stands or the focus only fled from a control hidden or disabled.
[[nodiscard]] bool focusRuleRuns(const QFocusEvent& event);

/// While one stands, focus changes run no rule.
class QuietFocus
{
public:
    QuietFocus();
    ~QuietFocus();
    QuietFocus(const QuietFocus&) = delete;
    QuietFocus& operator=(const QuietFocus&) = delete;
};

/// Gives the focus to a control. Hidden (a page not up counts) or disabled: Failure 5. Nothing when it has
/// it.
void setFocusTo(QWidget* control);

} // namespace platform
