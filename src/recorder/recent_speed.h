#pragma once

#include "recorder/history_batch.h"

#include <deque>

namespace tambrix {

/// The machine speed of the last ten minutes, in memory: a bin for each two seconds.
class RecentSpeed
{
public:
    static constexpr UtcMs kSpan = 10 * kMinute;
    static constexpr UtcMs kBin = 2 * kSecond;

    void add(UtcMs time, int speed);

    /// The bins in which speed was read, the oldest first.
    const std::deque<SpeedRow>& bins() const { return m_bins; }

    /// Counts up whenever there is another bin.
    int generation() const { return m_generation; }

private:
    std::deque<SpeedRow> m_bins;
    int m_generation = 0;
};

} // namespace tambrix
