// SPDX-License-Identifier: GPL-3.0-or-later
#include "looks/extremes.h"

#include "platform/core/failure.h"

using namespace Qt::StringLiterals;
using platform::dao::Field;
using platform::dao::Recordset;

namespace looks {

namespace {

constexpr double kLargeNumber = 9999999.99;
constexpr int kMemoLength = 2000;

void fill(const Field& field, int number)
{
    try {
        field.setValue(longText(field.Size() == 0 ? kMemoLength : field.Size(), number));
    } catch (const platform::Failure&) {
        field.setValue(kLargeNumber);
    }
}

} // namespace

QString longText(int length, int number)
{
    const QString words = u"MWÑÇ Ágüjq WWMM ÍÑyp "_s;
    const int times = length / static_cast<int>(words.size()) + 1;
    return (QString::number(number) + words.repeated(times)).left(length);
}

void addFullRow(platform::dao::Database& store, const QString& table, int number,
                const QMap<QString, platform::Value>& given)
{
    Recordset rows = store.OpenRecordset(table, platform::dao::dbOpenTable);
    rows.AddNew();
    for (int column = 0; column < rows.Fields().Count(); ++column) {
        const Field field = rows[column];
        if (const auto value = given.constFind(field.Name()); value != given.constEnd())
            field.setValue(value.value());
        else
            fill(field, number);
    }
    rows.Update();
    rows.Close();
}

} // namespace looks
