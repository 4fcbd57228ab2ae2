// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Brings records into print order: sorted, grouped, and of the groups only the chosen ones; a few records at
// a time.

#include "platform/print/data/mergesort.h"
#include "platform/print/data/view.h"
#include "platform/print/formula/formula.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace platform::print {

class Records;

class Arranger
{
public:
    /// Takes numbers of records; `records` is kept by reference. Its variables, position and view are used.
    Arranger(Records& records, std::vector<quint32> numbers);

    /// Does some of the work. False when the view is ready.
    bool step();
    /// Every record in its place, totals not yet taken.
    [[nodiscard]] View takeView() { return std::move(m_view); }

private:
    /// A level of sorting; the rank of a group's own field tells its groups apart.
    struct Level
    {
        const formula::Formula* formula = nullptr;
        bool descending = false;
        bool isGroup = false;
    };
    using Sort = MergeSort<std::function<bool(quint32, quint32)>>;
    enum class Stage { Keys, Ranking, Sorting, Grouping, Choosing, Keeping, Ready };

    bool takeKeys();
    bool rank();
    void beginSort();
    bool group();
    bool choose();
    bool keep();

    Records& m_records;
    std::vector<quint32> m_numbers;
    std::vector<Level> m_levels;
    std::vector<std::vector<quint32>> m_places; ///< by level: the place of each record among the others
    std::vector<QByteArray> m_keys;             ///< of the level under way
    std::vector<quint32> m_order;
    std::optional<Sort> m_sort;
    Stage m_stage = Stage::Keys;
    quint32 m_at = 0;    ///< record, position or group that the stage has come to
    quint32 m_place = 0; ///< of the key ranked last
    View m_view;
    std::vector<bool> m_chosen; ///< by innermost group
    View m_kept;
    std::vector<std::size_t> m_last; ///< by level: group of the record kept last
};

} // namespace platform::print
