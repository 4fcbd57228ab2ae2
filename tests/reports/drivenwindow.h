// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The report window over the recording engine: requests made as a caller makes them, runs started by the
// buttons. The day is 20 November 2026, the printers are "Oficina" and "Taller", the second one chosen.

#include "support/fixedclock.h"
#include "support/messagerecorder.h"

#include "reports/lista.h"

#include <QStringList>

#include <memory>

namespace reporttest {

/// `RUTAEMPRESA` of all runs.
inline const QString kCompanyFolder = QStringLiteral("C:\\Q\\Empresa00012\\");

class DrivenWindow
{
public:
    /// Puts program, engine and printers back to their start.
    DrivenWindow();
    ~DrivenWindow();
    DrivenWindow(const DrivenWindow&) = delete;
    DrivenWindow& operator=(const DrivenWindow&) = delete;

    /// The window of a report on the screen, the calls of its load forgotten. The file is
    /// "C:\Q\informe.rpt", the title "Título", the base the company's "CLIENTES.MDB".
    reports::LISTA& requested(double report);
    /// The same, with the window active and the focus where it starts.
    reports::LISTA& active(double report);

    /// A click on "&Visualizar" or "&Imprimir".
    void preview();
    void print();

    template <typename T>
    [[nodiscard]] T& control(const char* name) const
    {
        T* found = m_window->findChild<T*>(QLatin1String(name));
        Q_ASSERT(found);
        return *found;
    }
    [[nodiscard]] reports::LISTA& window() const { return *m_window; }
    [[nodiscard]] const testsupport::MessageRecorder& messages() const { return m_messages; }

private:
    testsupport::FixedClock m_clock{QDate(2026, 11, 20), QTime(9, 30)};
    testsupport::MessageRecorder m_messages;
    std::unique_ptr<reports::LISTA> m_window;
};

/// The calls so far whose name matches the pattern.
[[nodiscard]] QStringList callsNamed(const QString& pattern);

} // namespace reporttest
