#include "screens/color_math.h"

namespace tambrix {

namespace {

constexpr std::int32_t kUsualCycle = 200; // 0.1 cans

} // namespace

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

} // namespace tambrix
