// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a report file: read or refused with a fault, never more.
#include "platform/print/definition/read_xml.h"

using namespace platform::print;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const ReadReport read = readReport(bytes);
    if (!read.report && read.faults.empty())
        __builtin_trap();
    return 0;
}
