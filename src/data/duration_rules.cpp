#include "data/duration_rules.h"

#include <algorithm>
#include <limits>

namespace tambrix {

namespace {

constexpr std::int32_t kUsualCycle = 200; // 0.1 cans

/// A strange file holds any number: sums are taken in 64 bits.
std::int32_t limited(std::int64_t sum)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, Limits::min(), Limits::max()));
}

/// The shortest cycle that leaves an ON duration its time OFF.
std::int64_t shortestFor(std::int32_t on)
{
    return std::int64_t{on} + kSmallestCycle;
}

} // namespace

DurationLimits limitsIn(const SetupDataRecord& record)
{
    return {record.Value[static_cast<std::size_t>(reg::kMaximumOn.slot)],
            record.Value[static_cast<std::size_t>(reg::kMaximumCycle.slot)]};
}

EntryRange onRange(std::int32_t cycle, const DurationLimits& limits)
{
    const bool cycleLimits = cycle < shortestFor(limits.maximumOn);
    return {0, cycleLimits ? limited(std::int64_t{cycle} - kSmallestCycle) : limits.maximumOn};
}

EntryRange cycleRange(std::int32_t on, const DurationLimits& limits)
{
    return {limited(shortestFor(on)), limits.maximumCycle};
}

std::int32_t soundOn(std::int32_t stored, const DurationLimits& limits)
{
    return stored <= limits.maximumOn ? stored : 0;
}

std::int32_t soundCycle(std::int32_t stored, std::int32_t on, const DurationLimits& limits)
{
    const bool sound = stored >= shortestFor(on) && stored <= limits.maximumCycle;
    return sound ? stored : kUsualCycle;
}

Concern durationConcern(bool cycle, std::int32_t value, std::int32_t partner,
                        const DurationLimits& limits)
{
    using Kind = Concern::Kind;
    if (cycle && value > limits.maximumCycle)
        return {Kind::AboveMaximumCycle, limits.maximumCycle};
    if (cycle)
        return value < shortestFor(partner) ? Concern{Kind::CycleShort, partner} : Concern{};
    if (value > limits.maximumOn)
        return {Kind::AboveMaximumOn, limits.maximumOn};
    return shortestFor(value) > partner ? Concern{Kind::OnTooLong, partner} : Concern{};
}

} // namespace tambrix
