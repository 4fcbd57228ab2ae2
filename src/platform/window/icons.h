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
    Application,
};

[[nodiscard]] QIcon icon(Icon name);

} // namespace platform
