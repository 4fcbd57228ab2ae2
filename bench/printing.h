// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The works that the print benchmark times: the engine's, and the plain ones that are its floors.

#include <QString>

#include <array>
#include <memory>
#include <vector>

namespace platform::print {
class Document;
}

namespace bench {

/// What a plain program would do, with everything at hand that isn't timed.
class Floors
{
public:
    /// `folder` takes the file that `writePdf` makes.
    Floors(const QString& store, const QString& folder);

    /// L: every column of every row, by plain SQLite.
    void readAll() const;
    /// P: seven fields a line, 58 lines a page, each a `drawText` into a rectangle.
    void writePdf() const;
    /// W: every memo broken into lines by Qt's text layout.
    void wrapMemos() const;

private:
    QString m_store;
    QString m_pdf;
    std::vector<std::array<QString, 7>> m_lines;
    std::vector<QString> m_memos;
};

/// The engine over the same store.
class Ours
{
public:
    Ours(const QString& store, const QString& folder);

    void showFirstPage() const;
    /// One month of every year, with or without the push-down.
    void selectMonth(bool pushdown) const;
    void layOut(bool memos) const;
    void writePdf() const;
    /// A document of which nothing is read yet.
    [[nodiscard]] std::shared_ptr<platform::print::Document> begun(bool memos) const;
    /// A document whose first page is made.
    [[nodiscard]] std::shared_ptr<platform::print::Document> started(bool memos) const;

private:
    QString m_store;
    QString m_folder;
};

/// Milliseconds from the key to the cancelled run, the worst of several moments; 0 when every run was over
/// before its key.
[[nodiscard]] double cancelTimeWhileReading(const Ours& ours);
[[nodiscard]] double cancelTimeWhileComposing(const Ours& ours);
/// Milliseconds of the longest turn of the event loop from the first row to the last page and through an
/// export of all pages into `folder`.
[[nodiscard]] double sliceTime(const Ours& ours, const QString& folder);
/// Bytes that the list of pages takes for a page.
[[nodiscard]] double pageListBytes(const Ours& ours);
/// Milliseconds from "Ir a" to the painted window, the worst of pages all over the document.
[[nodiscard]] double goToTime(const Ours& ours);

/// Peak of the process's resident memory so far, in bytes.
[[nodiscard]] qint64 peakMemory();

} // namespace bench
