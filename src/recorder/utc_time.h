#pragma once

#include <cstdint>

namespace tambrix {

/// A point in time, ms since 1970 in UTC: the same for a summer and a winter day.
using UtcMs = std::int64_t;

inline constexpr UtcMs kSecond = 1000;
inline constexpr UtcMs kMinute = 60 * kSecond;
inline constexpr UtcMs kHour = 60 * kMinute;
inline constexpr UtcMs kDay = 24 * kHour;

/// From `begin` up to, and not including, `end`.
struct TimeSpan
{
    UtcMs begin = 0;
    UtcMs end = 0;

    UtcMs length() const { return end - begin; }
    bool contains(UtcMs time) const { return time >= begin && time < end; }
};

} // namespace tambrix
