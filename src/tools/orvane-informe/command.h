// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What a command line of the report tool asks for, and where the tables of a report lie for it.

#include "platform/print/data/execution.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <stdexcept>

namespace orvane::tools {

struct Command
{
    QString name; ///< check, render, fields
    QString file;
    QString data;    ///< data root, "" without
    QString company; ///< folder of the company whose stores are read, "" without data
    QString pdf;
    QString csv;
    QStringList formulas; ///< NAME=TEXT
    std::optional<QString> where;
};

/// A command line that can't be followed; the text is Spanish, one line.
class CommandFault : public std::exception
{
public:
    explicit CommandFault(QString text)
        : m_text(std::move(text))
        , m_what(m_text.toUtf8())
    {}
    [[nodiscard]] const QString& text() const noexcept { return m_text; }
    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

private:
    QString m_text;
    QByteArray m_what;
};

/// Arguments without the program's name. Throws `CommandFault`, also for folders that aren't there.
[[nodiscard]] Command parseCommand(const QStringList& arguments);

/// A table lies in the company's folder if its file is there, in the data root, or else beside the report;
/// "@k" and "@k/NAME" count from the tables before, or from those of the main report.
[[nodiscard]] platform::print::TablePaths tablePaths(const Command& command,
                                                     const platform::print::Report& report,
                                                     const platform::print::TablePaths& mainPaths = {});

} // namespace orvane::tools
