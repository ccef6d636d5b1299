#include "recorder/recent_speed.h"

#include <algorithm>

namespace tambrix {

void RecentSpeed::add(UtcMs time, int speed)
{
    const UtcMs begin = time - time % kBin;
    if (!m_bins.empty() && m_bins.back().begin == begin) {
        SpeedRange& range = *m_bins.back().range;
        range = {std::min(range.low, speed), std::max(range.high, speed), speed};
        return;
    }
    if (!m_bins.empty() && m_bins.back().begin > begin)
        m_bins.clear(); // the PC's clock was set back
    m_bins.push_back({begin, SpeedRange{speed, speed, speed}});
    while (m_bins.front().begin < begin - kSpan)
        m_bins.pop_front();
    ++m_generation;
}

} // namespace tambrix
