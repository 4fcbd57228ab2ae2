// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// A print engine that prints nothing: it writes down every call with its arguments and answers what a test
// says. A call that fails answers 0 (-1 for the counts) and leaves the record that it was to fill. It defines
// the print operations itself, so a test that links it links no real engine.

#include <QHash>
#include <QStringList>

/// Calls so far, each as `Name(argument, …)`; texts up to their first zero, records field by field.
[[nodiscard]] QStringList& recordedCalls();

/// Jobs count up from 1 while the engine is open. The subreports of a job have the numbers from 101 on (201
/// on for job 2), in the order of their sections. A call on job 0 fails.
struct EngineAnswers
{
    QStringList tableLocations;             ///< `PEGetNTables` is their count
    QHash<int, int> unreadableTables;       ///< table → answer of `PEGetNthTableLocation`
    QList<QStringList> subreportsBySection; ///< names of each section's subreports
    QString failing;                        ///< every call of this name fails
    qsizetype failingCall = -1;             ///< the call at this position of the list fails
};
[[nodiscard]] EngineAnswers& engineAnswers();

/// Forgets the calls and goes back to the standard answers.
void resetRecordingEngine();
