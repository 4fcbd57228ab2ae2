// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The print engine's own error codes, as `PEGetErrorCode` answers them. 0 is none.

namespace platform::print {

enum ErrorCode : int {
    kNoError = 0,
    kEngineClosed = 1,
    kNoSuchJob = 2,
    kReportMissing = 3,
    kReportRefused = 4,
    kTableNumber = 5,
    kRecordSize = 6,
    kStoreMissing = 7,
    kTableMissing = 8,
    kColumnMissing = 9,
    kFormulaSyntax = 10,
    kFormulaTypes = 11,
    kFormulaMissing = 12,
    kValueError = 13,
    kPrinter = 14,
    kPrintingRefused = 15,
    kPageTooSmall = 16,
    kCancelled = 17,
    kReadError = 18,
    kSectionOrSubreport = 19,
    kNoOutput = 20,
    kAlreadyStarted = 21,
    kBadValue = 22,
};

} // namespace platform::print
