// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a report file: read whole or refused with faults that have a place and a text, never more.
#include "fuzz/require.h"
#include "platform/print/definition/read_xml.h"

using namespace platform::print;
using fuzz::require;

namespace {

/// A report that is used must name only styles, groups and subreports that it has.
void checkSections(const Report& report, const Report& main)
{
    for (const Section& section : report.sections) {
        require(section.group < static_cast<int>(report.groups.size()), "a section's group exists");
        for (const Item& item : section.items) {
            require(item.style >= 0 && item.style < static_cast<int>(main.styles.size()),
                    "an item's style exists");
            if (item.kind == Item::Kind::Subreport)
                require(item.subreport >= 0 && item.subreport < static_cast<int>(main.subreports.size()),
                        "an item's subreport exists");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const ReadReport read = readReport(bytes);
    // CR LF, LF and a lone CR each end one line.
    const auto lines = bytes.count('\n') + bytes.count('\r') - bytes.count("\r\n") + 1;
    require(read.report.has_value() == read.faults.empty(), "a report is used exactly without faults");
    for (const DefinitionFault& fault : read.faults) {
        require(fault.place.line >= 1 && fault.place.line <= lines, "a fault's line exists");
        require(fault.place.column >= 1, "columns count from 1");
        require(!fault.text.isEmpty() && !fault.text.contains(u'\n'), "a fault is one line");
    }
    if (!read.report)
        return 0;
    checkSections(*read.report, *read.report);
    for (const Report& subreport : read.report->subreports)
        checkSections(subreport, *read.report);
    return 0;
}
