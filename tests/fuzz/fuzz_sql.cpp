// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/require.h"
#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"
#include "platform/dao/sql/parser.h"
#include "platform/sql/treetext.h"

#include <cstddef>
#include <cstdint>

using namespace platform;
using fuzz::require;

namespace {

void readQuery(const QString& text)
{
    try {
        const sql::Select select = sql::parseSelect(text);
        require(!select.items.empty(), "an accepted query has items");
        require(!select.table.isEmpty(), "an accepted query has a table");
        require(!treetext::ofItems(select).isEmpty(), "the items can be walked");
        static_cast<void>(treetext::ofWhere(select));
        static_cast<void>(treetext::ofOrder(select));
    } catch (const Failure& failure) {
        const int number = failure.number();
        require(number == kSyntaxError || number == kTextAfterEnd || number == kInvalidOperation,
                "a refused query has one of three numbers");
    }
}

void readAction(const QString& text)
{
    try {
        const sql::DropIndex drop = sql::parseAction(text);
        require(!drop.index.isEmpty() && !drop.table.isEmpty(), "an accepted action names index and table");
    } catch (const Failure& failure) {
        const int number = failure.number();
        require(number == kSyntaxError || number == kTextAfterEnd || number == kConstructNotSupported,
                "a refused action has one of three numbers");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    readQuery(text);
    readAction(text);
    return 0;
}
