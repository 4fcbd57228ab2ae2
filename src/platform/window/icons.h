// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Icons of the program: from the packaged icon theme, else drawn, so that no picture is ever missing.

#include <QIcon>

namespace platform {

enum class Icon {
    New,
    Save,
    Mail,
    Quit,
    Search,
    Delete,
    Print,
    Preview,
    Send,
    Client,
    Message,
    Report,
    FolderClosed,
    FolderOpen,
    Note,
    Printer,
    Network,
    FirstPage,
    PreviousPage,
    NextPage,
    LastPage,
    Stop,
    Export,
    Application,    ///< the window icon, when the program has set one
    ApplicationLit, ///< the same, lighter, for when the pointer is over it
};

[[nodiscard]] QIcon icon(Icon name);

/// The icon with one look for all states: a selected row doesn't tint it.
[[nodiscard]] QIcon untinted(const QIcon& icon);

} // namespace platform
