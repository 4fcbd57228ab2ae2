// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A data root as the program finds it: the catalogue, the shipped report files beside it, a company with real
// stores full of clients, concepts and consultations, all open as during a run. The day is 5 March 2024.

#include "support/fixedclock.h"
#include "support/tempdataroot.h"

#include "platform/print/output/preview.h"
#include "reports/lista.h"

#include <QStringList>

namespace reporttest {

struct Client
{
    QString code;
    QString name;
    QString postCode;
    QString zone;
    QString type; ///< "" for a client without one

    /// How the client stands in a list.
    [[nodiscard]] QString line() const { return code + u' ' + name; }
};

struct Consultation
{
    QString subject;
    QString start; ///< dd/mm/yyyy
};

class ReportRoot
{
public:
    ReportRoot();
    ~ReportRoot();
    ReportRoot(const ReportRoot&) = delete;
    ReportRoot& operator=(const ReportRoot&) = delete;

    [[nodiscard]] QString path(const QString& name) const { return m_root.path(name); }

    // Rows as the stores hold them at this moment, the clients by code.
    [[nodiscard]] QList<Client> clients() const;
    /// Articles of a client's concepts in force, by line.
    [[nodiscard]] QStringList articlesOf(const QString& client) const;
    [[nodiscard]] QList<Consultation> consultations() const;

private:
    testsupport::TempDataRoot m_root;
    testsupport::FixedClock m_clock{QDate(2024, 3, 5), QTime(10, 0)};
};

/// Sets the program-wide variables of a report (525, 725, 888, 8888) as its caller does.
void requestReport(int number);

/// A control of the report window by its name.
template <typename T>
[[nodiscard]] T& control(const reports::LISTA& window, const char* name)
{
    T* found = window.findChild<T*>(QLatin1String(name));
    Q_ASSERT(found);
    return *found;
}

/// Types a text into a range box in place of the one that stands there.
void typeInto(const reports::LISTA& window, const char* box, const QString& text);
/// Chooses the entry of a list by the keyboard, from 0.
void chooseEntry(const reports::LISTA& window, const char* list, int entry);
/// A click of the mouse on a button.
void press(const reports::LISTA& window, const char* button);

/// The previews on the screen.
[[nodiscard]] QList<platform::print::PreviewWindow*> previews();
/// Presses "&Visualizar"; the preview that comes up, null where none does.
[[nodiscard]] platform::print::PreviewWindow* visualize(const reports::LISTA& window);
/// What a screen reader reads on each page of a preview, once all are made; runs of blanks as one. Nothing
/// for a null preview.
[[nodiscard]] QStringList pagesOf(const platform::print::PreviewWindow* preview);

/// Text of a PDF file, "|" between pages, runs of blanks as one.
[[nodiscard]] QString pdfText(const QString& path);

} // namespace reporttest
