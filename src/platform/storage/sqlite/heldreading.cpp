// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/storage/sqlite/heldreading.h"

#include <vector>

namespace platform::storage::sqlite {

namespace {

std::vector<HeldReading*>& heldReadings()
{
    thread_local std::vector<HeldReading*> readings;
    return readings;
}

} // namespace

HeldReading::HeldReading(std::function<void()> finish)
    : m_finish(std::move(finish))
{
    heldReadings().push_back(this);
}

HeldReading::~HeldReading()
{
    std::erase(heldReadings(), this);
}

bool finishHeldReadings()
{
    std::vector<HeldReading*>& readings = heldReadings();
    const bool any = !readings.empty();
    while (!readings.empty()) {
        // A copy: the reading may end its object while it is under way.
        const std::function<void()> finish = readings.back()->m_finish;
        readings.pop_back();
        finish();
    }
    return any;
}

} // namespace platform::storage::sqlite
