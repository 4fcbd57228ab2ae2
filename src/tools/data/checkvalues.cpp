// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/checkstore.h"

#include <QDate>
#include <QTime>

#include <algorithm>
#include <array>

namespace tools {

namespace {

using platform::Value;
using platform::storage::Column;
using platform::storage::ColumnType;
using platform::storage::RowId;

using Reading = bool (*)(const QString& text);

bool isBlank(const QString& text)
{
    return text.trimmed().isEmpty();
}

/// "dd/mm/yyyy"; also "01/01/100", which stands for no date, and the empty mask.
bool isDate(const QString& text)
{
    return isBlank(text) || text.trimmed() == u"/  /" || text == u"01/01/100" ||
           QDate::fromString(text, QStringLiteral("dd/MM/yyyy")).isValid();
}

bool isTime(const QString& text)
{
    return isBlank(text) || QTime::fromString(text, QStringLiteral("HH:mm:ss")).isValid();
}

bool isState(const QString& text)
{
    return text.trimmed().startsWith(u"01") || text.trimmed().startsWith(u"02");
}

bool isMonths(const QString& text)
{
    bool number = false;
    const int months = text.toInt(&number);
    return isBlank(text) || (text.size() == 2 && number && months >= 1 && months <= 12);
}

bool isConceptLetter(const QString& text)
{
    return isBlank(text) || (text.size() == 1 && QStringView(u"FRVT").contains(text.front()));
}

struct OddColumn
{
    QStringView column;
    Reading reads;
    QStringView text; ///< of the notice; %1 is the column and %2 the value
};
constexpr std::array kOddColumns{
    OddColumn{u"clientescycfecinic", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"clientescycfecvcto", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"clientescycfecbaja", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"CliFechaVacInicio", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"CliFechaVacFin", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"UltCompra", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"FEINICIO", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"FEFINAL", isDate, u"la fecha %1 no se entiende: «%2»"},
    OddColumn{u"HOINICIO", isTime, u"la hora %1 no se entiende: «%2»"},
    OddColumn{u"HOFINAL", isTime, u"la hora %1 no se entiende: «%2»"},
    OddColumn{u"ESTADO", isState,
              u"el estado «%2» no es abierto ni cerrado: la consulta no sale en el árbol"},
    OddColumn{u"clientescycPE", isMonths, u"%1 no es un mes de 01 a 12: «%2»"},
    OddColumn{u"clientescycEM", isMonths, u"%1 no es un mes de 01 a 12: «%2»"},
    OddColumn{u"clientescycT", isConceptLetter, u"%1 no es F, R, V ni T: «%2»"},
};

/// One column of the table and what is asked of its values.
class ColumnCheck
{
public:
    explicit ColumnCheck(const Column& column)
        : m_column(column)
    {
        const auto odd = std::find_if(kOddColumns.begin(), kOddColumns.end(), [&](const OddColumn& entry) {
            return entry.column.compare(column.name, Qt::CaseInsensitive) == 0;
        });
        if (odd != kOddColumns.end())
            m_odd = &*odd;
    }

    /// The fault of a value; empty when it fits.
    [[nodiscard]] QString faultOf(const Value& value) const
    {
        const QString* text = std::get_if<QString>(&value);
        if (m_column.type == ColumnType::Number)
            return text == nullptr ? QString()
                                   : QStringLiteral("%1 debe ser un número: «%2»").arg(m_column.name, *text);
        if (std::holds_alternative<double>(value))
            return QStringLiteral("%1 debe ser un texto: %2").arg(m_column.name).arg(std::get<double>(value));
        if (text != nullptr && m_column.type == ColumnType::Text && text->size() > m_column.size)
            return QStringLiteral("%1 tiene %2 caracteres y caben %3")
                .arg(m_column.name)
                .arg(text->size())
                .arg(m_column.size);
        return {};
    }

    /// The notice of a value; empty when it reads as it should.
    [[nodiscard]] QString noticeOf(const Value& value) const
    {
        const QString* text = std::get_if<QString>(&value);
        if (m_odd == nullptr || text == nullptr || m_odd->reads(*text))
            return {};
        QString notice = m_odd->text.toString();
        return notice.replace(QStringLiteral("%1"), m_column.name).replace(QStringLiteral("%2"), *text);
    }

private:
    const Column& m_column;
    const OddColumn* m_odd = nullptr;
};

} // namespace

void checkValues(platform::storage::Table& table, const QString& file, Findings& findings)
{
    const std::vector<ColumnCheck> checks(table.definition().columns.begin(),
                                          table.definition().columns.end());
    forEachRow(table, {}, [&](RowId id, std::span<const Value> cells) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (const QString fault = checks[i].faultOf(cells[i]); !fault.isEmpty())
                findings.fault({file, table.definition().name, rowName(table, id)}, fault);
            if (const QString notice = checks[i].noticeOf(cells[i]); !notice.isEmpty())
                findings.notice({file, table.definition().name, rowName(table, id)}, notice);
        }
    });
}

} // namespace tools
