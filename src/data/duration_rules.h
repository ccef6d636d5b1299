#pragma once

#include "data/concern.h"
#include "data/entry_range.h"
#include "data/setup_data.h"

#include <cstdint>

namespace tambrix {

/// 0.1 cans; a CYCLE is at least this + ON.
inline constexpr std::int32_t kSmallestCycle = reg::kCycleDuration.minimum;

/// The largest values the controller takes, in 0.1 cans.
struct DurationLimits
{
    std::int32_t maximumOn = 0;
    std::int32_t maximumCycle = 0;
};

/// The limits that a data set states: its entries 9 and 8.
DurationLimits limitsIn(const SetupDataRecord& record);

/// What an ON duration may be beside this CYCLE duration.
EntryRange onRange(std::int32_t cycle, const DurationLimits& limits);

/// What a CYCLE duration may be beside this ON duration.
EntryRange cycleRange(std::int32_t on, const DurationLimits& limits);

/// A label's stored ON duration as it may be worked with: 0 where it is too long.
std::int32_t soundOn(std::int32_t stored, const DurationLimits& limits);

/// A label's stored CYCLE duration as it may be worked with beside `on`: 200 where it is not.
std::int32_t soundCycle(std::int32_t stored, std::int32_t on, const DurationLimits& limits);

/// What speaks against a label's ON or CYCLE duration `value` beside `partner`, its other duration.
Concern durationConcern(bool cycle, std::int32_t value, std::int32_t partner,
                        const DurationLimits& limits);

} // namespace tambrix
