// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The print operations as the report window drives them: jobs, table locations, selections, output, start.
//
// Texts arrive as bytes in Windows-1252 and end at the first zero byte. A path that doesn't exist under that
// reading is tried once more as UTF-8. All calls are made on the user interface thread. Unless a line says
// otherwise a call answers 1 when done and 0 when it failed; nothing here shows a message. The number in
// brackets is the code that `PEGetErrorCode` then gives.

#include <cstdint>

/// Number of an opened report; 0 is none. Given from 1 upwards, not given again while the engine is open.
using PEJob = std::int16_t;

#pragma pack(push, 1)

/// Buttons of a preview; 1 shows, 0 hides.
struct PEWindowOptions
{
    std::uint16_t StructSize = 26;
    std::int16_t hasGroupTree = 0;
    std::int16_t canDrillDown = 0;
    std::int16_t hasNavigationControls = 0;
    std::int16_t hasCancelButton = 0;
    std::int16_t hasPrintButton = 0;
    std::int16_t hasExportButton = 0;
    std::int16_t hasZoomControl = 0;
    std::int16_t hasCloseButton = 0;
    std::int16_t hasProgressControls = 0;
    std::int16_t hasSearchButton = 0;
    std::int16_t hasPrintSetupButton = 0;
    std::int16_t hasRefreshButton = 0;
};

struct PEPrintOptions
{
    std::uint16_t StructSize = 10;
    std::uint16_t startPageN = 0;
    std::uint16_t stopPageN = 0;
    std::uint16_t nReportCopies = 0;
    std::uint16_t collation = 0; ///< 0 no, 1 yes, 2 the printer's usual
};

/// Where a table's file lies: left-justified, ended by a zero.
struct PETableLocation
{
    std::uint16_t StructSize =
        258; ///< 258 or 1026 are accepted; at most 255 characters and a zero are written
    char Location[256] = {};
};

struct PESubreportInfo
{
    std::uint16_t StructSize = 137;
    char name[128] = {};
    char reserved[7] = {};
};

#pragma pack(pop)

static_assert(sizeof(PEWindowOptions) == 26);
static_assert(sizeof(PEPrintOptions) == 10);
static_assert(sizeof(PETableLocation) == 258);
static_assert(sizeof(PESubreportInfo) == 137);

std::int16_t PEOpenEngine();
/// Finishes every print job already started, closes previews and all jobs.
void PECloseEngine();

/// Reads and checks a report file; no store is touched. 0: engine closed (1), file missing (3), refused (4).
PEJob PEOpenPrintJob(const char* path);

/// Tables of the main report; -1 when there is no such job (2).
std::int16_t PEGetNTables(PEJob job);
/// The location now in force, absolute and with backslashes. (2, 5, 6)
std::int16_t PEGetNthTableLocation(PEJob job, std::int16_t table, PETableLocation* location);
/// Stores the location; the file isn't looked at before the start. (2, 5, 6)
std::int16_t PESetNthTableLocation(PEJob job, std::int16_t table, const PETableLocation* location);

/// Sections from the top of the report down; -1 when there is no such job.
std::int16_t PEGetNSections(PEJob job);
std::int16_t PEGetSectionCode(PEJob job, std::int16_t section);
std::int16_t PEGetNSubreportsInSection(PEJob job, std::int16_t sectionCode);
std::int32_t PEGetNthSubreportInSection(PEJob job, std::int16_t sectionCode, std::int16_t subreport);
std::int16_t PEGetSubreportInfo(PEJob job, std::int32_t subreport, PESubreportInfo* info);
/// Job of a subreport; the same name gives the same number. Table calls and formulas work on it.
PEJob PEOpenSubreport(PEJob job, const char* name);

/// Keeps the device by name; driver, port and a null mode are ignored. (2, 14)
std::int16_t PESelectPrinter(PEJob job, const char* driver, const char* device, const char* port,
                             const void* mode);

/// Parsed at once. A text that isn't understood stays in force, so that the start fails too. (2, 10)
std::int16_t PESetGroupSelectionFormula(PEJob job, const char* text);
std::int16_t PESetSelectionFormula(PEJob job, const char* text);
/// Replaces a formula field's text. (2, 10, 12)
std::int16_t PESetFormula(PEJob job, const char* name, const char* text);

std::int16_t PESetWindowOptions(PEJob job, const PEWindowOptions* options);
/// Place and size in pixels.
std::int16_t PEOutputToWindow(PEJob job, const char* title, std::int32_t left, std::int32_t top,
                              std::int32_t width, std::int32_t height, std::int32_t style, void* parent);
std::int16_t PEOutputToPrinter(PEJob job, std::int16_t copies);
std::int16_t PESetPrintOptions(PEJob job, const PEPrintOptions* options);

/// Looks whether the report can be made (page, stores, tables, columns, formulas, printer), begins to read
/// and goes on in slices of the event loop (`wait` 0), or to the end. 0 with the first cause found; then
/// there is no window and no print. What comes to nothing later, by damage of a store or because it is
/// cancelled, shows no page, and `PEGetErrorCode` tells it.
std::int16_t PEStartPrintJob(PEJob job, std::int16_t wait);

/// Last code of the job, 0 for none; job 0 asks for the engine's.
std::int16_t PEGetErrorCode(PEJob job);
/// Text behind a handle, at most `length` bytes; with a null handle or length 0 the buffer stays untouched.
std::int16_t PEGetHandleString(void* handle, char* buffer, std::int16_t length);
