#pragma once

#include "controls/numeric_entry_field.h"
#include "data/parameters.h"

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

/// What an ON duration may be beside this CYCLE duration.
EntryRange onRange(std::int32_t cycle, const DurationLimits& limits);

/// What a CYCLE duration may be beside this ON duration.
EntryRange cycleRange(std::int32_t on, const DurationLimits& limits);

/// A label's stored ON duration as it may be worked with: 0 where it is too long.
std::int32_t soundOn(std::int32_t stored, const DurationLimits& limits);

/// A label's stored CYCLE duration as it may be worked with beside `on`: 200 where it is not.
std::int32_t soundCycle(std::int32_t stored, std::int32_t on, const DurationLimits& limits);

} // namespace tambrix
