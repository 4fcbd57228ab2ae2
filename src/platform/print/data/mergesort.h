// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Stable sorting that can be left and taken up again.

#include <QtGlobal>

#include <algorithm>
#include <vector>

namespace platform::print {

/// Sorts numbers by `less(left, right)`, which must stay the same until the last step.
template <typename Less>
class MergeSort
{
public:
    /// Sorts `order` in place; it is kept by reference, and its order is known only at the end.
    MergeSort(std::vector<quint32>& order, Less less)
        : m_order(order)
        , m_less(std::move(less))
        , m_merged(order.size())
    {}

    /// Moves some thousand numbers. False when they are sorted.
    bool step()
    {
        for (int moved = 0; moved < kMovesAStep; ++moved) {
            if (m_out == m_order.size() && !beginPass())
                return false;
            if (m_out == m_end)
                beginPair();
            moveOne();
        }
        return true;
    }

private:
    static constexpr int kMovesAStep = 4096;

    bool beginPass()
    {
        if (m_width > 0)
            m_order.swap(m_merged);
        m_width = m_width == 0 ? 1 : m_width * 2;
        m_out = 0;
        m_end = 0;
        return m_width < m_order.size();
    }

    void beginPair()
    {
        m_left = m_out;
        m_right = m_middle = std::min(m_out + m_width, m_order.size());
        m_end = std::min(m_middle + m_width, m_order.size());
    }

    void moveOne()
    {
        const bool right =
            m_left == m_middle || (m_right < m_end && m_less(m_order[m_right], m_order[m_left]));
        m_merged[m_out++] = m_order[right ? m_right++ : m_left++];
    }

    std::vector<quint32>& m_order;
    Less m_less;
    std::vector<quint32> m_merged;
    std::size_t m_width = 0; ///< numbers in each run that is sorted already; 0 before the first pass
    std::size_t m_out = m_order.size();
    std::size_t m_left = 0;
    std::size_t m_middle = 0;
    std::size_t m_right = 0;
    std::size_t m_end = 0;
};

} // namespace platform::print
