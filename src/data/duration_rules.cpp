#include "data/duration_rules.h"

namespace tambrix {

namespace {

constexpr std::int32_t kUsualCycle = 200; // 0.1 cans

} // namespace

DurationLimits limitsIn(const SetupDataRecord& record)
{
    return {record.Value[static_cast<std::size_t>(reg::kMaximumOn.slot)],
            record.Value[static_cast<std::size_t>(reg::kMaximumCycle.slot)]};
}

EntryRange onRange(std::int32_t cycle, const DurationLimits& limits)
{
    const bool cycleLimits = cycle < limits.maximumOn + kSmallestCycle;
    return {0, cycleLimits ? cycle - kSmallestCycle : limits.maximumOn};
}

EntryRange cycleRange(std::int32_t on, const DurationLimits& limits)
{
    return {on + kSmallestCycle, limits.maximumCycle};
}

std::int32_t soundOn(std::int32_t stored, const DurationLimits& limits)
{
    return stored <= limits.maximumOn ? stored : 0;
}

std::int32_t soundCycle(std::int32_t stored, std::int32_t on, const DurationLimits& limits)
{
    const bool sound = stored >= on + kSmallestCycle && stored <= limits.maximumCycle;
    return sound ? stored : kUsualCycle;
}

Concern durationConcern(bool cycle, std::int32_t value, std::int32_t partner,
                        const DurationLimits& limits)
{
    using Kind = Concern::Kind;
    if (cycle && value > limits.maximumCycle)
        return {Kind::AboveMaximumCycle, limits.maximumCycle};
    if (cycle)
        return value < partner + kSmallestCycle ? Concern{Kind::CycleShort, partner} : Concern{};
    if (value > limits.maximumOn)
        return {Kind::AboveMaximumOn, limits.maximumOn};
    return value > partner - kSmallestCycle ? Concern{Kind::OnTooLong, partner} : Concern{};
}

} // namespace tambrix
