// SPDX-License-Identifier: GPL-3.0-or-later

// The command line as the program reads it, and the paths that it makes of it.

#include "fuzz/require.h"
#include "platform/system/paths.h"
#include "shell/launch.h"

#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

using fuzz::require;

namespace {

/// Blanks alone are dropped around the line; a tab is part of it.
QString withoutBlanks(const QString& line)
{
    const auto isBlank = [](QChar unit) { return unit == u' '; };
    const auto first = std::find_if_not(line.begin(), line.end(), isBlank);
    const auto last = std::find_if_not(line.rbegin(), std::make_reverse_iterator(first), isBlank).base();
    return QString(first, last - first);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QStringList arguments{QStringLiteral("orvane")};
    arguments += text.split(u'\n');
    const QString line = shell::commandLine(arguments);
    require(line == arguments.mid(1).join(u' '), "the arguments are joined by single blanks");
    require(!shell::isLaunchedByHand(line), "a number equals no text");

    const QString company = shell::companyNumber(line);
    const QString user = shell::userName(line);
    require(company.size() <= 5, "a company number has five characters at most");
    require(user.size() <= line.size(), "a user's name is part of the line");
    const QString typed = withoutBlanks(line);
    require(typed.startsWith(company) && typed.endsWith(user), "number and name stand in the line");
    const auto fault = shell::launchFault(company, user);
    require(!fault || !fault->isEmpty(), "a refusal has words");

    const QString path = platform::nativePath(QStringLiteral("\\Empresa") + company + u'\\');
    require(path.startsWith(u'/'), "a native path is absolute");
    require(!path.contains(QStringLiteral("/../")), "a native path is resolved");
    return 0;
}
