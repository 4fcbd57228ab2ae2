// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The launch contract and the placing of the main window, as functions that need no window.

#include <QRect>
#include <QString>
#include <QStringList>

#include <optional>

namespace shell {

/// The command line as the program reads it: the arguments after the program's name, joined by single blanks.
[[nodiscard]] QString commandLine(const QStringList& arguments);

/// True when the length of the command line, a number, equals the empty text. A number and a text never do,
/// so this is never true, not for an empty command line either.
[[nodiscard]] bool isLaunchedByHand(const QString& commandLine);

/// Company number: characters 1 to 5 of the trimmed command line, as they stand.
[[nodiscard]] QString companyNumber(const QString& commandLine);
/// User name: the trimmed command line from character 7 on. Character 6 is never looked at.
[[nodiscard]] QString userName(const QString& commandLine);

/// The message that refuses a launch; nothing when the contract holds.
[[nodiscard]] std::optional<QString> launchFault(const QString& company, const QString& user);

/// Title of the main window with the three parts of the version.
[[nodiscard]] QString mainWindowTitle(int major, int minor, int revision);

/// Twips (1440 an inch) to whole pixels.
[[nodiscard]] int pixels(int twips, qreal dotsPerInch);

/// Where the main window stands: 35 twips out of the screen at left and top, 70 twips wider than it.
struct BandPlacement
{
    QPoint topLeft;
    int width;

    friend bool operator==(const BandPlacement&, const BandPlacement&) = default;
};
[[nodiscard]] BandPlacement bandPlacement(const QRect& screen, qreal dotsPerInch);

} // namespace shell
