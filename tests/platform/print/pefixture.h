// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A folder with stores and a report, an open engine, a printer that prints to a file.

#include "platform/print/output/preview.h"
#include "platform/print/pe.h"

#include <QTemporaryDir>

#include <memory>

namespace platform::print {

class PeFixture
{
public:
    PeFixture();
    /// A fresh folder and an open engine; `closeEngine` afterwards.
    void openEngine();
    static void closeEngine();

    [[nodiscard]] QString file(const QString& name) const { return m_folder->filePath(name); }
    [[nodiscard]] QByteArray path(const QString& name) const { return file(name).toUtf8(); }
    /// A report over 100 clients, 18 on a page, with these elements and one field.
    PEJob openReport(const QString& elements = {}, const QByteArray& expression = "{CLI.COD}");
    [[nodiscard]] static PreviewWindow* preview();
    /// Text of a printed or exported file, blanks simplified.
    [[nodiscard]] QString pdfText(const QString& name) const;

private:
    QTemporaryDir m_template; ///< stores that each folder gets a copy of
    std::unique_ptr<QTemporaryDir> m_folder;
};

} // namespace platform::print
