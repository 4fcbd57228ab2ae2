// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A print engine that prints nothing: it writes down every call with its arguments and answers what a test
// says. It defines the print operations itself, so a test that links it links no real engine.

#include <QHash>
#include <QStringList>

/// Calls so far, each as `Name(argument, …)`; texts up to their first zero, records field by field.
[[nodiscard]] QStringList& recordedCalls();

struct EngineAnswers
{
    int job = 1;
    QStringList tableLocations;             ///< `PEGetNTables` is their count
    QHash<int, int> unreadableTables;       ///< table → answer of `PEGetNthTableLocation`
    QList<QStringList> subreportsBySection; ///< names of each section's subreports
    int setFormula = 1;
    int start = 1;
    QString failing; ///< every call of this name answers 0 (-1 for the counts)
};
[[nodiscard]] EngineAnswers& engineAnswers();

/// Forgets the calls and goes back to the standard answers.
void resetRecordingEngine();
