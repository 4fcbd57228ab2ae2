// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The whole program worked by its keys: from the main window to the reports, the previews and their files.

#include "clients/climant.h"
#include "platform/print/output/preview.h"
#include "reports/lista.h"

#include <functional>

namespace reporttest {

/// The longest that a test waits for what must come, in milliseconds.
inline constexpr int kPatience = 20000;

/// Opens "Fichas de Clientes" from the main window, does the work once the window has the keyboard, and
/// leaves it. False when the window didn't come.
[[nodiscard]] bool inClients(const std::function<void(climant&)>& work);

/// Opens "Albaranes de Revisión" from the main window, types the zone, does the work and leaves by Alt+S.
/// False when the window doesn't leave; it is unloaded then.
[[nodiscard]] bool inRevision(const QString& zone, const std::function<void(reports::LISTA&)>& work);

/// Presses Alt+V; the preview that comes up, in front; null where none does.
[[nodiscard]] platform::print::PreviewWindow* openPreview();

/// Exports what the preview shows, by its tool and the file dialog, and waits for the file.
void exportTo(platform::print::PreviewWindow& preview, const QString& file);

/// Unloads every window of the program; the unload of one may take others with it.
void unloadWindows();

} // namespace reporttest
