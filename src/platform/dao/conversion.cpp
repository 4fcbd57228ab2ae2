// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/dao/conversion.h"

#include "platform/core/failure.h"
#include "platform/core/failurenumbers.h"

namespace platform::dao {
namespace {

double toNumber(const Value& value)
{
    try {
        return asNumber(value);
    } catch (const Failure& failure) {
        throw Failure(kConversionError, failure.text());
    }
}

} // namespace

Value toColumnType(const Value& value, storage::ColumnType type)
{
    if (isNull(value))
        return value;
    if (type == storage::ColumnType::Number)
        return std::holds_alternative<double>(value) ? value : Value(toNumber(value));
    return std::holds_alternative<QString>(value) ? value : Value(asText(value));
}

Value toColumn(const Value& value, const storage::Column& column)
{
    Value converted = toColumnType(value, column.type);
    const QString* text = std::get_if<QString>(&converted);
    if (text == nullptr)
        return converted;
    if (text->isEmpty() && !column.allowZeroLength)
        throw Failure(kZeroLengthNotAllowed, column.name);
    if (column.type == storage::ColumnType::Text && text->size() > column.size)
        throw Failure(kFieldTooSmall, column.name);
    return converted;
}

} // namespace platform::dao
